// Entity information and the reversal of curves.
#include "StdAfx.h"
#include "InfoEntity.h"

#include <cwchar>

#include "TextTloustky.h"
#include "VnorenyVyber.h"
#include "_Dialogs/CTgDlgPropInfo.h"

namespace {

/// The name of a symbol table record; false when it doesn't open.
bool NazevZaznamu(AcDbObjectId id, AcString& nazev)
{
    AcDbObjectPointer<AcDbSymbolTableRecord> zaznam(id, AcDb::kForRead);
    return zaznam.openStatus() == Acad::eOk && zaznam->getName(nazev) == Acad::eOk;
}

/// The entity section; false when a layer or a line type lookup failed (the fields read so far stay).
bool VyplnEntitu(const AcDbEntity& e, InfoOEntite& info)
{
    info.trida = e.isA()->name();
    info.barva = e.color();
    info.tloustka = TextTloustky(e.lineWeight());
    wchar_t meritko[40];
    std::swprintf(meritko, 40, L"%.2f", e.linetypeScale());
    info.meritkoTypuCary = meritko;
    AcDbLayerTableRecordPointer hladina(e.layerId(), AcDb::kForRead);
    if (hladina.openStatus() != Acad::eOk || hladina->getName(info.hladina) != Acad::eOk)
        return false;
    info.barvaHladiny = hladina->color();
    info.tloustkaHladiny = TextTloustky(hladina->lineWeight());
    return NazevZaznamu(hladina->linetypeObjectId(), info.typCaryHladiny) && NazevZaznamu(e.linetypeId(), info.typCary);
}

/// The block section from the reference that was picked.
void VyplnBlok(const AcDbBlockReference& ref, InfoOEntite& info)
{
    info.vBloku = true;
    NazevZaznamu(ref.blockTableRecord(), info.blok);
    info.barvaReference = ref.color();
    AcDbLayerTableRecordPointer hladina(ref.layerId(), AcDb::kForRead);
    if (hladina.openStatus() == Acad::eOk) {
        hladina->getName(info.hladinaReference);
        info.barvaHladinyReference = hladina->color();
    }
}

} // namespace

void UkazInfoEntity()
{
    acutPrintf(L"\nVyber entitu (i v bloku nebo v referenci): ");
    SadaVyberu sada;
    if (!VyberDoSady(sada, L"_:N:S", nullptr))
        return;
    InfoOEntite info;
    {
        AcDbObjectPointer<AcDbEntity> vybrana(sada.Id(0), AcDb::kForRead);
        if (vybrana.openStatus() != Acad::eOk) {
            acutPrintf(L"\nNeznámá chyba...");
            return;
        }
        if (vybrana->isA() == AcDbBlockReference::desc()) {
            VnorenaEntita vnorena;
            if (OtevriVnoreny(sada, vnorena, false) != 0) {
                acutPrintf(L"\nNeznámá chyba...");
                return;
            }
            if (vnorena.otevrena->objectId() != vybrana->objectId())
                VyplnBlok(*static_cast<AcDbBlockReference*>(vybrana.object()), info);
            VyplnEntitu(*vnorena.otevrena, info);
        } else {
            VyplnEntitu(*vybrana, info);
        }
    }
    sada.Uvolni();
    CTgDlgPropInfo dialog(info, CWnd::FromHandle(adsw_acadMainWnd()));
    dialog.DoModal();
}

void ObratKrivky()
{
    acutPrintf(L"\nVyber úsečky nebo polyline: ");
    FiltrTypu filtr{L"LINE", L"RAY", L"3DPOLYLINE", L"ELLIPSE", L"POLYLINE", L"SPLINE", L"ARC", L"CIRCLE", L"LWPOLYLINE"};
    SadaVyberu sada;
    if (!VyberDoSady(sada, nullptr, filtr.Retezec()))
        return;
    for (long i = 0, pocet = sada.Pocet(); i < pocet; ++i) {
        AcDbObjectPointer<AcDbEntity> e(sada.Id(i), AcDb::kForWrite);
        if (e.openStatus() != Acad::eOk) {
            acutPrintf(L"\nNepodařilo se otevřít entitu ke čtení");
            continue;
        }
        if (auto* krivka = AcDbCurve::cast(e.object()))
            krivka->reverseCurve();
    }
}
