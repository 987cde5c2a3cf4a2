// The catalogue's text form: writer, reader and the file conversions.
#include "tools/katalog/KatalogCsv.h"

#include <afx.h>

#include <charconv>
#include <cmath>
#include <cwchar>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <memory>
#include <sstream>
#include <vector>

#include "CTogSezMaterialu.h"
#include "TabulkyMaterialu.h"
#include "sim/core/Session.h"
#include "sim/win32/Registry.h"

namespace togu::katalog {

const char* const kSloupce[19] = {
    "Materiál", "Podrobný popis", "Výrobce", "Drsnost [mm]", "Skupina", "Použití", "PN", "SDr",
    "Popis profilů", "Popis z vnitřního průměru", "Prefix", "Suffix", "Tvar", "DN", "Vnitřní průměr [mm]",
    "Stěna [mm]", "Šířka [mm]", "URS materiál", "URS montáž",
};

namespace {

constexpr int kPocetSloupcu = 19;
constexpr const char* kBom = "\xEF\xBB\xBF";
const wchar_t* const kTypyPopisu[] = {L"DN", L"D x t", L"Jiný"};
const wchar_t* const kTvary[kPocetTvaru] = {L"Kruh", L"Vejce", L"Vejce - Praha", L"Tlama", L"Obdélník"};
constexpr size_t kMaxNazev = 20;

std::string Utf8(const wchar_t* s) { return sim::toUtf8(s ? s : L""); }

std::string Cislo(float f)
{
    char buf[64];
    auto [konec, chyba] = std::to_chars(buf, buf + sizeof(buf), f, std::chars_format::fixed);
    return chyba == std::errc() ? std::string(buf, konec) : std::string("nan");
}

std::string Pole(const std::string& s)
{
    if (s.find_first_of(";\"\r\n") == std::string::npos)
        return s;
    std::string q = "\"";
    for (char c : s) {
        if (c == '"')
            q += '"';
        q += c;
    }
    return q + "\"";
}

std::string Radek(const std::vector<std::string>& pole)
{
    std::string r;
    for (size_t i = 0; i < pole.size(); ++i) {
        if (i)
            r += ';';
        r += Pole(pole[i]);
    }
    return r + "\n";
}

std::string Hlavicka()
{
    std::string h = Radek({std::begin(kSloupce), std::end(kSloupce)});
    h.pop_back();
    return h;
}

std::string Index(int index, const auto& tabulka, int pocet)
{
    return index >= 0 && index < pocet ? Utf8(tabulka[index].popis) : std::string();
}

// ---------------------------------------------------------------------------------------------
// Reading

struct Zaznam {
    int radek;
    std::vector<std::string> pole;
};

/// Splits the text into records; quoted fields may hold separators, quotes and line ends.
std::vector<Zaznam> Rozdel(std::string_view text)
{
    std::vector<Zaznam> zaznamy;
    int radek = 1;
    size_t i = 0;
    while (i < text.size()) {
        Zaznam z{radek, {}};
        if (text[i] == '#') { // a comment line
            while (i < text.size() && text[i] != '\n')
                ++i;
            ++i;
            ++radek;
            continue;
        }
        std::string pole;
        bool vUvozovkach = false, konec = false, prazdny = true;
        while (i < text.size() && !konec) {
            char c = text[i++];
            if (vUvozovkach) {
                if (c == '"' && i < text.size() && text[i] == '"') {
                    pole += '"';
                    ++i;
                } else if (c == '"') {
                    vUvozovkach = false;
                } else {
                    if (c == '\n')
                        ++radek;
                    pole += c;
                }
            } else if (c == '"') {
                vUvozovkach = true;
                prazdny = false;
            } else if (c == ';') {
                z.pole.push_back(std::move(pole));
                pole.clear();
                prazdny = false;
            } else if (c == '\n') {
                konec = true;
                ++radek;
            } else if (c != '\r') {
                pole += c;
                prazdny = false;
            }
        }
        if (vUvozovkach)
            throw ChybaCsv(z.radek, "a quoted field does not end");
        if (prazdny && pole.empty())
            continue;
        z.pole.push_back(std::move(pole));
        zaznamy.push_back(std::move(z));
    }
    return zaznamy;
}

struct Ctenar {
    const Zaznam& z;

