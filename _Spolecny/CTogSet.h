// CTogSet: the drawing standard. The catalogue of standard layers, text styles, multileader styles and
// dimension styles, kept under the key of their catalogue names, and the lookups in it.
#pragma once
#include <map>
#include <set>
#include <utility>
#include <vector>
#include "AcString.h"
#include "acdb.h"
#include "adesk.h"
#include "dbcolor.h"
#include "dbid.h"

// ---------------------------------------------------------------------------------------------------
// The catalogue
// ---------------------------------------------------------------------------------------------------

/// Groups of standard layers, bits of `StdHladina::skupina` and of the mask of `SeznamStdHladin`.
constexpr int kSkupinaPotrubi = 1;     // pipe layers
constexpr int kSkupinaOstatni = 2;     // all other catalogue layers
constexpr int kSkupinaUzivatelska = 4; // a layer outside the catalogue, made at the user's request
constexpr int kSkupinaVse = 31;

/// The line type name that stands for the drawing's continuous line type.
inline constexpr const ACHAR* kSouvislaCara = L"*CONT*";

/// A standard layer. The name is the catalogue name, without the layer prefix.
struct StdHladina {
    AcString nazev;
    AcCmColor barva;                 // set by colour index
    AcDb::LineWeight tloustka;       // hundredths of a millimetre; kLnWtByLwDefault is the default weight
    AcString typCary;                // a line type name or kSouvislaCara
    AcString staryNazev;             // the name in the earlier layer standard; empty when it had none
    bool tisknout;
    int skupina;                     // kSkupina... bits
    /// Pairs (old layer, layer it goes into). Empty in the catalogue; a conversion fills its own copy.
    std::vector<std::pair<AcDbObjectId, AcDbObjectId>> sloucene;
};

struct StdTextStyl {
    AcString nazev;
    AcString souborFontu;            // "ArialN.ttf"
    AcString pismo;                  // typeface, "Arial Narrow"
    double vyska;                    // 0.0 is the variable height
    double sirkovyFaktor;
    Adesk::Int32 roztec;             // pitch of the font
    Adesk::Int32 rodina;             // family of the font
    bool tucne;
    bool kurziva;
};

struct StdMLeaderStyl {
    AcString nazev;
    AcString textStyl;               // catalogue name of the text style
    double vyskaTextu;
    double velikostSipky;
    Adesk::Int32 druhSipky;          // 0 the default closed arrowhead, 1 the block "_DOT"
};

struct StdKotaStyl {
    AcString nazev;
    AcString textStyl;               // catalogue name of the text style
    AcString sipka;                  // arrow block name
    AcString dimpost;                // text suffix
    Adesk::Int32 dimatfit;
    Adesk::Int32 dimtad;
    Adesk::Int32 dimtmove;
    Adesk::Int32 dimjust;
    Adesk::Int32 dimzin;
    Adesk::Int32 dimdec;
    double dimlfac;
    double dimrnd;
    double dimtvp;
    bool dimsd1;
    bool dimsd2;
    bool dimse;                      // DIMSE1 and DIMSE2 alike
    bool dimupt;
};

/// The tables map `KlicKatalogu` of a name to its record; walking a table walks in key order.
using MapaStdHladin = std::map<AcString, StdHladina>;
using MapaStdTextStylu = std::map<AcString, StdTextStyl>;
using MapaStdMLeaderStylu = std::map<AcString, StdMLeaderStyl>;
using MapaStdKotaStylu = std::map<AcString, StdKotaStyl>;

/// The key of a name in the catalogue: diacritics folded (BezDiakritiky), then upper case (NaVelka),
/// so that lookups ignore both. A failure of the runtime's case conversion throws CTogException.
AcString KlicKatalogu(const ACHAR* nazev);

/// The four tables, built on first use and never changed afterwards.
const MapaStdHladin& StdHladiny();
const MapaStdTextStylu& StdTextStyly();
const MapaStdMLeaderStylu& StdMLeaderStyly();
const MapaStdKotaStylu& StdKotaStyly();

/// The record of a catalogue name in any case, with or without diacritics; null when the name isn't
/// in the table. A layer name is given without its prefix.
const StdHladina* NajdiStdHladinu(const ACHAR* nazev);
const StdTextStyl* NajdiStdTextStyl(const ACHAR* nazev);
const StdMLeaderStyl* NajdiStdMLeaderStyl(const ACHAR* nazev);
const StdKotaStyl* NajdiStdKotaStyl(const ACHAR* nazev);

