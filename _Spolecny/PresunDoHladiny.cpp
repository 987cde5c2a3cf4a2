// PresunDoHladiny: the selected entities go to a layer in one transaction.
#include "StdAfx.h"
#include "PresunDoHladiny.h"
#include "CTogBaseNastav.h"

namespace {

// Gives the selection set: the entities selected before the call, else those the user picks now.
bool VyberEntity(ads_name sada)
{
    int vysledek = acedSSGet(L"_I", nullptr, nullptr, nullptr, sada);
    acedSSSetFirst(nullptr, nullptr);
    if (vysledek == RTNORM)
        return true;
    acedInitGet(RSG_NONULL, nullptr);
    const ACHAR* rezim = g_pNastaveni->Prepinac(kVicenasobnyVyber) ? nullptr : L":S";
    return acedSSGet(rezim, nullptr, nullptr, nullptr, sada) == RTNORM;
}

// Moves one entity; true when it was opened and moved.
bool PresunEntitu(AcTransaction* transakce, const ads_name jmeno, AcDbObjectId idHladiny)
{
    AcDbObjectId id;
    AcDbObject* objekt = nullptr;
    if (acdbGetObjectId(id, jmeno) != Acad::eOk || transakce->getObject(objekt, id, AcDb::kForWrite) != Acad::eOk)
        return false;
    AcDbEntity* entita = AcDbEntity::cast(objekt);
    if (entita == nullptr || entita->setLayer(idHladiny, true, true) != Acad::eOk)
        return false;
    if (g_pNastaveni->Prepinac(kByLayerTypCary))
        entita->setLinetype(entita->database()->byLayerLinetype());
    if (g_pNastaveni->Prepinac(kByLayerTloustka))
        entita->setLineWeight(AcDb::kLnWtByLayer);
    if (g_pNastaveni->Prepinac(kByLayerBarva))
        entita->setColorIndex(256);
    // The transaction closes what it opened.
    return true;
}

} // namespace

int PresunDoHladiny(AcDbObjectId idHladiny)
{
    ads_name sada;
    if (!VyberEntity(sada)) {
        acutPrintf(L"\nNic nebylo vybráno.....");
        return 0;
    }
    Adesk::Int32 vybrano = 0;
    acedSSLength(sada, &vybrano);

    AcApDocument* dokument = curDoc();
    acDocManager->lockDocument(dokument, AcAp::kWrite);
    AcTransactionManager* spravce = dokument->transactionManager();
    AcTransaction* transakce = spravce->startTransaction();
    int zmeneno = 0;
    try {
        for (Adesk::Int32 i = 0; i < vybrano; ++i) {
            ads_name jmeno;
            if (acedSSName(sada, i, jmeno) == RTNORM && PresunEntitu(transakce, jmeno, idHladiny))
                ++zmeneno;
        }
    } catch (...) {
        // A failure leaves the drawing as it was; the edge of the caller shows it, once.
        spravce->abortTransaction();
        acDocManager->unlockDocument(dokument);
        acedSSFree(sada);
        throw;
    }
    spravce->endTransaction();
    acDocManager->unlockDocument(dokument);
    acedSSFree(sada);
    acutPrintf(L"\nVybráno %i entit, změněno %i entit, %i entit nebylo možné otevřít.", static_cast<int>(vybrano),
               zmeneno, static_cast<int>(vybrano) - zmeneno);
    return static_cast<int>(vybrano);
}
