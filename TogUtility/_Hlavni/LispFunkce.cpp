// The AutoLISP functions that reach the stores: values of the drawing, switches and paths.
#include "StdAfx.h"
#include "LispFunkce.h"
#include "CTogBaseNastav.h"
#include "CTogRegistry.h"
#include "CTogXRecord.h"
#include "OkrajPrikazu.h"

#include <optional>

namespace {

constexpr const ACHAR* kSpatneArgumenty = L"\n!!!špatný typ nebo počet argumentů";

// The key of the drawing store functions: the first argument, a string; null otherwise.
const ACHAR* KlicZArgumentu(const resbuf* argumenty)
{
    if (argumenty == nullptr || argumenty->restype != RTSTR || argumenty->resval.rstring == nullptr)
        return nullptr;
    return argumenty->resval.rstring;
}

// The common frame of the togu_ulozdox_* functions: the key and a value the store accepts, T when
// it was stored. `uloz` gives nothing when the value has the wrong type.
int UlozDoVykresu(const std::function<std::optional<bool>(const ACHAR* klic, const resbuf& hodnota)>& uloz)
{
    const resbuf* argumenty = acedGetArgs();
    const ACHAR* klic = KlicZArgumentu(argumenty);
    std::optional<bool> ulozeno;
    if (klic != nullptr && argumenty->rbnext != nullptr)
        ulozeno = uloz(klic, *argumenty->rbnext);
    if (!ulozeno) {
        acutPrintf(kSpatneArgumenty);
        return acedRetNil();
    }
    return *ulozeno ? acedRetT() : acedRetNil();
}

// The common frame of the togu_nactizx_* functions: the key, then `nacti` answers the value, or the
// function answers nil when the drawing holds none.
int NactiZVykresu(const std::function<bool(const ACHAR* klic)>& nacti)
{
    const ACHAR* klic = KlicZArgumentu(acedGetArgs());
    if (klic == nullptr) {
        acutPrintf(kSpatneArgumenty);
        return acedRetNil();
    }
    if (!nacti(klic))
        return acedRetNil();
    return RTNORM;
}

} // namespace

int togu_is_debug()
{
    return ProvedLispFunkci([] {
        acedRetNil();
        return RTNORM;
    });
}

int togu_nastaveni()
{
    return ProvedLispFunkci([] {
        const resbuf* argumenty = acedGetArgs();
        if (argumenty == nullptr || argumenty->restype != RTSHORT) {
            acutPrintf(L"\n!!!Špatný typ nebo počet argumentů, prototyp funkce je (togu_nastaveni [int "
                       L"typNastaveni])\nargumenty 1 - text/mtext, 2 - uchopení, 3 - multivýběr, 4 - resetovat "
                       L"hladiny, 5 - nastavovat BYLAYER");
            return acedRetNil();
        }
        std::uint32_t bit = 0;
        switch (argumenty->resval.rint) {
        case 1: bit = kTextJakoMText; break;
        case 2: bit = kPrednastavovatUchopeni; break;
        case 3: bit = kVicenasobnyVyber; break;
        case 4: bit = kPrenastavovatHladiny; break;
        default:
            acutPrintf(L"\n!!!Argument je mimo rozsah, přípustné je 1 až 4");
            return acedRetNil();
        }
        return acedRetInt(g_pNastaveni->Prepinac(bit) ? 1 : 0);
    });
}

int togu_nacti_cestu()
{
    return ProvedLispFunkci([] {
        const resbuf* argument = acedGetArgs();
        if (argument == nullptr || argument->restype != RTSTR || argument->resval.rstring == nullptr) {
            acutPrintf(L"\n!!!Špatný typ nebo počet argumentů, prototyp funkce je (togu_nacti_cestu strSoubor "
                       L"[strAdresar] [Podadresar] [int typCesty])");
            return acedRetNil();
        }
        AcString soubor(argument->resval.rstring);
        AcString adresar;
        int typ = 1;
        argument = argument->rbnext;
        if (argument != nullptr && argument->restype == RTSTR) {
            adresar = argument->resval.rstring;
            argument = argument->rbnext;
            if (argument != nullptr && argument->restype == RTSTR) {
                adresar += L"\\";
                adresar += argument->resval.rstring;
                argument = argument->rbnext;
            }
        }
        if (argument != nullptr && argument->restype == RTSHORT)
            typ = argument->resval.rint;
        if (typ < 1 || typ > 4) {
            acutPrintf(L"\nChybně zadaná hodnota typu - očekává se 1 až 4");
            return acedRetNil();
        }
        const ACHAR* klic = typ <= 2 ? CTogRegistry::kKlicProduktu : CTogRegistry::kKlicVyrobce;
        AcString cesta = CTogRegistry::CestaKAdresari(klic, adresar, static_cast<TypCesty>(typ), false, false);
        cesta += L"\\";
        cesta += soubor;
        return acedRetStr(cesta);
    });
}

