// ZeptejSe: the task dialog of the system's questions, with its own buttons ("Ano", "Ne", "Ano všem",
// ...) and the tick "Již více nezobrazovat".
#include "StdAfx.h"
#include <commctrl.h>
#include <vector>
#include "CTogSet.h"

namespace {

struct Tlacitko {
    int bit;
    const ACHAR* text;
};

// The bit of the caller's mask is also the button's id.
constexpr Tlacitko kTlacitka[] = {
    {kTlacitkoOk, L"Ok"},           {kTlacitkoAno, L"Ano"},           {kTlacitkoNe, L"Ne"},
    {kTlacitkoZrusit, L"Zrušit"},   {kTlacitkoAnoVsem, L"Ano všem"},  {kTlacitkoNeVsem, L"Ne všem"},
};

} // namespace

int ZeptejSe(const ACHAR* hlavni, const ACHAR* obsah, int tlacitka, bool zaskrtavatko, const ACHAR* ikona,
             const ACHAR* rozsireny)
{
    std::vector<TASKDIALOG_BUTTON> seznam;
    for (const Tlacitko& t : kTlacitka)
        if (tlacitka & t.bit)
            seznam.push_back({t.bit, t.text});

    TASKDIALOGCONFIG konfigurace{};
    konfigurace.cbSize = sizeof(konfigurace);
    konfigurace.hwndParent = GetActiveWindow();
    konfigurace.pszWindowTitle = L"Togovy Utility pro AutoCad";
    konfigurace.pszMainIcon = ikona;
    konfigurace.pszMainInstruction = hlavni;
    konfigurace.pszContent = obsah;
    konfigurace.cButtons = static_cast<UINT>(seznam.size());
    konfigurace.pButtons = seznam.empty() ? nullptr : seznam.data();
    if (zaskrtavatko)
        konfigurace.pszVerificationText = L"Již více nezobrazovat";
    konfigurace.pszExpandedInformation = rozsireny;
    if (rozsireny)
        konfigurace.dwFlags |= TDF_EXPAND_FOOTER_AREA;

    int stisknuto = 0;
    BOOL zaskrtnuto = FALSE;
    // A dialog that could not be shown, or was left without an answer, answers 0: no button.
    if (TaskDialogIndirect(&konfigurace, &stisknuto, nullptr, &zaskrtnuto) != S_OK)
        return 0;
    int vysledek = stisknuto;
    if (stisknuto == kTlacitkoAnoVsem)
        vysledek = kTlacitkoAno + kOdpovedVsem;
    else if (stisknuto == kTlacitkoNeVsem)
        vysledek = kTlacitkoNe + kOdpovedVsem;
    if (zaskrtavatko && zaskrtnuto)
        vysledek += kOdpovedZaskrtnuto;
    return vysledek;
}
