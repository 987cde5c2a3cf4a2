// The string helpers: Czech upper case, folding of diacritics, trimming, checked copy, UTF-8.
#include "StdAfx.h"
#include "CTogFunkce.h"
#include "CTogException.h"
#include <clocale>
#include <cwctype>

namespace {

// The Czech locale of the case conversions, made once when the module is loaded.
const _locale_t g_lokaleCz = _create_locale(LC_CTYPE, "cs-CZ");

// Each letter of the first row folds to the letter at the same place in the second.
constexpr std::wstring_view kSDiakritikou =
    L"ÁÂÄÇÉËÍÎÓÔÖÚÜÝßáâäçéëíîóôöúüýĂăĄąĆćČčĎďĐđĘęĚěĹĺĽľŁłŃńŇňŐőŔŕŘřŚśŞşŠšŢţŤťŮůŰűŹźŻżŽž";
constexpr std::wstring_view kBezDiakritiky =
    L"AAACEEIIOOOUUYsaaaceeiiooouuyAaAaCcCcDdDdEeEeLlLlLlNnNnOoRrRrSsSsSsTtTtUuUuZzZzZz";
static_assert(kSDiakritikou.size() == kBezDiakritiky.size());

bool JeOddelovac(ACHAR znak) { return znak == L'_' || znak == L'-' || znak == L'.' || znak == L' '; }

void PridejZnak(std::wstring& cil, char32_t kod)
{
    if constexpr (sizeof(wchar_t) == 2) {
        if (kod >= 0x10000) {
            kod -= 0x10000;
            cil += static_cast<wchar_t>(0xD800 + (kod >> 10));
            cil += static_cast<wchar_t>(0xDC00 + (kod & 0x3FF));
            return;
        }
    }
    cil += static_cast<wchar_t>(kod);
}

} // namespace

ACHAR* CTogFunkce::NaVelka(ACHAR* text)
{
    if (text == nullptr)
        return nullptr;
    errno_t status = _wcsupr_s_l(text, wcslen(text) + 1, g_lokaleCz);
    if (status != 0)
        throw CTogException("Chyba při úpravě řetězce", __LINE__, __FILE__, status);
    return text;
}

const ACHAR* CTogFunkce::NaVelka(AcString& text)
{
    ACHAR* buffer = text.getBuffer();
    try {
        NaVelka(buffer);
    } catch (const CTogException& e) {
        text.releaseBuffer();
        throw CTogException(e);
    }
    text.releaseBuffer();
    return text.kwszPtr();
}

ACHAR CTogFunkce::NaVelkyZnak(ACHAR znak)
{
    std::wstring puvodni;
    try {
        const wchar_t* nazev = _wsetlocale(LC_CTYPE, nullptr);
        puvodni = nazev ? nazev : L"C";
    } catch (const std::bad_alloc&) {
        throw CTogException("Out of memory", __LINE__, __FILE__);
    }
    _wsetlocale(LC_CTYPE, L"cs-CZ");
    ACHAR velky = static_cast<ACHAR>(towupper(static_cast<wint_t>(znak)));
    _wsetlocale(LC_CTYPE, puvodni.c_str());
    return velky;
}

ACHAR* CTogFunkce::BezDiakritiky(ACHAR* text)
{
    if (text == nullptr)
        return nullptr;
    for (ACHAR* p = text; *p; ++p) {
        size_t misto = kSDiakritikou.find(*p);
        if (misto != std::wstring_view::npos)
            *p = kBezDiakritiky[misto];
    }
    return text;
}

AcString CTogFunkce::OrizniOddelovace(const AcString& text)
{
    int zacatek = 0;
    int konec = static_cast<int>(text.length());
    while (zacatek < konec && JeOddelovac(text.getAt(zacatek)))
        ++zacatek;
    while (konec > zacatek && JeOddelovac(text.getAt(konec - 1)))
        --konec;
    return text.mid(zacatek, konec - zacatek);
}

