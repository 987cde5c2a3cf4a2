// Thermal insulation command (TEPIZOL): the axis from a picked entity in one of three modes, the band
// of IzolaceGeometrie on it, polylines on the layer "tepelná_izolace".
#include "StdAfx.h"
#include "Izolace.h"
#include <cmath>
#include <memory>
#include "CTogException.h"
#include "CTogFunkceDWG.h"
#include "CTogSet.h"
#include "OkrajPrikazu.h"
#include "VlozDoModelu.h"
#include "dbobjptr.h"
#include "dbpl.h"

namespace {

enum Rezim { kOsa = 0, kDveHrany = 1, kHrana = 2 };

// Kept from load to unload.
int g_rezim = kOsa;
double g_posledniTloustka = 100.0;

constexpr double kNula = IzolaceGeometrie::kNula;

[[noreturn]] void Vyjimka(const char* zprava, int radek) { throw CTogException(zprava, radek, __FILE__); }

// The thickness prompt: false when the command is to end.
bool ZadejTloustku(double& tloustka)
{
    ACHAR vyzva[96];
    swprintf(vyzva, sizeof(vyzva) / sizeof(vyzva[0]), L"\nZadejte tloustku izolace <%.0f>: ", g_posledniTloustka);
    acedInitGet(6, nullptr);
    ads_real hodnota = 0.0;
    const int rc = acedGetDist(nullptr, vyzva, &hodnota);
    if (rc == RTNONE)
        hodnota = g_posledniTloustka;
    else if (rc != RTNORM)
        return false;
    if (!(hodnota > kNula))
        return false;
    tloustka = hodnota;
    return true;
}

// The first pick in the current mode, with the mode's keywords; false when the command is to end.
bool VyberPrvni(AcDbObjectId& id)
{
    static const ACHAR* const klicova[] = {L"DveHrany Hrana", L"Osa Hrana", L"Osa DveHrany"};
    static const ACHAR* const vyzvy[] = {
        L"\nVyberte LINE, ARC nebo POLYLINE nebo [DveHrany/Hrana] <Osa>: ",
        L"\nVyberte prvni hranu nebo [Osa/Hrana] <DveHrany>: ",
        L"\nVyberte hranu LINE, ARC nebo POLYLINE nebo [Osa/DveHrany] <Hrana>: ",
    };
    ads_name jmeno;
    ads_point bod;
    for (;;) {
        acedInitGet(0, klicova[g_rezim]);
        const int rc = acedEntSel(vyzvy[g_rezim], jmeno, bod);
        if (rc == RTCAN)
            return false;
        if (rc == RTKWORD) {
            ACHAR slovo[64] = L"";
            if (acedGetInput(slovo, 64) != RTNORM)
                return false;
            if (_wcsicmp(slovo, L"Osa") == 0)
                g_rezim = kOsa;
            else if (_wcsicmp(slovo, L"DveHrany") == 0)
                g_rezim = kDveHrany;
            else if (_wcsicmp(slovo, L"Hrana") == 0)
                g_rezim = kHrana;
            continue;
        }
        if (rc == RTNORM)
            break;
    }
    if (acdbGetObjectId(id, jmeno) != Acad::eOk)
        Vyjimka("Nepodarilo se nacist vybrany objekt.", __LINE__);
    return true;
}

// Polylines of the band into model space, on the insulation layer. What went in before a failure stays.
void Vloz(const std::vector<PolylineIzolace>& pasy)
{
    AcString nazev = L"tepelná_izolace";
    const AcDbObjectId hladina = ZiskejHladinu(nazev, false);
    for (const PolylineIzolace& pas : pasy) {
        auto pl = std::make_unique<AcDbPolyline>();
        for (const VrcholIzolace& v : pas)
            pl->addVertexAt(pl->numVerts(), v.bod, v.bulge);
        AcDbObjectId id;
        if ((!hladina.isNull() && pl->setLayer(hladina) != Acad::eOk) || VlozDoModelu(pl.get(), id) != Acad::eOk) {
            acutPrintf(L"\nChyba pri vlozeni izolace do ModelSpace.");
            return;
        }
        pl.release()->close();
    }
}

void RezimOsa(const AcDbObjectId& id)
{
    double tloustka = 0.0;
    if (!ZadejTloustku(tloustka))
        return;
    g_posledniTloustka = tloustka;
    std::vector<PolylineIzolace> pasy;
    try {
        AcDbEntityPointer entita(id, AcDb::kForRead);
        std::vector<IzolaceSegment> segmenty;
        if (entita.openStatus() != Acad::eOk || !SegmentyZEntity(entita, segmenty))
            Vyjimka("Nepodarilo se vytvorit izolaci z vybrane osy.", __LINE__);
        pasy = VytvorIzolaci(segmenty, tloustka);
    } catch (const CTogException&) {
        Vyjimka("Nepodarilo se vytvorit izolaci z vybrane osy.", __LINE__);
    }
    Vloz(pasy);
}

void RezimDveHrany(const AcDbObjectId& id)
{
    AcGePoint3d s1, e1;
    {
        AcDbObjectPointer<AcDbLine> prvni(id, AcDb::kForRead);
        if (prvni.openStatus() != Acad::eOk) {
            acutPrintf(L"\nV tomto rezimu vyberte LINE.");
            Vyjimka("Prvni vybrana hrana musi byt LINE.", __LINE__);
        }
        s1 = prvni->startPoint();
        e1 = prvni->endPoint();
    }
    ads_name jmeno;
    ads_point bod;
    if (acedEntSel(L"\nVyberte druhou hranu: ", jmeno, bod) != RTNORM)
        return;
    AcDbObjectId idDruhe;
    if (acdbGetObjectId(idDruhe, jmeno) != Acad::eOk)
        Vyjimka("Nepodarilo se nacist vybrany objekt.", __LINE__);
    AcDbObjectPointer<AcDbLine> druha(idDruhe, AcDb::kForRead);
    if (druha.openStatus() != Acad::eOk) {
        acutPrintf(L"\nVybrany objekt neni LINE.");
        return;
    }
    AcGePoint3d od, doBodu;
    double tloustka = 0.0;
    if (!OsaMeziHranami(s1, e1, druha->startPoint(), druha->endPoint(), od, doBodu, tloustka))
        Vyjimka("Z vybranych hran nelze vytvorit osu izolace.", __LINE__);
    druha.close();
    std::vector<PolylineIzolace> pasy;
    try {
        const auto osa = SegmentUsecky(AcGePoint2d(od.x, od.y), AcGePoint2d(doBodu.x, doBodu.y));
        if (!osa)
            Vyjimka("Nepodarilo se vytvorit izolaci mezi hranami.", __LINE__);
        pasy = VytvorIzolaci({*osa}, tloustka);
    } catch (const CTogException&) {
        Vyjimka("Nepodarilo se vytvorit izolaci mezi hranami.", __LINE__);
    }
    Vloz(pasy);
}

// The segments of the axis at TL/2 beside the edge, on the side of the point; false on failure, the
// reason printed.
bool OsaVedleHrany(const AcDbCurve* hrana, const AcGePoint2d& p, double tloustka, std::vector<IzolaceSegment>& segmenty)
{
    AcGePoint3d q;
    double parametr = 0.0;
    AcGeVector3d derivace;
    if (hrana->getClosestPointTo(AcGePoint3d(p.x, p.y, 0.0), q) != Acad::eOk ||
        hrana->getParamAtPoint(q, parametr) != Acad::eOk || hrana->getFirstDeriv(parametr, derivace) != Acad::eOk ||
        derivace.length() < kNula)
        return false;
    const AcGeVector3d t = derivace / derivace.length();
    const double c = (p.y - q.y) * t.x - (p.x - q.x) * t.y;
    if (std::fabs(c) < kNula) {
        acutPrintf(L"\nBod pro urceni strany lezi na hrane. Ukazte bod vedle hrany.");
        return false;
    }
    AcDbVoidPtrArray krivky;
    if (hrana->getOffsetCurves(c > 0 ? -tloustka / 2.0 : tloustka / 2.0, krivky) != Acad::eOk || krivky.isEmpty()) {
        acutPrintf(L"\nZ vybrane hrany nelze vytvorit osu ve vzdalenosti TL / 2.");
        return false;
    }
    bool nalezena = false;
    for (void* k : krivky) {
        std::unique_ptr<AcDbEntity> krivka(static_cast<AcDbEntity*>(k));
        if (!nalezena)
            nalezena = SegmentyZEntity(krivka.get(), segmenty);
    }
    if (!nalezena)
        acutPrintf(L"\nOffset hrany nevytvoril podporovanou osu LINE, ARC nebo POLYLINE.");
    return nalezena;
}

void RezimHrana(const AcDbObjectId& id)
{
    double tloustka = 0.0;
    if (!ZadejTloustku(tloustka))
        return;
    g_posledniTloustka = tloustka;
    ads_point bod;
    if (acedGetPoint(nullptr, L"\nUrcete stranu izolace: ", bod) != RTNORM)
        return;
    const AcGePoint2d strana = CTogFunkceDWG::UcsNaWcs(AcGePoint2d(bod[X], bod[Y]));
    std::vector<PolylineIzolace> pasy;
    try {
        AcDbObjectPointer<AcDbCurve> hrana(id, AcDb::kForRead);
        if (hrana.openStatus() != Acad::eOk ||
            !(hrana->isKindOf(AcDbLine::desc()) || hrana->isKindOf(AcDbArc::desc()) ||
              hrana->isKindOf(AcDbPolyline::desc()))) {
            acutPrintf(L"\nV rezimu Hrana vyberte LINE, ARC nebo POLYLINE.");
            Vyjimka("Nepodarilo se vytvorit izolaci z vybrane hrany.", __LINE__);
        }
        std::vector<IzolaceSegment> segmenty;
        if (!OsaVedleHrany(hrana, strana, tloustka, segmenty))
            Vyjimka("Nepodarilo se vytvorit izolaci z vybrane hrany.", __LINE__);
        pasy = VytvorIzolaci(segmenty, tloustka);
    } catch (const CTogException&) {
        Vyjimka("Nepodarilo se vytvorit izolaci z vybrane hrany.", __LINE__);
    }
    Vloz(pasy);
}

} // namespace

