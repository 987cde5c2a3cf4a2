// The pipe catalogue as readable text: one line per profile with its material's values, UTF-8,
// semicolons, one header line, so that a catalogue can be reviewed, diffed and kept in version
// control. The build makes the standard catalogue from such a file; the console converts both ways.
#pragma once
#include <stdexcept>
#include <string>
#include <string_view>

class CTogSezMaterialu;

namespace togu::katalog {

/// A line that can't be taken: its number (from 1) and the reason.
struct ChybaCsv : std::runtime_error {
    ChybaCsv(int radek, const std::string& zprava)
        : std::runtime_error("line " + std::to_string(radek) + ": " + zprava), radek(radek), zprava(zprava)
    {
    }
    int radek;
    std::string zprava;
};

/// The header line's columns, in order.
extern const char* const kSloupce[19];

/// The list as text: a BOM, the header, then every profile of every material in key and DN order;
/// a material without profiles has one line with empty profile columns.
std::string DoCsv(const CTogSezMaterialu& seznam);

/// Fills an empty list from the text. Lines that begin with '#' and empty lines are skipped; the
/// first other line is the header. Throws ChybaCsv; the list may then hold part of the text.
void ZCsv(std::string_view text, CTogSezMaterialu& seznam);

/// The conversions of whole files; "" on success, else what failed. A failed conversion writes
/// nothing; the output is written under a temporary name and renamed into place.
std::string ExportujKatalog(const std::string& tgp, const std::string& csv);
std::string ImportujKatalog(const std::string& csv, const std::string& tgp);

} // namespace togu::katalog