void CTogFunkce::KopirujRetezec(ACHAR* cil, size_t velikost, const ACHAR* zdroj)
{
    errno_t status = wcscpy_s(cil, velikost, zdroj);
    if (status != 0)
        throw CTogException("Nepodařilo se zkopírovat C type řetězec - chyba: ", __LINE__, __FILE__, status);
}

AcString CTogFunkce::KlicNazvu(const ACHAR* nazev)
{
    AcString klic(nazev);
    BezDiakritiky(klic.getBuffer());
    klic.releaseBuffer();
    NaVelka(klic);
    return klic;
}

std::wstring CTogFunkce::ZUtf8(std::string_view text)
{
    constexpr char32_t kNahrada = 0xFFFD;
    std::wstring vysledek;
    vysledek.reserve(text.size());
    size_t i = 0;
    while (i < text.size()) {
        unsigned char b = static_cast<unsigned char>(text[i]);
        int pokracovani = b < 0x80 ? 0 : (b & 0xE0) == 0xC0 ? 1 : (b & 0xF0) == 0xE0 ? 2 : (b & 0xF8) == 0xF0 ? 3 : -1;
        if (pokracovani < 0 || i + static_cast<size_t>(pokracovani) >= text.size()) {
            PridejZnak(vysledek, kNahrada);
            ++i;
            continue;
        }
        char32_t kod = pokracovani == 0 ? b : b & (0x3F >> pokracovani);
        bool platny = true;
        for (int k = 1; k <= pokracovani; ++k) {
            unsigned char c = static_cast<unsigned char>(text[i + static_cast<size_t>(k)]);
            if ((c & 0xC0) != 0x80) {
                platny = false;
                break;
            }
            kod = (kod << 6) | (c & 0x3F);
        }
        static constexpr char32_t kNejmensi[] = {0, 0x80, 0x800, 0x10000};
        if (!platny || kod < kNejmensi[pokracovani] || kod > 0x10FFFF || (kod >= 0xD800 && kod <= 0xDFFF)) {
            PridejZnak(vysledek, kNahrada);
            ++i;
            continue;
        }
        PridejZnak(vysledek, kod);
        i += static_cast<size_t>(pokracovani) + 1;
    }
    return vysledek;
}

std::string CTogFunkce::DoUtf8(std::wstring_view text)
{
    std::string vysledek;
    vysledek.reserve(text.size());
    for (size_t i = 0; i < text.size(); ++i) {
        char32_t kod = static_cast<char32_t>(text[i]);
        if (kod >= 0xD800 && kod <= 0xDBFF && i + 1 < text.size() && text[i + 1] >= 0xDC00 && text[i + 1] <= 0xDFFF) {
            kod = 0x10000 + ((kod - 0xD800) << 10) + (static_cast<char32_t>(text[i + 1]) - 0xDC00);
            ++i;
        } else if ((kod >= 0xD800 && kod <= 0xDFFF) || kod > 0x10FFFF) {
            kod = 0xFFFD;
        }
        if (kod < 0x80) {
            vysledek += static_cast<char>(kod);
        } else if (kod < 0x800) {
            vysledek += static_cast<char>(0xC0 | (kod >> 6));
            vysledek += static_cast<char>(0x80 | (kod & 0x3F));
        } else if (kod < 0x10000) {
            vysledek += static_cast<char>(0xE0 | (kod >> 12));
            vysledek += static_cast<char>(0x80 | ((kod >> 6) & 0x3F));
            vysledek += static_cast<char>(0x80 | (kod & 0x3F));
        } else {
            vysledek += static_cast<char>(0xF0 | (kod >> 18));
            vysledek += static_cast<char>(0x80 | ((kod >> 12) & 0x3F));
            vysledek += static_cast<char>(0x80 | ((kod >> 6) & 0x3F));
            vysledek += static_cast<char>(0x80 | (kod & 0x3F));
        }
    }
    return vysledek;
}
