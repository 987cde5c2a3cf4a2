// The validated edits in a small dialog run by the platform from script lines: key press steps
// (filter, refusal with beep and balloon), check steps (colours, OK held back) and the notifications.
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "CCheckedEdit.h"
#include "CTgAcDialog.h"
#include "sim/core/Session.h"
#include "sim/win32/WindowTable.h"

namespace {

const DLGITEMRES kPrvky[] = {
    {110, WC_EDITW, L"", ES_AUTOHSCROLL},
    {111, WC_EDITW, L"", ES_AUTOHSCROLL},
    {112, WC_EDITW, L"", ES_AUTOHSCROLL},
    {113, WC_EDITW, L"", ES_AUTOHSCROLL},
    {IDOK, WC_BUTTONW, L"OK", BS_DEFPUSHBUTTON},
    {IDCANCEL, WC_BUTTONW, L"Zrušit", BS_PUSHBUTTON},
};
const DLGRESOURCE kZdroj = {7001, L"Zkouška polí", 200, 100, kPrvky, 6};

class DlgPoli : public CTgAcDialog {
public:
    DlgPoli() : CTgAcDialog(7001, nullptr, L"Nadpis zkoušky")
    {
        AfxRegisterDlgResource(&kZdroj);
        PridejTooltip(110, L"Předpona");
        PridejTooltip(110, L"druhý tip se nepřidá");
    }
    CCheckedEdit predpona{JePredpona, JePismenoCislice, NaVelkePismeno, L"Dva až tři znaky", nullptr, false, 3};
    CDoubleEdit cislo{7.5, L"Zadejte desetinné číslo"};
    CCheckedEdit delka{JePismenoCislice, nullptr, nullptr, nullptr, nullptr, true, 3};
    CCheckedEdit volne{JePismenoCislice, nullptr, nullptr, nullptr, nullptr, true};
    double oznamenaHodnota = -1;
    CString oznamenyText;
    CString konecPredpona;
    bool konecCislo = false;
    double konecHodnota = 0;

protected:
    void DoDataExchange(CDataExchange* pDX) override
    {
        DDX_Control(pDX, 110, predpona);
        DDX_Control(pDX, 111, cislo);
        DDX_Control(pDX, 112, delka);
        DDX_Control(pDX, 113, volne);
    }
    BOOL OnInitDialog() override
    {
        CTgAcDialog::OnInitDialog();
        delka.SetWindowText(L"ABC");
        return TRUE;
    }
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == WM_TG_KONTROLA_EDITU) {
            if (reinterpret_cast<HWND>(wParam) == cislo.m_hWnd)
                oznamenaHodnota = *reinterpret_cast<const double*>(lParam);
            else
                oznamenyText = reinterpret_cast<const ACHAR*>(lParam);
            return 0;
        }
        return CTgAcDialog::WindowProc(message, wParam, lParam);
    }
    void OnOK() override
    {
        for (CCheckedEdit* pole : {&predpona, static_cast<CCheckedEdit*>(&cislo)})
            if (!pole->JePlatny() && !pole->Zkontroluj())
                return;
        predpona.GetWindowText(konecPredpona);
        konecCislo = cislo.Hodnota(konecHodnota);
        CTgAcDialog::OnOK();
    }
};

struct Beh {
    INT_PTR vysledek;
    std::wstring zaznam;
    bool ceka;
};

Beh Spust(DlgPoli& dlg, const char* skript)
{
    sim::Session s(std::make_unique<sim::ScriptInput>(skript));
    Beh b;
    b.vysledek = dlg.DoModal();
    b.zaznam = s.transcript();
    b.ceka = s.waitingPrompt().has_value();
    return b;
}

bool Obsahuje(const std::wstring& text, const std::wstring& cast) { return text.find(cast) != std::wstring::npos; }

} // namespace

