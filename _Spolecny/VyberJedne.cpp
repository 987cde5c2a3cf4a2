// The shared pick of one entity and the helpers of selection sets.
#include "StdAfx.h"
#include "VyberJedne.h"

FiltrTypu::FiltrTypu(std::initializer_list<const ACHAR*> typy)
{
    resbuf* konec = nullptr;
    auto pridej = [&](int kod, const ACHAR* text) {
        resbuf* rb = acutNewRb(kod);
        acutNewString(text, rb->resval.rstring);
        (konec ? konec->rbnext : m_retezec) = rb;
        konec = rb;
    };
    pridej(-4, L"<or");
    for (const ACHAR* typ : typy)
        pridej(0, typ);
    pridej(-4, L"or>");
}

FiltrTypu::~FiltrTypu() { acutRelRb(m_retezec); }

ads_name& SadaVyberu::ProVyber()
{
    Uvolni();
    return m_jmeno;
}

void SadaVyberu::Uvolni()
{
    if (m_plna)
        acedSSFree(m_jmeno);
    m_plna = false;
    m_jmeno[0] = m_jmeno[1] = 0;
}

long SadaVyberu::Pocet() const
{
    Adesk::Int32 delka = 0;
    if (!m_plna || acedSSLength(m_jmeno, &delka) != RTNORM)
        return 0;
    return delka;
}

AcDbObjectId SadaVyberu::Id(long i) const
{
    ads_name ent;
    AcDbObjectId id;
    if (!m_plna || acedSSName(m_jmeno, i, ent) != RTNORM || acdbGetObjectId(id, ent) != Acad::eOk)
        return AcDbObjectId::kNull;
    return id;
}

bool VyberDoSady(SadaVyberu& sada, const ACHAR* rezim, const resbuf* filtr, int* vysledek)
{
    int rc = acedSSGet(rezim, nullptr, nullptr, filtr, sada.ProVyber());
    if (rc == RTNORM)
        sada.Prevzata();
    if (vysledek)
        *vysledek = rc;
    return rc == RTNORM;
}

bool VyberJednuEntitu(SadaVyberu& sada, const resbuf* filtr, const ACHAR* nazev, const ACHAR* rezim)
{
    if (VyberDoSady(sada, L"_I", filtr)) {
        acedSSSetFirst(nullptr, nullptr);
        return true;
    }
    acutPrintf(L"\nVyber %ls:", nazev);
    for (;;) {
        int rc = RTNONE;
        if (VyberDoSady(sada, rezim, filtr, &rc))
            return true;
        if (rc == RTREJ || rc == RTCAN || rc == RTERROR || rc == RTNONE)
            return false;
        acutPrintf(L"\nMusíte vybrat %ls!!!", nazev);
    }
}