bool SegmentyZEntity(const AcDbEntity* entita, std::vector<IzolaceSegment>& segmenty)
{
    segmenty.clear();
    if (const auto* usecka = AcDbLine::cast(entita)) {
        const AcGePoint3d a = usecka->startPoint(), b = usecka->endPoint();
        auto s = SegmentUsecky(AcGePoint2d(a.x, a.y), AcGePoint2d(b.x, b.y));
        if (!s)
            return false;
        segmenty.push_back(*s);
        return true;
    }
    if (const auto* oblouk = AcDbArc::cast(entita)) {
        const AcGeVector3d n = oblouk->normal();
        if (std::fabs(n.x) > 1e-6 || std::fabs(n.y) > 1e-6 || n.z < 0.999999) {
            acutPrintf(L"\nPodporovany jsou pouze ARC v rovine XY s normalou +Z.");
            return false;
        }
        double uhel = std::fmod(oblouk->endAngle() - oblouk->startAngle(), 2.0 * M_PI);
        if (uhel < 0.0)
            uhel += 2.0 * M_PI;
        const AcGePoint3d c = oblouk->center();
        auto s = SegmentOblouku(AcGePoint2d(c.x, c.y), oblouk->radius(), oblouk->startAngle(), uhel);
        if (!s)
            return false;
        segmenty.push_back(*s);
        return true;
    }
    if (const auto* pl = AcDbPolyline::cast(entita)) {
        if (pl->isClosed()) {
            acutPrintf(L"\nUzavrena POLYLINE zatim neni podporovana.");
            return false;
        }
        if (pl->numVerts() < 2)
            return false;
        for (unsigned int i = 0; i + 1 < pl->numVerts(); ++i) {
            AcGePoint2d a, b;
            double bulge = 0.0;
            pl->getPointAt(i, a);
            pl->getPointAt(i + 1, b);
            pl->getBulgeAt(i, bulge);
            if (std::fabs(bulge) < kNula) {
                if (auto s = SegmentUsecky(a, b))
                    segmenty.push_back(*s);
                continue;
            }
            auto s = SegmentZBulge(a, b, bulge);
            if (!s)
                return false;
            segmenty.push_back(*s);
        }
        return !segmenty.empty();
    }
    acutPrintf(L"\nVyberte LINE, ARC nebo POLYLINE.");
    return false;
}

void PrikazTepIzol()
{
    ProvedPrikaz([] {
        AcDbObjectId id;
        if (!VyberPrvni(id))
            return;
        switch (g_rezim) {
        case kDveHrany: RezimDveHrany(id); break;
        case kHrana: RezimHrana(id); break;
        default: RezimOsa(id); break;
        }
    });
}
