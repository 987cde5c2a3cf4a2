// CTogMaterial: parameters, profile series, merging and the material record of the catalogue files.
#include "CTogMaterial.h"

#include <cmath>
#include <cwchar>
#include <cwctype>
#include <limits>
#include "CTogSezMaterialu.h"
#include "RetezceArchivu.h"
#include "TabulkyMaterialu.h"

namespace {

constexpr BYTE kVerzeMaterialu = 5; // version 6 (with Popis) is read, not written
constexpr BYTE kNejvyssiVerze = 6;
constexpr BYTE kKonecZaznamu = 0xFF;
constexpr int kPrefixZnaku = 6;

void KopirujPrefix(ACHAR (&cil)[kDelkaPrefixu], const CString& text)
{
    if (text.GetLength() > kPrefixZnaku)
        throw CTogException("Chyba při kopírování řetězce v paměti", __LINE__, __FILE__);
    std::wcscpy(cil, text.GetString());
}

float NactiDrsnost(const CString& text)
{
    std::wstring cislo = text.GetString();
    for (wchar_t& z : cislo)
        if (z == L',')
            z = L'.';
    const wchar_t* zacatek = cislo.c_str();
    wchar_t* konec = nullptr;
    double hodnota = std::wcstod(zacatek, &konec);
    while (konec && std::iswspace(static_cast<wint_t>(*konec)))
        ++konec;
    if (konec == zacatek || (konec && *konec != 0))
        throw CTogException("Drsnost není desetinné číslo", __LINE__, __FILE__);
    return static_cast<float>(hodnota);
}

} // namespace

CTogMaterial::CTogMaterial(CTogSezMaterialu* seznam, const ACHAR* nazev, int skupina, int pouziti)
    : Nazev(nazev), Skupina(skupina ? skupina : kSkupinyVse), Pouziti(pouziti ? pouziti : kPouzitiVse),
      Seznam(seznam)
{
}

CTogMaterial::CTogMaterial(CTogSezMaterialu* seznam, const CTogMaterial& zdroj)
    : Poradi(zdroj.Poradi), TypPopisu(zdroj.TypPopisu), VnitrniPrumer(zdroj.VnitrniPrumer), Nazev(zdroj.Nazev),
      Popis(zdroj.Popis), PodrobnyPopis(zdroj.PodrobnyPopis), Vyrobce(zdroj.Vyrobce), Drsnost(zdroj.Drsnost),
      Skupina(zdroj.Skupina), Pouziti(zdroj.Pouziti), Seznam(seznam), PnIndex(zdroj.PnIndex),
      SdrIndex(zdroj.SdrIndex), Tvar(zdroj.Tvar), Odkazy(zdroj.Odkazy)
{
    std::wcscpy(Prefix, zdroj.Prefix);
    std::wcscpy(Suffix, zdroj.Suffix);
    for (const auto& [dn, profil] : zdroj.Profily)
        Profily.emplace(dn, std::make_unique<CTogProfil>(this, *profil));
}

CTogMaterial::~CTogMaterial()
{
    Profily.clear();
    // A working copy may still list holders aimed at the original: only ours are cut.
    for (CTogOdkaz<CTogMaterial>* odkaz : Odkazy)
        if (odkaz->get() == this)
            odkaz->Odpoj();
}

void CTogMaterial::ZrusUlozeno()
{
    if (Seznam)
        Seznam->Ulozeno = false;
}

NastaveniPopisu CTogMaterial::Popisy() const { return {TypPopisu, Prefix, Suffix, VnitrniPrumer}; }

void CTogMaterial::NastavParametry(const ParametryMaterialu& p)
{
    if (p.Nazev != Nazev)
        throw CTogException("Jméno materiálu v předané struktuře nesouhlasí", __LINE__, __FILE__);
    if (p.Vyrobce.GetLength() > kMaxDelkaVyrobce)
        throw CTogException("Příliš dlouhý výrobce", __LINE__, __FILE__);
    Drsnost = p.Drsnost == ParametryMaterialu::kDrsnostZTextu ? NactiDrsnost(p.DrsnostText)
                                                               : static_cast<float>(p.Drsnost);
    Popis = p.Popis;
    Vyrobce = p.Vyrobce;
    PodrobnyPopis = p.PodrobnyPopis;
    PnIndex = p.PnIndex;
    SdrIndex = p.SdrIndex;
    Tvar = static_cast<Adesk::UInt8>(p.Tvar);
    if (PnIndex == -1 || SdrIndex == -1)
        throw CTogException("SDR nebo PN nenalezeno v seznamu ", __LINE__, __FILE__);
    Skupina = p.Skupina;
    const bool jinePopisy = TypPopisu != p.TypPopisu || VnitrniPrumer != p.VnitrniPrumer || p.Prefix != Prefix ||
                            p.Suffix != Suffix;
    TypPopisu = p.TypPopisu;
    VnitrniPrumer = p.VnitrniPrumer;
    Pouziti = p.Pouziti;
    KopirujPrefix(Prefix, p.Prefix);
    KopirujPrefix(Suffix, p.Suffix);
    if (jinePopisy)
        for (auto& [dn, profil] : Profily)
            profil->AktualizujPopis();
    ZrusUlozeno();
}

