// The current material of each drawing and the user's default: the rules that find it, the stores that
// keep it (the drawing's group Koty, the registry's group Nastaveni) and the dialogs that pick and
// edit it.
#include "StdAfx.h"
#include "CTogBaseNastav.h"

#include <string>

#include "CTgDlgMatEdituj.h"
#include "CTgDlgMatVyber.h"
#include "CTogException.h"
#include "CTogRegistry.h"
#include "CTogSezMaterialu.h"
#include "CTogXRecord.h"

namespace {

constexpr const ACHAR* kSkupinaKoty = L"Koty";
constexpr const ACHAR* kTitulek = L"Togovy Utility pro AutoCad";
constexpr const ACHAR* kCurMat = L"CurMat";
constexpr const ACHAR* kCurMatDrsnost = L"CurMatDrsnost";
constexpr const ACHAR* kCurMatPN = L"CurMatPN";
constexpr const ACHAR* kCurMatSDR = L"CurMatSDR";
constexpr const ACHAR* kCurMatPop = L"CurMatPop";

/// The four parameters of a material that the stores keep beside its name.
struct UlozeneParametry {
    double drsnost = 0.01;
    Adesk::Int32 pn = 3;
    Adesk::Int32 sdr = 2;
    Adesk::Int32 pop = 1;
};

std::wstring KlicNastaveni()
{
    return std::wstring(CTogRegistry::kKlicProduktu) + CTogRegistry::kSkupinaNastaveni;
}

bool NactiZVykresu(UlozeneParametry& p)
{
    return CTogXRecord::NactiZX(kCurMatDrsnost, p.drsnost, kSkupinaKoty) && CTogXRecord::NactiZX(kCurMatPN, p.pn, kSkupinaKoty) &&
           CTogXRecord::NactiZX(kCurMatSDR, p.sdr, kSkupinaKoty) && CTogXRecord::NactiZX(kCurMatPop, p.pop, kSkupinaKoty);
}

bool NactiZRegistru(UlozeneParametry& p)
{
    const ACHAR* s = CTogRegistry::kSkupinaNastaveni;
    return CTogRegistry::NactiHodnotu(kCurMatDrsnost, s, p.drsnost) && CTogRegistry::NactiHodnotu(kCurMatPN, s, p.pn) &&
           CTogRegistry::NactiHodnotu(kCurMatSDR, s, p.sdr) && CTogRegistry::NactiHodnotu(kCurMatPop, s, p.pop);
}

void UlozDoVykresu(const UlozeneParametry& p)
{
    CTogXRecord::UlozDoX(kCurMatDrsnost, p.drsnost, kSkupinaKoty);
    CTogXRecord::UlozDoX(kCurMatPN, p.pn, kSkupinaKoty);
    CTogXRecord::UlozDoX(kCurMatSDR, p.sdr, kSkupinaKoty);
    CTogXRecord::UlozDoX(kCurMatPop, p.pop, kSkupinaKoty);
}

UlozeneParametry UlozeneZMaterialu(const CTogMaterial& m)
{
    return {static_cast<double>(m.Drsnost), m.PnIndex, m.SdrIndex, m.TypPopisu};
}

/// True when some material suits buildings (ZTI) and some medium.
bool MaMaterialZTI(const CTogSezMaterialu& katalog)
{
    for (const auto& [nazev, m] : katalog.Materialy)
        if ((m->Skupina & kSkupinaZTI) && (m->Pouziti & kPouzitiVse))
            return true;
    return false;
}

} // namespace

CTogSezMaterialu& CTogBaseNastav::Katalog()
{
    if (!m_katalog) {
        m_katalog = std::make_unique<CTogSezMaterialu>();
        m_katalogNacten = m_katalog->Nacti(false);
    }
    return *m_katalog;
}

