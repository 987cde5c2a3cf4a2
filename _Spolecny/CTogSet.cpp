// The drawing standard: the rows of the catalogue and the lookups in it.
#include "StdAfx.h"
#include "CTogSet.h"
#include "CTogFunkce.h"

// ---------------------------------------------------------------------------------------------------
// The catalogue
// ---------------------------------------------------------------------------------------------------

namespace {

struct RadekHladiny {
    const ACHAR* nazev;
    const ACHAR* staryNazev;
    Adesk::UInt16 barva;
    const ACHAR* typCary;
    AcDb::LineWeight tloustka;
    int skupina;
    bool tisknout;
};

constexpr AcDb::LineWeight kVychozi = AcDb::kLnWtByLwDefault;
constexpr int kPotrubi = kSkupinaPotrubi;
constexpr int kOstatni = kSkupinaOstatni;

// The standard layers in the order in which they are built.
constexpr RadekHladiny kHladiny[] = {
    {L"ZT-voda_SV", L"zti-VODA-SV", 150, L"SV", AcDb::kLnWt053, kPotrubi, true},
    {L"ZT-voda_TUV", L"zti-VODA-TUV", 10, L"TUV", AcDb::kLnWt053, kPotrubi, true},
    {L"ZT-voda_CIRK", L"zti-VODA-CIRK", 210, L"CIRKULACE", AcDb::kLnWt053, kPotrubi, true},
    {L"ZT-voda_POŽ", L"zti-VODA-POZ", 150, kSouvislaCara, AcDb::kLnWt053, kPotrubi, true},
    {L"ZT-voda_UŽIT", L"", 102, L"UZITKOVA", AcDb::kLnWt053, kPotrubi, true},
    {L"ZT-ostatní", L"zti-OSTATNI", 120, kSouvislaCara, AcDb::kLnWt025, kOstatni, true},
    {L"ZT-V_stoupačky", L"zti-V-STOUPACKY", 120, kSouvislaCara, AcDb::kLnWt025, kOstatni, true},
    {L"ZT-K_stoupačky", L"zti-K-STOUPACKY", 120, kSouvislaCara, AcDb::kLnWt025, kOstatni, true},
    {L"ZT-kanalizace", L"zti-KAN-OBECNE", 43, kSouvislaCara, AcDb::kLnWt060, kPotrubi, true},
    {L"ZT-kan_pod_str", L"zti-KAN-POD-STR", 43, L"TUV", AcDb::kLnWt060, kPotrubi, true},
    {L"ZT-kan_v_podl", L"zti-KAN-V-PODL", 43, L"KAN-PODL", AcDb::kLnWt060, kPotrubi, true},
    {L"ZT-deš_kan_v_podl", L"zti-KAN-D-PODL", 10, L"DESTAK_PODL", AcDb::kLnWt060, kPotrubi, true},
    {L"ZT-deš_kan_pod_str", L"zti-KAN-D-STROP", 10, L"DESTAK_STROP", AcDb::kLnWt060, kPotrubi, true},
    {L"ZT-čerp_kan_v_podl", L"zti-KAN-C-PODL", 150, L"CERPANA_PODL", AcDb::kLnWt060, kPotrubi, true},
    {L"ZT-čerp_kan_pod_str", L"zti-KAN-C-STROP", 150, L"CERPANA_STROP", AcDb::kLnWt060, kPotrubi, true},
    {L"UT-topná", L"ut-TOPNA", 10, kSouvislaCara, AcDb::kLnWt053, kPotrubi, true},
    {L"UT-vratná", L"ut-VRATNA", 150, L"KAN-PODL", AcDb::kLnWt053, kPotrubi, true},
    {L"UT-radiátory", L"ut-RADIATORY", 120, kSouvislaCara, AcDb::kLnWt025, kOstatni, true},
    {L"UT-radiátory_popisy", L"", 120, kSouvislaCara, kVychozi, kOstatni, true},
    {L"zařizovací_předměty", L"zti-ZARIZOVACI PREDMETY", 7, kSouvislaCara, kVychozi, kOstatni, true},
    {L"ZT-tečkovaná", L"", 120, L"TEČKOVANÁ", AcDb::kLnWt025, kOstatni, true},
    {L"ZT-plynovod", L"zti-PLYN", 50, L"PLYN", AcDb::kLnWt060, kPotrubi, true},
    {L"kóty", L"zti-KOTY", 4, kSouvislaCara, kVychozi, kOstatni, true},
    {L"kóty_výškové", L"zti-KOTY-VYSKOVE", 4, kSouvislaCara, kVychozi, kOstatni, true},
    {L"popisy_020", L"zti-POPISY-020", 4, kSouvislaCara, kVychozi, kOstatni, true},
    {L"popisy_035", L"zti-POPISY-035", 20, kSouvislaCara, AcDb::kLnWt035, kOstatni, true},
    {L"popisy_050", L"zti-POPISY-050", 90, kSouvislaCara, AcDb::kLnWt053, kOstatni, true},
    {L"popisy_nadpis", L"zti-POPISY-NADPIS", 20, kSouvislaCara, kVychozi, kOstatni, true},
    {L"šrafy", L"zti-SRAFY", 8, kSouvislaCara, kVychozi, kOstatni, true},
    {L"tepelná_izolace", L"zti-IZOL-TEP", 140, kSouvislaCara, kVychozi, kOstatni, true},
    {L"rámeček", L"zti-RAMECEK", 7, kSouvislaCara, AcDb::kLnWt025, kOstatni, true},
    {L"terén", L"zti-TEREN", 3, kSouvislaCara, kVychozi, kOstatni, true},
    {L"XRefs", L"zti-REFERENCE", 8, kSouvislaCara, kVychozi, kOstatni, true},
    {L"osy", L"zti-OSY", 3, L"SV", kVychozi, kOstatni, true},
    {L"netisk", L"zti-NETISK", 85, kSouvislaCara, kVychozi, kOstatni, false},
};

struct RadekKotaStylu {
    const ACHAR* nazev;
    Adesk::Int32 dimatfit;
    Adesk::Int32 dimtmove;
    Adesk::Int32 dimjust;
    double dimlfac;
    double dimrnd;
    Adesk::Int32 dimdec;
    Adesk::Int32 dimzin;
    bool dimse;
    bool dimsd1;
    bool dimsd2;
    bool dimupt;
};

// The dimension styles; the columns they all share are filled in by VytvorKatalog.
constexpr RadekKotaStylu kKotaStyly[] = {
    {L"TG_VNEJSI", 2, 2, 0, 1.0, 5.0, 0, 8, false, false, false, false},
    {L"TG_VNEJSI_M", 2, 2, 0, 1.0, 0.0, 2, 0, false, false, false, false},
    {L"TG_VNITRNI", 2, 2, 0, 1.0, 5.0, 0, 8, true, false, false, false},
    {L"TG_VNITRNI_M", 2, 2, 0, 1.0, 0.0, 2, 0, true, false, false, false},
    {L"TG_VODA1", 2, 0, 1, 0.001, 0.0, 3, 0, true, false, true, false},
    {L"TG_VODA2", 2, 0, 2, 0.001, 0.0, 3, 0, true, false, false, false},
    {L"TG_KANREZ", 3, 0, 0, 0.001, 0.0, 3, 0, true, true, true, true},
    {L"TG_KANSTAN", 3, 0, 0, 0.001, 0.0, 3, 0, true, true, true, true},
};

struct Katalog {
    // Built in this order: the styles that others name come first.
    MapaStdTextStylu textStyly;
    MapaStdMLeaderStylu mleaderStyly;
    MapaStdHladin hladiny;
    MapaStdKotaStylu kotaStyly;
};

template <class Zaznam>
void Pridej(std::map<AcString, Zaznam>& mapa, Zaznam zaznam)
{
    AcString klic = KlicKatalogu(zaznam.nazev);
    mapa.emplace(std::move(klic), std::move(zaznam));
}

AcCmColor BarvaIndexem(Adesk::UInt16 index)
{
    AcCmColor barva;
    barva.setColorIndex(index);
    return barva;
}

Katalog VytvorKatalog()
{
    Katalog k;

    for (const ACHAR* nazev : {L"TG_TXT_MALY", L"TG_TXT_VELKY"})
        Pridej(k.textStyly, StdTextStyl{nazev, L"ArialN.ttf", L"Arial Narrow", 0.0, 1.0, 0, 0, false, false});

    Pridej(k.mleaderStyly, StdMLeaderStyl{L"TG_SIPKA", L"TG_TXT_MALY", 2.0, 1.5, 0});
    Pridej(k.mleaderStyly, StdMLeaderStyl{L"TG_POZICE", L"TG_TXT_VELKY", 3.5, 1.5, 0});
    Pridej(k.mleaderStyly, StdMLeaderStyl{L"TG_TECKA", L"TG_TXT_MALY", 2.0, 0.6, 1});
    Pridej(k.mleaderStyly, StdMLeaderStyl{L"TG_VYTYCENI", L"TG_TXT_MALY", 2.0, 0.6, 1});

    for (const RadekHladiny& r : kHladiny)
        Pridej(k.hladiny, StdHladina{r.nazev, BarvaIndexem(r.barva), r.tloustka, r.typCary, r.staryNazev,
                              r.tisknout, r.skupina, {}});

    for (const RadekKotaStylu& r : kKotaStyly)
        Pridej(k.kotaStyly, StdKotaStyl{r.nazev, L"TG_TXT_MALY", L"_OBLIQUE", L"", r.dimatfit, 1, r.dimtmove,
                                r.dimjust, r.dimzin, r.dimdec, r.dimlfac, r.dimrnd, 0.5, r.dimsd1, r.dimsd2,
                                r.dimse, r.dimupt});
    return k;
}

// Made on first use rather than at load, so that it never runs before the locale of the case
// conversions exists; released with the module.
const Katalog& DejKatalog()
{
    static const Katalog katalog = VytvorKatalog();
    return katalog;
}

template <class Zaznam>
const Zaznam* Najdi(const std::map<AcString, Zaznam>& mapa, const ACHAR* nazev)
{
    auto it = mapa.find(KlicKatalogu(nazev));
    return it == mapa.end() ? nullptr : &it->second;
}

} // namespace

