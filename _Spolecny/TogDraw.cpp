// The view and mark sizes, and the transient marks with their list of viewports.
#include "StdAfx.h"
#include "TogDraw.h"
#include <algorithm>
#include <cmath>
#include <memory>
#include "acgitransient.h"
#include "CTogAc.h"
#include "CTogException.h"

namespace TogDraw {

double g_zapamatovanaVelikost = 0.0;

namespace {

std::vector<AcDbEntity*> g_znacky;
AcArray<int> g_viewporty;
SeznamyObnovy g_obnova;
// Made with the first mark, added to the host's editor; removed by SmazZnacky(true).
std::unique_ptr<MyEditorReactor> g_reaktor;

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
        // A zoom takes the marks off and draws the rebuild lists again.
        g_reaktor = std::make_unique<MyEditorReactor>();
        acedEditor->addReactor(g_reaktor.get());
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
        acedEditor->removeReactor(g_reaktor.get());
        g_reaktor.reset();
    }
}

const std::vector<AcDbEntity*>& Znacky() { return g_znacky; }

SeznamyObnovy& Obnova() { return g_obnova; }

bool ZmenaPohledu(double zapamatovana, double aktualni)
{
    return std::fabs(zapamatovana - aktualni) > zapamatovana * 0.1;
}

namespace {

void Znacka(AcDbEntity* entita)
{
    entita->setColorIndex(1);
    PridejZnacku(entita);
}

// A polyline mark through the points, closed.
void Obrys(std::initializer_list<AcGePoint2d> body, double vyska)
{
    auto* pl = new AcDbPolyline;
    for (const AcGePoint2d& b : body)
        pl->addVertexAt(pl->numVerts(), b);
    pl->setClosed(true);
    pl->setElevation(vyska);
    Znacka(pl);
}

} // namespace

void ObnovZnacky()
{
    const double v = VelikostZnacky();
    const double p = v / 2.0;
    // A copy: what is drawn now doesn't add to the lists.
    const SeznamyObnovy seznamy = g_obnova;
    for (const AcGePoint3d& b : seznamy.krizky) {
        Znacka(new AcDbLine(AcGePoint3d(b.x - p, b.y - p, b.z), AcGePoint3d(b.x + p, b.y + p, b.z)));
        Znacka(new AcDbLine(AcGePoint3d(b.x - p, b.y + p, b.z), AcGePoint3d(b.x + p, b.y - p, b.z)));
    }
    for (const AcGePoint3d& b : seznamy.usecky)
        Znacka(new AcDbLine(AcGePoint3d(b.x - p, b.y, b.z), AcGePoint3d(b.x + p, b.y, b.z)));
    for (const AcGePoint3d& b : seznamy.kruznice)
        Znacka(new AcDbCircle(b, AcGeVector3d::kZAxis, p));
    for (const auto* seznam : {&seznamy.solidy, &seznamy.trojuhelniky})
        for (const AcGePoint3d& b : *seznam)
            Obrys({{b.x - p, b.y - p}, {b.x + p, b.y - p}, {b.x, b.y + p}}, b.z);
    for (const AcGePoint3d& b : seznamy.polylinie)
        Obrys({{b.x - p, b.y - p}, {b.x + p, b.y - p}, {b.x + p, b.y + p}, {b.x - p, b.y + p}}, b.z);
}

} // namespace TogDraw

void MyEditorReactor::viewChanged()
{
    try {
        const double velikost = TogDraw::VelikostPohledu();
        if (!TogDraw::ZmenaPohledu(TogDraw::g_zapamatovanaVelikost, velikost))
            return;
        TogDraw::g_zapamatovanaVelikost = velikost;
        TogDraw::SmazZnacky();
        TogDraw::ObnovZnacky();
    } catch (const std::exception&) {
        // A notice of the host is no place to fail: the marks stay as they are.
    }
}
