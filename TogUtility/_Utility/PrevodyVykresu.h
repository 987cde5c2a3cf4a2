// The whole-drawing operations of the conversion commands: Czech letters of MText read in the wrong
// code page (kub), Z to 0 (z0), line type scales (ssa, lt1) and erasing texts that contain a text
// (SMAZTEXTY).
#pragma once
#include <cstdint>
#include <string>
#include "CTogCmd.h"

/// Repairs text whose Windows-1250 bytes were read as Latin-1: the 16 letters with caron or ring.
/// Every other character, format codes included, stays. Gives the number of characters replaced.
int OpravHacky(std::wstring& text);

/// kub: repairs the contents of every MText; each MText counts as changed.
class TogUPrevodnikHacku : public CTogCmd::ProjdiDwgFce {
public:
    explicit TogUPrevodnikHacku(AcDbDatabase* db) : ProjdiDwgFce(db) {}
    Adesk::Int32 Zpracuj(AcDbObjectId id) override;
};

/// z0: moves lines, polylines, circles, arcs, texts, MText and block references to Z 0.
class TogUPrevodZNaNulu : public CTogCmd::ProjdiDwgFce {
public:
    explicit TogUPrevodZNaNulu(AcDbDatabase* db) : ProjdiDwgFce(db) {}
    Adesk::Int32 Zpracuj(AcDbObjectId id) override;
};

/// ssa: multiplies the line type scale of every entity; then the ByLayer switches of the settings
/// (colour 64, line type 128, line weight 256).
class TogUZmenMeritkoLT : public CTogCmd::ProjdiDwgFce {
public:
    TogUZmenMeritkoLT(AcDbDatabase* db, double modifikator, std::uint32_t prepinace)
        : ProjdiDwgFce(db), modifikator(modifikator), prepinace(prepinace) {}
    Adesk::Int32 Zpracuj(AcDbObjectId id) override;
    double modifikator;
    std::uint32_t prepinace;
};

/// lt1: sets the line type scale of every entity to 1; then the ByLayer switches as ssa.
class TogUZmenLTScaleNaJedna : public CTogCmd::ProjdiDwgFce {
public:
    TogUZmenLTScaleNaJedna(AcDbDatabase* db, std::uint32_t prepinace) : ProjdiDwgFce(db), prepinace(prepinace) {}
    Adesk::Int32 Zpracuj(AcDbObjectId id) override;
    std::uint32_t prepinace;
};

/// SMAZTEXTY: erases texts, MText and multileaders with MText whose text contains the searched text
/// (case counts). Entities on layers that are off or frozen count as not changed.
class SmazTextObsahujici : public CTogCmd::ProjdiDwgFce {
public:
    SmazTextObsahujici(AcDbDatabase* db, std::wstring hledany) : ProjdiDwgFce(db), hledany(std::move(hledany)) {}
    Adesk::Int32 Zpracuj(AcDbObjectId id) override;
    std::wstring hledany;
};
