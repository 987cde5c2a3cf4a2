// The colour list: a colour it has is selected as it is, one it lacks joins the recent colours first.
#include <gtest/gtest.h>

#include <memory>

#include "CTgAcDialog.h"
#include "CTogTrueColorComboBox.h"
#include "sim/core/Session.h"
#include "sim/win32/WindowTable.h"

namespace {

const DLGITEMRES kPrvky[] = {
    {301, WC_COMBOBOXW, L"", 0},
    {IDOK, WC_BUTTONW, L"OK", BS_DEFPUSHBUTTON},
};
const DLGRESOURCE kZdroj = {7201, L"Barvy", 100, 60, kPrvky, 2};

class DlgBarev : public CTgAcDialog {
public:
    DlgBarev() : CTgAcDialog(7201, nullptr, nullptr) { AfxRegisterDlgResource(&kZdroj); }
    CTogTrueColorComboBox barvy;
    bool indexNalezen = false, rgbNalezena = false;
    int polozekPred = 0, polozekPo = 0;
    AcCmColor vybrana;

protected:
    void DoDataExchange(CDataExchange* pDX) override { DDX_Control(pDX, 301, barvy); }
    BOOL OnInitDialog() override
    {
        CTgAcDialog::OnInitDialog();
        barvy.AddItems();
        polozekPred = barvy.GetCount();
        AcCmColor modra;
        modra.setColorIndex(5);
        indexNalezen = barvy.NastavBarvu(modra) && barvy.GetCount() == polozekPred;
        AcCmColor oranzova;
        oranzova.setRGB(255, 128, 0);
        rgbNalezena = barvy.NastavBarvu(oranzova);
        polozekPo = barvy.GetCount();
        barvy.GetCurrentItemColor(vybrana);
        return TRUE;
    }
};

} // namespace

TEST(CTogTrueColorComboBox, MissingColourJoinsTheRecentOnesAndIsSelected)
{
    sim::win32::resetWindows();
    sim::Session s(std::make_unique<sim::ScriptInput>("ok\n"));
    DlgBarev dlg;
    EXPECT_EQ(dlg.DoModal(), IDOK);
    EXPECT_TRUE(dlg.indexNalezen);
    EXPECT_TRUE(dlg.rgbNalezena);
    EXPECT_EQ(dlg.polozekPo, dlg.polozekPred + 1);
    EXPECT_TRUE(dlg.vybrana.isByColor());
    EXPECT_EQ(dlg.vybrana.red(), 255);
    EXPECT_EQ(dlg.vybrana.green(), 128);
    EXPECT_NE(s.transcript().find(L">RGB:255,128,0"), std::wstring::npos) << sim::toUtf8(s.transcript());
}
