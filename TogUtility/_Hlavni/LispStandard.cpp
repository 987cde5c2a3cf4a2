// The AutoLISP functions that reach the standard objects: layers and styles found or created from the
// catalogue.
#include "StdAfx.h"
#include "CTogException.h"
#include "CTogSet.h"
#include "LispFunkce.h"
#include "OkrajPrikazu.h"
#include "PresunDoHladiny.h"

namespace {

// The one string argument of a function, or null when the call has none.
const ACHAR* RetezcovyArgument()
{
    const resbuf* argument = acedGetArgs();
    return (argument != nullptr && argument->restype == RTSTR && argument->resval.rstring != nullptr)
               ? argument->resval.rstring
               : nullptr;
}

int Nil()
{
    acedRetNil();
    return RTNORM;
}

// A style of the drawing by its name, else created from the catalogue; answers the name, or prints
// the failure and answers nil.
int NastavStyl(const ACHAR* prototyp, const ACHAR* chyba, AcDbObjectId (*najdi)(const ACHAR*),
               AcDbObjectId (*zaloz)(const ACHAR*))
{
    const ACHAR* nazev = RetezcovyArgument();
    if (nazev == nullptr) {
        acutPrintf(L"\n!!!Špatný typ nebo počet argumentů, prototyp funkce je (%ls string)", prototyp);
        return Nil();
    }
    AcDbObjectId id = najdi(nazev);
    if (id.isNull())
        id = zaloz(nazev);
    if (id.isNull()) {
        acutPrintf(chyba, nazev);
        return Nil();
    }
    acedRetStr(nazev);
    return RTNORM;
}

AcDbObjectId ZalozStdTextStyl(const ACHAR* nazev)
{
    const StdTextStyl* styl = NajdiStdTextStyl(nazev);
    return styl ? ZalozTextStyl(*styl) : AcDbObjectId::kNull;
}

AcDbObjectId ZalozStdMLeaderStyl(const ACHAR* nazev)
{
    const StdMLeaderStyl* styl = NajdiStdMLeaderStyl(nazev);
    return styl ? ZalozMLeaderStyl(*styl) : AcDbObjectId::kNull;
}

AcDbObjectId ZalozStdKotaStyl(const ACHAR* nazev)
{
    const StdKotaStyl* styl = NajdiStdKotaStyl(nazev);
    return styl ? ZalozKotaStyl(*styl) : AcDbObjectId::kNull;
}

} // namespace

int togu_nastav_dimstyl()
{
    return ProvedLispFunkci([] {
        return NastavStyl(L"togu_nastav_dimstyl", L"\nDimension Styl %ls nelze vytvořit !!!", IdKotaStylu,
                          ZalozStdKotaStyl);
    });
}

int togu_nastav_mleaderstyl()
{
    return ProvedLispFunkci([] {
        return NastavStyl(L"togu_nastav_mleaderstyl", L"\nMLeader styl %ls nelze vytvořit !!!", IdMLeaderStylu,
                          ZalozStdMLeaderStyl);
    });
}

int togu_nastav_textstyl()
{
    return ProvedLispFunkci([] {
        return NastavStyl(L"togu_nastav_textstyl", L"\nStyl %ls nelze vytvořit !!!", IdTextStylu, ZalozStdTextStyl);
    });
}

int togu_nastav_hladinu()
{
    return ProvedLispFunkci([] {
        const ACHAR* argument = RetezcovyArgument();
        if (argument == nullptr) {
            acutPrintf(L"\n!!!Špatný typ nebo počet argumentů, prototyp funkce je (togu_nastav_hladinu string)");
            return Nil();
        }
        AcString nazev = argument;
        if (ZiskejHladinu(nazev, false).isNull()) {
            acutPrintf(L"\nHladinu %ls nelze vytvořit !!!", argument);
            return Nil();
        }
        acedRetStr(nazev);
        return RTNORM;
    });
}

int togu_zmen_hladinu_entity()
{
    return ProvedLispFunkci([] {
        const ACHAR* argument = RetezcovyArgument();
        if (argument == nullptr) {
            acutPrintf(L"\n!!!špatný typ nebo počet argumentů, syntaxe '(togu_zmen_hladinu_entity <string "
                       L"Nazev_hladiny>)'");
            return Nil();
        }
        AcString nazev = argument;
        AcDbObjectId id = ZiskejHladinu(nazev, false);
        if (id.isNull()) {
            acutPrintf(L"\nNepodařilo se vytvořit / najít hladinu %ls", argument);
            return Nil();
        }
        PresunDoHladiny(id);
        acedRetStr(nazev);
        return RTNORM;
    });
}

int togu_nastav_uziv_hladinu()
{
    return ProvedLispFunkci([] {
        const resbuf* argument = acedGetArgs();
        if (argument == nullptr || argument->restype != RTSTR || argument->resval.rstring == nullptr)
            throw CTogException("\n!!!Špatný typ nebo počet argumentů, prototyp funkce je\n(togu_nastav_hladinu "
                                "<název_hladiny> <číslo barvy> <název LType> <soubor.lin> <linewidth(mm * 100)> "
                                "<1 - tisk, 0 - netisk>))",
                                __LINE__, __FILE__);
        AcString nazev = argument->resval.rstring;
        argument = argument->rbnext;
        // Without its colour the call ends with no answer.
        if (argument == nullptr || argument->restype != RTSHORT)
            return RTNORM;
        const int barva = argument->resval.rint;
        AcString typCary = kSouvislaCara;
        int tloustka = AcDb::kLnWtByLwDefault;
        bool tisknout = true;
        // Each later argument counts only while all before it came with the right type. The .lin file
        // of the sixth place plays no part: line types come from the installation's files.
        argument = argument->rbnext;
        if (argument != nullptr && argument->restype == RTSTR) {
            typCary = argument->resval.rstring;
            argument = argument->rbnext;
            if (argument != nullptr && argument->restype == RTSHORT) {
                tloustka = argument->resval.rint;
                argument = argument->rbnext;
                if (argument != nullptr && argument->restype == RTSHORT)
                    tisknout = argument->resval.rint != 0;
            }
        }
        AcString celyNazev = nazev;
        if (ZalozUzivHladinu(celyNazev, barva, typCary, static_cast<AcDb::LineWeight>(tloustka), tisknout).isNull()) {
            acutPrintf(L"\nHladinu %ls nelze vytvořit !!!", nazev.kwszPtr());
            return Nil();
        }
        acedRetStr(celyNazev);
        return RTNORM;
    });
}
