// TabulkaLisp: the AutoLISP functions of the system. An entry's index is its function number, given
// to acedDefun when a drawing opens and read back with acedGetFunCode when the function is called.
#pragma once
#include <array>
#include "adesk.h"

struct PolozkaLisp {
    const ACHAR* nazev;
    int (*funkce)();
    bool registrovat; ///< also registered with acedRegFunc
};

extern const std::array<PolozkaLisp, 17> TabulkaLisp;
