// Surveyed points of the semicolon-separated point files: the lines of a file and the parser of a
// line, in the WGS-84 form (kind; number; latitude; longitude; height) or the S-JTSK form (number;
// X; Y; height).
#pragma once
#include <string>
#include <string_view>
#include <vector>

/// One point. Fields a line lacks stay zero.
struct BodGPS {
    double sirka = 0.0;  ///< WGS-84 latitude, degrees (WGS-84 form only)
    double delka = 0.0;  ///< WGS-84 longitude, degrees (WGS-84 form only)
    double x = 0.0;      ///< S-JTSK X, metres (positive to the south)
    double y = 0.0;      ///< S-JTSK Y, metres (positive to the west)
    double vyska = 0.0;  ///< metres, shown in the label
    int druh = 0;        ///< the first field
    int cislo = 0;       ///< the second field (WGS-84 form only)
    std::wstring nazev;  ///< "Š12" in the WGS-84 form (kinds 0, 1, 2: Š, V, P), "12" in the S-JTSK form
};

enum FormaBodu { kFormaWgs84 = 0, kFormaJtsk = 1 };

/// The lines of a point file as it lies on disk: the first 3 bytes go unread (the byte order mark of
/// UTF-8), each byte is one character, and a last line without a line feed doesn't count.
std::vector<std::wstring> RadkyBodu(std::string_view obsah);

/// A real number as the standard string-to-double conversion reads it; text that isn't a number
/// throws std::invalid_argument "invalid stod argument", one out of range std::out_of_range "stod
/// argument out of range".
double CisloPole(const std::wstring& pole);

/// Parses one line: commas become points, fields are separated by semicolons. WGS-84 points get
/// their S-JTSK coordinates from the conversion (at the height of 200 m). Throws as CisloPole.
BodGPS RozeberRadek(std::wstring_view radek, FormaBodu forma);
