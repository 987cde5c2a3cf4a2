// The exception texts and the exception box.
#include "StdAfx.h"
#include "CTogException.h"
#include "CTogFunkce.h"

CTogException::CTogException(std::string_view zprava, int radek, std::string_view soubor)
{
    m_text.append(zprava).append("\nZdroj: Line ").append(std::to_string(radek)).append(",\n").append(soubor);
}

CTogException::CTogException(std::string_view zprava, int radek, std::string_view soubor, int kod)
{
    m_text.append(zprava)
        .append("\nZdroj: ")
        .append(std::to_string(kod))
        .append(", Line ")
        .append(std::to_string(radek))
        .append(",\n")
        .append(soubor);
}

CTogException::CTogException(const CTogException& jina) : std::exception(jina), m_text(jina.m_text) {}

CTogException& CTogException::operator=(const CTogException& jina)
{
    std::exception::operator=(jina);
    m_text = jina.m_text;
    return *this;
}

CTogException::~CTogException() = default;

const char* CTogException::what() const noexcept { return m_text.c_str(); }

void ZobrazVyjimku(const std::exception& e, HWND vlastnik)
{
    if (vlastnik == nullptr)
        vlastnik = GetActiveWindow();
    const char* text = e.what();
    if (text == nullptr || *text == '\0')
        return;
    std::wstring sirokyText = CTogFunkce::ZUtf8(text);
    MessageBoxW(vlastnik, sirokyText.c_str(), L"Program vyvolal výjimku", MB_OK | MB_ICONERROR);
}
