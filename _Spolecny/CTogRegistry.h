// CTogRegistry: values kept in the Windows registry. Installation paths (read only, the installer
// writes them) and the user's settings (written under HKEY_CURRENT_USER only).
#pragma once
#include <windows.h>
#include "AcString.h"
#include "adesk.h"

/// Index of a path value: which value name a path is read from.
enum class TypCesty : int {
    Null = 0,          // "NULL", not used
    Install = 1,       // "InstallPath", product key
    Data = 2,          // "DataPath", product key
    CommonInstall = 3, // "CommonInstallPath", maker key
    CommonData = 4,    // "CommonDataPath", maker key
};

class CTogRegistry {
public:
    static constexpr const ACHAR* kKlicVyrobce = L"Software\\Togvarnik\\";
    static constexpr const ACHAR* kKlicSpolecny = L"Software\\Togvarnik\\Common";
    static constexpr const ACHAR* kKlicProduktu = L"Software\\Togvarnik\\Togovy Utility\\";
    static constexpr const ACHAR* kSkupinaNastaveni = L"Nastaveni";

    /// The value name of a path type ("InstallPath", ...).
    static const ACHAR* NazevCesty(TypCesty typ);

    /// Reads a REG_SZ value (at most 1000 bytes). True only for a string; `text` is set then only.
    static bool NactiRetezec(HKEY koren, const ACHAR* klic, const ACHAR* nazev, AcString& text);
    /// Writes a REG_SZ value under HKEY_CURRENT_USER; creates the key. Throws CTogException.
    static bool UlozRetezec(const ACHAR* klic, const ACHAR* nazev, const ACHAR* text);

    /// Reads a REG_BINARY value of the group key (product key + group) under HKEY_CURRENT_USER into
    /// `hodnota`, exactly sizeof(T) bytes. False (variable untouched) for a missing key or value,
    /// another type, or a longer stored value.
    static bool NactiHodnotu(const ACHAR* nazev, const ACHAR* skupina, void* hodnota, DWORD delka);
    template <class T> static bool NactiHodnotu(const ACHAR* nazev, const ACHAR* skupina, T& hodnota)
    {
        return NactiHodnotu(nazev, skupina, &hodnota, sizeof(T));
    }
    /// Writes the bytes of the value as REG_BINARY into the group key (created when missing).
    /// Throws CTogException.
    static bool UlozHodnotu(const ACHAR* nazev, const ACHAR* skupina, const void* hodnota, DWORD delka);
    template <class T> static bool UlozHodnotu(const ACHAR* nazev, const ACHAR* skupina, const T& hodnota)
    {
        return UlozHodnotu(nazev, skupina, &hodnota, sizeof(T));
    }

    // The fixed forms for the group "Nastaveni".
    static bool NactiNastaveno(Adesk::UInt8& hodnota);
    static bool UlozNastaveno(Adesk::UInt8 hodnota);
    static bool NactiGlobPrepinace(Adesk::Int16& hodnota);
    static bool UlozGlobPrepinace(Adesk::Int16 hodnota);
    static bool NactiCurMatDrsnost(double& hodnota);
    static bool UlozCurMatDrsnost(double hodnota);
    static bool NactiCurMatPop(Adesk::Int32& hodnota);
    static bool UlozCurMatPop(Adesk::Int32 hodnota);

    /// The path value of the key (machine root first, then the user's), always ending in a backslash.
    /// Throws when neither root holds it.
    static AcString NactiCestu(const ACHAR* klic, TypCesty typ);
    /// NactiCestu + subfolder; with or without the trailing backslash; optionally makes the folder
    /// (one level; "Adresář nelze založit" on failure).
    static AcString CestaKAdresari(const ACHAR* klic, const ACHAR* podadresar, TypCesty typ,
                                   bool sLomitkem, bool zalozit);
};
