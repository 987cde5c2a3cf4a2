// Layers of the earlier standard converted in a drawing whose prefix differs from the user's: the
// prefix dialog comes up in the middle of the conversion and renames layers itself.
#include <gtest/gtest.h>

#include "CTogBaseNastav.h"
#include "CTogXRecord.h"
#include "PrevodStandardu.h"
#include "stores/SystemSRegistrem.h"
#include "walker/VykresProTest.h"

namespace {

class PrevodHladin : public SystemSRegistrem {
protected:
    AcDbObjectId Hladina(const ACHAR* nazev)
    {
        AcDbLayerTablePointer tabulka(m_vykres->database(), AcDb::kForRead);
        AcDbObjectId id;
        return tabulka->getAt(nazev, id) == Acad::eOk ? id : AcDbObjectId::kNull;
    }
    std::wstring Nazev(AcDbObjectId id)
    {
        AcDbLayerTableRecordPointer h(id, AcDb::kForRead);
        AcString jmeno;
        h->getName(jmeno);
        return jmeno.kwszPtr();
    }
};

} // namespace

TEST_F(PrevodHladin, PrefixDialogDuringTheConversionRenamesAndMergesAlongside)
{
    // The drawing's prefix AB, the user's CD: the dialog is answered with the global prefix.
    Spust("ne\ncheck 3015 on\nclick 3014\nok\n");
    ASSERT_NE(Nacti(), nullptr);
    AcDbDatabase* db = m_vykres->database();
    g_pNastaveni->Predpony().globalni = L"CD";
    ASSERT_TRUE(CTogXRecord::UlozDoX(L"PREDPONA", L"AB", L"TOGVARNIK"));
    const AcDbObjectId stara = vykres::Hladina(db, L"zti-KOTY");
    const AcDbObjectId jinak = vykres::Hladina(db, L"XY_KOTY");
    const AcDbObjectId osy = vykres::Hladina(db, L"AB_osy");
    auto* usecka = new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(10, 0, 0));
    usecka->setLayer(jinak);
    const AcDbObjectId idUsecky = vykres::Pridej(db, ACDB_MODEL_SPACE, usecka);

    CTogCmd::ParyId sloucene;
    PrevedHladiny(sloucene);

    EXPECT_EQ(Hladina(L"CD_kóty"), stara);
    EXPECT_EQ(Nazev(stara), L"CD_kóty");
    EXPECT_EQ(Nazev(osy), L"CD_osy");
    ASSERT_EQ(sloucene.size(), 1u);
    EXPECT_EQ(sloucene[0], std::make_pair(jinak, stara));
    EXPECT_TRUE(Hladina(L"XY_KOTY").isNull());
    AcDbEntityPointer e(idUsecky, AcDb::kForRead);
    EXPECT_EQ(e->layerId(), stara);
    EXPECT_NE(Zaznam().find(L"Bylo převedeno 2 hladin"), std::wstring::npos) << sim::toUtf8(Zaznam());
}