    [[noreturn]] void Chyba(int sloupec, const std::string& co) const
    {
        throw ChybaCsv(z.radek, std::string(kSloupce[sloupec]) + ": " + co);
    }
    const std::string& Text(int sloupec) const { return z.pole[static_cast<size_t>(sloupec)]; }
    std::wstring Siroky(int sloupec, size_t max) const
    {
        std::wstring s = sim::fromUtf8(Text(sloupec));
        // The catalogue keeps its texts as C strings, which end at a NUL: "A\0B" would be stored as "A".
        if (s.find(L'\0') != std::wstring::npos)
            Chyba(sloupec, "holds a NUL character");
        if (s.size() > max)
            Chyba(sloupec, "longer than " + std::to_string(max) + " characters");
        return s;
    }
    float Realne(int sloupec) const
    {
        std::string s = Text(sloupec);
        for (char& c : s)
            if (c == ',')
                c = '.'; // a decimal comma, as a Czech spreadsheet writes it
        float f = 0;
        auto [konec, chyba] = std::from_chars(s.data(), s.data() + s.size(), f);
        if (s.empty() || chyba != std::errc() || konec != s.data() + s.size() || !std::isfinite(f))
            Chyba(sloupec, "not a number: \"" + Text(sloupec) + "\"");
        return f;
    }
    int Cele(int sloupec, int od, int po) const
    {
        const std::string& s = Text(sloupec);
        int v = 0;
        auto [konec, chyba] = std::from_chars(s.data(), s.data() + s.size(), v);
        if (s.empty() || chyba != std::errc() || konec != s.data() + s.size() || v < od || v > po)
            Chyba(sloupec, "not a whole number from " + std::to_string(od) + " to " + std::to_string(po) + ": \"" + s +
                               "\"");
        return v;
    }
    int Volba(int sloupec, const wchar_t* const* volby, int pocet) const
    {
        std::wstring s = sim::fromUtf8(Text(sloupec));
        for (int i = 0; i < pocet; ++i)
            if (s == volby[i])
                return i;
        Chyba(sloupec, "unknown value \"" + Text(sloupec) + "\"");
    }
    /// A row of a table by its label; an empty field is -1 when allowed.
    int Radek(int sloupec, int (*najdi)(const ACHAR*), bool prazdnyDovolen) const
    {
        if (Text(sloupec).empty() && prazdnyDovolen)
            return -1;
        int i = najdi(sim::fromUtf8(Text(sloupec)).c_str());
        if (i < 0)
            Chyba(sloupec, "unknown value \"" + Text(sloupec) + "\"");
        return i;
    }
};

/// The material columns of a line, compared between lines of one material.
std::vector<std::string> MaterialovaPole(const Zaznam& z) { return {z.pole.begin(), z.pole.begin() + 13}; }

void NactiMaterial(const Ctenar& c, CTogMaterial& m)
{
    m.PodrobnyPopis = c.Siroky(1, 1000).c_str();
    m.Vyrobce = c.Siroky(2, kMaxDelkaVyrobce).c_str();
    m.Drsnost = c.Realne(3);
    m.Skupina = c.Cele(4, 1, kSkupinyVse);
    m.Pouziti = c.Cele(5, 1, kPouzitiVse);
    m.PnIndex = c.Radek(6, IndexPN, true);
    m.SdrIndex = c.Radek(7, IndexSDr, true);
    m.TypPopisu = c.Volba(8, kTypyPopisu, 3);
    const wchar_t* anoNe[] = {L"ne", L"ano"};
    m.VnitrniPrumer = c.Volba(9, anoNe, 2) == 1;
    std::wcscpy(m.Prefix, c.Siroky(10, kDelkaPrefixu - 1).c_str());
    std::wcscpy(m.Suffix, c.Siroky(11, kDelkaPrefixu - 1).c_str());
    m.Tvar = static_cast<Adesk::UInt8>(c.Volba(12, kTvary, kPocetTvaru));
}

void NactiProfil(const Ctenar& c, CTogMaterial& m)
{
    int dn = c.Radek(13, IndexDN, false);
    if (m.Profil(dn))
        c.Chyba(13, "the material has a profile of " + c.Text(13) + " already");
    auto p = std::make_unique<CTogProfil>(&m);
    p->DnIndex = dn;
    p->Vnitrni = c.Realne(14);
    p->Stena = c.Realne(15);
    if (p->Vnitrni <= 0.0f)
        c.Chyba(14, "must be above 0");
    if (p->Stena < 0.0f)
        c.Chyba(15, "must not be negative");
    p->Sirka = c.Cele(16, 0, 100000);
    std::wcscpy(p->UrsMaterial, c.Siroky(17, kDelkaUrs - 2).c_str());
    std::wcscpy(p->UrsMontaz, c.Siroky(18, kDelkaUrs - 2).c_str());
    try {
        p->AktualizujPopis();
    } catch (const CTogException&) {
        c.Chyba(13, "the profile's label does not fit in 14 characters");
    }
    m.Profily.emplace(dn, std::move(p));
}

std::string CtiSoubor(const std::string& cesta, std::string& obsah)
{
    std::ifstream in(cesta, std::ios::binary);
    if (!in)
        return "cannot read " + cesta;
    std::ostringstream s;
    s << in.rdbuf();
    obsah = s.str();
    return {};
}

/// The catalogue code warns through the platform's dialogs: give it a session when there is none,
/// with no answers, whose transcript goes to the error stream.
struct Relace {
    std::unique_ptr<sim::Session> vlastni;
    Relace()
    {
        if (!sim::Session::currentOrNull())
            vlastni = std::make_unique<sim::Session>(std::make_unique<sim::ScriptInput>(""), &std::cerr);
    }
};

} // namespace

std::string DoCsv(const CTogSezMaterialu& seznam)
{
    std::string text = kBom + Hlavicka() + "\n";
    for (const auto& [klic, m] : seznam.Materialy) {
        std::vector<std::string> pole = {
            Utf8(m->Nazev), Utf8(m->PodrobnyPopis), Utf8(m->Vyrobce), Cislo(m->Drsnost),
            std::to_string(m->Skupina), std::to_string(m->Pouziti), Index(m->PnIndex, kTabulkaPN, kPocetPN),
            Index(m->SdrIndex, kTabulkaSDr, kPocetSDr),
            Utf8(kTypyPopisu[m->TypPopisu >= 0 && m->TypPopisu < 3 ? m->TypPopisu : 2]),
            m->VnitrniPrumer ? "ano" : "ne", Utf8(m->Prefix), Utf8(m->Suffix),
            Utf8(kTvary[m->Tvar < kPocetTvaru ? m->Tvar : 0]),
        };
        if (m->Profily.empty()) {
            pole.resize(kPocetSloupcu);
            text += Radek(pole);
        }
        for (const auto& [dn, p] : m->Profily) {
            std::vector<std::string> radek = pole;
            radek.insert(radek.end(), {Utf8(kTabulkaDN[dn].popis), Cislo(p->Vnitrni), Cislo(p->Stena),
                                       std::to_string(p->Sirka), Utf8(p->UrsMaterial), Utf8(p->UrsMontaz)});
            text += Radek(radek);
        }
    }
    return text;
}

void ZCsv(std::string_view text, CTogSezMaterialu& seznam)
{
    if (text.substr(0, 3) == kBom)
        text.remove_prefix(3);
    std::vector<Zaznam> zaznamy = Rozdel(text);
    if (zaznamy.empty())
        throw ChybaCsv(1, "the header line is missing");
    if (zaznamy[0].pole != std::vector<std::string>(std::begin(kSloupce), std::end(kSloupce)))
        throw ChybaCsv(zaznamy[0].radek, "the header line must be " + Hlavicka());
    std::map<std::wstring, Zaznam> prvni; // a material's first line
    for (size_t i = 1; i < zaznamy.size(); ++i) {
        const Zaznam& z = zaznamy[i];
        if (z.pole.size() != kPocetSloupcu)
            throw ChybaCsv(z.radek, std::to_string(z.pole.size()) + " columns instead of " + std::to_string(kPocetSloupcu));
        Ctenar c{z};
        std::wstring nazev = c.Siroky(0, kMaxNazev);
        if (nazev.empty())
            c.Chyba(0, "the name is empty");
        CTogMaterial* m = seznam.NajdiMaterial(nazev.c_str());
        if (!m) {
            auto novy = std::make_unique<CTogMaterial>(&seznam, nazev.c_str());
            NactiMaterial(c, *novy);
            novy->Popis = novy->Nazev;
            m = seznam.Vloz(std::move(novy));
            prvni.emplace(nazev, z);
        } else {
            const Zaznam& p = prvni.at(nazev);
            if (MaterialovaPole(p) != MaterialovaPole(z))
                throw ChybaCsv(z.radek, "the material's values differ from those on line " + std::to_string(p.radek));
            if (m->Profily.empty())
                throw ChybaCsv(z.radek, "the material's line " + std::to_string(p.radek) + " has no profile");
        }
        bool bezProfilu = true;
        for (int s = 13; s < kPocetSloupcu; ++s)
            bezProfilu = bezProfilu && z.pole[static_cast<size_t>(s)].empty();
        if (bezProfilu) {
            if (!m->Profily.empty())
                throw ChybaCsv(z.radek, "a line without a profile for a material that has profiles");
            continue;
        }
        NactiProfil(c, *m);
    }
    seznam.Ulozeno = false;
}

std::string ExportujKatalog(const std::string& tgp, const std::string& csv)
{
    Relace relace;
    CTogSezMaterialu seznam;
    CFile soubor;
    std::wstring cesta = sim::fromUtf8(tgp);
    if (!soubor.Open(cesta.c_str(), CFile::modeRead))
        return "cannot read " + tgp;
    try {
        CArchive ar(&soubor, CArchive::load);
        seznam.Serialize(ar);
    } catch (CException* e) {
        e->Delete();
        return tgp + ": the file ends inside a record or holds a length beyond its end";
    } catch (const CTogException& e) {
        std::string zprava = e.what(); // the message without its place of origin
        return tgp + ": " + zprava.substr(0, zprava.find('\n'));
    }
    if (!sim::win32::writeFileAtomically(csv, DoCsv(seznam)))
        return "cannot write " + csv;
    return {};
}

std::string ImportujKatalog(const std::string& csv, const std::string& tgp)
{
    Relace relace;
    std::string text;
    if (std::string chyba = CtiSoubor(csv, text); !chyba.empty())
        return chyba;
    CTogSezMaterialu seznam;
    try {
        ZCsv(text, seznam);
    } catch (const ChybaCsv& e) {
        return csv + ":" + std::to_string(e.radek) + ": " + e.zprava;
    }
    std::wstring cesta = sim::fromUtf8(tgp);
    CFile soubor;
    if (!soubor.Open(cesta.c_str(), CFile::modeCreate | CFile::modeWrite))
        return "cannot write " + tgp;
    try {
        CArchive ar(&soubor, CArchive::store);
        seznam.Serialize(ar);
        ar.Close();
        soubor.Close();
    } catch (CException* e) {
        e->Delete();
        soubor.Abort();
        return "cannot write " + tgp;
    }
    return {};
}

} // namespace togu::katalog
