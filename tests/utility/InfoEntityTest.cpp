// Entity information: line weights as text, the dialog's fields for an entity on its own and inside
// a block, and the colour combo that shows colours its list lacks.
#include "CTogTrueColorComboBox.h"
#include "VykresUtility.h"
#include "_Utility/InfoEntity.h"
#include "_Utility/TextTloustky.h"

using namespace vykres;

TEST(TextTloustky, JmenaAStotinyMilimetru)
{
    EXPECT_EQ(TextTloustky(AcDb::kLnWtByLayer), L"DLEHLAD");
    EXPECT_EQ(TextTloustky(AcDb::kLnWtByBlock), L"DLEBLOK");
    EXPECT_EQ(TextTloustky(AcDb::kLnWtByLwDefault), L"Výchozí");
    EXPECT_EQ(TextTloustky(AcDb::kLnWt000), L"0.0");
    EXPECT_EQ(TextTloustky(AcDb::kLnWt050), L"0.5");
    EXPECT_EQ(TextTloustky(AcDb::kLnWt211), L"2.1");
}

class InfoEntityTest : public SystemNaPlatforme {};

TEST_F(InfoEntityTest, CaraVModeluSkryjeOddilBloku)
{
    Spust("5,0\nok\n");
    auto* cara = new AcDbLine(AcGePoint3d(), AcGePoint3d(10, 0, 0));
    cara->setColorIndex(3);
    cara->setLineWeight(AcDb::kLnWt050);
    Model(cara);
    UkazInfoEntity();
    const std::wstring& z = Zaznam();
    EXPECT_NE(z.find(L"156 pole [AcDbLine]"), std::wstring::npos) << sim::toUtf8(z);
    EXPECT_NE(z.find(L">Zelená"), std::wstring::npos) << sim::toUtf8(z);
    EXPECT_NE(z.find(L"163 pole [0.5]"), std::wstring::npos);
    EXPECT_NE(z.find(L"155 pole [1.00]"), std::wstring::npos);
    EXPECT_NE(z.find(L"177 pole [] (jen pro čtení) [skryto]"), std::wstring::npos);
}

TEST_F(InfoEntityTest, EntitaVBlokuAOddilReference)
{
    Spust("0,5\nok\n");
    AcDbObjectId hladina = Hladina(Db(), L"VNITRNI");
    auto* kruh = new AcDbCircle(AcGePoint3d(), AcGeVector3d::kZAxis, 5.0);
    kruh->setLayer(hladina);
    AcDbObjectId vnitrni = Blok(L"VNITRNI_BLOK", {kruh});
    // A block nested in a block: the innermost circle, and the top-level reference in the section.
    AcDbObjectId vnejsi = Blok(L"VNEJSI", {new AcDbBlockReference(AcGePoint3d(), vnitrni)});
    AcDbObjectId ref = Reference(vnejsi, AcGePoint3d());
    {
        AcDbObjectPointer<AcDbBlockReference> r(ref, AcDb::kForWrite);
        r->setColorIndex(5);
    }
    UkazInfoEntity();
    const std::wstring& z = Zaznam();
    EXPECT_NE(z.find(L"156 pole [AcDbCircle]"), std::wstring::npos) << sim::toUtf8(z);
    EXPECT_NE(z.find(L"166 pole [VNITRNI]"), std::wstring::npos);
    EXPECT_NE(z.find(L"177 pole [VNEJSI]"), std::wstring::npos);
    EXPECT_NE(z.find(L">Modrá"), std::wstring::npos);
    EXPECT_EQ(z.find(L"[skryto]"), std::wstring::npos);
}
