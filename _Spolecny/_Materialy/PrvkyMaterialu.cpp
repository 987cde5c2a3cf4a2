// The shared controls of the material dialogs and the display of a material's values.
#include "StdAfx.h"
#include "PrvkyMaterialu.h"

#include "CTgDlgMatVyber.h"
#include "CTogMaterial.h"
#include "CTogRegistry.h"
#include "TabulkyMaterialu.h"
#include "htmlhelp.h"

namespace {

constexpr int kStatic = -1;
constexpr DWORD kHodnota = WS_DISABLED;
using D = CTgDlgMatVyber;

} // namespace

const std::vector<DLGITEMRES>& PrvkyMaterialu()
{
    static const std::vector<DLGITEMRES> prvky = {
        {kStatic, WC_BUTTONW, L"Skupina", BS_GROUPBOX},
        {11030, WC_BUTTONW, L"ZTI", BS_AUTORADIOBUTTON | WS_GROUP},
        {11031, WC_BUTTONW, L"Inženýrské sítě", BS_AUTORADIOBUTTON},
        {11032, WC_BUTTONW, L"Vše", BS_AUTORADIOBUTTON},
        {kStatic, WC_BUTTONW, L"Použití", BS_GROUPBOX},
        {11020, WC_BUTTONW, L"Kanalizace", BS_AUTORADIOBUTTON | WS_GROUP},
        {11021, WC_BUTTONW, L"Tlak. kan.", BS_AUTORADIOBUTTON},
        {11022, WC_BUTTONW, L"Voda", BS_AUTORADIOBUTTON},
        {11023, WC_BUTTONW, L"Plyn", BS_AUTORADIOBUTTON},
        {11024, WC_BUTTONW, L"Tpl.", BS_AUTORADIOBUTTON},
        {11025, WC_BUTTONW, L"Vše", BS_AUTORADIOBUTTON},
        {D::IDC_SEZNAM, L"SysListView32", L"", LVS_REPORT | LVS_SINGLESEL | LVS_SHOWSELALWAYS | WS_GROUP},
        {kStatic, WC_STATICW, L"Název:", SS_LEFT},
        {D::IDC_NAZEV, WC_EDITW, L"", ES_AUTOHSCROLL | kHodnota},
        {kStatic, WC_STATICW, L"Popis:", SS_LEFT},
        {D::IDC_POPIS, WC_EDITW, L"", ES_AUTOHSCROLL | kHodnota},
        {kStatic, WC_STATICW, L"Výrobce:", SS_LEFT},
        {D::IDC_VYROBCE, WC_EDITW, L"", ES_AUTOHSCROLL | kHodnota},
        {kStatic, WC_STATICW, L"Podrobný popis:", SS_LEFT},
        {D::IDC_PODROBNY_POPIS, WC_EDITW, L"", ES_AUTOHSCROLL | kHodnota},
        {kStatic, WC_STATICW, L"Tl. třída:", SS_LEFT},
        {D::IDC_PN, WC_COMBOBOXW, L"", kHodnota},
        {kStatic, WC_STATICW, L"SDr:", SS_LEFT},
        {D::IDC_SDR, WC_COMBOBOXW, L"", kHodnota},
        {kStatic, WC_STATICW, L"Drsnost [mm]:", SS_LEFT},
        {D::IDC_DRSNOST, WC_EDITW, L"", ES_AUTOHSCROLL | kHodnota},
        {kStatic, WC_BUTTONW, L"Popis", BS_GROUPBOX},
        {11010, WC_BUTTONW, L"DN", BS_AUTORADIOBUTTON | WS_GROUP | kHodnota},
        {11011, WC_BUTTONW, L"D x t", BS_AUTORADIOBUTTON | kHodnota},
        {11012, WC_BUTTONW, L"Jiný", BS_AUTORADIOBUTTON | kHodnota},
        {kStatic, WC_BUTTONW, L"Tvar", BS_GROUPBOX},
        {11035, WC_BUTTONW, L"Kruh", BS_AUTORADIOBUTTON | WS_GROUP | kHodnota},
        {11036, WC_BUTTONW, L"Vejce", BS_AUTORADIOBUTTON | kHodnota},
        {11037, WC_BUTTONW, L"Vejce - Praha", BS_AUTORADIOBUTTON | kHodnota},
        {11038, WC_BUTTONW, L"Tlama", BS_AUTORADIOBUTTON | kHodnota},
        {11039, WC_BUTTONW, L"Obdélník", BS_AUTORADIOBUTTON | kHodnota},
        {kStatic, WC_BUTTONW, L"Určení", BS_GROUPBOX},
        {D::IDC_SK_ZTI, WC_BUTTONW, L"ZTI", BS_AUTOCHECKBOX | WS_GROUP | kHodnota},
        {D::IDC_SK_SITE, WC_BUTTONW, L"Inženýrské sítě", BS_AUTOCHECKBOX | kHodnota},
        {11078, WC_BUTTONW, L"Kanalizace", BS_AUTOCHECKBOX | kHodnota},
        {11080, WC_BUTTONW, L"Kan. tlaková", BS_AUTOCHECKBOX | kHodnota},
        {11076, WC_BUTTONW, L"Voda", BS_AUTOCHECKBOX | kHodnota},
        {11077, WC_BUTTONW, L"Plyn", BS_AUTOCHECKBOX | kHodnota},
        {11079, WC_BUTTONW, L"Teplovody/UT", BS_AUTOCHECKBOX | kHodnota},
        {D::IDC_STROM, WC_STATICW, L"", SS_LEFT},
    };
    return prvky;
}

