// The AutoLISP functions that reach the stores: values of the drawing, switches and paths.
#include "StdAfx.h"
#include "LispFunkce.h"
#include "OkrajPrikazu.h"
#include "ZatimNeni.h"

int togu_is_debug()
{
    return ProvedLispFunkci([] {
        acedRetNil();
        return RTNORM;
    });
}

int togu_nacti_cestu()
{
    return ProvedLispFunkci([] { return LispFunkceZatimNeni(L"togu_nacti_cestu"); });
}

int togu_nactizx_int()
{
    return ProvedLispFunkci([] { return LispFunkceZatimNeni(L"togu_nactizx_int"); });
}

int togu_nactizx_point()
{
    return ProvedLispFunkci([] { return LispFunkceZatimNeni(L"togu_nactizx_point"); });
}

int togu_nactizx_real()
{
    return ProvedLispFunkci([] { return LispFunkceZatimNeni(L"togu_nactizx_real"); });
}

int togu_nactizx_string()
{
    return ProvedLispFunkci([] { return LispFunkceZatimNeni(L"togu_nactizx_string"); });
}

int togu_nastaveni()
{
    return ProvedLispFunkci([] { return LispFunkceZatimNeni(L"togu_nastaveni"); });
}

int togu_ulozdox_int()
{
    return ProvedLispFunkci([] { return LispFunkceZatimNeni(L"togu_ulozdox_int"); });
}

int togu_ulozdox_point()
{
    return ProvedLispFunkci([] { return LispFunkceZatimNeni(L"togu_ulozdox_point"); });
}

int togu_ulozdox_real()
{
    return ProvedLispFunkci([] { return LispFunkceZatimNeni(L"togu_ulozdox_real"); });
}

int togu_ulozdox_string()
{
    return ProvedLispFunkci([] { return LispFunkceZatimNeni(L"togu_ulozdox_string"); });
}
