// The catalogue of standard objects: lookups by name key, the rows other parts rely on, the layer
// lists by group and the order in which the tables are walked.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "CTogSet.h"

namespace {

std::wstring W(const AcString& s) { return s.kwszPtr(); }

template <class Mapa>
std::vector<std::wstring> NazvyVPoradi(const Mapa& mapa)
{
    std::vector<std::wstring> nazvy;
    for (const auto& [klic, zaznam] : mapa)
        nazvy.push_back(W(zaznam.nazev));
    return nazvy;
}

} // namespace

TEST(Katalog, HoldsEveryRowUnderItsOwnKey)
{
    // A key shared by two rows would drop one of them silently.
    EXPECT_EQ(StdHladiny().size(), 35u);
    EXPECT_EQ(StdTextStyly().size(), 2u);
    EXPECT_EQ(StdMLeaderStyly().size(), 4u);
    EXPECT_EQ(StdKotaStyly().size(), 8u);
    for (const auto& [klic, hladina] : StdHladiny())
        EXPECT_EQ(W(klic), W(KlicKatalogu(hladina.nazev)));
}

TEST(Katalog, FindsANameInAnyCaseWithOrWithoutDiacriticsAndKeepsItsSpelling)
{
    const StdHladina* koty = NajdiStdHladinu(L"kóty");
    ASSERT_NE(koty, nullptr);
    for (const ACHAR* jinak : {L"KOTY", L"Koty", L"KÓTY", L"kotY"})
        EXPECT_EQ(NajdiStdHladinu(jinak), koty) << jinak;
    EXPECT_EQ(W(koty->nazev), L"kóty");

    const StdHladina* poz = NajdiStdHladinu(L"zt-voda_poz");
    ASSERT_NE(poz, nullptr);
    EXPECT_EQ(W(poz->nazev), L"ZT-voda_POŽ");
    ASSERT_NE(NajdiStdHladinu(L"ZT-ČERP_KAN_V_PODL"), nullptr);
    EXPECT_EQ(W(NajdiStdHladinu(L"ZT-ČERP_KAN_V_PODL")->nazev), L"ZT-čerp_kan_v_podl");

    ASSERT_NE(NajdiStdTextStyl(L"tg_txt_maly"), nullptr);
    EXPECT_EQ(W(NajdiStdTextStyl(L"tg_txt_maly")->nazev), L"TG_TXT_MALY");
    ASSERT_NE(NajdiStdMLeaderStyl(L"Tg_Tečka"), nullptr);
    EXPECT_EQ(W(NajdiStdMLeaderStyl(L"Tg_Tečka")->nazev), L"TG_TECKA");
    ASSERT_NE(NajdiStdKotaStyl(L"tg_voda1"), nullptr);
    EXPECT_EQ(W(NajdiStdKotaStyl(L"tg_voda1")->nazev), L"TG_VODA1");
}

TEST(Katalog, AnswersNullForNamesOutsideTheTable)
{
    // A drawing's layer name keeps its prefix until the caller cuts it off.
    EXPECT_EQ(NajdiStdHladinu(L"AB_kóty"), nullptr);
    EXPECT_EQ(NajdiStdHladinu(L"kóty "), nullptr);
    EXPECT_EQ(NajdiStdHladinu(L"zti-KOTY"), nullptr); // an old name is no catalogue name
    EXPECT_EQ(NajdiStdHladinu(L""), nullptr);
    EXPECT_EQ(NajdiStdHladinu(nullptr), nullptr);
    // Each table answers for its own kind only.
    EXPECT_EQ(NajdiStdTextStyl(L"TG_SIPKA"), nullptr);
    EXPECT_EQ(NajdiStdKotaStyl(L"TG_TXT_MALY"), nullptr);
    EXPECT_EQ(NajdiStdMLeaderStyl(L"TG_VODA1"), nullptr);
}

TEST(Katalog, LayerRowsThatOtherPartsRelyOn)
{
    std::vector<std::wstring> netisknute, bezStarehoNazvu;
    for (const auto& [klic, h] : StdHladiny()) {
        if (!h.tisknout)
            netisknute.push_back(W(h.nazev));
        if (h.staryNazev.isEmpty())
            bezStarehoNazvu.push_back(W(h.nazev));
        EXPECT_TRUE(h.sloucene.empty()) << W(h.nazev);
        EXPECT_TRUE(h.skupina == kSkupinaPotrubi || h.skupina == kSkupinaOstatni) << W(h.nazev);
        EXPECT_TRUE(h.barva.isByACI()) << W(h.nazev);
    }
    EXPECT_EQ(netisknute, std::vector<std::wstring>{L"netisk"});
    std::sort(bezStarehoNazvu.begin(), bezStarehoNazvu.end());
    EXPECT_EQ(bezStarehoNazvu, (std::vector<std::wstring>{L"UT-radiátory_popisy", L"ZT-tečkovaná", L"ZT-voda_UŽIT"}));

    // Line types that one would not guess from the layer's name.
    EXPECT_EQ(W(NajdiStdHladinu(L"ZT-kan_pod_str")->typCary), L"TUV");
    EXPECT_EQ(W(NajdiStdHladinu(L"UT-vratná")->typCary), L"KAN-PODL");
    EXPECT_EQ(W(NajdiStdHladinu(L"osy")->typCary), L"SV");
    EXPECT_EQ(W(NajdiStdHladinu(L"ZT-tečkovaná")->typCary), L"TEČKOVANÁ");
    EXPECT_EQ(W(NajdiStdHladinu(L"UT-topná")->typCary), kSouvislaCara);
    EXPECT_EQ(NajdiStdHladinu(L"ZT-voda_CIRK")->barva.colorIndex(), 210);
    EXPECT_EQ(NajdiStdHladinu(L"kóty")->tloustka, AcDb::kLnWtByLwDefault);
}

