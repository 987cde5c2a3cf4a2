// Commands and AutoLISP functions not yet in this build.
#include "StdAfx.h"
#include "ZatimNeni.h"

void PrikazZatimNeni(const ACHAR* prikaz)
{
    acutPrintf(L"\nPříkaz %ls zatím není v tomto sestavení k dispozici.", prikaz);
}

int LispFunkceZatimNeni(const ACHAR* funkce)
{
    acutPrintf(L"\nFunkce %ls zatím není v tomto sestavení k dispozici.", funkce);
    acedRetNil();
    return RTNORM;
}
