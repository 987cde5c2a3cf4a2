// CTogRegistry: the installation paths and the user's values in the Windows registry.
#include "StdAfx.h"
#include "CTogRegistry.h"
#include "CTogException.h"

#include <cstring>

namespace {

// Closes the key on every way out.
class COtevrenyKlic {
public:
    COtevrenyKlic() = default;
    ~COtevrenyKlic()
    {
        if (m_klic)
            RegCloseKey(m_klic);
    }
    COtevrenyKlic(const COtevrenyKlic&) = delete;
    COtevrenyKlic& operator=(const COtevrenyKlic&) = delete;

    PHKEY Adresa() { return &m_klic; }
    HKEY Klic() const { return m_klic; }

private:
    HKEY m_klic = nullptr;
};

// Opens (creating where missing) a key under HKEY_CURRENT_USER with full access.
void OtevriProZapis(const ACHAR* klic, COtevrenyKlic& otevreny)
{
    DWORD dispozice = 0;
    LSTATUS status = RegCreateKeyExW(HKEY_CURRENT_USER, klic, 0, nullptr, REG_OPTION_NON_VOLATILE, KEY_ALL_ACCESS,
                                     nullptr, otevreny.Adresa(), &dispozice);
    if (status != ERROR_SUCCESS)
        throw CTogException("Nelze otevřít klíč,nastavení nebude uloženo", __LINE__, __FILE__, status);
}

AcString KlicSkupiny(const ACHAR* skupina)
{
    AcString klic(CTogRegistry::kKlicProduktu);
    klic += skupina;
    return klic;
}

void PridejLomitko(AcString& cesta)
{
    if (cesta.isEmpty() || cesta.getAt(static_cast<int>(cesta.length()) - 1) != L'\\')
        cesta += L'\\';
}

} // namespace

const ACHAR* CTogRegistry::NazevCesty(TypCesty typ)
{
    switch (typ) {
    case TypCesty::Install: return L"InstallPath";
    case TypCesty::Data: return L"DataPath";
    case TypCesty::CommonInstall: return L"CommonInstallPath";
    case TypCesty::CommonData: return L"CommonDataPath";
    case TypCesty::Null: break;
    }
    return L"NULL";
}

bool CTogRegistry::NactiRetezec(HKEY koren, const ACHAR* klic, const ACHAR* nazev, AcString& text)
{
    COtevrenyKlic otevreny;
    if (RegOpenKeyExW(koren, klic, 0, KEY_READ, otevreny.Adresa()) != ERROR_SUCCESS)
        return false;
    // 1000 bytes on Windows: 499 characters and the terminating zero.
    WCHAR buffer[500] = {};
    DWORD velikost = sizeof(buffer);
    DWORD typ = REG_NONE;
    if (RegQueryValueExW(otevreny.Klic(), nazev, nullptr, &typ, reinterpret_cast<LPBYTE>(buffer), &velikost) !=
            ERROR_SUCCESS ||
        typ != REG_SZ)
        return false;
    // The stored string need not end in a zero.
    size_t znaku = velikost / sizeof(WCHAR);
    if (znaku >= 500)
        znaku = 499;
    buffer[znaku] = L'\0';
    text = buffer;
    return true;
}

bool CTogRegistry::UlozRetezec(const ACHAR* klic, const ACHAR* nazev, const ACHAR* text)
{
    COtevrenyKlic otevreny;
    OtevriProZapis(klic, otevreny);
    const ACHAR* hodnota = text ? text : L"";
    const DWORD velikost = static_cast<DWORD>((std::wcslen(hodnota) + 1) * sizeof(WCHAR));
    LSTATUS status =
        RegSetValueExW(otevreny.Klic(), nazev, 0, REG_SZ, reinterpret_cast<const BYTE*>(hodnota), velikost);
    if (status != ERROR_SUCCESS)
        throw CTogException("Nelze uložit TCHAR hodnotu do klíče registru", __LINE__, __FILE__, status);
    return true;
}

