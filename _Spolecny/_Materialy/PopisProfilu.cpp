// Labels and dimensions of new profiles.
#include "PopisProfilu.h"

#include <cwchar>

#include "TabulkyMaterialu.h"

namespace {

template <int N> bool formatuj(ACHAR (&cil)[N], const ACHAR* format, auto... hodnoty)
{
    int n = std::swprintf(cil, N, format, hodnoty...);
    return n >= 0 && n < N;
}

} // namespace

bool VytvorPopisy(const NastaveniPopisu& nastaveni, int dnIndex, float vnitrni, float stena,
                  ACHAR (&popisek)[kDelkaPopisku], ACHAR (&kratky)[kDelkaPopiskuKratky])
{
    const double dn = kTabulkaDN[dnIndex].dn;
    const double vnejsi = VnejsiPrumer(vnitrni, stena);
    if (nastaveni.typPopisu == kPopisDN)
        return formatuj(popisek, L"DN %0.0f", dn) && formatuj(kratky, L"%0.f", dn);
    if (!formatuj(kratky, L"d%.0f", vnejsi))
        return false;
    if (nastaveni.typPopisu == kPopisDxT)
        return formatuj(popisek, L"%.0fx%.1f", vnejsi, static_cast<double>(stena));
    const ACHAR* prefix = nastaveni.prefix ? nastaveni.prefix : L"";
    const ACHAR* suffix = nastaveni.suffix ? nastaveni.suffix : L"";
    if (nastaveni.vnitrniPrumer)
        return formatuj(popisek, L"%ls%0.0f%ls", prefix, static_cast<double>(vnitrni), suffix);
    return formatuj(popisek, L"%ls%.0f%ls", prefix, vnejsi, suffix);
}

RozmeryProfilu RozmeryNovehoProfilu(int typPopisu, int sdrIndex, int dnIndex)
{
    const float stena0 = dnIndex < 19 ? 3.0f : 5.0f;
    const RadekDN& radek = kTabulkaDN[dnIndex];
    if (typPopisu == kPopisDN)
        return {radek.dn, stena0};
    const float vnejsi = static_cast<float>(radek.vnejsi);
    if (sdrIndex <= 0 || sdrIndex >= kPocetSDr)
        return {vnejsi - 2.0f * stena0, stena0};
    const float stena = vnejsi / kTabulkaSDr[sdrIndex].hodnota;
    return {vnejsi - 2.0f * stena, stena};
}
