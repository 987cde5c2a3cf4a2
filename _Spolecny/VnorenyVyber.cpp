// Nested picks of one entity: the innermost entity under a pick and the two picks built on it.
#include "StdAfx.h"
#include "VnorenyVyber.h"

namespace {

/// Exactly one of the classes.
template <class... T>
bool JeTrida(const AcDbEntity* e)
{
    return e && ((e->isA() == T::desc()) || ...);
}

struct Texty {
    const ACHAR* vyzva;
    const ACHAR* opakovani;
    const ACHAR* odmitnuti;
};

/// The loop that both picks share: the first level takes the classes that `prima` accepts; other
/// entities go through the nested pick, whose result `vnorena` must accept.
template <class Prima, class Vnorena>
int VyberVnorene(VnorenaEntita& v, const FiltrTypu& filtr, const Texty& texty, bool sCastmi, Prima prima, Vnorena vnorena)
{
    SadaVyberu sada;
    for (;;) {
        v.Vycisti();
        acutPrintf(L"%ls", texty.vyzva);
        int rc = RTNONE;
        while (!VyberDoSady(sada, L"_:N:S", filtr.Retezec(), &rc)) {
            if (rc == RTCAN)
                return 3;
            acutPrintf(L"%ls", texty.opakovani);
        }
        AcDbObjectId id = sada.Id(0);
        AcDbObjectPointer<AcDbEntity> horni(id);
        if (horni.openStatus() != Acad::eOk) {
            acutPrintf(L"\nNeznámá chyba...");
            return 3;
        }
        if (prima(horni.object())) {
            AcDbEntity* e = nullptr;
            horni.release(e);
            v.otevrena.acquire(e);
            return 0;
        }
        if (OtevriVnoreny(sada, v, sCastmi) != 0) {
            acutPrintf(L"\nNeznámá chyba...");
            v.Vycisti();
            return 3;
        }
        if (AcDbBlockReference::cast(horni.object()))
            v.kontejner = id;
        if (vnorena(v.Entita()))
            return 0;
        acutPrintf(L"%ls", texty.odmitnuti);
    }
}

} // namespace

void VnorenaEntita::Vycisti()
{
    otevrena.close();
    segment.reset();
    vlastnikSegmentu = kontejner = AcDbObjectId::kNull;
    kontejnery.clear();
    doSveta = AcGeMatrix3d::kIdentity;
}

int OtevriVnoreny(const SadaVyberu& sada, VnorenaEntita& v, bool sCastmi)
{
    resbuf* seznam = nullptr;
    if (!sada.Plna() || acedSSNameX(&seznam, sada.Jmeno(), 0) != RTNORM || !seznam)
        return 5;
    // (method, innermost entity, marker, [pick data], containers innermost first)
    ads_name jmeno = {0, 0};
    Adesk::GsMarker znacka = 0;
    AcGePoint3d bodVyberu;
    resbuf* rb = seznam->rbnext;
    if (rb && rb->restype == RTENAME) {
        ads_name_set(rb->resval.rlname, jmeno);
        rb = rb->rbnext;
    }
    if (rb && rb->restype == RTLONG) {
        znacka = rb->resval.rlong;
        rb = rb->rbnext;
    }
    std::vector<AcDbObjectId> kontejnery;
    for (bool vBode = false; rb; rb = rb->rbnext) {
        if (rb->restype == RTLB || rb->restype == RTLE)
            vBode = rb->restype == RTLB;
        else if (vBode && rb->restype == RT3DPOINT)
            bodVyberu.set(rb->resval.rpoint[0], rb->resval.rpoint[1], rb->resval.rpoint[2]);
        else if (!vBode && rb->restype == RTENAME) {
            AcDbObjectId k;
            if (acdbGetObjectId(k, rb->resval.rlname) == Acad::eOk)
                kontejnery.push_back(k);
        }
    }
    acutRelRb(seznam);

    AcDbObjectId id;
    Acad::ErrorStatus es = acdbGetObjectId(id, jmeno);
    if (es == Acad::eOk)
        es = v.otevrena.open(id, AcDb::kForRead);
    if (es != Acad::eOk) {
        acutPrintf(L"\n....Nepodařilo se otevřít entitu...");
        return es;
    }
    v.kontejnery = kontejnery;
    v.doSveta = AcGeMatrix3d::kIdentity;
    for (auto k = kontejnery.rbegin(); k != kontejnery.rend(); ++k) {
        AcDbObjectPointer<AcDbBlockReference> ref(*k);
        if (ref.openStatus() == Acad::eOk)
            v.doSveta = v.doSveta * ref->blockTransform();
    }

    if (sCastmi && v.otevrena->isA() == AcDbPolyline::desc()) {
        int pocet = 0;
        AcDbFullSubentPath* cesty = nullptr;
        es = v.otevrena->getSubentPathsAtGsMarker(AcDb::kEdgeSubentType, znacka, bodVyberu,
                                                  AcGeMatrix3d::kIdentity, pocet, cesty);
        if (es != Acad::eOk) {
            acutPrintf(L"\n....Nepodařilo se najít subentitu Pline...");
            v.otevrena.close();
            return es;
        }
        if (pocet > 0) {
            v.segment.reset(v.otevrena->subentPtr(cesty[0]));
            v.vlastnikSegmentu = id;
        }
        delete[] cesty;
        v.otevrena.close();
    }
    return 0;
}

int VyberText(VnorenaEntita& v)
{
    FiltrTypu filtr{L"MULTILEADER", L"TEXT", L"MTEXT", L"ATTRIB", L"INSERT"};
    Texty texty{L"\nVyber text nebo Mtext, multiodkaz mebo atribut v bloku: ",
                L"\nMusíte vybrat text nebo Mtext, multiodkaz nebo atribut v bloku: ",
                L"\nNebyla vybrána text nebo Mtext, multiodkaz mebo atribut v bloku!! "};
    return VyberVnorene(v, filtr, texty, false, JeTrida<AcDbText, AcDbMLeader, AcDbMText>,
                        JeTrida<AcDbAttribute>);
}

int VyberCaruNeboText(VnorenaEntita& v)
{
    FiltrTypu filtr{L"LWPOLYLINE", L"LINE", L"INSERT", L"MULTILEADER", L"TEXT", L"MTEXT"};
    Texty texty{L"\nVyber úsečku, polyline, text nebo Mtext (i v bloku nebo v referenci), nebo multiodkaz: ",
                L"\nMusíte vybrat úsečku, polyline, text nebo Mtext!!!: ",
                L"\nNebyla vybrána úsečka, text nebo Mtext, nebo MLeader byť jako součást bloku !!"};
    auto ctyri = JeTrida<AcDbLine, AcDbText, AcDbMLeader, AcDbMText>;
    return VyberVnorene(v, filtr, texty, true, ctyri, ctyri);
}
