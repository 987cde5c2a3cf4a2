// The texts of a level mark: the level of a point, its absolute height, and the prompt of `kac` with
// its keywords. Pure functions of the settings and the point.
#pragma once
#include <string>

/// What the level of a point depends on.
struct NastaveniVysky {
    int desetinnaMista = 3;
    bool znamenko = true;
    double prepocet = 0.001;       ///< drawing units to level units
    double referencniVyska = 0.0;  ///< in level units
    double zakladY = 0.0;          ///< Y of the base point, in the UCS
    double nulaAbsolutni = 0.0;    ///< metres above sea level at the relative 0
};

/// The level at the UCS height y: "%%p0.000" for a zero with the sign setting, "+1.250" above it,
/// "-1.250" below. The band of zero is open: a value of exactly half the last digit gets no sign.
std::wstring TextVysky(const NastaveniVysky& nastaveni, double y);

/// The absolute height at y, with two decimals whatever the setting.
std::wstring TextAbsolutni(const NastaveniVysky& nastaveni, double y);

/// The state that the prompt of `kac` shows.
struct StavVyzvy {
    bool odkaz = false;
    int vertikalni = 1;   ///< 1 Horní, 2 Spodní
    int horizontalni = 1; ///< 1 Pravá, 2 Levá
    bool zpet = false;
};

/// The prompt and the keyword list: each offers the opposite of the present state.
void SestavVyzvu(const StavVyzvy& stav, std::wstring& vyzva, std::wstring& klicovaSlova);
