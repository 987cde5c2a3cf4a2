// CTogProfil: labels, DN changes, comparison and the profile record of the catalogue files.
#include "CTogProfil.h"

#include <cmath>
#include <commctrl.h>
#include <cwchar>
#include "CTogBaseNastav.h"
#include "CTogMaterial.h"
#include "CTogSet.h"
#include "CTogSezMaterialu.h"
#include "RetezceArchivu.h"
#include "TabulkyMaterialu.h"

namespace {

constexpr BYTE kVerzeProfilu = 7;
constexpr BYTE kKonecZaznamu = 0xFF;
constexpr int kUrsZnaku = 10;       // the string form of a code
constexpr int kPopisekZnaku = 14;   // the label that old records carry
constexpr int kStaryPopisekZnaku = 10;

void KopirujKod(ACHAR (&cil)[kDelkaUrs], const ACHAR* kod)
{
    const ACHAR* zdroj = kod ? kod : L"";
    if (std::wcslen(zdroj) > kUrsZnaku - 1)
        throw CTogException("Chyba při kopírování řetězce", __LINE__, __FILE__);
    std::wcscpy(cil, zdroj);
}

bool SpatnyPrumer(float v) { return !std::isfinite(v) || v <= 0.0f; }
bool SpatnaStena(float v) { return !std::isfinite(v) || v < 0.0f; }

/// Tells the user once per read (unless the answer is remembered) that bad values were replaced.
void VarujChybneHodnoty(const CTogMaterial& material, int dnIndex)
{
    if (g_pNastaveni && !g_pNastaveni->JeZodpovezeno(kOtazkaMaterial))
        return;
    ACHAR obsah[512];
    std::swprintf(obsah, sizeof(obsah) / sizeof(obsah[0]),
                  L"U materiálu %ls byly načteny chybné hodnoty u profilu DN %ls, \nbudou nastaveny implicitní "
                  L"hodnoty - po načtení zkontrolujte.",
                  material.Nazev.GetString(), kTabulkaDN[dnIndex].popis);
    int odpoved = ZeptejSe(L"Nalezena chybná hodnota při načítání materiálu", obsah, kTlacitkoOk, true,
                           TD_WARNING_ICON, nullptr);
    if ((odpoved & kOdpovedZaskrtnuto) && g_pNastaveni)
        g_pNastaveni->ZapamatujOdpoved(kOtazkaMaterial, 1);
}

} // namespace

CTogProfil::CTogProfil(CTogMaterial* material) : Material(material) {}

CTogProfil::CTogProfil(CTogMaterial* material, const CTogProfil& zdroj)
    : DnIndex(zdroj.DnIndex), Vnitrni(zdroj.Vnitrni), Stena(zdroj.Stena), Sirka(zdroj.Sirka), Material(material),
      Odkazy(zdroj.Odkazy)
{
    std::wcscpy(UrsMaterial, zdroj.UrsMaterial);
    std::wcscpy(UrsMontaz, zdroj.UrsMontaz);
    AktualizujPopis();
}

CTogProfil::~CTogProfil()
{
    // A working copy may still list holders aimed at the original: only ours are cut.
    for (CTogOdkaz<CTogProfil>* odkaz : Odkazy)
        if (odkaz->get() == this)
            odkaz->Odpoj();
}

void CTogProfil::ZrusUlozeno() { Material->ZrusUlozeno(); }

void CTogProfil::AktualizujPopis()
{
    NastaveniPopisu nastaveni = Material->Popisy();
    if (!PlatneDN(DnIndex) || !VytvorPopisy(nastaveni, DnIndex, Vnitrni, Stena, Popisek, PopisekKratky))
        throw CTogException("Nepodařilo se vytvořit popis", __LINE__, __FILE__);
    ZrusUlozeno();
}

bool CTogProfil::ZmenDN(int novyIndex, bool prevzitPrumer)
{
    if (novyIndex == DnIndex || !PlatneDN(novyIndex))
        return false;
    auto& profily = Material->Profily;
    if (profily.count(novyIndex))
        return false;
    auto uzel = profily.extract(DnIndex);
    if (uzel.empty())
        return false;
    uzel.key() = novyIndex;
    profily.insert(std::move(uzel));
    DnIndex = novyIndex;
    if (prevzitPrumer)
        Vnitrni = kTabulkaDN[novyIndex].dn;
    AktualizujPopis();
    return true;
}

bool CTogProfil::LisiSe(const CTogProfil& jiny) const
{
    return DnIndex != jiny.DnIndex || !(std::fabs(Vnitrni - jiny.Vnitrni) < 0.001) ||
           !(std::fabs(Stena - jiny.Stena) < 0.0001) || std::wcscmp(UrsMaterial, jiny.UrsMaterial) != 0;
}

void CTogProfil::NastavUrsMaterial(const ACHAR* kod)
{
    KopirujKod(UrsMaterial, kod);
    ZrusUlozeno();
}

void CTogProfil::NastavUrsMontaz(const ACHAR* kod)
{
    KopirujKod(UrsMontaz, kod);
    ZrusUlozeno();
}

void CTogProfil::Serialize(CArchive& ar)
{
    if (ar.IsStoring()) {
        ar << kVerzeProfilu;
        ar << static_cast<WORD>(DnIndex & 0xFFFF);
        ar << Vnitrni << Stena;
        ar << static_cast<LONG>(Sirka);
        ZapisUkoncenyRetezec(ar, UrsMaterial, kUrsZnaku);
        ZapisUkoncenyRetezec(ar, UrsMontaz, kUrsZnaku);
        return;
    }

    BYTE verze = 0;
    ar >> verze;
    if (verze == kKonecZaznamu) {
        DnIndex = -1;
        return;
    }
    if (verze > kVerzeProfilu)
        ChybaVyssiVerze(__LINE__, __FILE__);
    short dn = 0;
    ar >> dn;
    int index = dn;
    // Before version 3 the DN table lacked row 15 (DN 225).
    if (verze < 3 && index >= 15)
        ++index;
    ar >> Vnitrni >> Stena;
    if (verze < 7) {
        DWORD zahodit = 0;
        ar >> zahodit;
    }
    if (verze >= 5) {
        LONG sirka = 0;
        ar >> sirka;
        Sirka = sirka;
    }
    if (verze >= 4)
        NactiUkoncenyRetezec(ar, UrsMaterial, kUrsZnaku);
    else
        NactiPevnyRetezec(ar, UrsMaterial, kUrsZnaku);
    if (verze >= 5)
        NactiUkoncenyRetezec(ar, UrsMontaz, kUrsZnaku);
    if (verze < 6) {
        // The label that old versions stored is built anew below.
        ACHAR popisek[kPopisekZnaku + 1];
        if (verze >= 4)
            NactiUkoncenyRetezec(ar, popisek, kPopisekZnaku);
        else
            PreskocPevnyRetezec(ar, verze >= 2 ? kPopisekZnaku : kStaryPopisekZnaku);
    }
    if (!PlatneDN(index))
        throw CTogException("Soubor je poškozen: profil má neplatné DN", __LINE__, __FILE__);
    DnIndex = index;

    bool chyba = false;
    if (SpatnyPrumer(Vnitrni)) {
        Vnitrni = kTabulkaDN[DnIndex].dn;
        chyba = true;
    }
    if (SpatnaStena(Stena)) {
        Stena = 3.0f;
        chyba = true;
    }
    if (chyba)
        VarujChybneHodnoty(*Material, DnIndex);
    AktualizujPopis();
}