void NaplnTabulkyMaterialu(CWnd& dialog)
{
    if (auto* pn = static_cast<CComboBox*>(dialog.GetDlgItem(D::IDC_PN))) {
        pn->ResetContent();
        for (const RadekPN& r : kTabulkaPN)
            pn->AddString(r.popis);
    }
    if (auto* sdr = static_cast<CComboBox*>(dialog.GetDlgItem(D::IDC_SDR))) {
        sdr->ResetContent();
        for (const RadekSDr& r : kTabulkaSDr)
            sdr->AddString(r.popis);
    }
}

void ZobrazHodnotyMaterialu(CWnd& dialog, const CTogMaterial* m)
{
    dialog.SetDlgItemText(D::IDC_NAZEV, m ? m->Nazev.GetString() : L"");
    dialog.SetDlgItemText(D::IDC_POPIS, m ? m->Popis.GetString() : L"");
    dialog.SetDlgItemText(D::IDC_VYROBCE, m ? m->Vyrobce.GetString() : L"");
    dialog.SetDlgItemText(D::IDC_PODROBNY_POPIS, m ? m->PodrobnyPopis.GetString() : L"");
    if (auto* pn = static_cast<CComboBox*>(dialog.GetDlgItem(D::IDC_PN)))
        pn->SetCurSel(m ? m->PnIndex : -1);
    if (auto* sdr = static_cast<CComboBox*>(dialog.GetDlgItem(D::IDC_SDR)))
        sdr->SetCurSel(m ? m->SdrIndex : -1);
    CString drsnost;
    if (m)
        drsnost.Format(L"%.5f", static_cast<double>(m->Drsnost));
    dialog.SetDlgItemText(D::IDC_DRSNOST, drsnost);
    dialog.CheckRadioButton(D::IDC_POPIS_DN, D::IDC_POPIS_JINY, m ? D::IDC_POPIS_DN + m->TypPopisu : 0);
    dialog.CheckRadioButton(D::IDC_KRUH, D::IDC_OBDELNIK, m ? D::IDC_KRUH + m->Tvar : 0);
    dialog.CheckDlgButton(D::IDC_SK_ZTI, m && (m->Skupina & kSkupinaZTI) ? BST_CHECKED : BST_UNCHECKED);
    dialog.CheckDlgButton(D::IDC_SK_SITE, m && (m->Skupina & kSkupinaSite) ? BST_CHECKED : BST_UNCHECKED);
    for (int bit = 0; bit < 5; ++bit)
        dialog.CheckDlgButton(D::kPrvkyPouziti[bit], m && (m->Pouziti & (1 << bit)) ? BST_CHECKED : BST_UNCHECKED);
}

void OtevriNapovedu(HWND vlastnik, int kontext)
{
    // The help file lies beside the standard catalogue, in the installation's Materialy folder.
    const AcString soubor = CTogRegistry::CestaKAdresari(CTogRegistry::kKlicVyrobce, L"Materialy", TypCesty::CommonInstall,
                                                         true, false) +
                            L"Materiály - help.chm";
    HtmlHelpW(vlastnik, soubor.kwszPtr(), HH_HELP_CONTEXT, static_cast<DWORD_PTR>(kontext));
}
