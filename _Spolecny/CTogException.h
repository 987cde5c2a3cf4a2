// The failure model of the system: CTogException for failures with their place of origin,
// CTogEasyExcept for short messages meant for the user, and the exception box that shows them.
#pragma once
#include <exception>
#include <string>
#include <string_view>
#include <windows.h>
#include "adesk.h"

/// A failure of the system. Its text is narrow UTF-8 and reads on three lines: the message, the
/// source line (with the failed status where there is one) and the source file.
class CTogException : public std::exception {
public:
    /// Text: message + "\nZdroj: Line " + line + ",\n" + file.
    CTogException(std::string_view zprava, int radek, std::string_view soubor);
    /// Text: message + "\nZdroj: " + code + ", Line " + line + ",\n" + file. The code is the status
    /// of the failed call (Windows, host or runtime), written as a signed number.
    CTogException(std::string_view zprava, int radek, std::string_view soubor, int kod);
    CTogException(const CTogException& jina);
    CTogException& operator=(const CTogException& jina);
    ~CTogException() override;

    const char* what() const noexcept override;

private:
    std::string m_text;
};

/// A short message for the user, with no place of origin (a standard layer that can't be opened or
/// stays locked). Not a standard exception: only the edge of a command (OkrajPrikazu.h) stops it.
class CTogEasyExcept {
public:
    explicit CTogEasyExcept(std::wstring zprava) : m_zprava(std::move(zprava)) {}
    virtual ~CTogEasyExcept() = default;
    virtual const ACHAR* what() const { return m_zprava.c_str(); }

private:
    std::wstring m_zprava;
};

/// Shows the exception box: the exception's text under the title "Program vyvolal výjimku", OK and
/// the error icon. Owned by the active window when no owner is given. An empty text shows nothing.
void ZobrazVyjimku(const std::exception& e, HWND vlastnik = nullptr);