CTogMaterial* CTogBaseNastav::AktualniMaterial()
{
    CTogSezMaterialu& katalog = Katalog();
    const AcString otisk = OtiskVykresu();
    if (m_material && otisk == m_otiskMaterialu)
        return m_material;

    m_otiskMaterialu = otisk;
    AcString nazev;
    if (!CTogXRecord::NactiZX(kCurMat, nazev, kSkupinaKoty) &&
        !CTogRegistry::NactiRetezec(HKEY_CURRENT_USER, KlicNastaveni().c_str(), kCurMat, nazev))
        nazev = kVychoziMaterial;
    m_nazevMaterialu = nazev;

    if (katalog.Materialy.empty() || !MaMaterialZTI(katalog)) {
        CString text;
        text.Format(L"V databázi materiálů nejsou žádné materiály pro ZTI\nbude přidán předdefinovaný materiál %ls\n"
                    L"pro nastavení spusťte dialog materiálů v nastavení Utilit",
                    nazev.kwszPtr());
        MessageBoxW(adsw_acadMainWnd(), text, kTitulek, MB_ICONERROR);
        return VytvorVychoziMaterial(nazev.kwszPtr());
    }
    if (CTogMaterial* nalezeny = katalog.NajdiMaterial(nazev.kwszPtr())) {
        m_material = nalezeny;
        return m_material;
    }
    CString otazka;
    otazka.Format(L"V databázi materiálů nebyl nalezen defaultní materiál \n%ls.....vybrat jiný?\n\n"
                  L"(v opačném případě bude vytvořen se standardními parametry)",
                  nazev.kwszPtr());
    if (MessageBoxW(adsw_acadMainWnd(), otazka, kTitulek, MB_YESNO | MB_ICONERROR) == IDYES) {
        m_material = nullptr;
        if (VyberMaterial())
            return m_material;
    }
    return VytvorVychoziMaterial(nazev.kwszPtr());
}

CTogMaterial* CTogBaseNastav::VyberMaterial(CWnd* rodic)
{
    CTgDlgMatVyber dialog(&Katalog(), FiltrMaterialu(kSkupinaZTI, kPouzitiVse), m_material, false, rodic);
    if (dialog.DoModal() == IDOK && dialog.m_material) {
        m_material = dialog.m_material;
        m_otiskMaterialu = OtiskVykresu();
        UlozAktualniMaterial();
    }
    return m_material;
}

void CTogBaseNastav::UlozAktualniMaterial()
{
    if (!m_material)
        return;
    m_nazevMaterialu = m_material->Nazev.GetString();
    CTogXRecord::UlozDoX(kCurMat, m_material->Nazev.GetString(), kSkupinaKoty);
    UlozDoVykresu(UlozeneZMaterialu(*m_material));
}

void CTogBaseNastav::UlozVychoziMaterial(const CTogMaterial& material)
{
    const UlozeneParametry p = UlozeneZMaterialu(material);
    const ACHAR* s = CTogRegistry::kSkupinaNastaveni;
    CTogRegistry::UlozRetezec(KlicNastaveni().c_str(), kCurMat, material.Nazev);
    CTogRegistry::UlozHodnotu(kCurMatDrsnost, s, p.drsnost);
    CTogRegistry::UlozHodnotu(kCurMatPN, s, p.pn);
    CTogRegistry::UlozHodnotu(kCurMatSDR, s, p.sdr);
    CTogRegistry::UlozHodnotu(kCurMatPop, s, p.pop);
    m_nazevMaterialu = material.Nazev.GetString();
}

CTogMaterial* CTogBaseNastav::VytvorVychoziMaterial(const ACHAR* nazev)
{
    UlozeneParametry p;
    if (!NactiZVykresu(p)) {
        if (!NactiZRegistru(p))
            p = UlozeneParametry{};
        UlozDoVykresu(p);
    }
    CTogSezMaterialu& katalog = Katalog();
    auto novy = std::make_unique<CTogMaterial>(&katalog, nazev, kSkupinaZTI, kPouzitiVse);
    ParametryMaterialu parametry;
    parametry.Nazev = nazev;
    parametry.Drsnost = p.drsnost;
    parametry.PnIndex = p.pn;
    parametry.SdrIndex = p.sdr;
    parametry.TypPopisu = p.pop;
    parametry.Skupina = kSkupinaZTI;
    parametry.Pouziti = kPouzitiVse;
    parametry.Tvar = kTvarKruh;
    novy->NastavParametry(parametry);
    // A material of that name that suits no building is not replaced: it becomes current as it is.
    CTogMaterial* material = katalog.Vloz(std::move(novy));
    if (material) {
        material->VymazProfily();
        for (int dn = 1; dn <= 11; ++dn)
            if (!material->PridejProfil(dn))
                throw CTogException("Nelze přidat profil", __LINE__, __FILE__);
    } else if (!(material = katalog.NajdiMaterial(nazev))) {
        throw CTogException("Nelze přidat profil", __LINE__, __FILE__);
    }
    if (m_katalogNacten)
        katalog.Uloz();
    m_material = material;
    m_nazevMaterialu = nazev;
    return m_material;
}

void CTogBaseNastav::EditujMaterialy(CWnd* rodic)
{
    CTgDlgMatEdituj dialog(&Katalog(), kFiltrVse, m_material, rodic);
    dialog.DoModal();
}
