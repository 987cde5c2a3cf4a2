// The frame's arithmetic: module and label, the parameter code both ways, and where the folding
// marks stand.
#include <gtest/gtest.h>

#include <algorithm>

#include "_Utility/RamecekGeometrie.h"

using namespace RamecekGeometrie;

namespace {

// The spikes of the outer frame: the middle vertex of each out-and-back triple.
std::vector<Bod> Spicky(const std::vector<Bod>& v)
{
    std::vector<Bod> s;
    for (std::size_t i = 1; i + 1 < v.size(); ++i)
        if (v[i - 1] == v[i + 1] && !(v[i] == v[i - 1]))
            s.push_back(v[i]);
    return s;
}

} // namespace

TEST(RamecekGeometrie, ModulAPopis)
{
    EXPECT_EQ(Modul(840), 210.0);
    EXPECT_EQ(Modul(841), 210.25);
    EXPECT_EQ(Popis(841, 594), L"841 x 594 - 8 A4");
    EXPECT_EQ(Popis(840, 594), L"840 x 594 - 8 A4");
    EXPECT_EQ(Popis(420, 297), L"420 x 297 - 2 A4");
    EXPECT_EQ(Popis(210, 297), L"210 x 297 - 1 A4");
    EXPECT_EQ(PocetA4(211, 298), 4); // a millimetre over takes a whole column and row
}

TEST(RamecekGeometrie, KodTamAZpet)
{
    EXPECT_EQ(Kod({841, 594, 6, 6, true, true}), L"00Q900II0006000611");
    EXPECT_EQ(Kod({420, 297, 6, 6, false, false}), L"00D400990006000600");
    for (int w = 210; w <= 4200; w += 37)
        for (int h = 210; h <= 4200; h += 41)
            for (int m : {0, 13, 25})
                for (int s : {3, 20}) {
                    const Parametry p{w, h, m, s, (w & 1) != 0, (h & 1) != 0};
                    const std::wstring k = Kod(p);
                    ASSERT_EQ(k.size(), 18u);
                    ASSERT_EQ(CtiKod(k), p) << w << " " << h;
                }
    // Values over 20 bits are cut.
    EXPECT_EQ(CtiKod(Kod({(1 << 20) + 5, 297, 6, 6, false, false}))->sirka, 5);
}

TEST(RamecekGeometrie, SpatnyKodOdmitnut)
{
    EXPECT_FALSE(CtiKod(L"00Q900II000600061"));   // 17 characters
    EXPECT_FALSE(CtiKod(L"00Q900II00060006111")); // 19
    EXPECT_FALSE(CtiKod(L"00Q900IW0006000611"));  // W isn't a base-32 digit
    EXPECT_FALSE(CtiKod(L"00Q9 0II0006000611"));
    EXPECT_FALSE(CtiKod(L"-0Q900II0006000611"));
    const auto p = CtiKod(L"00Q900II0006000620"); // anything but "1" is off
    ASSERT_TRUE(p);
    EXPECT_FALSE(p->popis);
    EXPECT_FALSE(p->dvojity);
}

TEST(RamecekGeometrie, ZnackyA1StojiNaModulechOdPravehoRohu)
{
    const double m = Modul(841);
    const std::vector<Bod> v = VnejsiRamecek({0, 0}, 841, 594, m, 6);
    EXPECT_EQ(v.front(), (Bod{0, 0}));
    const std::vector<Bod> s = Spicky(v);
    const std::vector<Bod> ocekavane = {
        // bottom, right to left
        {-210.25, 6}, {-420.5, 6}, {-630.75, 6},
        // left, upwards
        {-835, 297},
        // top, from the left-most whole module (the frame's left corner) to the right
        {-841, 588}, {-630.75, 588}, {-420.5, 588}, {-210.25, 588},
        // right, downwards from the top row of whole sheets
        {-6, 594}, {-6, 297}};
    EXPECT_EQ(s, ocekavane);
    // The corners in between, clockwise.
    EXPECT_NE(std::find(v.begin(), v.end(), Bod{-841, 0}), v.end());
    EXPECT_NE(std::find(v.begin(), v.end(), Bod{-841, 594}), v.end());
    EXPECT_NE(std::find(v.begin(), v.end(), Bod{0, 594}), v.end());
    EXPECT_EQ(v.size(), 1 + 9 + 1 + 3 + 1 + 12 + 1 + 6u);
}

TEST(RamecekGeometrie, A4MaZnackyJenVeRozich)
{
    const std::vector<Bod> v = VnejsiRamecek({100, 50}, 210, 297, Modul(210), 6);
    // No mark at the bottom or at the left; the top one lies along the left edge, the right one along
    // the top edge.
    const std::vector<Bod> ocekavane = {{-110, 341}, {94, 347}};
    EXPECT_EQ(Spicky(v), ocekavane);
    // 211 wide: two columns in the label, but one whole module for the top marks.
    const std::vector<Bod> siroky = Spicky(VnejsiRamecek({0, 0}, 211, 297, Modul(211), 6));
    EXPECT_EQ(siroky.front(), (Bod{-210, 6}));
    EXPECT_EQ(siroky[1], (Bod{-210, 291}));
    const std::vector<Bod> vnitrni = {{-6, 6}, {-6, 588}, {-835, 588}, {-835, 6}};
    EXPECT_EQ(VnitrniRamecek({0, 0}, 841, 594, 6), vnitrni);
}
