// CTogPredpony: the layer prefix. The user's global prefix, the prefix stored in the current drawing,
// the rule that forms a standard layer's whole name, and the renaming and merging of layers when the
// two differ.
#pragma once
#include <set>
#include <utility>
#include <vector>
#include "AcString.h"
#include "dbid.h"

class CTogPredpony {
public:
    static constexpr const ACHAR* kVychozi = L"TU";
    static constexpr const ACHAR* kNazevHodnoty = L"PREDPONA";
    static constexpr const ACHAR* kSkupinaVykresu = L"TOGVARNIK";

    /// Reads the global prefix ("PREDPONA" under the shared key, then group Nastaveni, else "TU") and
    /// takes the fingerprint of the current drawing.
    CTogPredpony();

    /// The prefix stored in the current drawing; a drawing without one takes the global prefix and
    /// stores it.
    AcString PredponaVykresu();
    /// prefix + "_" + name of a layer given without prefix. May open the prefix dialog.
    AcString NazevSPredponou(const ACHAR* nazev);
    /// Applies the stored choices to the current drawing (renaming and merging layers).
    void ProvedPredponu();
    /// Renames the layers that begin with `stara` to begin with `nova`; merges clashes. Gives the number
    /// of renamed layers.
    int VymenPredponu(const AcString& stara, const AcString& nova);
    /// Moves all entities of each first layer to the second one and erases the first.
    void SloucitHladiny(const std::vector<std::pair<AcDbObjectId, AcDbObjectId>>& pary);
    /// Fills `cizi` with the foreign prefixes of the current drawing: those before the first "_" of a
    /// layer whose rest is a catalogue name, different from both given prefixes.
    void NajdiCiziPredpony(const AcString& predponaVykresu, const AcString& globalni);

    // State: the fields are public, as the settings and prefix dialogs read and write them directly.
    AcString globalni;             // the user's prefix
    AcString vykresu;              // the current drawing's prefix as last read
    AcString otisk;                // fingerprint of the drawing the prefix was last read from or written to
    bool neptatSe = false;         // "Příště se neptat"
    bool pouzitGlobalni = true;    // radio buttons: which prefix counts
    bool nastavitVeVykresu = true; // write the chosen prefix into the drawing prefix
    bool prejmenovatHladiny = true;
    bool sloucitDalsi = false;     // "Sjednotit i další hladiny"
    std::set<AcString> cizi;       // foreign prefixes found by the last search
};

/// The fingerprint GUID of the active drawing; empty without one.
AcString OtiskVykresu();

/// Runs the prefix dialog on the object. With a proposal (from the settings dialog) it runs in settings
/// mode. True on OK, with the global prefix in `vysledek`; false otherwise.
bool DialogPredpony(CTogPredpony& predpony, const ACHAR* navrh, AcString* vysledek = nullptr);
