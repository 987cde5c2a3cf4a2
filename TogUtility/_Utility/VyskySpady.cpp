// Levels and slopes of sewers, read from the attributes of manhole blocks.
#include "StdAfx.h"
#include "VyskySpady.h"

#include "CTogEntity.h"
#include "CTogException.h"
#include "CTogFunkce.h"
#include "CisteCislo.h"
#include "VyberJedne.h"

namespace {

/// The attribute's text; a missing one throws "Nelze získat hodnotu atributu <tag>".
std::wstring Atribut(AcDbBlockReference& ref, const ACHAR* tag)
{
    AcDbAttribute* nalezeny = nullptr;
    if (!CTogEntity::NajdiAtribut(&ref, nalezeny, tag, AcDb::kForRead))
        throw CTogException("Nelze získat hodnotu atributu " + CTogFunkce::DoUtf8(tag), __LINE__, __FILE__);
    AcDbObjectPointer<AcDbAttribute> atribut;
    atribut.acquire(nalezeny);
    return atribut->textStringConst();
}

/// The bottom height and the plan position of a manhole; `konec` names the end in the message.
void DnoSachty(AcDbObjectId id, const char* konec, double& dno, AcGePoint2d& poloha)
{
    AcDbObjectPointer<AcDbBlockReference> ref(id, AcDb::kForRead);
    if (ref.openStatus() != Acad::eOk)
        throw CTogException(std::string("Nelze otevřít vybraný objekt reference bloku pro čtení (") + konec + ")",
                            __LINE__, __FILE__, ref.openStatus());
    dno = _wtof(Atribut(*ref, L"DNO").c_str());
    poloha.set(ref->position().x, ref->position().y);
}

} // namespace

void HloubkaSachty()
{
    FiltrTypu filtr{L"INSERT"};
    SadaVyberu sada;
    if (!VyberJednuEntitu(sada, filtr.Retezec(), L"referenci bloku")) {
        acutPrintf(L"\nChyba výběru textu");
        return;
    }
    AcDbObjectPointer<AcDbBlockReference> ref(sada.Id(0), AcDb::kForRead);
    if (ref.openStatus() != Acad::eOk)
        throw CTogException("Nelze otevřít vybraný objekt reference bloku pro čtení", __LINE__, __FILE__,
                            ref.openStatus());
    std::wstring poklop = Atribut(*ref, L"POKLOP");
    std::wstring dno = Atribut(*ref, L"DNO");
    std::wstring nazev = Atribut(*ref, L"OZNS");
    double hloubka = _wtof(poklop.c_str()) - _wtof(dno.c_str());
    acutPrintf(L"\nŠachta %ls - hloubka: %.2f m  (Poklop: %ls, Dno: %ls)", nazev.c_str(), hloubka, poklop.c_str(),
               dno.c_str());
}

void SpadMeziSachtami()
{
    FiltrTypu filtr{L"TEXT", L"MTEXT", L"MULTILEADER", L"INSERT"};
    const ACHAR* nazev = L"TEXT, MTEXT, MultiODKAZ nebo referenci bloku";
    AcDbObjectId ids[2];
    const ACHAR* vyzvy[2] = {L"\nVyber bod s první výškou", L"\nVyber bod s druhou výškou"};
    for (int i = 0; i < 2; ++i) {
        acutPrintf(L"%ls", vyzvy[i]);
        SadaVyberu sada;
        if (!VyberJednuEntitu(sada, filtr.Retezec(), nazev)) {
            acutPrintf(L"\nChyba výběru textu");
            return;
        }
        ids[i] = sada.Id(0);
    }

    enum class Rezim { Spad, Pocatek, Konec } rezim = Rezim::Spad;
    double s = 0.0;
    int rc = acedGetReal(L"Zadej spád v promile nebo enter pro výpočet spádu <Enter>: ", &s);
    if (rc == RTCAN || rc == RTERROR || rc == RTREJ) {
        acutPrintf(L"\nŠpatné výběr nebo ESC");
        return;
    }
    if (rc == RTNORM)
        rezim = MessageBoxW(nullptr, L"Dopočítat konec?\n(ANO - dopočítat konec, NE - dopočítat počátek",
                            L"Togovy Utility", MB_YESNO | MB_ICONQUESTION) == IDYES
                    ? Rezim::Konec
                    : Rezim::Pocatek;

    double a = 0.0, b = 0.0;
    AcGePoint2d p1, p2;
    DnoSachty(ids[0], "počátek", a, p1);
    DnoSachty(ids[1], "konec", b, p2);

    double f = 0.0;
    AcDbDatabase* db = acdbHostApplicationServices()->workingDatabase();
    if (acdbGetUnitsConversion(AcDb::kUnitsMeters, db->insunits(), f) != Acad::eOk)
        throw CTogException("Nelze získat přepočet jednotek", __LINE__, __FILE__);
    double d = p1.distanceTo(p2) / f;

    switch (rezim) {
    case Rezim::Spad: s = (a - b) / d * 1000.0; break;
    case Rezim::Pocatek: a = s / 1000.0 * d + b; break;
    case Rezim::Konec: b = a - s / 1000.0 * d; break;
    }
    acutPrintf(L"\nPočátek %.2f [m], konec %.2f [m], vzdálenost %.3f [m], spád [‰] %.2f", a, b, d, s);
}

void CistiVysky()
{
    FiltrTypu filtr{L"TEXT", L"MTEXT"};
    SadaVyberu sada;
    if (!VyberDoSady(sada, nullptr, filtr.Retezec())) {
        acutPrintf(L"\nVýběr byl zrušen nebo nebyly vybrány žádné TEXT/MTEXT objekty.");
        return;
    }
    long pocet = sada.Pocet();
    if (pocet == 0) {
        acutPrintf(L"\nNebyl vybrán žádný objekt.");
        return;
    }
    for (long i = 0; i < pocet; ++i) {
        AcDbObjectPointer<AcDbEntity> e(sada.Id(i), AcDb::kForWrite);
        if (e.openStatus() != Acad::eOk)
            continue;
        if (auto* text = AcDbText::cast(e.object())) {
            text->setTextString(CisteCislo(text->textStringConst()).c_str());
        } else if (auto* mtext = AcDbMText::cast(e.object())) {
            AcString obsah;
            mtext->contents(obsah);
            mtext->setContents(CisteCislo(obsah.kwszPtr()).c_str());
        }
    }
    acutPrintf(L"\nÚprava dokončena pro %ld objekt(ů).", pocet);
}
