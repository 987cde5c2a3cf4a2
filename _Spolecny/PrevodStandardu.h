// Conversion of a drawing of the earlier standard: the tables of old and new names, the line types
// refreshed from the .lin files in place, the layers and the three style kinds renamed or merged, and
// the final merge of the old objects into their survivors.
#pragma once
#include <map>
#include <string_view>
#include <vector>
#include "AcString.h"
#include "CTogCmd.h"
#include "dbid.h"

class AcDbDatabase;

/// Ordered maps from text to text; keys compare as plain characters and are walked in that order.
using MapaNazvu = std::map<AcString, AcString>;
/// The conversion file read: a new line type name and the old names that go to it.
using MapaPrevoduLT = std::map<AcString, std::vector<AcString>>;
/// A line type name and the record that must end up with that name and the file's definition.
using AktualizaceCar = std::map<AcString, AcDbObjectId>;

/// The tables of one conversion run.
struct PrevodniTabulka {
    MapaNazvu textoveStyly;  // old name -> catalogue name
    MapaNazvu mleaderStyly;
    MapaNazvu kotaStyly;
    MapaNazvu linNazvy;      // name of a .lin file without diacritics -> the name upper-cased
    MapaNazvu typyCar;       // old line type name -> new one
};

/// Bits of the mask of PrevedStandardy.
constexpr int kPrevestStyly = 1, kPrevestHladiny = 2, kPrevestTypyCar = 4;

// --- the tables ------------------------------------------------------------------------------------

/// The fixed maps of old text, multileader and dimension style names.
void NaplnMapyStylu(PrevodniTabulka& tabulka);
/// Adds the names of line type definitions ("*NAME,description" lines) of a .lin file's text.
void NactiLinZTextu(MapaNazvu& nazvy, std::wstring_view text);
/// Reads a .lin file (UTF-8) into the names; "Nelze otevřít .lin soubor" when it doesn't open.
void NactiLin(MapaNazvu& nazvy, const ACHAR* cesta);
/// Adds the lines "new;old;old..." of the conversion file's text; a later line of the same new name
/// replaces the earlier one.
void NactiPrevodLTZTextu(MapaPrevoduLT& prevody, std::wstring_view text);
/// Reads TG_prevodLT.tgu of the installation folder, each byte one character.
void NactiPrevodLT(MapaPrevoduLT& prevody);
/// Old name -> new name, new names in key order; an old name keeps the first new name it met.
void NaplnTypyCar(MapaNazvu& typyCar, const MapaPrevoduLT& prevody);
/// All five maps, the files of the installation read anew.
void ZalozPrevodniTabulku(PrevodniTabulka& tabulka);

// --- line types ------------------------------------------------------------------------------------

/// Decides for every line type of the database: renamed to its new name, merged into the record
/// that has it (added to `sloucit`), or refreshed from its file; then AktualizujTypyCar.
void PrevedTypyCar(const PrevodniTabulka& tabulka, CTogCmd::ParyId& sloucit, AcDbDatabase* db);
/// Gives each record of the map the name and the definition of the file, keeping its object id.
/// Gives the number of line types updated.
int AktualizujTypyCar(const AktualizaceCar& aktualizace, AcDbDatabase* db);

// --- the whole conversion --------------------------------------------------------------------------

/// Converts what the mask names (kPrevest... bits) in the working database.
void PrevedStandardy(int maska);
/// Renames layers of old names, or of catalogue names in another spelling, to prefix + catalogue
/// name; merges those whose target exists. `sloucit` gets the merged pairs.
void PrevedHladiny(CTogCmd::ParyId& sloucit);
/// Moves all uses of the first object of each pair to the second, hands over the current objects
/// and erases the first ones.
void DokonciPrevod(const CTogCmd::ParyId& textoveStyly, const CTogCmd::ParyId& kotaStyly,
                   const CTogCmd::ParyId& mleaderStyly, const CTogCmd::ParyId& typyCar);
