// The tables of a conversion run: the fixed maps of old style names, the names of the .lin files and
// the conversion file of old line type names.
#include "StdAfx.h"
#include "PrevodStandardu.h"
#include <afx.h>
#include <cwctype>
#include <string>
#include "CTogException.h"
#include "CTogFunkce.h"
#include "CTogRegistry.h"

namespace {

constexpr const ACHAR* kSouborPrevodu = L"TG_prevodLT.tgu";

// The whole file as bytes; false when it doesn't open or can't be read.
bool NactiSoubor(const ACHAR* cesta, std::string& obsah)
{
    CFile soubor;
    if (!soubor.Open(cesta, CFile::modeRead | CFile::shareDenyWrite | CFile::typeBinary))
        return false;
    obsah.clear();
    try {
        char blok[16384];
        for (UINT n; (n = soubor.Read(blok, sizeof blok)) > 0;)
            obsah.append(blok, n);
    } catch (CFileException* chyba) {
        chyba->Delete();
        return false;
    }
    return true;
}

// Calls `radek` for each line of the text; a "\r" before the line end goes, as in text mode.
template <class F>
void ProRadky(std::wstring_view text, F radek)
{
    while (!text.empty()) {
        size_t konec = text.find(L'\n');
        std::wstring_view r = text.substr(0, konec);
        if (!r.empty() && r.back() == L'\r')
            r.remove_suffix(1);
        radek(r);
        if (konec == std::wstring_view::npos)
            break;
        text.remove_prefix(konec + 1);
    }
}

template <class Pred>
std::wstring_view Orizni(std::wstring_view s, Pred bily)
{
    while (!s.empty() && bily(s.front()))
        s.remove_prefix(1);
    while (!s.empty() && bily(s.back()))
        s.remove_suffix(1);
    return s;
}

bool JeMezera(wchar_t c) { return std::iswspace(static_cast<wint_t>(c)) != 0; }
bool MezeraNeboTab(wchar_t c) { return c == L' ' || c == L'\t'; }

AcString Text(std::wstring_view s) { return AcString(std::wstring(s).c_str()); }

} // namespace

void NaplnMapyStylu(PrevodniTabulka& tabulka)
{
    tabulka.textoveStyly = {
        {L"TEXT-020", L"TG_TXT_MALY"},     {L"TEXT-035", L"TG_TXT_MALY"},  {L"TEXT-050", L"TG_TXT_VELKY"},
        {L"TEXT-KQ", L"TG_TXT_MALY"},      {L"TEXT-KQ-P", L"TG_TXT_MALY"}, {L"TEXT-NADPIS", L"TG_TXT_VELKY"},
    };
    tabulka.mleaderStyly = {
        {L"KQ_POZICE", L"TG_POZICE"},
        {L"KQ_SIPKA", L"TG_SIPKA"},
        {L"KQ_TECKA", L"TG_TECKA"},
        {L"KQ_VYTYCENI", L"TG_VYTYCENI"},
    };
    // P_VODA1 and P_VODA2 go crosswise.
    tabulka.kotaStyly = {
        {L"KANALIZACE", L"TG_KANREZ"},    {L"KANALIZACE+", L"TG_KANREZ"},  {L"KANALIZACE-", L"TG_KANREZ"},
        {L"KANALIZACE-S", L"TG_KANREZ"},  {L"P_M_VNEJSI", L"TG_VNEJSI_M"}, {L"P_M_VNITRNI", L"TG_VNITRNI_M"},
        {L"P_VNEJSI", L"TG_VNEJSI"},      {L"P_VNITRNI", L"TG_VNITRNI"},   {L"P_VODA1", L"TG_VODA2"},
        {L"P_VODA2", L"TG_VODA1"},        {L"STANICENI", L"TG_KANSTAN"},
    };
}

void NactiLinZTextu(MapaNazvu& nazvy, std::wstring_view text)
{
    ProRadky(text, [&nazvy](std::wstring_view radek) {
        size_t prvni = radek.find_first_not_of(L" \t\r\n");
        if (prvni == std::wstring_view::npos || radek[prvni] != L'*')
            return; // empty lines, pattern lines, comments
        size_t carka = radek.find(L',', prvni);
        if (carka == std::wstring_view::npos || carka == prvni + 1)
            return;
        std::wstring_view nazev = Orizni(radek.substr(prvni + 1, carka - prvni - 1), MezeraNeboTab);
        if (nazev.empty())
            return;
        AcString klic = Text(nazev);
        CTogFunkce::BezDiakritiky(klic.getBuffer());
        klic.releaseBuffer();
        AcString hodnota = Text(nazev);
        CTogFunkce::NaVelka(hodnota);
        nazvy[klic] = hodnota;
    });
}

void NactiLin(MapaNazvu& nazvy, const ACHAR* cesta)
{
    std::string obsah;
    if (!NactiSoubor(cesta, obsah))
        throw CTogException("Nelze otevřít .lin soubor", __LINE__, __FILE__);
    NactiLinZTextu(nazvy, CTogFunkce::ZUtf8(obsah));
}

void NactiPrevodLTZTextu(MapaPrevoduLT& prevody, std::wstring_view text)
{
    ProRadky(text, [&prevody](std::wstring_view radek) {
        radek = Orizni(radek, JeMezera);
        if (radek.empty())
            return;
        std::vector<AcString> tokeny;
        while (true) {
            size_t strednik = radek.find(L';');
            std::wstring_view token = Orizni(radek.substr(0, strednik), JeMezera);
            if (!token.empty())
                tokeny.push_back(Text(token));
            if (strednik == std::wstring_view::npos)
                break;
            radek.remove_prefix(strednik + 1);
        }
        if (tokeny.empty())
            return;
        AcString novy = tokeny.front();
        tokeny.erase(tokeny.begin());
        prevody[novy] = std::move(tokeny);
    });
}

void NactiPrevodLT(MapaPrevoduLT& prevody)
{
    AcString cesta = CTogRegistry::NactiCestu(CTogRegistry::kKlicProduktu, TypCesty::Install) + kSouborPrevodu;
    std::string obsah;
    if (!NactiSoubor(cesta, obsah)) {
        acutPrintf(L"\nNepodařilo se otevřít soubor <%ls> pro čtení", cesta.kwszPtr());
        throw CTogException("Nelze otevřít soubor s definicí převodní tabulky, opravte instalaci", __LINE__, __FILE__);
    }
    // No conversion: each byte is one character.
    std::wstring text(obsah.size(), L'\0');
    for (size_t i = 0; i < obsah.size(); ++i)
        text[i] = static_cast<unsigned char>(obsah[i]);
    NactiPrevodLTZTextu(prevody, text);
}

void NaplnTypyCar(MapaNazvu& typyCar, const MapaPrevoduLT& prevody)
{
    for (const auto& [novy, stare] : prevody)
        for (const AcString& stary : stare)
            typyCar.emplace(stary, novy);
}

void ZalozPrevodniTabulku(PrevodniTabulka& tabulka)
{
    NaplnMapyStylu(tabulka);
    const AcString lin =
        CTogRegistry::CestaKAdresari(CTogRegistry::kKlicVyrobce, L"LIN", TypCesty::CommonData, true, false);
    tabulka.linNazvy.clear();
    NactiLin(tabulka.linNazvy, lin + L"TG_IS.lin");
    tabulka.typyCar.clear();
    MapaPrevoduLT prevody;
    NactiPrevodLT(prevody);
    NaplnTypyCar(tabulka.typyCar, prevody);
    NactiLin(tabulka.linNazvy, lin + L"TG_zakladni_cary.lin");
}
