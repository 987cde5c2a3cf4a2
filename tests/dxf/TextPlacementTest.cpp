// A text keeps its rarely set values (alignment point, normal, thickness, oblique angle) in storage
// of their own: through copies, transforms and a round trip through the file they stay as set.
#include "DxfFixture.h"

#include <cmath>
#include <memory>

#include "dbents.h"

using namespace dxftest;

namespace {

void expectPlacement(const AcDbText& t, const AcGePoint3d& align, const AcGeVector3d& normal, double thickness,
                     double oblique)
{
    EXPECT_EQ(t.alignmentPoint(), align);
    EXPECT_TRUE(t.normal().isEqualTo(normal));
    EXPECT_EQ(t.thickness(), thickness);
    EXPECT_NEAR(t.oblique(), oblique, 1e-12);
}

} // namespace

TEST(TextPlacement, DefaultsUntilSetAndCopiedWithTheText)
{
    AcDbText plain(AcGePoint3d(1, 2, 0), L"A");
    expectPlacement(plain, AcGePoint3d::kOrigin, AcGeVector3d::kZAxis, 0.0, 0.0);

    AcDbText t(AcGePoint3d(1, 2, 0), L"B");
    t.setAlignmentPoint(AcGePoint3d(5, 6, 7));
    t.setThickness(2.0);
    t.setOblique(0.25);
    t.setNormal(AcGeVector3d(0, 0, -2)); // kept normalized
    std::unique_ptr<AcDbText> copy(static_cast<AcDbText*>(t.clone()));
    expectPlacement(*copy, AcGePoint3d(5, 6, 7), AcGeVector3d(0, 0, -1), 2.0, 0.25);

    // Back to the defaults, and a copy assigned over a text that had its own.
    t.setThickness(0.0);
    t.setAlignmentPoint(AcGePoint3d::kOrigin);
    EXPECT_EQ(t.thickness(), 0.0);
    EXPECT_EQ(t.alignmentPoint(), AcGePoint3d::kOrigin);
    EXPECT_EQ(copy->copyFrom(&plain), Acad::eOk);
    expectPlacement(*copy, AcGePoint3d::kOrigin, AcGeVector3d::kZAxis, 0.0, 0.0);
    // A refused oblique angle leaves the text as it was.
    EXPECT_NE(t.setOblique(M_PI / 2), Acad::eOk);
    EXPECT_EQ(t.oblique(), 0.25);
}

TEST(TextPlacement, TransformMovesTheAlignmentPointOfAPlainText)
{
    AcDbText t(AcGePoint3d(1, 0, 0), L"C");
    AcGeMatrix3d shift;
    shift.setToTranslation(AcGeVector3d(10, 20, 0));
    ASSERT_EQ(t.transformBy(shift), Acad::eOk);
    EXPECT_EQ(t.position(), AcGePoint3d(11, 20, 0));
    EXPECT_EQ(t.alignmentPoint(), AcGePoint3d(10, 20, 0));
    EXPECT_TRUE(t.normal().isEqualTo(AcGeVector3d::kZAxis));
}

TEST(TextPlacement, FileRoundTripKeepsEveryValue)
{
    AcDbDatabase db;
    auto* a = new AcDbText(AcGePoint3d(1, 2, 0), L"aligned");
    a->setHorizontalMode(AcDb::kTextCenter);
    a->setAlignmentPoint(AcGePoint3d(3, 4, 0));
    a->setThickness(1.5);
    a->setOblique(0.1);
    AcDbObjectId ida = append(db, a);
    auto* b = new AcDbText(AcGePoint3d(0, 0, 0), L"plain");
    AcDbObjectId idb = append(db, b);
    std::string text = write(db);
    auto back = read(text);
    auto* ra = same<AcDbText>(*back, ida);
    auto* rb = same<AcDbText>(*back, idb);
    ASSERT_TRUE(ra && rb);
    expectPlacement(*ra, AcGePoint3d(3, 4, 0), AcGeVector3d::kZAxis, 1.5, 0.1);
    expectPlacement(*rb, AcGePoint3d::kOrigin, AcGeVector3d::kZAxis, 0.0, 0.0);
    std::string again = write(*back);
    EXPECT_EQ(record(again, ida.handle()), record(text, ida.handle()));
    EXPECT_EQ(record(again, idb.handle()), record(text, idb.handle()));
}
