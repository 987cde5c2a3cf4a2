// CTogAc: small wrappers of the host's editor calls (system variables).
#pragma once
#include "adesk.h"

class CTogAc {
public:
    /// The value of an integer system variable (short or long). A failed read throws "Neznámá chyba
    /// při čtení systémové proměné"; a variable of another type throws "Neočekávaný typ při čtení
    /// systémové proměné".
    static int NactiPromennou(const ACHAR* nazev);
};
