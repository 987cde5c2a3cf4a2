// Joining of collinear lines (sp).
#include "StdAfx.h"
#include "CTogSpojUsecky.h"
#include "CTogException.h"
#include "CTogFunkceDWG.h"
#include "MultiTrubkyGeometrie.h"
#include "OkrajPrikazu.h"
#include "dbobjptr.h"

std::map<int, std::vector<int>> SeskupKolinearni(const std::vector<UsekaSpoje>& usecky)
{
    std::map<int, std::vector<int>> skupiny;
    std::vector<bool> vzato(usecky.size(), false);
    for (size_t i = 0; i < usecky.size(); ++i) {
        if (vzato[i])
            continue;
        const UsekaSpoje& a = usecky[i];
        for (size_t j = i + 1; j < usecky.size(); ++j) {
            if (vzato[j])
                continue;
            const UsekaSpoje& b = usecky[j];
            if (!MultiTrubkyGeometrie::NaJednePrimce(a.zacatek, a.konec, b.zacatek, b.konec, a.tolerance.equalPoint()))
                continue;
            auto& skupina = skupiny[static_cast<int>(i)];
            if (skupina.empty())
                skupina.push_back(static_cast<int>(i));
            skupina.push_back(static_cast<int>(j));
            vzato[j] = true;
        }
    }
    return skupiny;
}

std::pair<AcGePoint2d, AcGePoint2d> KrajniBody(const std::vector<UsekaSpoje>& usecky, const std::vector<int>& skupina)
{
    std::vector<AcGePoint2d> body;
    for (int i : skupina) {
        const UsekaSpoje& u = usecky[static_cast<size_t>(i)];
        for (const AcGePoint2d& p : {u.zacatek, u.konec}) {
            bool uz = false;
            for (const AcGePoint2d& q : body)
                uz = uz || p.isEqualTo(q, u.tolerance);
            if (!uz)
                body.push_back(p);
        }
    }
    if (body.empty())
        throw CTogException("Mapa bodů je neočekávaně prázdná - chyba v programu", __LINE__, __FILE__);
    std::pair<AcGePoint2d, AcGePoint2d> dvojice{body.front(), body.front()};
    double nejvetsi = -1.0;
    for (size_t a = 0; a < body.size(); ++a)
        for (size_t b = a + 1; b < body.size(); ++b)
            if (const double d = body[a].distanceTo(body[b]); d > nejvetsi) {
                nejvetsi = d;
                dvojice = {body[a], body[b]};
            }
    return dvojice;
}

CTogSpojUsecky::~CTogSpojUsecky()
{
    if (m_maVyber)
        acedSSFree(m_vyber);
}

void CTogSpojUsecky::Proved()
{
    AcGeTol tolerance;
    const double mm20 = CTogFunkceDWG::Jednotek20mm(acdbHostApplicationServices()->workingDatabase());
    tolerance.setEqualPoint(mm20);
    tolerance.setEqualVector(mm20);

    acutPrintf(L"\nVyber úsečky k editaci <Konec>: ");
    resbuf* filtr = acutBuildList(RTDXF0, L"LINE", 0);
    const int rc = acedSSGet(nullptr, nullptr, nullptr, filtr, m_vyber);
    acutRelRb(filtr);
    if (rc != RTNORM)
        return;
    m_maVyber = true;
    Adesk::Int32 pocet = 0;
    acedSSLength(m_vyber, &pocet);
    for (Adesk::Int32 i = 0; i < pocet; ++i) {
        ads_name jmeno;
        AcDbObjectId id;
        if (acedSSName(m_vyber, i, jmeno) != RTNORM || acdbGetObjectId(id, jmeno) != Acad::eOk)
            continue;
        AcDbObjectPointer<AcDbLine> cara(id, AcDb::kForRead);
        if (cara.openStatus() != Acad::eOk) {
            acutPrintf(L"\n Vybraná entita není an polyline (2Dkřivka), ani úsečka ani reference bloku / Xref");
            continue;
        }
        const AcGePoint2d a(cara->startPoint().x, cara->startPoint().y), b(cara->endPoint().x, cara->endPoint().y);
        if (a.isEqualTo(b, tolerance))
            continue;
        m_usecky.push_back(UsekaSpoje{AcGeLine2d(a, b), a, b, tolerance, id});
    }
    acutPrintf(L"\nVybráno %i úseček", static_cast<int>(pocet));

    const auto skupiny = SeskupKolinearni(m_usecky);
    if (skupiny.empty()) {
        acutPrintf(L"\nNebyly nalezeny žádné kolineární úsečky ke spojení");
        return;
    }
    int vymazano = 0;
    for (const auto& [prvni, indexy] : skupiny) {
        auto& skupina = m_skupiny[prvni];
        for (int i : indexy)
            skupina.push_back(m_usecky[static_cast<size_t>(i)]);
        const auto [od, po] = KrajniBody(m_usecky, indexy);
        // The group's last line stays, stretched over the whole group; the others go.
        AcDbObjectPointer<AcDbLine> zustava(skupina.back().id, AcDb::kForWrite);
        if (zustava.openStatus() != Acad::eOk) {
            acutPrintf(L"\nEntitu nelze otevřít pro zápis");
            continue;
        }
        zustava->setStartPoint(AcGePoint3d(od.x, od.y, 0.0));
        zustava->setEndPoint(AcGePoint3d(po.x, po.y, 0.0));
        zustava.close();
        for (size_t k = 0; k + 1 < skupina.size(); ++k) {
            AcDbObjectPointer<AcDbLine> jina(skupina[k].id, AcDb::kForWrite);
            if (jina.openStatus() != Acad::eOk || jina->erase() != Acad::eOk) {
                acutPrintf(L"\nEntitu nelze otevřít pro zápis");
                continue;
            }
            ++vymazano;
        }
    }
    acutPrintf(L"\nVymazáno %i objektů", vymazano);
}

void PrikazSp()
{
    ProvedPrikaz([] {
        CTogSpojUsecky spoj;
        spoj.Proved();
    });
}