ParametryMaterialu CTogMaterial::Parametry() const
{
    ParametryMaterialu p;
    p.Nazev = Nazev;
    p.Vyrobce = Vyrobce;
    p.PodrobnyPopis = PodrobnyPopis;
    p.PnIndex = PnIndex;
    p.SdrIndex = SdrIndex;
    p.Drsnost = Drsnost;
    p.Skupina = Skupina;
    p.Pouziti = Pouziti;
    p.TypPopisu = TypPopisu;
    p.Tvar = Tvar;
    p.Prefix = Prefix;
    p.Suffix = Suffix;
    p.VnitrniPrumer = VnitrniPrumer;
    p.Popis = Popis;
    return p;
}

bool CTogMaterial::PridejProfil(int dnIndex, CTogProfil** novy)
{
    if (!PlatneDN(dnIndex) || Profily.count(dnIndex))
        return false;
    auto profil = std::make_unique<CTogProfil>(this);
    profil->DnIndex = dnIndex;
    RozmeryProfilu rozmery = RozmeryNovehoProfilu(TypPopisu, SdrIndex, dnIndex);
    profil->Vnitrni = rozmery.vnitrni;
    profil->Stena = rozmery.stena;
    profil->AktualizujPopis();
    CTogProfil* vlozeny = Profily.emplace(dnIndex, std::move(profil)).first->second.get();
    if (novy)
        *novy = vlozeny;
    ZrusUlozeno();
    return true;
}

void CTogMaterial::GenerujRadu(int od, int po)
{
    VymazProfily();
    for (int i = od; i <= po; ++i)
        if (!PridejProfil(i))
            throw CTogException("Nelze přidat profil", __LINE__, __FILE__);
}

void CTogMaterial::VymazProfily()
{
    Profily.clear();
    ZrusUlozeno();
}

bool CTogMaterial::VymazProfil(int dnIndex)
{
    auto it = Profily.find(dnIndex);
    if (it == Profily.end() || !it->second->Odkazy.empty())
        return false;
    Profily.erase(it);
    ZrusUlozeno();
    return true;
}

int CTogMaterial::PrvniVolneDN(int& start) const
{
    int i = start < 0 ? 0 : start;
    while (i < kPocetDN && Profily.count(i))
        ++i;
    start = i < kPocetDN ? i : -1;
    return start;
}

int CTogMaterial::KopirujProfily(const CTogMaterial& zdroj)
{
    for (const auto& [dn, profil] : zdroj.Profily) {
        if (Profily.count(dn))
            continue;
        auto kopie = std::make_unique<CTogProfil>(this, *profil);
        kopie->Odkazy.clear();
        Profily.emplace(dn, std::move(kopie));
    }
    ZrusUlozeno();
    return static_cast<int>(Profily.size());
}

void CTogMaterial::SlucProfily(const CTogMaterial& zdroj, bool prepsat)
{
    for (const auto& [dn, profil] : zdroj.Profily) {
        auto it = Profily.find(dn);
        if (it == Profily.end()) {
            if (!Profily.emplace(dn, std::make_unique<CTogProfil>(this, *profil)).second)
                throw CTogException("Nelze vložit profil", __LINE__, __FILE__);
            ZrusUlozeno();
        } else if (prepsat) {
            CTogProfil& cil = *it->second;
            cil.Vnitrni = profil->Vnitrni;
            cil.Stena = profil->Stena;
            cil.Sirka = profil->Sirka;
            std::wcscpy(cil.UrsMaterial, profil->UrsMaterial);
            std::wcscpy(cil.UrsMontaz, profil->UrsMontaz);
            cil.AktualizujPopis();
        }
    }
}

