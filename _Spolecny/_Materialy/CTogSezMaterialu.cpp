// CTogSezMaterialu: the catalogue's materials, its list record, and which file is read and written.
#include "CTogSezMaterialu.h"

#include <commctrl.h>
#include <limits>
#include "CTogBaseNastav.h"
#include "CTogRegistry.h"
#include "CTogSet.h"
#include "RetezceArchivu.h"

namespace {

constexpr BYTE kVerzeSeznamu = 3;
constexpr BYTE kKonecZaznamu = 0xFF;
constexpr const ACHAR* kPodadresar = L"Materialy";
constexpr const ACHAR* kNazevProduktu = L"Togovy Utility pro AutoCad";
constexpr const ACHAR* kNeocekavanaVyjimka = L"Neočekávaná výjimka";

/// The path of a catalogue file in the Materialy folder of the installation's or the user's data.
AcString CestaKatalogu(TypCesty typ, const ACHAR* soubor, bool zalozit = false)
{
    AcString cesta = CTogRegistry::CestaKAdresari(CTogRegistry::kKlicVyrobce, kPodadresar, typ, true, zalozit);
    cesta += soubor;
    return cesta;
}

void ChybaOtevreni(const AcString& cesta, const ACHAR* obsah)
{
    AcString hlavni = L"Nelze otevřít soubor:\n";
    hlavni += cesta.kwszPtr();
    ZeptejSe(hlavni, obsah, kTlacitkoOk, false, TD_ERROR_ICON, nullptr);
}

} // namespace

bool ProjdeFiltrem(const CTogMaterial& material, std::uint64_t filtr)
{
    const auto skupina = static_cast<std::uint32_t>(filtr & 0xFFFFFFFFu);
    const auto pouziti = static_cast<std::uint32_t>(filtr >> 32);
    return (static_cast<std::uint32_t>(material.Skupina) & skupina) != 0 &&
           (static_cast<std::uint32_t>(material.Pouziti) & pouziti) != 0;
}

CTogSezMaterialu::CTogSezMaterialu() = default;

CTogSezMaterialu::CTogSezMaterialu(const CTogSezMaterialu& zdroj) : CObject() { *this = zdroj; }

CTogSezMaterialu::~CTogSezMaterialu()
{
    Materialy.clear();
    m_odlozene.clear();
}

CTogSezMaterialu& CTogSezMaterialu::operator=(const CTogSezMaterialu& zdroj)
{
    if (this == &zdroj)
        return *this;
    Vymaz(true);
    for (const auto& [klic, material] : zdroj.Materialy)
        Materialy.emplace(klic, std::make_unique<CTogMaterial>(this, *material));
    Ulozeno = zdroj.Ulozeno;
    return *this;
}

bool CTogSezMaterialu::NajdiMaterial(const ACHAR* nazev, CTogMaterial*& material) const
{
    material = NajdiMaterial(nazev);
    return material != nullptr;
}

CTogMaterial* CTogSezMaterialu::NajdiMaterial(const ACHAR* nazev) const
{
    auto it = Materialy.find(nazev ? nazev : L"");
    return it == Materialy.end() ? nullptr : it->second.get();
}

CTogMaterial* CTogSezMaterialu::Vloz(std::unique_ptr<CTogMaterial> material)
{
    std::wstring klic = material->Nazev.GetString();
    auto [it, vlozen] = Materialy.emplace(std::move(klic), nullptr);
    if (!vlozen)
        return nullptr;
    material->Seznam = this;
    it->second = std::move(material);
    Ulozeno = false;
    return it->second.get();
}

bool CTogSezMaterialu::VymazMaterial(const ACHAR* nazev)
{
    auto it = Materialy.find(nazev ? nazev : L"");
    if (it == Materialy.end() || !it->second->Odkazy.empty())
        return false;
    Materialy.erase(it);
    Ulozeno = false;
    return true;
}

bool CTogSezMaterialu::Prejmenuj(const ACHAR* novyNazev, CTogMaterial* material)
{
    std::wstring novy = novyNazev ? novyNazev : L"";
    if (Materialy.count(novy))
        return Materialy.at(novy).get() == material;
    auto uzel = Materialy.extract(material->Nazev.GetString());
    if (uzel.empty() || uzel.mapped().get() != material) {
        if (!uzel.empty())
            Materialy.insert(std::move(uzel));
        return false;
    }
    uzel.key() = novy;
    Materialy.insert(std::move(uzel));
    material->Nazev = novy.c_str();
    Ulozeno = false;
    return true;
}

void CTogSezMaterialu::Vymaz(bool jenNepouzite)
{
    for (auto& [klic, material] : Materialy) {
        if (jenNepouzite && !material->Odkazy.empty()) {
            material->Seznam = nullptr;
            m_odlozene.push_back(std::move(material));
        }
    }
    Materialy.clear();
    Ulozeno = true;
}

void CTogSezMaterialu::VymazOdkazy()
{
    for (auto& [klic, material] : Materialy) {
        material->Odkazy.clear();
        for (auto& [dn, profil] : material->Profily)
            profil->Odkazy.clear();
    }
}

