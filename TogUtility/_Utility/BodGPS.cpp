// Point files: lines, fields and the two forms of a point.
#include "BodGPS.h"

#include <cwchar>
#include <stdexcept>

#include "Wgs84NaJtsk.h"
#include "wincrt.h"

namespace {

/// The conversion ignores the point's own height.
constexpr double kVyskaPrevodu = 200.0;

std::vector<std::wstring> Pole(std::wstring_view radek)
{
    std::vector<std::wstring> pole(1);
    for (wchar_t c : radek) {
        if (c == L';')
            pole.emplace_back();
        else
            pole.back() += c == L',' ? L'.' : c;
    }
    return pole;
}

} // namespace

std::vector<std::wstring> RadkyBodu(std::string_view obsah)
{
    std::vector<std::wstring> radky;
    std::wstring radek;
    for (size_t i = 3; i < obsah.size(); ++i) {
        char c = obsah[i];
        if (c == '\n') {
            radky.push_back(std::move(radek));
            radek.clear();
        } else {
            radek += static_cast<wchar_t>(static_cast<unsigned char>(c));
        }
    }
    return radky;
}

double CisloPole(const std::wstring& pole)
{
    try {
        return std::stod(pole);
    } catch (const std::invalid_argument&) {
        throw std::invalid_argument("invalid stod argument");
    } catch (const std::out_of_range&) {
        throw std::out_of_range("stod argument out of range");
    }
}

BodGPS RozeberRadek(std::wstring_view radek, FormaBodu forma)
{
    std::vector<std::wstring> pole = Pole(radek);
    auto cele = [&](size_t i) { return i < pole.size() ? _wtoi(pole[i].c_str()) : 0; };
    auto realne = [&](size_t i) { return i < pole.size() ? CisloPole(pole[i]) : 0.0; };
    BodGPS bod;
    bod.druh = cele(0);
    wchar_t nazev[32];
    if (forma == kFormaWgs84) {
        bod.cislo = cele(1);
        bod.sirka = realne(2);
        bod.delka = realne(3);
        bod.vyska = realne(4);
        BodJtsk jtsk = Wgs84NaJtsk(bod.sirka, bod.delka, kVyskaPrevodu);
        bod.x = jtsk.x;
        bod.y = jtsk.y;
        static constexpr wchar_t kPismena[] = L"ŠVP";
        wchar_t pismeno = bod.druh >= 0 && bod.druh < 3 ? kPismena[bod.druh] : L'?';
        std::swprintf(nazev, 32, L"%lc%i", static_cast<wint_t>(pismeno), bod.cislo);
    } else {
        bod.x = realne(1);
        bod.y = realne(2);
        bod.vyska = realne(3);
        std::swprintf(nazev, 32, L"%i", bod.druh);
    }
    bod.nazev = nazev;
    return bod;
}