bool CTogRegistry::NactiHodnotu(const ACHAR* nazev, const ACHAR* skupina, void* hodnota, DWORD delka)
{
    COtevrenyKlic otevreny;
    if (RegOpenKeyExW(HKEY_CURRENT_USER, KlicSkupiny(skupina), 0, KEY_READ, otevreny.Adresa()) != ERROR_SUCCESS)
        return false;
    // Read into a copy so that a failed read leaves the variable alone.
    std::string bajty(delka, '\0');
    DWORD velikost = delka;
    DWORD typ = REG_NONE;
    if (RegQueryValueExW(otevreny.Klic(), nazev, nullptr, &typ, reinterpret_cast<LPBYTE>(bajty.data()),
                         &velikost) != ERROR_SUCCESS ||
        typ != REG_BINARY)
        return false;
    std::memcpy(hodnota, bajty.data(), velikost);
    return true;
}

bool CTogRegistry::UlozHodnotu(const ACHAR* nazev, const ACHAR* skupina, const void* hodnota, DWORD delka)
{
    COtevrenyKlic otevreny;
    OtevriProZapis(KlicSkupiny(skupina), otevreny);
    LSTATUS status =
        RegSetValueExW(otevreny.Klic(), nazev, 0, REG_BINARY, static_cast<const BYTE*>(hodnota), delka);
    if (status != ERROR_SUCCESS)
        throw CTogException("Nelze uložit DWORD hodnotu do klíče registru", __LINE__, __FILE__, status);
    return true;
}

bool CTogRegistry::NactiNastaveno(Adesk::UInt8& hodnota)
{
    return NactiHodnotu(L"NASTAVENO", kSkupinaNastaveni, hodnota);
}
bool CTogRegistry::UlozNastaveno(Adesk::UInt8 hodnota)
{
    return UlozHodnotu(L"NASTAVENO", kSkupinaNastaveni, hodnota);
}
bool CTogRegistry::NactiGlobPrepinace(Adesk::Int16& hodnota)
{
    return NactiHodnotu(L"Glob_prepinace", kSkupinaNastaveni, hodnota);
}
bool CTogRegistry::UlozGlobPrepinace(Adesk::Int16 hodnota)
{
    return UlozHodnotu(L"Glob_prepinace", kSkupinaNastaveni, hodnota);
}
bool CTogRegistry::NactiCurMatDrsnost(double& hodnota)
{
    return NactiHodnotu(L"CurMatDrsnost", kSkupinaNastaveni, hodnota);
}
bool CTogRegistry::UlozCurMatDrsnost(double hodnota)
{
    return UlozHodnotu(L"CurMatDrsnost", kSkupinaNastaveni, hodnota);
}
bool CTogRegistry::NactiCurMatPop(Adesk::Int32& hodnota)
{
    return NactiHodnotu(L"CurMatPop", kSkupinaNastaveni, hodnota);
}
bool CTogRegistry::UlozCurMatPop(Adesk::Int32 hodnota)
{
    return UlozHodnotu(L"CurMatPop", kSkupinaNastaveni, hodnota);
}

AcString CTogRegistry::NactiCestu(const ACHAR* klic, TypCesty typ)
{
    AcString cesta;
    if (!NactiRetezec(HKEY_LOCAL_MACHINE, klic, NazevCesty(typ), cesta) &&
        !NactiRetezec(HKEY_CURRENT_USER, klic, NazevCesty(typ), cesta))
        throw CTogException(
            "Nelze načíst Install/Data Path z registru Windows (z HKLM ani z HKCU), chyba instalace programu",
            __LINE__, __FILE__);
    PridejLomitko(cesta);
    return cesta;
}

AcString CTogRegistry::CestaKAdresari(const ACHAR* klic, const ACHAR* podadresar, TypCesty typ, bool sLomitkem,
                                      bool zalozit)
{
    AcString cesta = NactiCestu(klic, typ);
    cesta += podadresar;
    PridejLomitko(cesta);
    if (!sLomitkem)
        cesta = cesta.mid(0, static_cast<int>(cesta.length()) - 1);

    DWORD atributy = GetFileAttributesW(cesta);
    if (atributy != INVALID_FILE_ATTRIBUTES && (atributy & FILE_ATTRIBUTE_DIRECTORY))
        return cesta;
    if (!zalozit)
        return cesta;
    if (!CreateDirectoryW(cesta, nullptr))
        throw CTogException("Adresář nelze založit", __LINE__, __FILE__);
    return cesta;
}
