// The level mark settings dialog run from script lines: the quick choices and the recheck that keeps
// them in step with the single values, the availability of the absolute height, the pick of the
// base point and its cancel.
#include <string>

#include "SystemNaPlatforme.h"
#include "_Dialogs/CTgDlgNastaveniKaceny.h"

namespace {

class NastaveniKaceny : public SystemNaPlatforme {
protected:
    INT_PTR Spust(CTgDlgNastaveniKaceny& dlg, const char* skript)
    {
        SystemNaPlatforme::Spust(skript);
        return dlg.DoModal();
    }
    /// The last line that the dialog showed for the control, from its last listing.
    std::wstring Prvek(int id) const
    {
        const std::wstring& z = Zaznam();
        const std::wstring zacatek = L"\n  " + std::to_wstring(id) + L" ";
        size_t at = z.rfind(zacatek);
        if (at == std::wstring::npos)
            return L"";
        at += 3;
        return z.substr(at, z.find(L'\n', at) - at);
    }
};

bool Obsahuje(const std::wstring& text, const wchar_t* cast) { return text.find(cast) != std::wstring::npos; }

} // namespace

TEST_F(NastaveniKaceny, AbsolutniNastaveniPriOtevreni)
{
    CTgDlgNastaveniKaceny dlg;
    dlg.m_prepocet = 1.0;
    dlg.m_desetinnaMista = 2;
    dlg.m_znamenko = false;
    dlg.m_vyska = CTgDlgNastaveniKaceny::kPrazdne;
    EXPECT_EQ(Spust(dlg, "cancel\n"), IDCANCEL);
    EXPECT_TRUE(Obsahuje(Prvek(313), L"(o) Absolutní kóty")) << Prvek(313);
    EXPECT_TRUE(Obsahuje(Prvek(305), L"(o) Metry"));
    EXPECT_TRUE(Obsahuje(Prvek(148), L"[zakázáno]"));
    EXPECT_TRUE(Obsahuje(Prvek(104), L"pole []")) << "the empty value shows as an empty field";
    EXPECT_TRUE(Obsahuje(Prvek(356), L"UCS: ***Nepojmenovaný***"));
}

TEST_F(NastaveniKaceny, RychlaVolbaAKontrola)
{
    CTgDlgNastaveniKaceny dlg;
    dlg.m_prepocet = 1.0;
    dlg.m_desetinnaMista = 2;
    dlg.m_znamenko = false;
    // The relative choice sets its whole group and stays chosen; then fewer decimals clear it.
    EXPECT_EQ(Spust(dlg, "click 311\nselect 302 2\nok\n"), IDOK);
    EXPECT_DOUBLE_EQ(dlg.m_prepocet, 0.001);
    EXPECT_TRUE(dlg.m_znamenko);
    EXPECT_EQ(dlg.m_desetinnaMista, 2);
    EXPECT_TRUE(Obsahuje(Prvek(311), L"( ) Relativní kóta")) << Prvek(311);
    EXPECT_TRUE(Obsahuje(Prvek(313), L"( ) Absolutní kóty"));
}

TEST_F(NastaveniKaceny, PrepocetBlizkyTisicineVybereMilimetry)
{
    CTgDlgNastaveniKaceny dlg;
    dlg.m_prepocet = 2.0;
    EXPECT_EQ(Spust(dlg, "set 314 0.00101\nok\n"), IDOK);
    EXPECT_DOUBLE_EQ(dlg.m_prepocet, 0.00101);
    EXPECT_TRUE(Obsahuje(Prvek(304), L"(o) Milimetry")) << Prvek(304);
    EXPECT_TRUE(Obsahuje(Prvek(311), L"(o) Relativní kóta"));
}

TEST_F(NastaveniKaceny, AbsolutniVyskaAPopisPodCarou)
{
    CTgDlgNastaveniKaceny dlg;
    EXPECT_EQ(Spust(dlg, "check 303 on\ncheck 148 on\nok\n"), IDOK);
    EXPECT_TRUE(dlg.m_pridatAbsolutni);
    EXPECT_TRUE(dlg.m_ptatSe);
    EXPECT_FALSE(Obsahuje(Prvek(149), L"[skryto]")) << Prvek(149);
    EXPECT_TRUE(Obsahuje(Prvek(303), L"[zakázáno]"));
    EXPECT_TRUE(Obsahuje(Prvek(316), L"[skryto]"));
}

TEST_F(NastaveniKaceny, BodZVykresuAZruseni)
{
    CTgDlgNastaveniKaceny dlg;
    EXPECT_EQ(Spust(dlg, "set 104 2\nclick 310\n5,7\nok\n"), IDOK);
    EXPECT_DOUBLE_EQ(dlg.m_zbodX, 5.0);
    EXPECT_DOUBLE_EQ(dlg.m_zbodY, 7.0);
    EXPECT_DOUBLE_EQ(dlg.m_vyska, 2.0);
    EXPECT_TRUE(Obsahuje(Zaznam(), L"Zadej bod: 5,7"));

    CTgDlgNastaveniKaceny druhy;
    EXPECT_EQ(Spust(druhy, "set 104 3\nclick 310\n^C\n"), IDCANCEL);
    EXPECT_DOUBLE_EQ(druhy.m_vyska, 0.0) << "a cancelled pick loses what was typed";
}
