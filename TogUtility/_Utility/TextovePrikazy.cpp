// Text and property commands on selected entities.
#include "StdAfx.h"
#include "TextovePrikazy.h"

#include <cmath>
#include <memory>
#include <numbers>

#include "CTogBaseNastav.h"
#include "CTogFunkce.h"
#include "CitelnyUhel.h"
#include "CistyFormat.h"
#include "VnorenyVyber.h"

namespace {

/// Runs acedSSGet with the filter until it answers RTNORM; true then. RTCAN prints `zruseni` (when
/// given) and gives false; any other answer prints `opakovani` and asks again.
bool VyberDokud(SadaVyberu& sada, const ACHAR* rezim, const resbuf* filtr, const ACHAR* opakovani,
                const ACHAR* zruseni = nullptr)
{
    int rc = RTNONE;
    while (!VyberDoSady(sada, rezim, filtr, &rc)) {
        if (rc == RTCAN) {
            if (zruseni)
                acutPrintf(L"%ls", zruseni);
            return false;
        }
        acutPrintf(L"%ls", opakovani);
    }
    return true;
}

/// The angle of the source of a direction, by its exact class.
double UhelZdroje(AcDbEntity* zdroj)
{
    static const ads_point kPocatek = {0.0, 0.0, 0.0};
    auto uhelVektoru = [](const AcGeVector3d& v) {
        ads_point konec = {v.x, v.y, v.z};
        return acutAngle(kPocatek, konec);
    };
    if (auto* cara = AcDbLine::cast(zdroj); cara && zdroj->isA() == AcDbLine::desc()) {
        ads_point a = {cara->startPoint().x, cara->startPoint().y, cara->startPoint().z};
        ads_point b = {cara->endPoint().x, cara->endPoint().y, cara->endPoint().z};
        return acutAngle(a, b);
    }
    if (zdroj->isA() == AcDbText::desc())
        return static_cast<AcDbText*>(zdroj)->rotation();
    if (zdroj->isA() == AcDbMText::desc())
        return uhelVektoru(static_cast<AcDbMText*>(zdroj)->direction());
    if (zdroj->isA() == AcDbMLeader::desc()) {
        std::unique_ptr<AcDbMText> mtext(static_cast<AcDbMLeader*>(zdroj)->mtext());
        return mtext ? uhelVektoru(mtext->direction()) : 0.0;
    }
    return 0.0;
}

/// Turns one entity to the angle a (direction v), trying the kinds in order.
void Natoc(AcDbObjectId id, double a, const AcGeVector3d& v)
{
    if (AcDbObjectPointer<AcDbMLeader> ml(id, AcDb::kForWrite); ml.openStatus() == Acad::eOk) {
        if (std::unique_ptr<AcDbMText> mtext(ml->mtext()); mtext) {
            mtext->setDirection(v);
            ml->setMText(mtext.get());
        }
        return;
    }
    if (AcDbObjectPointer<AcDbText> text(id, AcDb::kForWrite); text.openStatus() == Acad::eOk) {
        text->setRotation(a);
        return;
    }
    if (AcDbObjectPointer<AcDbMText> mtext(id, AcDb::kForWrite); mtext.openStatus() == Acad::eOk) {
        mtext->setDirection(v);
        return;
    }
    AcDbObjectPointer<AcDbBlockReference> ref(id, AcDb::kForWrite);
    if (ref.openStatus() != Acad::eOk)
        return;
    // A reference in a space of an external reference belongs to that drawing.
    if (AcDbObjectPointer<AcDbBlockTableRecord> prostor(ref->ownerId()); prostor.openStatus() != Acad::eOk ||
                                                                           prostor->isDependent())
        return;
    double r0 = ref->rotation();
    AcGePoint3d stred = ref->position();
    ref->setRotation(a);
    ref->setPosition(AcGePoint3d(stred.x, stred.y, 0.0));
    AcGeMatrix3d otoceni = AcGeMatrix3d::rotation(a - r0, AcGeVector3d::kZAxis, AcGePoint3d(stred.x, stred.y, 0.0));
    std::unique_ptr<AcDbObjectIterator> it(ref->attributeIterator());
    for (it->start(); !it->done(); it->step()) {
        AcDbObjectPointer<AcDbAttribute> att(it->objectId(), AcDb::kForWrite);
        if (att.openStatus() != Acad::eOk)
            continue;
        AcGePoint3d poloha = otoceni * AcGePoint3d(att->position().x, att->position().y, 0.0);
        AcGePoint3d zarovnani = otoceni * AcGePoint3d(att->alignmentPoint().x, att->alignmentPoint().y, 0.0);
        att->setRotation(a);
        att->setPosition(AcGePoint3d(poloha.x, poloha.y, 0.0));
        att->setAlignmentPoint(AcGePoint3d(zarovnani.x, zarovnani.y, 0.0));
    }
}

AcDbObjectId ModelovyProstor(AcDbDatabase* db)
{
    AcDbBlockTablePointer tabulka(db, AcDb::kForRead);
    AcDbObjectId id;
    if (tabulka.openStatus() == Acad::eOk)
        tabulka->getAt(ACDB_MODEL_SPACE, id);
    return id;
}

} // namespace