TEST(Editace, PredponaVelkymiPismenyCtvrtyZnakOdmitnut)
{
    sim::win32::resetWindows();
    const int pipnuti = sim::win32::beepCount();
    DlgPoli dlg;
    Beh b = Spust(dlg, "set 110 ab-cd\nset 111 1,5\nok\n");
    EXPECT_EQ(b.vysledek, IDOK) << sim::toUtf8(b.zaznam);
    EXPECT_EQ(dlg.konecPredpona, L"ABC");
    // '-' breaks the pattern, 'd' is the fourth character: two refusals, each a beep and a balloon.
    EXPECT_TRUE(Obsahuje(b.zaznam, L"Znak '-' odmítnut.")) << sim::toUtf8(b.zaznam);
    EXPECT_TRUE(Obsahuje(b.zaznam, L"Znak 'd' odmítnut."));
    EXPECT_TRUE(Obsahuje(b.zaznam, L"Bublina u 110 (chyba): Chybný vstup - Dva až tři znaky"));
    EXPECT_EQ(sim::win32::beepCount() - pipnuti, 2);
    // A comma typed in a decimal field shows as a point.
    EXPECT_TRUE(dlg.konecCislo);
    EXPECT_DOUBLE_EQ(dlg.konecHodnota, 1.5);
    EXPECT_DOUBLE_EQ(dlg.oznamenaHodnota, 1.5); // sent when the field lost the focus
    // The dialog's heading and the first tooltip only.
    EXPECT_TRUE(Obsahuje(b.zaznam, L"[Zkouška polí]\n  Nadpis zkoušky\n"));
    EXPECT_TRUE(Obsahuje(b.zaznam, L"110 pole [] {RGB(255,0,0) na RGB(255,255,160)} | tip: Předpona\n"));
    EXPECT_FALSE(Obsahuje(b.zaznam, L"druhý tip"));
}

TEST(Editace, JedenZnakJeChybnyACervenyAOkNepusti)
{
    sim::win32::resetWindows();
    DlgPoli dlg;
    Beh b = Spust(dlg, "set 110 a\nset 111 2\nok\nset 110 ab\nok\n");
    EXPECT_EQ(b.vysledek, IDOK);
    // Red on pale yellow while wrong, and OK shows the balloon and stays.
    EXPECT_TRUE(Obsahuje(b.zaznam, L"110 pole [A] {RGB(255,0,0) na RGB(255,255,160)}")) << sim::toUtf8(b.zaznam);
    const size_t prvniOk = b.zaznam.find(L": ok\n");
    ASSERT_NE(prvniOk, std::wstring::npos);
    EXPECT_NE(b.zaznam.find(L"Bublina u 110", prvniOk), std::wstring::npos);
    EXPECT_EQ(dlg.konecPredpona, L"AB");
}

TEST(Editace, MezeraNaKonciSeOrizneAPoleJiPrevezme)
{
    sim::win32::resetWindows();
    DlgPoli dlg;
    Beh b = Spust(dlg, "set 111 2\nset 113 A1 \nok\n");
    EXPECT_EQ(b.vysledek, IDCANCEL) << "the prefix field stays empty, so OK is held back";
    EXPECT_EQ(dlg.oznamenyText, L"A1");
    EXPECT_TRUE(Obsahuje(b.zaznam, L"113 pole [A1]\n"));
    EXPECT_TRUE(b.ceka); // the input ran out while the dialog waited
}

TEST(Editace, PlnePoleBezKlavesoveKontrolyOdmitneZnakIPresVyber)
{
    sim::win32::resetWindows();
    DlgPoli dlg;
    // "set" selects the whole text before typing; the full field refuses even so.
    Beh b = Spust(dlg, "set 112 X\ncancel\n");
    EXPECT_EQ(b.vysledek, IDCANCEL);
    EXPECT_TRUE(Obsahuje(b.zaznam, L"Znak 'X' odmítnut."));
    EXPECT_TRUE(Obsahuje(b.zaznam, L"112 pole [ABC]"));
}

TEST(Editace, PrazdneDesetinnePoleJeChybneAHodnotaNeni)
{
    sim::win32::resetWindows();
    CDoubleEdit pole(7.5);
    double h = 0;
    // Before the first check the valid flag still stands: the value of an empty field.
    EXPECT_TRUE(pole.Hodnota(h));
    EXPECT_DOUBLE_EQ(h, 7.5);
    pole.SetWindowText(L"");
    EXPECT_FALSE(pole.m_platny);
    EXPECT_FALSE(pole.Hodnota(h));
    pole.SetWindowText(L"-.25");
    ASSERT_TRUE(pole.Hodnota(h));
    EXPECT_DOUBLE_EQ(h, -0.25);
    pole.SetWindowText(L"1e999");
    EXPECT_FALSE(pole.Hodnota(h)) << "not a decimal number by the final check";
}

TEST(Editace, NavratZEditoruBezPrechoduHlasiChybu)
{
    sim::win32::resetWindows();
    DlgPoli dlg;
    try {
        dlg.VratSeZEditoru();
        FAIL() << "no exception";
    } catch (const std::exception& e) {
        EXPECT_NE(std::string(e.what()).find("nebylo uloženo žádné aktivní okno!"), std::string::npos);
    }
    sim::win32::resetWindows();
}
