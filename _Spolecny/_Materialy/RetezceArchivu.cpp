// Terminated and fixed strings of the catalogue files.
#include "RetezceArchivu.h"

#include <vector>
#include "CTogException.h"

void ZapisUkoncenyRetezec(CArchive& ar, const ACHAR* text, int n)
{
    for (int i = 0; text && i < n && text[i] != 0; ++i)
        ar << static_cast<WORD>(text[i]);
    ar << static_cast<WORD>(0);
}

void NactiUkoncenyRetezec(CArchive& ar, ACHAR* cil, int n)
{
    for (int i = 0; i <= n; ++i) {
        WORD znak = 0;
        ar >> znak;
        cil[i] = static_cast<ACHAR>(znak);
        if (znak == 0)
            return;
    }
    cil[n] = 0;
    throw CTogException("Načítaný řetězec není ukončen nulou", __LINE__, __FILE__);
}

void NactiPevnyRetezec(CArchive& ar, ACHAR* cil, int n)
{
    for (int i = 0; i <= n; ++i) {
        WORD znak = 0;
        ar >> znak;
        cil[i] = static_cast<ACHAR>(znak);
    }
    cil[n] = 0;
}

void PreskocPevnyRetezec(CArchive& ar, int n)
{
    std::vector<ACHAR> zahodit(static_cast<size_t>(n) + 1);
    NactiPevnyRetezec(ar, zahodit.data(), n);
}

void ChybaVyssiVerze(int radek, const char* soubor)
{
    throw CTogException("Nelze načíst, soubor byl uložen vyšší verzí programu, aktualizujte program", radek,
                        soubor);
}