void KopirujVzhled()
{
    SadaVyberu sada;
    bool predvybrano = VyberDoSady(sada, L"_I", nullptr);

    ads_name jmeno;
    ads_point bod;
    if (acedEntSel(L"\nVyber vzor: ", jmeno, bod) != RTNORM) {
        acutPrintf(L"\nNepodařilo se vybrat !!!");
        return;
    }
    AcDbObjectId idVzoru;
    acdbGetObjectId(idVzoru, jmeno);
    AcDbObjectPointer<AcDbEntity> vzor(idVzoru, AcDb::kForRead);
    if (vzor.openStatus() != Acad::eOk) {
        acutPrintf(L"\nNeznámá chyba...");
        return;
    }
    const Adesk::UInt16 barva = vzor->colorIndex();
    const AcDbObjectId hladina = vzor->layerId(), typCary = vzor->linetypeId();
    const double meritkoCary = vzor->linetypeScale();
    const AcDb::LineWeight tloustka = vzor->lineWeight();
    const bool vzorText = vzor->isA() == AcDbText::desc(), vzorMText = vzor->isA() == AcDbMText::desc();
    AcDbObjectId styl;
    double sirka = 1.0;
    if (vzorText) {
        styl = static_cast<AcDbText*>(vzor.object())->textStyle();
        sirka = static_cast<AcDbText*>(vzor.object())->widthFactor();
    } else if (vzorMText) {
        styl = static_cast<AcDbMText*>(vzor.object())->textStyle();
    }
    vzor.close();

    if (!predvybrano) {
        acedInitGet(RSG_NONULL, nullptr);
        acutPrintf(L"\nVyberte měněné entity: ");
        if (!VyberDoSady(sada, nullptr, nullptr)) {
            acutPrintf(L"\nChyba při výběru");
            return;
        }
    }
    int zmeneno = 0;
    for (long i = 0, pocet = sada.Pocet(); i < pocet; ++i) {
        AcDbObjectPointer<AcDbEntity> e(sada.Id(i), AcDb::kForWrite);
        if (e.openStatus() != Acad::eOk) {
            acutPrintf(L"\nNeotevřena entita...");
            continue;
        }
        e->setColorIndex(barva);
        e->setLayer(hladina);
        e->setLinetype(typCary);
        e->setLinetypeScale(meritkoCary);
        e->setLineWeight(tloustka);
        if (vzorText || vzorMText) {
            if (e->isA() == AcDbMText::desc()) {
                static_cast<AcDbMText*>(e.object())->setTextStyle(styl);
            } else if (e->isA() == AcDbText::desc()) {
                static_cast<AcDbText*>(e.object())->setTextStyle(styl);
                if (vzorText)
                    static_cast<AcDbText*>(e.object())->setWidthFactor(sirka);
            }
        }
        ++zmeneno;
    }
    acutPrintf(L"\nZměněno %i entit", zmeneno);
}

