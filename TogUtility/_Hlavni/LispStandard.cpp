// The AutoLISP functions that reach the standard objects: layers and styles found or created from the
// catalogue.
#include "StdAfx.h"
#include "LispFunkce.h"
#include "OkrajPrikazu.h"
#include "ZatimNeni.h"

int togu_nastav_dimstyl()
{
    return ProvedLispFunkci([] { return LispFunkceZatimNeni(L"togu_nastav_dimstyl"); });
}

int togu_nastav_hladinu()
{
    return ProvedLispFunkci([] { return LispFunkceZatimNeni(L"togu_nastav_hladinu"); });
}

int togu_nastav_mleaderstyl()
{
    return ProvedLispFunkci([] { return LispFunkceZatimNeni(L"togu_nastav_mleaderstyl"); });
}

int togu_nastav_textstyl()
{
    return ProvedLispFunkci([] { return LispFunkceZatimNeni(L"togu_nastav_textstyl"); });
}

int togu_nastav_uziv_hladinu()
{
    return ProvedLispFunkci([] { return LispFunkceZatimNeni(L"togu_nastav_uziv_hladinu"); });
}

int togu_zmen_hladinu_entity()
{
    return ProvedLispFunkci([] { return LispFunkceZatimNeni(L"togu_zmen_hladinu_entity"); });
}
