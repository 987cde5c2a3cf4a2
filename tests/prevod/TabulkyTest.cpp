// The tables of the conversion of old drawings: the names read from .lin files, the conversion file
// of old line type names, the fixed style maps and the data the installation ships.
#include <gtest/gtest.h>

#include <fstream>
#include <string>

#include "CTogFunkce.h"
#include "CTogSet.h"
#include "PrevodStandardu.h"
#include "SourceDir.h"

namespace {

std::wstring W(const AcString& s) { return s.kwszPtr(); }

std::wstring Hodnota(const MapaNazvu& mapa, const wchar_t* klic)
{
    auto it = mapa.find(klic);
    return it == mapa.end() ? L"<none>" : W(it->second);
}

std::wstring Data(const char* soubor) { return CTogFunkce::ZUtf8(toguSourceDir() + "/data/" + soubor); }

} // namespace

TEST(LinNazvy, TakeOnlyDefinitionLinesWithTheirNamesFoldedAndUpperCased)
{
    MapaNazvu nazvy;
    NactiLinZTextu(nazvy, L";; comment *NOT,a comment\r\n"
                          L"*TEČKOVANÁ,Tečkovaná . . .\r\n"
                          L"A,.5,-.25,0\r\n"
                          L"\t *  osa stará \t, lower case, inner blank\n"
                          L"*,no name\n"
                          L"*   \t,blank name\n"
                          L"*BEZ_CARKY\n"
                          L"   \r\n"
                          L"*SV,first\n"
                          L"*SV,second");
    EXPECT_EQ(nazvy.size(), 3u);
    // The key is the name without diacritics, nothing else changed; the value is upper case.
    EXPECT_EQ(Hodnota(nazvy, L"TECKOVANA"), L"TEČKOVANÁ");
    EXPECT_EQ(Hodnota(nazvy, L"osa stara"), L"OSA STARÁ");
    EXPECT_EQ(Hodnota(nazvy, L"SV"), L"SV");
    EXPECT_EQ(Hodnota(nazvy, L"NOT"), L"<none>");
}

TEST(PrevodLT, ReadsNewNameAndItsOldNamesAndLaterLinesReplaceEarlierOnes)
{
    MapaPrevoduLT prevody;
    NactiPrevodLTZTextu(prevody, L"  SV ; VODA-SV ;; OSA ;\r\n"
                                 L"\r\n"
                                 L"TUV;STARA-TUV\n"
                                 L";PLYN;ZTI_PLYN\n"
                                 L"SAMOTNY\n"
                                 L"TUV;TEPLA;VODA-SV");
    ASSERT_EQ(prevody.size(), 4u);
    ASSERT_EQ(prevody[L"SV"].size(), 2u);
    EXPECT_EQ(W(prevody[L"SV"][0]), L"VODA-SV");
    EXPECT_EQ(W(prevody[L"SV"][1]), L"OSA");
    EXPECT_EQ(W(prevody[L"PLYN"].front()), L"ZTI_PLYN");
    EXPECT_TRUE(prevody[L"SAMOTNY"].empty());
    ASSERT_EQ(prevody[L"TUV"].size(), 2u);
    EXPECT_EQ(W(prevody[L"TUV"][0]), L"TEPLA");

    MapaNazvu typy;
    NaplnTypyCar(typy, prevody);
    // STARA-TUV was replaced; VODA-SV stands under two new names and keeps the first in key order.
    EXPECT_EQ(typy.size(), 4u);
    EXPECT_EQ(Hodnota(typy, L"STARA-TUV"), L"<none>");
    EXPECT_EQ(Hodnota(typy, L"VODA-SV"), L"SV");
    EXPECT_EQ(Hodnota(typy, L"TEPLA"), L"TUV");
    EXPECT_EQ(Hodnota(typy, L"SAMOTNY"), L"<none>");
}

TEST(PrevodLT, ShippedFileMapsOldNamesOntoStandardLineTypesOnly)
{
    MapaNazvu standardni, symboly;
    NactiLin(standardni, Data("LIN/TG_zakladni_cary.lin").c_str());
    NactiLin(symboly, Data("LIN/TG_IS.lin").c_str());
    ASSERT_EQ(standardni.size(), 11u);
    ASSERT_FALSE(symboly.empty());

    // Each byte of the conversion file is one character.
    std::ifstream soubor(toguSourceDir() + "/data/TG_prevodLT.tgu", std::ios::binary);
    ASSERT_TRUE(soubor.good());
    std::wstring text;
    for (char c; soubor.get(c);)
        text += static_cast<wchar_t>(static_cast<unsigned char>(c));
    MapaPrevoduLT prevody;
    NactiPrevodLTZTextu(prevody, text);
    MapaNazvu typy;
    NaplnTypyCar(typy, prevody);
    ASSERT_FALSE(typy.empty());

    for (const auto& [stary, novy] : typy) {
        // A new name the .lin file lacks would fail to load in the middle of a conversion.
        EXPECT_EQ(Hodnota(standardni, novy), W(novy)) << W(stary);
        // The key of a drawing's line type is its name without separators at the ends: an old name
        // that is a present name so trimmed would take a standard line type away.
        EXPECT_EQ(W(CTogFunkce::OrizniOddelovace(stary)), W(stary));
        for (const MapaNazvu* lin : {&standardni, &symboly})
            for (const auto& [klic, nazev] : *lin)
                EXPECT_NE(W(CTogFunkce::OrizniOddelovace(klic)), W(stary)) << W(nazev);
    }
}

TEST(MapyStylu, EveryNewNameIsInTheCatalogue)
{
    PrevodniTabulka tabulka;
    NaplnMapyStylu(tabulka);
    EXPECT_EQ(tabulka.textoveStyly.size() + tabulka.mleaderStyly.size() + tabulka.kotaStyly.size(), 21u);
    for (const auto& [stary, novy] : tabulka.textoveStyly)
        EXPECT_NE(NajdiStdTextStyl(novy), nullptr) << W(stary);
    for (const auto& [stary, novy] : tabulka.mleaderStyly)
        EXPECT_NE(NajdiStdMLeaderStyl(novy), nullptr) << W(stary);
    for (const auto& [stary, novy] : tabulka.kotaStyly)
        EXPECT_NE(NajdiStdKotaStyl(novy), nullptr) << W(stary);
    // The two water styles go crosswise.
    EXPECT_EQ(Hodnota(tabulka.kotaStyly, L"P_VODA1"), L"TG_VODA2");
    EXPECT_EQ(Hodnota(tabulka.kotaStyly, L"P_VODA2"), L"TG_VODA1");
}