AcString KlicKatalogu(const ACHAR* nazev)
{
    return CTogFunkce::KlicNazvu(nazev);
}

const MapaStdHladin& StdHladiny() { return DejKatalog().hladiny; }
const MapaStdTextStylu& StdTextStyly() { return DejKatalog().textStyly; }
const MapaStdMLeaderStylu& StdMLeaderStyly() { return DejKatalog().mleaderStyly; }
const MapaStdKotaStylu& StdKotaStyly() { return DejKatalog().kotaStyly; }

const StdHladina* NajdiStdHladinu(const ACHAR* nazev) { return Najdi(StdHladiny(), nazev); }
const StdTextStyl* NajdiStdTextStyl(const ACHAR* nazev) { return Najdi(StdTextStyly(), nazev); }
const StdMLeaderStyl* NajdiStdMLeaderStyl(const ACHAR* nazev) { return Najdi(StdMLeaderStyly(), nazev); }
const StdKotaStyl* NajdiStdKotaStyl(const ACHAR* nazev) { return Najdi(StdKotaStyly(), nazev); }

int SeznamStdHladin(int maska, std::set<AcString>& seznam)
{
    for (const auto& [klic, hladina] : StdHladiny()) {
        if (hladina.skupina & maska)
            seznam.insert(hladina.nazev);
    }
    return static_cast<int>(seznam.size());
}
