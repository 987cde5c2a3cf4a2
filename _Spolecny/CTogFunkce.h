// CTogFunkce: the string helpers that every part of the system uses. Names are compared by their key
// (KlicNazvu): diacritics folded, then upper case, so lookups ignore both.
#pragma once
#include <cstddef>
#include <string>
#include <string_view>
#include "AcString.h"
#include "adesk.h"

class CTogFunkce {
public:
    /// Upper-cases the zero-terminated text in place under the Czech locale; gives the buffer.
    /// A failure of the runtime throws "Chyba při úpravě řetězce" with its status.
    static ACHAR* NaVelka(ACHAR* text);
    /// The same on the string's own buffer; gives that buffer.
    static const ACHAR* NaVelka(AcString& text);
    /// One character in upper case under the Czech locale. Switches the process's character-type
    /// locale for the length of the call.
    static ACHAR NaVelkyZnak(ACHAR znak);
    /// Folds Czech and other Central European letters with diacritics to plain letters, in place
    /// (ß to one s). Letters outside the fold table stay. Null gives null.
    static ACHAR* BezDiakritiky(ACHAR* text);
    /// The text without its leading and trailing separators: '_', '-', '.' and blank.
    static AcString OrizniOddelovace(const AcString& text);
    /// Checked copy of a zero-terminated text into a buffer of `velikost` characters. A source that
    /// doesn't fit throws "Nepodařilo se zkopírovat C type řetězec - chyba: " with the status.
    static void KopirujRetezec(ACHAR* cil, size_t velikost, const ACHAR* zdroj);
    /// The key under which names are looked up: BezDiakritiky, then NaVelka.
    static AcString KlicNazvu(const ACHAR* nazev);

    /// UTF-8 (the exception texts) to wide text; a byte that isn't UTF-8 gives U+FFFD.
    static std::wstring ZUtf8(std::string_view text);
    /// Wide text to UTF-8.
    static std::string DoUtf8(std::wstring_view text);
};