void NatocPodle(bool kolmo)
{
    FiltrTypu filtr{L"TEXT", L"MTEXT", L"MULTILEADER", L"INSERT"};
    const ACHAR* nazev = L"TEXT, MTEXT, MultiODKAZ nebo referenci bloku";
    SadaVyberu sada;
    if (VyberDoSady(sada, L"_I", filtr.Retezec())) {
        acedSSSetFirst(nullptr, nullptr);
    } else {
        acutPrintf(L"\nVyber %ls:", nazev);
        const ACHAR* rezim = g_pNastaveni->Prepinac(kVicenasobnyVyber) ? nullptr : L":S";
        for (;;) {
            int rc = RTNONE;
            if (VyberDoSady(sada, rezim, filtr.Retezec(), &rc))
                break;
            if (rc == RTCAN) {
                acutPrintf(L"\nChyba výběru textu");
                return;
            }
            acutPrintf(L"\nMusíte vybrat %ls!!!", nazev);
        }
    }

    double a = 0.0;
    {
        VnorenaEntita zdroj;
        if (VyberCaruNeboText(zdroj) != 0) {
            acutPrintf(L"\nChyba výběru úsečky nebo textu");
            return;
        }
        a = UhelZdroje(zdroj.Entita());
        if (AcDbObjectPointer<AcDbBlockReference> ref(zdroj.kontejner); ref.openStatus() == Acad::eOk)
            a += ref->rotation();
    }
    if (kolmo)
        a += std::numbers::pi / 2.0;
    AcGeMatrix3d ucs;
    acedGetCurrentUCS(ucs);
    AcGeVector3d osaX = ucs * AcGeVector3d::kXAxis;
    a = CitelnyUhel(a, std::atan2(osaX.y, osaX.x));

    static const ads_point kPocatek = {0.0, 0.0, 0.0};
    ads_point konec;
    acutPolar(kPocatek, a, 100.0, konec);
    AcGeVector3d v(konec[0], konec[1], konec[2]);
    for (long i = 0, pocet = sada.Pocet(); i < pocet; ++i)
        Natoc(sada.Id(i), a, v);
}

void TextNaVelka()
{
    FiltrTypu filtr{L"TEXT", L"MTEXT", L"MULTILEADER"};
    SadaVyberu sada;
    if (!VyberJednuEntitu(sada, filtr.Retezec(), L"TEXT, MTEXT nebo MultiODKAZ"))
        return;
    AcDbObjectPointer<AcDbEntity> e(sada.Id(0), AcDb::kForWrite);
    if (e.openStatus() != Acad::eOk)
        return;
    if (auto* text = AcDbText::cast(e.object())) {
        AcString s(text->textStringConst());
        text->setTextString(CTogFunkce::NaVelka(s));
    } else if (auto* ml = AcDbMLeader::cast(e.object())) {
        std::unique_ptr<AcDbMText> mtext(ml->mtext());
        if (ml->contentType() == AcMLeaderStyle::kMTextContent && mtext) {
            AcString s;
            mtext->contents(s);
            mtext->setContents(CTogFunkce::NaVelka(s));
            ml->setMText(mtext.get());
        }
    } else if (auto* mtext = AcDbMText::cast(e.object())) {
        AcString s;
        mtext->contents(s);
        mtext->setContents(CTogFunkce::NaVelka(s));
    }
}

void OdstranFormatovani()
{
    acutPrintf(L"\nVyber MText nebo MLeader ");
    FiltrTypu filtr{L"MTEXT", L"MULTILEADER"};
    SadaVyberu sada;
    if (!VyberDokud(sada, nullptr, filtr.Retezec(), L"\nMusíte vybrat TEXT nebo MTEXT!!!: "))
        return;
    for (long i = 0, pocet = sada.Pocet(); i < pocet; ++i) {
        AcDbObjectId id = sada.Id(i);
        if (AcDbObjectPointer<AcDbMLeader> ml(id, AcDb::kForWrite); ml.openStatus() == Acad::eOk) {
            if (std::unique_ptr<AcDbMText> mtext(ml->mtext()); mtext) {
                AcString s;
                mtext->contents(s);
                mtext->setContents(CistyFormat(s.kwszPtr()).c_str());
                ml->setMText(mtext.get());
            }
        } else if (AcDbObjectPointer<AcDbMText> mtext(id, AcDb::kForWrite); mtext.openStatus() == Acad::eOk) {
            AcString s;
            mtext->contents(s);
            mtext->setContents(CistyFormat(s.kwszPtr()).c_str());
        }
    }
}

