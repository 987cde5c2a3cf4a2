// The format calculator run by the platform from script lines: the format buttons and the label's
// memory, the step spins, the 914 rule, the limits on OK and where the values are stored.
#include <gtest/gtest.h>

#include "CTogRegistry.h"
#include "CTogXRecord.h"
#include "CTogException.h"
#include "_Dialogs/CTgDlgRamecek.h"
#include "_Utility/Ramecek.h"
#include "sim/core/Session.h"
#include "stores/SystemSRegistrem.h"

namespace {

bool Obsahuje(const std::wstring& text, const std::wstring& cast) { return text.find(cast) != std::wstring::npos; }

class DlgRamecek : public SystemSRegistrem {
protected:
    Adesk::Int32 VeVykresu(const ACHAR* nazev)
    {
        Adesk::Int32 v = -1;
        EXPECT_TRUE(CTogXRecord::NactiZX(nazev, v, CTgDlgRamecek::kSkupina)) << sim::toUtf8(nazev);
        return v;
    }
    Adesk::Int32 VRegistru(const ACHAR* nazev)
    {
        Adesk::Int32 v = -1;
        EXPECT_TRUE(CTogRegistry::NactiHodnotu(nazev, CTgDlgRamecek::kSkupina, v)) << sim::toUtf8(nazev);
        return v;
    }
};

} // namespace

TEST_F(DlgRamecek, FormatyAPamatPopisu)
{
    Spust("click 214\nclick 212\nclick 213\nclick 136\nclick 214\nclick 211\nclick 215\nok\n");
    CTgDlgRamecek dlg;
    ASSERT_EQ(dlg.DoModal(), IDOK) << sim::toUtf8(Zaznam());
    const std::wstring& z = Zaznam();
    // Nothing stored yet: the defaults, A3 on the printer.
    EXPECT_TRUE(Obsahuje(z, L"212 (o) A3 - 420 x 297")) << sim::toUtf8(z);
    EXPECT_TRUE(Obsahuje(z, L"235 \"NA TISKÁRNU\""));
    EXPECT_TRUE(Obsahuje(z, L"208 pole [12]"));
    // A1 takes the label as the user had it, A3 turns it off, A2 brings it back.
    const size_t a1 = z.find(L": click 214");
    const size_t a3 = z.find(L": click 212");
    const size_t a2 = z.find(L": click 213");
    ASSERT_NE(a2, std::wstring::npos);
    // (the transcript shows what changed: the label stays on for A1)
    EXPECT_FALSE(Obsahuje(z.substr(a1, a3 - a1), L"136 [ ] Popis rámečku"));
    EXPECT_TRUE(Obsahuje(z.substr(a1, a3 - a1), L"233 \"Na výšku: ROLE 594 cm\""));
    EXPECT_TRUE(Obsahuje(z.substr(a3, a2 - a3), L"136 [ ] Popis rámečku"));
    EXPECT_TRUE(Obsahuje(z.substr(a2), L"136 [x] Popis rámečku"));
    // The user's own "off" then holds for A0 too.
    EXPECT_EQ(dlg.m_sirka, 1188);
    EXPECT_EQ(dlg.m_vyska, 841);
    EXPECT_EQ(dlg.m_popis, 0);
    EXPECT_EQ(dlg.m_format, 4);
    // OK stores the seven values in both places.
    EXPECT_EQ(VeVykresu(L"Horiz"), 1188);
    EXPECT_EQ(VRegistru(L"Vert"), 841);
    EXPECT_EQ(VRegistru(L"Popis"), 0);
    EXPECT_EQ(VeVykresu(L"Presah"), 12);
    EXPECT_EQ(VRegistru(L"Dvojity"), 1);
}

TEST_F(DlgRamecek, SipkyKrokujiTabulkou)
{
    Spust("set 111 500\nspin 207 up\nset 111 500\nspin 207 down\nset 259 1000\nspin 209 up\nspin 241 down\nok\n");
    CTgDlgRamecek dlg;
    ASSERT_EQ(dlg.DoModal(), IDOK) << sim::toUtf8(Zaznam());
    const std::wstring& z = Zaznam();
    const size_t nahoru = z.find(L": spin 207 up");
    const size_t dolu = z.find(L": spin 207 down");
    EXPECT_TRUE(Obsahuje(z.substr(nahoru, dolu - nahoru), L"111 pole [594]")) << sim::toUtf8(z);
    EXPECT_TRUE(Obsahuje(z.substr(dolu), L"111 pole [420]"));
    EXPECT_EQ(dlg.m_sirka, 1051);
    EXPECT_EQ(dlg.m_presah, 11);
}

TEST_F(DlgRamecek, VyskaSpadneNa914APrekroceniMeziNepusti)
{
    Spust("set 259 1000\nset 111 1000\nok\nset 232 2\nok\nok\nset 232 3\nok\n");
    CTgDlgRamecek dlg;
    ASSERT_EQ(dlg.DoModal(), IDOK) << sim::toUtf8(Zaznam());
    const std::wstring& z = Zaznam();
    EXPECT_TRUE(Obsahuje(z, L"[Togovy Utility - příliš velký formát] Jeden z rozměrů musí být max. 914 (šířka plotru). "
                            L"Jinak se to nedá vytisknout")) << sim::toUtf8(z);
    EXPECT_TRUE(Obsahuje(z, L"233 \"Na výšku: ROLE 914 cm\""));
    EXPECT_TRUE(Obsahuje(z, L"Zadejte celé číslo od 3 do 20."));
    EXPECT_EQ(dlg.m_vyska, 914);
    EXPECT_EQ(dlg.m_roztec, 3);
}

TEST_F(DlgRamecek, StornoNicNeuloziAEditaceNicNenacte)
{
    Spust("set 259 841\ncancel\nok\n");
    {
        CTgDlgRamecek dlg;
        EXPECT_EQ(dlg.DoModal(), IDCANCEL);
    }
    Adesk::Int32 v = 0;
    EXPECT_FALSE(CTogXRecord::NactiZX(L"Horiz", v, CTgDlgRamecek::kSkupina));
    EXPECT_FALSE(CTogRegistry::NactiHodnotu(L"Horiz", CTgDlgRamecek::kSkupina, v));

    CTogRegistry::UlozHodnotu(L"Horiz", CTgDlgRamecek::kSkupina, Adesk::Int32(594));
    CTgDlgRamecek dlg;
    dlg.m_sirka = 841;
    dlg.m_vyska = 594;
    dlg.m_netisk = 1;
    dlg.m_popis = 1;
    ASSERT_EQ(dlg.SpustProEditaci(), IDOK);
    // The caller's values stand, not the stored ones; the layer switch can't be used.
    EXPECT_TRUE(Obsahuje(Zaznam(), L"259 pole [841]")) << sim::toUtf8(Zaznam());
    EXPECT_TRUE(Obsahuje(Zaznam(), L"227 [x] Netisknout [zakázáno]"));
    EXPECT_EQ(VRegistru(L"Horiz"), 841);
}

// A double click on a frame while ram runs must not build a second set of frame parameters.
TEST(Ramecek, JenJednaInstance)
{
    {
        CTogRamecek prvni;
        EXPECT_THROW(CTogRamecek druhy, CTogException);
    }
    EXPECT_NO_THROW(CTogRamecek znovu);
}