void CTogSezMaterialu::ZnovuZamerOdkazy()
{
    for (auto& [klic, material] : Materialy) {
        for (CTogOdkaz<CTogMaterial>* odkaz : SeznamOdkazu<CTogMaterial>(material->Odkazy))
            odkaz->Presmeruj(material.get());
        for (auto& [dn, profil] : material->Profily)
            for (CTogOdkaz<CTogProfil>* odkaz : SeznamOdkazu<CTogProfil>(profil->Odkazy))
                odkaz->Presmeruj(profil.get());
    }
    UklidOdlozene();
}

void CTogSezMaterialu::UklidOdlozene()
{
    std::erase_if(m_odlozene, [](const std::unique_ptr<CTogMaterial>& m) {
        for (CTogOdkaz<CTogMaterial>* odkaz : m->Odkazy)
            if (odkaz->get() == m.get())
                return false;
        return true;
    });
}

void CTogSezMaterialu::Serialize(CArchive& ar)
{
    if (ar.IsStoring()) {
        ar << kVerzeSeznamu;
        for (auto& [klic, material] : Materialy)
            material->Serialize(ar);
        ar << kKonecZaznamu;
        return;
    }

    // Reading merges into what the list holds.
    if (g_pNastaveni)
        g_pNastaveni->ZapomenOdpoved(kOtazkaMaterial);
    for (auto& [klic, material] : Materialy)
        material->Poradi = -2;
    BYTE verze = 0;
    ar >> verze;
    if (verze > kVerzeSeznamu)
        ChybaVyssiVerze(__LINE__, __FILE__);
    ULONGLONG pocet = std::numeric_limits<ULONGLONG>::max();
    if (verze < 2)
        ar >> pocet;
    for (ULONGLONG i = 0; i < pocet; ++i) {
        auto novy = std::make_unique<CTogMaterial>(this, L"");
        novy->Serialize(ar);
        if (novy->Poradi == -1)
            break;
        std::wstring klic = novy->Nazev.GetString();
        auto it = Materialy.find(klic);
        CTogMaterial* material = novy.get();
        if (it == Materialy.end()) {
            Materialy.emplace(std::move(klic), std::move(novy));
        } else {
            // A name the list has: its values stay, profiles it lacks are added.
            material = it->second.get();
            if (!material->Shodny(*novy))
                material->SlucProfily(*novy, false);
        }
        material->Poradi = static_cast<int>(i);
    }
    if (verze < 3) {
        DWORD zahodit = 0;
        ar >> zahodit >> zahodit >> zahodit;
    }
    Ulozeno = true;
}

bool CTogSezMaterialu::Nacti(bool standard)
{
    AcString cesta;
    CFile soubor;
    try {
        cesta = CestaKatalogu(standard ? TypCesty::CommonInstall : TypCesty::CommonData,
                              standard ? kStandardniSoubor : kUzivatelskySoubor);
        if (!soubor.Open(cesta, CFile::modeRead | CFile::shareDenyWrite)) {
            if (standard) {
                AcString obsah = L"\nDoporučujeme přeinstalovat program";
                obsah += kNazevProduktu;
                ChybaOtevreni(cesta, obsah);
                return false;
            }
            AcString druha = CestaKatalogu(TypCesty::CommonData, kStaryUzivatelskySoubor);
            if (!soubor.Open(druha, CFile::modeRead | CFile::shareDenyWrite)) {
                ChybaOtevreni(cesta, L"Bude načten standardní soubor");
                bool nacteno = Nacti(true);
                if (nacteno)
                    Uloz();
                return nacteno;
            }
        }
        CArchive ar(&soubor, CArchive::load);
        Serialize(ar);
        ar.Close();
        soubor.Close();
    } catch (CException* e) {
        e->Delete();
        MessageBoxW(GetActiveWindow(), L"Chyba při čtení ze souboru", kNeocekavanaVyjimka, MB_OK | MB_ICONERROR);
        return false;
    } catch (const CTogException& e) {
        ZobrazVyjimku(e);
        return false;
    }
    Ulozeno = !standard;
    for (auto& [klic, material] : Materialy)
        material->Poradi = -2;
    return true;
}

bool CTogSezMaterialu::Uloz()
{
    if (Materialy.empty())
        return true;
    AcString cesta = CestaKatalogu(TypCesty::CommonData, kUzivatelskySoubor, true);
    CFile soubor;
    if (!soubor.Open(cesta, CFile::modeCreate | CFile::modeWrite | CFile::shareExclusive)) {
        ChybaOtevreni(cesta, L"Nelze uložit provedené změny");
        return false;
    }
    try {
        CArchive ar(&soubor, CArchive::store);
        Serialize(ar);
        ar.Close();
        soubor.Close();
    } catch (CException* e) {
        e->Delete();
        soubor.Abort();
        MessageBoxW(GetActiveWindow(), L"Chyba při zápisu do souboru", kNeocekavanaVyjimka, MB_OK | MB_ICONERROR);
        return false;
    }
    Ulozeno = true;
    return true;
}
