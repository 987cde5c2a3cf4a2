// The fixed tables of nominal diameters, pressure classes and SDr classes. Materials and profiles
// store row indexes, so the order of the rows is part of the catalogue files.
#pragma once
#include "adesk.h"

struct RadekDN {
    const ACHAR* popis; ///< "DN 15"
    float dn;           ///< nominal diameter
    int vnejsi;         ///< outer diameter in mm that a new profile of a plastic series takes
};

struct RadekPN {
    const ACHAR* popis; ///< "PN 16"; "---" for no class
    int hodnota;        ///< the number of the label, 0 for "---"
};

struct RadekSDr {
    const ACHAR* popis; ///< "SDr 11"
    float hodnota;      ///< the ratio; 0 for "---"
};

constexpr int kPocetDN = 28;
constexpr int kPocetPN = 7;
constexpr int kPocetSDr = 8;

extern const RadekDN kTabulkaDN[kPocetDN];
extern const RadekPN kTabulkaPN[kPocetPN];
extern const RadekSDr kTabulkaSDr[kPocetSDr];

inline bool PlatneDN(int index) { return index >= 0 && index < kPocetDN; }
inline bool PlatnePN(int index) { return index >= 0 && index < kPocetPN; }
inline bool PlatneSDr(int index) { return index >= 0 && index < kPocetSDr; }

/// The row of a DN label ("DN 15"), -1 when no row has it.
int IndexDN(const ACHAR* popis);
/// The row of a PN label, -1 when none.
int IndexPN(const ACHAR* popis);
/// The row of an SDr label, -1 when none.
int IndexSDr(const ACHAR* popis);