/// Adds the catalogue name (stored spelling) of every layer whose group shares a bit with the mask to
/// the set, and gives the number of names the set then holds, those it held before included.
int SeznamStdHladin(int maska, std::set<AcString>& seznam);

// ---------------------------------------------------------------------------------------------------
// Standard objects in the working database: found, or created from the catalogue
// ---------------------------------------------------------------------------------------------------

class AcDbDatabase;
class AcDbLayerTableRecord;
class AcDbTextStyleTableRecord;
class AcDbDimStyleTableRecord;
class AcDbMLeaderStyle;

/// Buttons of ZeptejSe: a bit of the mask is also the button's id.
constexpr int kTlacitkoOk = 1, kTlacitkoAno = 2, kTlacitkoNe = 4, kTlacitkoZrusit = 8, kTlacitkoAnoVsem = 16,
              kTlacitkoNeVsem = 32;
/// Added to the answer: an answer for all (64), the tick "Již více nezobrazovat" set (128).
constexpr int kOdpovedVsem = 64, kOdpovedZaskrtnuto = 128;

// Lookups by the whole name, case ignored; the null id when missing. A table that can't be opened
// throws "Nelze otevřít table for reading".
AcDbObjectId IdHladiny(const ACHAR* nazev);
AcDbObjectId IdTypuCary(const ACHAR* nazev);
AcDbObjectId IdTextStylu(const ACHAR* nazev);
AcDbObjectId IdKotaStylu(const ACHAR* nazev);
AcDbObjectId IdMLeaderStylu(const ACHAR* nazev);

/// A layer name without its prefix: everything up to and including a "_" at the positions 0 to 3 goes;
/// a "_" further on belongs to the name itself.
AcString BezPredpony(const AcString& nazev);
/// The standard layer: `nazev` in, the whole layer name out. With `sPredponou` the name carries its
/// prefix already. Creates the layer from the catalogue when missing; unlocks a locked one after asking
/// (a refusal throws CTogEasyExcept "Hladina je zamčená"). The null id when the layer neither exists
/// nor is in the catalogue.
AcDbObjectId ZiskejHladinu(AcString& nazev, bool sPredponou);
/// Creates a layer of the record's values under the whole name.
AcDbObjectId ZalozHladinu(const StdHladina& hladina, const ACHAR* celyNazev);
/// A layer outside the catalogue with the caller's values (group 4); an existing one is returned as it is.
AcDbObjectId ZalozUzivHladinu(AcString& nazev, int barva, const ACHAR* typCary, AcDb::LineWeight tloustka,
                              bool tisknout);
/// The text style of the drawing, else created from the catalogue; the null id when it is in neither.
AcDbObjectId ZiskejTextStyl(const ACHAR* nazev);
/// The multileader style of the drawing, else created from the catalogue; the null id when it is in neither.
AcDbObjectId ZiskejMLeaderStyl(const ACHAR* nazev);
AcDbObjectId ZalozTextStyl(const StdTextStyl& styl);
AcDbObjectId ZalozKotaStyl(const StdKotaStyl& styl);
AcDbObjectId ZalozMLeaderStyl(const StdMLeaderStyl& styl);

// Setters on a record opened for write: the sum of the statuses of their calls, 0 when all went well.
int NastavTextStyl(const StdTextStyl& styl, AcDbTextStyleTableRecord* zaznam);
int NastavKotaStyl(const StdKotaStyl& styl, AcDbDimStyleTableRecord* zaznam);
int NastavMLeaderStyl(const StdMLeaderStyl& styl, AcDbMLeaderStyle* zaznam);
int NastavHladinu(const StdHladina& hladina, AcDbLayerTableRecord* zaznam);
/// The description "TOGU_" + group digit + "_" + name without prefix.
int NastavPopisHladiny(const StdHladina& hladina, AcDbLayerTableRecord* zaznam);

/// Loads a line type from TG_IS.lin (names beginning "_") or TG_zakladni_cary.lin.
void NactiTypCary(const ACHAR* nazev, AcDbDatabase* db);
/// Makes sure the drawing knows the shape file TG_IS.shx of the folder; the id of the record found.
AcDbObjectId ZajistiStylShx(const ACHAR* adresar, AcDbDatabase* db);

/// The task dialog with the buttons of the mask; gives the pressed button's id (+64 for the answers
/// for all, +128 with the tick set), 0 when the dialog got no answer.
int ZeptejSe(const ACHAR* hlavni, const ACHAR* obsah, int tlacitka, bool zaskrtavatko, const ACHAR* ikona,
             const ACHAR* rozsireny);