TEST(Katalog, OnlyTgPoziceUsesTheLargeTextStyle)
{
    std::vector<std::wstring> velky;
    for (const auto& [klic, s] : StdMLeaderStyly()) {
        ASSERT_NE(NajdiStdTextStyl(s.textStyl), nullptr) << W(s.nazev);
        if (W(s.textStyl) == L"TG_TXT_VELKY")
            velky.push_back(W(s.nazev));
    }
    for (const auto& [klic, s] : StdKotaStyly()) {
        ASSERT_NE(NajdiStdTextStyl(s.textStyl), nullptr) << W(s.nazev);
        if (W(s.textStyl) == L"TG_TXT_VELKY")
            velky.push_back(W(s.nazev));
    }
    EXPECT_EQ(velky, std::vector<std::wstring>{L"TG_POZICE"});
}

TEST(SeznamStdHladin, ListsTheLayersOfTheMaskByTheirStoredNames)
{
    std::set<AcString> potrubi;
    EXPECT_EQ(SeznamStdHladin(kSkupinaPotrubi, potrubi), 15);
    EXPECT_TRUE(potrubi.count(L"ZT-voda_POŽ"));
    EXPECT_TRUE(potrubi.count(L"ZT-plynovod"));
    EXPECT_TRUE(potrubi.count(L"UT-vratná"));
    EXPECT_FALSE(potrubi.count(L"UT-radiátory"));
    EXPECT_FALSE(potrubi.count(L"kóty"));

    std::set<AcString> vse;
    EXPECT_EQ(SeznamStdHladin(kSkupinaVse, vse), 35);
    EXPECT_TRUE(vse.count(L"kóty"));
    EXPECT_FALSE(vse.count(L"KOTY"));
    // Plain character order: capitals before small letters, accented letters last.
    EXPECT_EQ(W(*vse.begin()), L"UT-radiátory");
    EXPECT_EQ(W(*vse.rbegin()), L"šrafy");

    std::set<AcString> nic;
    EXPECT_EQ(SeznamStdHladin(kSkupinaUzivatelska, nic), 0);
    EXPECT_EQ(SeznamStdHladin(0, nic), 0);
}

TEST(SeznamStdHladin, AddsToWhatTheSetHeldAndCountsIt)
{
    std::set<AcString> seznam{AcString(L"AB_vlastní"), AcString(L"ZT-plynovod")};
    EXPECT_EQ(SeznamStdHladin(kSkupinaPotrubi, seznam), 16);
    EXPECT_EQ(SeznamStdHladin(kSkupinaPotrubi, seznam), 16);
    EXPECT_EQ(SeznamStdHladin(kSkupinaOstatni, seznam), 36);
}

TEST(Katalog, TablesWalkInKeyOrderByCodeUnits)
{
    EXPECT_EQ(NazvyVPoradi(StdMLeaderStyly()),
        (std::vector<std::wstring>{L"TG_POZICE", L"TG_SIPKA", L"TG_TECKA", L"TG_VYTYCENI"}));
    EXPECT_EQ(NazvyVPoradi(StdKotaStyly()),
        (std::vector<std::wstring>{L"TG_KANREZ", L"TG_KANSTAN", L"TG_VNEJSI", L"TG_VNEJSI_M", L"TG_VNITRNI",
            L"TG_VNITRNI_M", L"TG_VODA1", L"TG_VODA2"}));

    std::vector<std::wstring> hladiny = NazvyVPoradi(StdHladiny());
    auto misto = [&hladiny](const wchar_t* nazev) {
        return std::find(hladiny.begin(), hladiny.end(), nazev) - hladiny.begin();
    };
    // Keys are folded and upper-cased, so kóty comes first and ZT-... last, whatever the case of the row.
    EXPECT_EQ(hladiny.front(), L"kóty");
    EXPECT_EQ(hladiny.back(), L"ZT-V_stoupačky");
    // Shorter first on a common start; '_' (0x5F) after the capitals, '-' (0x2D) before them.
    EXPECT_LT(misto(L"kóty"), misto(L"kóty_výškové"));
    EXPECT_LT(misto(L"ZT-kanalizace"), misto(L"ZT-kan_pod_str"));
    EXPECT_LT(misto(L"ZT-kan_v_podl"), misto(L"ZT-K_stoupačky"));
    EXPECT_LT(misto(L"UT-radiátory"), misto(L"UT-radiátory_popisy"));
    EXPECT_LT(misto(L"šrafy"), misto(L"tepelná_izolace"));
    EXPECT_LT(misto(L"ZT-čerp_kan_v_podl"), misto(L"ZT-deš_kan_pod_str"));
}
