// The DN, PN and SDr tables.
#include "TabulkyMaterialu.h"

#include <cwchar>

const RadekDN kTabulkaDN[kPocetDN] = {
    {L"DN 8", 8, 10},       {L"DN 10", 10, 16},     {L"DN 12", 12, 18},     {L"DN 15", 15, 20},
    {L"DN 20", 20, 25},     {L"DN 25", 25, 32},     {L"DN 32", 32, 40},     {L"DN 40", 40, 50},
    {L"DN 50", 50, 63},     {L"DN 65", 65, 75},     {L"DN 80", 80, 90},     {L"DN 100", 100, 110},
    {L"DN 125", 125, 125},  {L"DN 150", 150, 160},  {L"DN 200", 200, 200},  {L"DN 225", 225, 225},
    {L"DN 250", 250, 250},  {L"DN 300", 300, 315},  {L"DN 350", 350, 350},  {L"DN 400", 400, 400},
    {L"DN 450", 450, 450},  {L"DN 500", 500, 500},  {L"DN 600", 600, 600},  {L"DN 700", 700, 700},
    {L"DN 800", 800, 800},  {L"DN 900", 900, 900},  {L"DN 1000", 1000, 1000}, {L"DN 1200", 1200, 1200},
};

const RadekPN kTabulkaPN[kPocetPN] = {
    {L"---", 0}, {L"PN 6", 6}, {L"PN 10", 10}, {L"PN 16", 16}, {L"PN 25", 25}, {L"PN 40", 40}, {L"PN 63", 63},
};

// Row 2 is labelled 7.4 but computes with 7.2; files and drawings made with it rely on the value.
const RadekSDr kTabulkaSDr[kPocetSDr] = {
    {L"---", 0.0f},     {L"SDr 6", 6.0f},   {L"SDr 7.4", 7.2f},  {L"SDr 9", 9.0f},
    {L"SDr 11", 11.0f}, {L"SDr 13.6", 13.6f}, {L"SDr 17", 17.0f}, {L"SDr 17.6", 17.6f},
};

namespace {

template <class Radek, int N> int najdi(const Radek (&tabulka)[N], const ACHAR* popis)
{
    if (!popis)
        return -1;
    for (int i = 0; i < N; ++i)
        if (std::wcscmp(tabulka[i].popis, popis) == 0)
            return i;
    return -1;
}

} // namespace

int IndexDN(const ACHAR* popis) { return najdi(kTabulkaDN, popis); }
int IndexPN(const ACHAR* popis) { return najdi(kTabulkaPN, popis); }
int IndexSDr(const ACHAR* popis) { return najdi(kTabulkaSDr, popis); }
