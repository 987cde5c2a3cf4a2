// The application's hooks into the host's events: the double click that edits sheet frames in their
// dialog and attributes in the in-place text editor.
#include "StdAfx.h"
#include "CTogReactors.h"

#include <exception>
#include <memory>

#include "AcEdInplaceTextEditor.h"
#include "CTogBaseNastav.h"
#include "CTogException.h"
#include "CTogFunkce.h"
#include "VnorenyVyber.h"
#include "_Dialogs/CTgDlgRamecek.h"
#include "_Utility/Ramecek.h"
#include "acadwnd.h"
#include "acedads.h"
#include "axlock.h"
#include "dbents.h"
#include "dbmtext.h"
#include "dbobjptr.h"

namespace {

// The frame under the double click, opened in its dialog and built anew on OK.
void EditujRamecek(AcDbObjectId idReference, AcDbObjectId idBloku)
{
    CTogRamecek ramecek;
    AcAxDocLock zamekReference(idReference);
    AcAxDocLock zamekBloku(idBloku);
    CTgDlgRamecek dlg(AfxGetMainWnd());
    if (!ramecek.EditujExistujici(idReference, idBloku, dlg))
        return;
    ramecek.PrevezmiZDialogu(dlg);
    AcString nazev;
    ramecek.VytvorBlok(nazev);
}

// The attribute under the double click in the in-place editor, as the two switches allow. False
// leaves the click to the host.
bool EditujAtribut(const SadaVyberu& sada)
{
    VnorenaEntita vnorena;
    if (OtevriVnoreny(sada, vnorena, false) != 0 || !vnorena.otevrena.object())
        throw CTogException("Neznámá chyba...", __LINE__, __FILE__);
    if (vnorena.otevrena->isA() != AcDbAttribute::desc())
        return false;
    auto* atribut = static_cast<AcDbAttribute*>(vnorena.otevrena.object());
    const std::unique_ptr<AcDbMText> mtext(atribut->getMTextAttribute());
    AcAxDocLock zamek(atribut->objectId());
    const Acad::ErrorStatus es = atribut->upgradeOpen();
    if (es != Acad::eOk)
        throw CTogException("Nelze přeotevřít entitu (atribut) pro zápis", __LINE__, __FILE__, es);
    if (!mtext) {
        if (!g_pNastaveni->Prepinac(kIJednoradkoveAtributy))
            return false;
        AcDbObjectIdArray pridane;
        AcEdInplaceTextEditor::invoke(atribut, nullptr, pridane);
        return true;
    }
    if (!g_pNastaveni->Prepinac(kAtributyNaPlose))
        return false;
    AcEdInplaceTextEditorSettings nastaveni;
    nastaveni.setEditFlags(AcEdInplaceTextEditorSettings::kForceOpaqueBackground | AcEdInplaceTextEditorSettings::kSelectAll);
    nastaveni.setSourceEntityType(AcEdInplaceTextEditorSettings::kDefault);
    AcEdInplaceTextEditor::invoke(mtext.get(), &nastaveni);
    atribut->setMTextAttribute(mtext.get());
    return true;
}

} // namespace

bool CTogReactors::FiltrDvojkliku(MSG* zprava)
{
    if (!zprava || zprava->message != WM_LBUTTONDBLCLK || !adsw_acadDocWnd())
        return false;
    try {
        const POINT pixel{GET_X_LPARAM(zprava->lParam), GET_Y_LPARAM(zprava->lParam)};
        ads_point bod = {0, 0, 0};
        acedCoordFromPixelToWorld(pixel, bod);
        resbuf zDispleje{}, doWcs{};
        zDispleje.restype = doWcs.restype = RTSHORT;
        zDispleje.resval.rint = 2;
        doWcs.resval.rint = 0;
        acedTrans(bod, &zDispleje, &doWcs, 0, bod);

        SadaVyberu sada;
        if (acedSSGet(L"_:n", bod, nullptr, nullptr, sada.ProVyber()) != RTNORM)
            return false;
        sada.Prevzata();

        const AcDbObjectId idVybrane = sada.Id(0);
        if (idVybrane.isNull())
            return false;
        AcDbObjectId idBloku;
        AcString nazev;
        {
            AcDbObjectPointer<AcDbBlockReference> reference(idVybrane, AcDb::kForRead);
            if (reference.openStatus() == Acad::eNotThatKindOfClass)
                return false;
            if (reference.openStatus() != Acad::eOk)
                throw CTogException("Nelze otevřít výbraný blok pro čtení", __LINE__, __FILE__, reference.openStatus());
            idBloku = reference->blockTableRecord();
        }
        {
            AcDbObjectPointer<AcDbBlockTableRecord> blok(idBloku, AcDb::kForRead);
            if (blok.openStatus() != Acad::eOk)
                throw CTogException("Nelze otevřít definici bloku, pro čtení", __LINE__, __FILE__, blok.openStatus());
            blok->getName(nazev);
        }
        CTogFunkce::NaVelka(nazev);
        if (std::wcsstr(nazev.kwszPtr(), CTogRamecek::kNazevBloku)) {
            // Handled whether the user confirmed the dialog or not.
            EditujRamecek(idVybrane, idBloku);
            return true;
        }
        if (!g_pNastaveni->Prepinac(kAtributyNaPlose) && !g_pNastaveni->Prepinac(kIJednoradkoveAtributy))
            return false;
        return EditujAtribut(sada);
    } catch (const std::exception& e) {
        ZobrazVyjimku(e);
        return false;
    }
}
