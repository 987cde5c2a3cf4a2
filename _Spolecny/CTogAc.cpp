// Wrappers of the host's editor calls.
#include "StdAfx.h"
#include "CTogAc.h"
#include "CTogException.h"

int CTogAc::NactiPromennou(const ACHAR* nazev)
{
    // Taken from the host's allocator, so that acutRelRb frees a text value too.
    resbuf* hodnota = acutNewRb(RTNONE);
    if (acedGetVar(nazev, hodnota) != RTNORM) {
        acutRelRb(hodnota);
        throw CTogException("Neznámá chyba při čtení systémové proměné", __LINE__, __FILE__);
    }
    short typ = hodnota->restype;
    int cislo = typ == RTSHORT ? hodnota->resval.rint : typ == RTLONG ? hodnota->resval.rlong : 0;
    acutRelRb(hodnota);
    if (typ != RTSHORT && typ != RTLONG)
        throw CTogException("Neočekávaný typ při čtení systémové proměné", __LINE__, __FILE__);
    return cislo;
}
