// The level texts and the prompt of kac: the band of zero with its plus-minus code, the sign, the
// decimals, the units factor, and the prompt that offers the opposite of the state.
#include <gtest/gtest.h>

#include "_Utility/TextKaceny.h"

namespace {

NastaveniVysky Metry(int mista, bool znamenko)
{
    NastaveniVysky n;
    n.desetinnaMista = mista;
    n.znamenko = znamenko;
    n.prepocet = 1.0;
    return n;
}

} // namespace

TEST(TextKaceny, NulaSeZnamenkemNikdyNeniZaporna)
{
    NastaveniVysky n = Metry(3, true);
    EXPECT_EQ(TextVysky(n, 0.0), L"%%p0.000");
    EXPECT_EQ(TextVysky(n, -0.0004), L"%%p0.000");
    EXPECT_EQ(TextVysky(n, 1.25), L"+1.250");
    EXPECT_EQ(TextVysky(n, -1.25), L"-1.250");
    // The band is open: exactly half the last digit gets no sign.
    EXPECT_EQ(TextVysky(n, 0.0005), L"0.001");
    n.desetinnaMista = 0;
    EXPECT_EQ(TextVysky(n, 0.4), L"%%p0");
}

TEST(TextKaceny, BezZnamenkaJenVlastniMinus)
{
    NastaveniVysky n = Metry(3, false);
    EXPECT_EQ(TextVysky(n, 0.0), L"0.000");
    EXPECT_EQ(TextVysky(n, 1.25), L"1.250");
    EXPECT_EQ(TextVysky(n, -0.0004), L"-0.000");
}

TEST(TextKaceny, ZakladniBodPrepocetAReferencniVyska)
{
    // A drawing in millimetres: the base point at Y 1000 reads +1.5 m.
    NastaveniVysky n;
    n.zakladY = 1000.0;
    n.referencniVyska = 1.5;
    n.nulaAbsolutni = 250.0;
    EXPECT_EQ(TextVysky(n, 1000.0), L"+1.500");
    EXPECT_EQ(TextVysky(n, 0.0), L"+0.500");
    EXPECT_EQ(TextVysky(n, -600.0), L"-0.100");
    // The absolute height has two decimals whatever the setting.
    EXPECT_EQ(TextAbsolutni(n, 0.0), L"250.50");
}

TEST(TextKaceny, VyzvaNabiziOpakStavu)
{
    std::wstring vyzva, slova;
    SestavVyzvu(StavVyzvy(), vyzva, slova);
    EXPECT_EQ(vyzva, L"\nZadej umístění kačeny [Nastavení, Spodní, Levá, Odkaz] 'Horní, Pravá, Bez odkazu' <Nastavení>: ");
    EXPECT_EQ(slova, L"N S L O");
    StavVyzvy stav;
    stav.odkaz = true;
    stav.vertikalni = 2;
    stav.horizontalni = 2;
    stav.zpet = true;
    SestavVyzvu(stav, vyzva, slova);
    EXPECT_EQ(vyzva, L"\nZadej umístění kačeny [Nastavení, Horní, Pravá, Bez odkazu] Zpět, 'Spodní, Levá, Odkaz' <Nastavení>: ");
    EXPECT_EQ(slova, L"N H P B Z");
}
