// The shipped level mark block is what its generator writes today, and a reference of it shows its
// dynamic values: the leader hidden or stretched, the mark flipped below the line with its texts
// readable, the attributes moved with their definitions.
#include "DxfFixture.h"

#include <fstream>

#include "SourceDir.h"
#include "dbdynblk.h"
#include "sim/db/DynamicBlock.h"
#include "tools/LevelMarkFile.h"

using namespace dxftest;

class LevelMarkBlock : public DxfTest {};

TEST_F(LevelMarkBlock, ShippedFileIsTheGeneratorsOutput)
{
    std::ifstream in(toguSourceDir() + "/data/BLOKY/tg_kacena.dwg", std::ios::binary);
    std::string shipped((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    std::string made = togu::tools::levelMarkFileText();
    EXPECT_EQ(shipped, made) << "run make_level_mark data/BLOKY/tg_kacena.dwg\n" << difference(shipped, made);
}

TEST_F(LevelMarkBlock, ReferenceShowsItsValues)
{
    auto side = read(togu::tools::levelMarkFileText());
    AcDbDatabase db;
    AcDbObjectId block;
    ASSERT_EQ(db.insert(block, L"tg_kacena", side.get()), Acad::eOk);
    ASSERT_TRUE(AcDbDynBlockReference::isDynamicBlock(block));
    AcDbObjectId refId = append(db, new AcDbBlockReference(AcGePoint3d(100, 100, 0), block));
    {
        AcDbObjectPointer<AcDbBlockReference> ref(refId, AcDb::kForWrite);
        auto* attdefBlock = AcDbBlockTableRecord::cast(sim::db::objectOf(block));
        for (AcDbObjectId id : sim::db::entityIds(attdefBlock))
            if (auto* def = AcDbAttributeDefinition::cast(sim::db::objectOf(id))) {
                auto* a = new AcDbAttribute;
                a->setAttributeFromBlock(def, ref->blockTransform());
                ref->appendAttribute(a);
                a->close();
            }
        AcDbDynBlockReference dyn(ref.object());
        AcDbDynBlockReferencePropertyArray props;
        dyn.getBlockProperties(props);
        ASSERT_EQ(props.length(), 6);
        for (int i = 0; i < props.length(); ++i) {
            std::wstring name = props[i].propertyName().kwszPtr();
            if (name == L"ODKAZ") {
                EXPECT_EQ(props[i].setValue(AcDbEvalVariant(L"Nic")), Acad::eInvalidInput) << "not an allowed value";
            } else if (name == L"DL_ODKAZU") {
                EXPECT_EQ(props[i].setValue(AcDbEvalVariant(25.0)), Acad::eOk);
            } else if (name == L"ZRC_VERT" || name == L"ZRC_TEXTU") {
                EXPECT_EQ(props[i].setValue(AcDbEvalVariant(short(1))), Acad::eOk);
            }
        }
        EXPECT_EQ(dyn.dynamicBlockTableRecord(), block);
        EXPECT_FALSE(dyn.anonymousBlockTableRecord().isNull());
    }
    AcDbObjectPointer<AcDbBlockReference> ref(refId, AcDb::kForRead);
    auto* rep = AcDbBlockTableRecord::cast(sim::db::objectOf(ref->blockTableRecord()));
    ASSERT_TRUE(rep && rep->isAnonymous());
    bool leader = false, triangleBelow = false;
    for (AcDbObjectId id : sim::db::entityIds(rep)) {
        if (auto* line = AcDbLine::cast(sim::db::objectOf(id)); line && line->startPoint().isEqualTo(AcGePoint3d::kOrigin))
            leader = line->endPoint().isEqualTo(AcGePoint3d(-25, 0, 0)); // back to the levelled point
        if (auto* pl = AcDbPolyline::cast(sim::db::objectOf(id))) {
            AcGePoint3d p;
            pl->getPointAt(1, p);
            triangleBelow = p.y < 0 && std::abs(p.x) < 2;
        }
    }
    EXPECT_TRUE(leader);
    EXPECT_TRUE(triangleBelow);
    // The level, above the shelf by default, now stands below the flipped shelf, still readable.
    for (AcDbObjectId id : sim::db::attributeIds(ref.object()))
        if (auto* a = AcDbAttribute::cast(sim::db::objectOf(id)); a && std::wstring(a->tagConst()) == L"VYSKA") {
            EXPECT_LT(a->alignmentPoint().y, 100 - 3);
            EXPECT_EQ(a->verticalMode(), AcDb::kTextTop);
            EXPECT_EQ(a->rotation(), 0.0);
        }
}