int togu_ulozdox_int()
{
    return ProvedLispFunkci([] {
        return UlozDoVykresu([](const ACHAR* klic, const resbuf& hodnota) -> std::optional<bool> {
            if (hodnota.restype == RTSHORT)
                return CTogXRecord::UlozDoX(klic, static_cast<Adesk::Int32>(hodnota.resval.rint), nullptr);
            if (hodnota.restype == RTLONG)
                return CTogXRecord::UlozDoX(klic, static_cast<Adesk::Int32>(hodnota.resval.rlong), nullptr);
            return std::nullopt;
        });
    });
}

int togu_ulozdox_string()
{
    return ProvedLispFunkci([] {
        return UlozDoVykresu([](const ACHAR* klic, const resbuf& hodnota) -> std::optional<bool> {
            if (hodnota.restype != RTSTR || hodnota.resval.rstring == nullptr)
                return std::nullopt;
            return CTogXRecord::UlozDoX(klic, static_cast<const ACHAR*>(hodnota.resval.rstring), nullptr);
        });
    });
}

int togu_ulozdox_real()
{
    return ProvedLispFunkci([] {
        return UlozDoVykresu([](const ACHAR* klic, const resbuf& hodnota) -> std::optional<bool> {
            if (hodnota.restype != RTREAL)
                return std::nullopt;
            return CTogXRecord::UlozDoX(klic, hodnota.resval.rreal, nullptr);
        });
    });
}

int togu_ulozdox_point()
{
    return ProvedLispFunkci([] {
        return UlozDoVykresu([](const ACHAR* klic, const resbuf& hodnota) -> std::optional<bool> {
            if (hodnota.restype != RT3DPOINT && hodnota.restype != RTPOINT)
                return std::nullopt;
            // A 2D point carries no height.
            double z = hodnota.restype == RT3DPOINT ? hodnota.resval.rpoint[Z] : 0.0;
            AcGePoint3d bod(hodnota.resval.rpoint[X], hodnota.resval.rpoint[Y], z);
            return CTogXRecord::UlozDoX(klic, bod, nullptr);
        });
    });
}

int togu_nactizx_int()
{
    return ProvedLispFunkci([] {
        return NactiZVykresu([](const ACHAR* klic) {
            Adesk::Int32 hodnota = 0;
            if (!CTogXRecord::NactiZX(klic, hodnota, nullptr))
                return false;
            acedRetInt(hodnota);
            return true;
        });
    });
}

int togu_nactizx_string()
{
    return ProvedLispFunkci([] {
        return NactiZVykresu([](const ACHAR* klic) {
            AcString hodnota;
            if (!CTogXRecord::NactiZX(klic, hodnota, nullptr))
                return false;
            acedRetStr(hodnota);
            return true;
        });
    });
}

int togu_nactizx_real()
{
    return ProvedLispFunkci([] {
        return NactiZVykresu([](const ACHAR* klic) {
            double hodnota = 0.0;
            if (!CTogXRecord::NactiZX(klic, hodnota, nullptr))
                return false;
            acedRetReal(hodnota);
            return true;
        });
    });
}

int togu_nactizx_point()
{
    return ProvedLispFunkci([] {
        return NactiZVykresu([](const ACHAR* klic) {
            AcGePoint3d hodnota;
            if (!CTogXRecord::NactiZX(klic, hodnota, nullptr))
                return false;
            ads_point bod = {hodnota.x, hodnota.y, hodnota.z};
            acedRetPoint(bod);
            return true;
        });
    });
}
