// CTogXRecord: values kept inside the drawing, in the dictionary "TOGUTILS" of the named objects
// dictionary, one xrecord per key. A key is the name, or group + "_" + name when a group is given.
#pragma once
#include "AcString.h"
#include "acadstrc.h"
#include "adesk.h"
#include "gepnt3d.h"

struct resbuf;

class CTogXRecord {
public:
    static constexpr const ACHAR* kSlovnik = L"TOGUTILS";

    /// The key of a value: the name alone with a null group, else group + "_" + name.
    static AcString Klic(const ACHAR* nazev, const ACHAR* skupina);

    // Writes never throw: a failure shows the exception box and gives false.
    static bool UlozDoX(const ACHAR* nazev, Adesk::Int32 hodnota, const ACHAR* skupina);    // group code 90
    static bool UlozDoX(const ACHAR* nazev, bool hodnota, const ACHAR* skupina);            // 70
    static bool UlozDoX(const ACHAR* nazev, const ACHAR* hodnota, const ACHAR* skupina);    // 1
    static bool UlozDoX(const ACHAR* nazev, double hodnota, const ACHAR* skupina);          // 40
    static bool UlozDoX(const ACHAR* nazev, const AcGePoint3d& hodnota, const ACHAR* skupina); // 10

    // Reads give false, silently, when there is no entry; an entry of another kind throws
    // CTogException "Očekávaný typ proměnné XRecord neodpovídá".
    static bool NactiZX(const ACHAR* nazev, Adesk::Int32& hodnota, const ACHAR* skupina);
    static bool NactiZX(const ACHAR* nazev, bool& hodnota, const ACHAR* skupina);
    static bool NactiZX(const ACHAR* nazev, AcString& hodnota, const ACHAR* skupina);
    static bool NactiZX(const ACHAR* nazev, double& hodnota, const ACHAR* skupina);
    static bool NactiZX(const ACHAR* nazev, AcGePoint3d& hodnota, const ACHAR* skupina);

    /// Stores a whole chain under the key; takes the chain over (frees it) on success.
    static bool UlozChain(const ACHAR* klic, resbuf* chain);
    /// Reads the chain of the key; the caller frees it with acutRelRb.
    static bool NactiChain(const ACHAR* klic, resbuf*& chain);
    /// Erases an entry of the named objects dictionary ("TOGUTILS", "TOGVARNIK").
    static bool SmazZaznam(const ACHAR* nazev);
};
