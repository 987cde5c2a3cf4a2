// The input checks: each pattern must match the whole text.
#include "KontrolyVstupu.h"

#include <regex>
#include <string>

#include "CTogFunkce.h"

namespace {

// Letters outside ASCII: Latin with diacritics, Greek, Cyrillic. The "C" locale of the runtime knows
// none of them, while the user types Czech names.
bool JePismenoMimoAscii(wchar_t c)
{
    return (c >= 0xC0 && c <= 0x24F && c != 0xD7 && c != 0xF7) || (c >= 0x370 && c <= 0x3FF && c != 0x37E) ||
           (c >= 0x400 && c <= 0x4FF);
}

// \w and the letter classes with the letters above.
struct ZnakyPisma : std::regex_traits<wchar_t> {
    bool isctype(wchar_t c, char_class_type f) const
    {
        if (std::regex_traits<wchar_t>::isctype(c, f))
            return true;
        if (!JePismenoMimoAscii(c))
            return false;
        static const wchar_t alpha[] = L"alpha";
        return (f & lookup_classname(alpha, alpha + 5)) != char_class_type();
    }
};

using Vzor = std::basic_regex<wchar_t, ZnakyPisma>;

bool Odpovida(const ACHAR* text, const Vzor& vzor)
{
    if (!text || !*text)
        return false;
    return std::regex_match(text, vzor);
}

} // namespace

bool JePismenoCislice(const ACHAR* text)
{
    static const Vzor vzor(L"(\\w+)");
    return Odpovida(text, vzor);
}

bool JePredpona(const ACHAR* text)
{
    if (!text)
        return false;
    const size_t delka = std::char_traits<wchar_t>::length(text);
    return delka >= 2 && delka <= 3 && JePismenoCislice(text);
}

bool JeEmail(const ACHAR* text)
{
    static const Vzor vzor(L"(\\w+)(\\.|_)?(\\w*)@(\\w+)(\\.(\\w+))+");
    return Odpovida(text, vzor);
}

bool JeNazevSouboru(const ACHAR* text)
{
    if (!text || !*text || text[0] == L' ' || text[0] == L'.')
        return false;
    return std::wstring(text).find_first_of(L"\\/:?\"<>|*") == std::wstring::npos;
}

bool JeCastDesetinneho(const ACHAR* text)
{
    static const Vzor vzor(L"[-+]?[0-9]*(\\.[0-9]*)?");
    return Odpovida(text, vzor);
}

bool JeDesetinne(const ACHAR* text)
{
    static const Vzor vzor(L"^[+-]?([0-9]*[.])?[0-9]+$");
    return Odpovida(text, vzor);
}

bool JeCastCeleho(const ACHAR* text)
{
    static const Vzor vzor(L"[-+]?[0-9]*");
    return Odpovida(text, vzor);
}

bool JeCele(const ACHAR* text)
{
    static const Vzor vzor(L"[-+]?[0-9]+");
    return Odpovida(text, vzor);
}

ACHAR NaVelkePismeno(ACHAR znak) { return CTogFunkce::NaVelkyZnak(znak); }

ACHAR CarkaNaTecku(ACHAR znak) { return znak == L',' ? L'.' : znak; }
