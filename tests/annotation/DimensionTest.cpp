// Dimensions: the style, the text, the text style override and the measurement, and all surviving
// a DXF save and load.
#include "AnnotationFixture.h"

#include <cmath>

#include "dbdim.h"
#include "dbsymtb.h"

TEST_F(AnnotationTest, AnAlignedDimensionKeepsItsValuesAndOverride)
{
    AcDbObjectId standardDim;
    {
        AcDbDimStyleTableRecordPointer s(L"Standard", db.get());
        standardDim = s->objectId();
    }
    AcDbObjectId standardText;
    {
        AcDbTextStyleTableRecordPointer t(L"Standard", db.get());
        standardText = t->objectId();
    }
    auto* other = new AcDbTextStyleTableRecord;
    other->setName(L"TG_TXT_MALY");
    AcDbObjectId otherText;
    {
        AcDbTextStyleTablePointer table(db.get(), AcDb::kForWrite);
        ASSERT_EQ(table->add(otherText, other), Acad::eOk);
        other->close();
    }

    auto* dim = new AcDbAlignedDimension(AcGePoint3d(0, 0, 0), AcGePoint3d(30, 40, 0), AcGePoint3d(-4, 3, 0), L"DN 50", standardDim);
    EXPECT_EQ(dim->dimtxsty(), standardText); // the style's, until overridden
    ASSERT_EQ(dim->setDimtxsty(otherText), Acad::eOk);
    dim->setTextPosition(AcGePoint3d(11, 22, 0));
    dim->setHorizontalRotation(0.25);
    AcDbObjectId id = append(dim);
    {
        AcDbObjectPointer<AcDbAlignedDimension> d(id);
        EXPECT_EQ(d->dimtxsty(), otherText);
        double m = 0;
        d->measurement(m);
        EXPECT_DOUBLE_EQ(m, 50.0);
    }
    auto* plain = new AcDbRotatedDimension(M_PI / 2, AcGePoint3d(0, 0, 0), AcGePoint3d(30, 40, 0), AcGePoint3d(5, 0, 0));
    plain->setDimensionStyle(standardDim);
    AcDbObjectId plainId = append(plain);

    roundTrip();
    auto* d = same<AcDbAlignedDimension>(id);
    ASSERT_NE(d, nullptr);
    EXPECT_EQ(AcDbRotatedDimension::cast(d), nullptr);
    EXPECT_EQ(d->xLine1Point(), AcGePoint3d(0, 0, 0));
    EXPECT_EQ(d->xLine2Point(), AcGePoint3d(30, 40, 0));
    EXPECT_EQ(d->dimLinePoint(), AcGePoint3d(-4, 3, 0));
    EXPECT_EQ(d->textPosition(), AcGePoint3d(11, 22, 0));
    EXPECT_FALSE(d->isUsingDefaultTextPosition());
    EXPECT_NEAR(d->horizontalRotation(), 0.25, 1e-12);
    ACHAR* text = d->dimensionText();
    EXPECT_STREQ(text, L"DN 50");
    delete[] text;
    EXPECT_EQ(d->dimensionStyle().handle(), standardDim.handle());
    EXPECT_EQ(d->dimtxsty().handle(), otherText.handle());

    auto* r = same<AcDbRotatedDimension>(plainId);
    ASSERT_NE(r, nullptr);
    EXPECT_NEAR(r->rotation(), M_PI / 2, 1e-12);
    double m = 0;
    r->measurement(m);
    EXPECT_NEAR(m, 40.0, 1e-9);
    // Without an override the style's text style holds.
    EXPECT_EQ(r->dimtxsty().handle(), standardText.handle());

    // Taking the style data again drops the override.
    AcDbObjectPointer<AcDbAlignedDimension> open(AcDbObjectId(back.get(), id.handle()), AcDb::kForWrite);
    ASSERT_EQ(open->setDimstyleData(open->dimensionStyle()), Acad::eOk);
    EXPECT_EQ(open->dimtxsty().handle(), standardText.handle());
}