bool CTogMaterial::Shodny(const CTogMaterial& jiny) const
{
    if (Nazev != jiny.Nazev || Popis != jiny.Popis || PodrobnyPopis != jiny.PodrobnyPopis ||
        Vyrobce != jiny.Vyrobce || Profily.size() != jiny.Profily.size())
        return false;
    for (auto a = Profily.begin(), b = jiny.Profily.begin(); a != Profily.end(); ++a, ++b)
        if (a->second->LisiSe(*b->second))
            return false;
    return true;
}

CTogProfil* CTogMaterial::NajdiProfil(double prumer) const
{
    if (Profily.empty())
        return nullptr;
    CTogProfil* nejblizsi = nullptr;
    double nejmensi = std::numeric_limits<double>::infinity();
    for (const auto& [dn, profil] : Profily) {
        double hodnota = TypPopisu != kPopisDN ? profil->Vnejsi() : profil->Vnitrni;
        double vzdalenost = std::fabs(hodnota - prumer);
        if (vzdalenost < nejmensi) {
            nejmensi = vzdalenost;
            nejblizsi = profil.get();
        }
    }
    if (!nejblizsi)
        throw CTogException("Nenalezen zadny platny profil", __LINE__, __FILE__);
    return nejblizsi;
}

CTogProfil* CTogMaterial::Profil(int dnIndex) const
{
    auto it = Profily.find(dnIndex);
    return it == Profily.end() ? nullptr : it->second.get();
}

void CTogMaterial::Serialize(CArchive& ar)
{
    if (ar.IsStoring()) {
        ar << kVerzeMaterialu;
        ar << static_cast<BYTE>(TypPopisu);
        ar << VnitrniPrumer;
        ZapisUkoncenyRetezec(ar, Prefix, kPrefixZnaku);
        ZapisUkoncenyRetezec(ar, Suffix, kPrefixZnaku);
        ar << Nazev << PodrobnyPopis << Vyrobce;
        ar << Drsnost;
        ar << static_cast<WORD>(Pouziti) << static_cast<WORD>(Skupina);
        ar << static_cast<WORD>(PnIndex) << static_cast<WORD>(SdrIndex);
        ar << static_cast<BYTE>(Tvar);
        for (auto& [dn, profil] : Profily)
            profil->Serialize(ar);
        ar << kKonecZaznamu;
        return;
    }

    BYTE verze = 0;
    ar >> verze;
    if (verze == kKonecZaznamu) {
        Poradi = -1;
        return;
    }
    if (verze > kNejvyssiVerze)
        ChybaVyssiVerze(__LINE__, __FILE__);
    BYTE typ = 0;
    ar >> typ;
    if (verze < 3) {
        TypPopisu = typ == 0 ? kPopisDxT : kPopisDN;
    } else {
        TypPopisu = typ;
        ar >> VnitrniPrumer;
        if (verze >= 4) {
            NactiUkoncenyRetezec(ar, Prefix, kPrefixZnaku);
            NactiUkoncenyRetezec(ar, Suffix, kPrefixZnaku);
        } else {
            NactiPevnyRetezec(ar, Prefix, kPrefixZnaku);
            NactiPevnyRetezec(ar, Suffix, kPrefixZnaku);
        }
    }
    ar >> Nazev >> PodrobnyPopis >> Vyrobce;
    ar >> Drsnost;
    short pouziti = 0, skupina = 0, pn = 0, sdr = 0;
    ar >> pouziti >> skupina >> pn >> sdr;
    Pouziti = pouziti ? pouziti : kPouzitiVse;
    Skupina = skupina ? skupina : kSkupinyVse;
    // Rows that the tables lack can only come from a damaged file: they read as "---".
    PnIndex = PlatnePN(pn) || pn == -1 ? pn : 0;
    SdrIndex = PlatneSDr(sdr) || sdr == -1 ? sdr : 0;
    if (verze >= 5) {
        BYTE tvar = 0;
        ar >> tvar;
        Tvar = tvar < kPocetTvaru ? tvar : static_cast<Adesk::UInt8>(kTvarKruh);
    }
    ULONGLONG pocet = std::numeric_limits<ULONGLONG>::max();
    if (verze < 2)
        ar >> pocet;
    for (ULONGLONG i = 0; i < pocet; ++i) {
        auto profil = std::make_unique<CTogProfil>(this);
        profil->Serialize(ar);
        if (profil->DnIndex == -1)
            break;
        int dn = profil->DnIndex;
        if (!Profily.emplace(dn, std::move(profil)).second)
            throw CTogException("Nelze vložit nový profil", __LINE__, __FILE__);
    }
    if (verze >= 6)
        ar >> Popis;
    else
        Popis = Nazev;
}