void EditujText()
{
    VnorenaEntita vyber;
    if (VyberText(vyber) != 0) {
        acutPrintf(L"\nChyba výběru textu nebo atributu nebo odkazu");
        return;
    }
    AcDbEntity* e = vyber.otevrena.object();
    if (e->upgradeOpen() != Acad::eOk)
        return;
    AcDbObjectIdArray pridane;
    if (e->isA() == AcDbText::desc()) {
        AcEdInplaceTextEditor::invoke(static_cast<AcDbText*>(e), nullptr, pridane);
    } else if (e->isA() == AcDbMText::desc()) {
        AcEdInplaceTextEditor::invoke(static_cast<AcDbMText*>(e), nullptr);
    } else if (e->isA() == AcDbMLeader::desc()) {
        auto* ml = static_cast<AcDbMLeader*>(e);
        if (std::unique_ptr<AcDbMText> mtext(ml->mtext()); mtext) {
            AcEdInplaceTextEditor::invoke(mtext.get(), nullptr);
            ml->setMText(mtext.get());
        }
    } else if (e->isA() == AcDbAttribute::desc()) {
        // Also an attribute picked at the top level: the edit is the same.
        auto* att = static_cast<AcDbAttribute*>(e);
        if (std::unique_ptr<AcDbMText> mtext(att->getMTextAttribute()); mtext) {
            AcEdInplaceTextEditor::invoke(mtext.get(), nullptr);
            att->setMTextAttribute(mtext.get());
        } else {
            AcEdInplaceTextEditor::invoke(att, nullptr, pridane);
        }
    }
}

void AtributyNaTexty()
{
    acutPrintf(L"\nVyber DEFINICI ATRIBUTU: ");
    FiltrTypu filtr{L"ATTDEF"};
    SadaVyberu sada;
    if (!VyberDoSady(sada, L"_I", filtr.Retezec()) &&
        !VyberDokud(sada, nullptr, filtr.Retezec(), L"\nMusíte vybrat DEFINICI ATRIBUTU!!!: ",
                    L"\nChyba výběru atributu"))
        return;
    AcDbDatabase* db = acdbHostApplicationServices()->workingDatabase();
    AcDbBlockTableRecordPointer model(ModelovyProstor(db), AcDb::kForWrite);
    if (model.openStatus() != Acad::eOk)
        return;
    for (long i = 0, pocet = sada.Pocet(); i < pocet; ++i) {
        AcDbObjectPointer<AcDbAttributeDefinition> def(sada.Id(i), AcDb::kForWrite);
        if (def.openStatus() != Acad::eOk) {
            acutPrintf(L"\n**ERROR**Neotevřena entita Atributu...");
            continue;
        }
        auto text = std::make_unique<AcDbText>();
        text->setDatabaseDefaults(db);
        text->setLayer(def->layerId());
        text->setTextStyle(def->textStyle());
        text->setLinetype(L"BYLAYER");
        text->setColorIndex(256);
        text->setLineWeight(AcDb::kLnWtByLayer);
        text->setTextString(def->tagConst());
        text->setHeight(def->height());
        text->setRotation(def->rotation());
        text->setWidthFactor(def->widthFactor());
        text->setHorizontalMode(def->horizontalMode());
        text->setVerticalMode(def->verticalMode());
        // On the base line a left, aligned or fitted text stands by its position; any other by its
        // alignment point.
        AcDb::TextHorzMode h = def->horizontalMode();
        if (def->verticalMode() == AcDb::kTextBase && (h == AcDb::kTextLeft || h == AcDb::kTextAlign || h == AcDb::kTextFit))
            text->setPosition(def->position());
        else
            text->setAlignmentPoint(def->alignmentPoint());
        if (h == AcDb::kTextAlign || h == AcDb::kTextFit)
            text->setAlignmentPoint(def->alignmentPoint());
        if (model->appendAcDbEntity(text.get()) != Acad::eOk)
            continue;
        text.release()->close();
        def->erase();
    }
}
