// The view and mark sizes, and the transient marks with their list of viewports.
#include "StdAfx.h"
#include "TogDraw.h"
#include <algorithm>
#include "acgitransient.h"
#include "CTogAc.h"
#include "CTogException.h"

namespace TogDraw {

double g_zapamatovanaVelikost = 0.0;

namespace {

std::vector<AcDbEntity*> g_znacky;
AcArray<int> g_viewporty;
SeznamyObnovy g_obnova;
// Set up with the first mark; the watch of the view itself comes with the editor reactor.
bool g_reaktor = false;

[[noreturn]] void ChybaPohledu(int radek)
{
    throw CTogException("Nelze získat rozměry aktuálního layoutu (zoom)", radek, __FILE__);
}

} // namespace

double VelikostPohledu()
{
    resbuf hodnota{};
    if (acedGetVar(L"VIEWSIZE", &hodnota) != RTNORM || hodnota.restype != RTREAL)
        ChybaPohledu(__LINE__);
    return hodnota.resval.rreal;
}

double VelikostZnacky()
{
    resbuf obrazovka{}, pohled{}, stred{};
    if (acedGetVar(L"SCREENSIZE", &obrazovka) != RTNORM || acedGetVar(L"VIEWSIZE", &pohled) != RTNORM ||
        acedGetVar(L"VIEWCTR", &stred) != RTNORM)
        ChybaPohledu(__LINE__);
    if (obrazovka.restype != RTPOINT || pohled.restype != RTREAL || obrazovka.resval.rpoint[Y] == 0.0)
        ChybaPohledu(__LINE__);
    return obrazovka.resval.rpoint[X] * pohled.resval.rreal / obrazovka.resval.rpoint[Y] / 150.0;
}

void PridejZnacku(AcDbEntity* entita)
{
    if (entita == nullptr)
        return;
    if (!g_reaktor) {
        // Here the editor reactor of the marks (MyEditorReactor) is made and added to the host's
        // editor, so that a zoom takes the marks off and draws the rebuild lists again.
        g_reaktor = true;
        g_zapamatovanaVelikost = 0.0;
    }
    int viewport = CTogAc::NactiPromennou(L"CVPORT");
    if (!g_viewporty.contains(viewport))
        g_viewporty.append(viewport);
    g_znacky.push_back(entita);
    AcArray<int> kde;
    kde.append(viewport);
    acgiGetTransientManager()->addTransient(entita, kAcGiMain, 128, kde);
}

void SmazZnacky(bool odebratReaktor, bool vycistitSeznamy)
{
    AcGiTransientManager* spravce = acgiGetTransientManager();
    for (AcDbEntity* znacka : g_znacky) {
        spravce->eraseTransient(znacka, g_viewporty);
        delete znacka;
    }
    g_znacky.clear();
    if (vycistitSeznamy)
        g_obnova = SeznamyObnovy{};
    if (odebratReaktor && g_reaktor) {
        // Here the editor reactor is removed from the host's editor and deleted.
        g_reaktor = false;
    }
}

const std::vector<AcDbEntity*>& Znacky() { return g_znacky; }

SeznamyObnovy& Obnova() { return g_obnova; }

} // namespace TogDraw
