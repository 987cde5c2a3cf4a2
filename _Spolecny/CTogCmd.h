// CTogCmd: the whole-drawing walker and the operations that the commands and the conversions run on
// every entity of chosen block table records.
#pragma once
#include <utility>
#include <vector>
#include "AcString.h"
#include "adesk.h"
#include "acdb.h"
#include "dbid.h"

class AcDbDatabase;
class AcDbObject;
class AcTransaction;

namespace CTogCmd {

/// Bits of the mask of ProjdiDwg: which block table records are visited.
constexpr int kModelSpace = 1;
constexpr int kLayouty = 2;        // layouts other than model space
constexpr int kDefiniceBloku = 4;  // records that aren't layouts
constexpr int kAktivniLayout = 8;  // the active layout, only when walking the working database

using ParyId = std::vector<std::pair<AcDbObjectId, AcDbObjectId>>;

/// The new id of the pair whose old id is `stare`; null when no pair has it or its new id is null.
AcDbObjectId NoveId(const ParyId& pary, AcDbObjectId stare);

/// Base of an operation on every entity of a drawing. Derived classes write Zpracuj only.
class ProjdiDwgFce {
public:
    explicit ProjdiDwgFce(AcDbDatabase* db);
    /// Aborts a transaction that is still open.
    virtual ~ProjdiDwgFce();
    ProjdiDwgFce(const ProjdiDwgFce&) = delete;
    ProjdiDwgFce& operator=(const ProjdiDwgFce&) = delete;

    /// -1: the entity could not be handled; 0 or more: the number of changes.
    virtual Adesk::Int32 Zpracuj(AcDbObjectId id) = 0;

    /// Visits the records the mask selects, `pruchodu` times; with `hlasit` prints the totals.
    /// Gives the number of changes.
    int ProjdiDwg(int maska, bool hlasit, int pruchodu);

    /// Takes a hold on the walker's transaction (starting it when none is open) / releases it; the
    /// transaction ends with the last hold.
    void Drz();
    void Uvolni();

protected:
    /// The object of the id through the walker's transaction; null for a null id or a failed open.
    AcDbObject* Otevri(AcDbObjectId id, AcDb::OpenMode mod);

    AcTransaction* m_pTransakce = nullptr;
    AcDbDatabase* m_pDb = nullptr;
    Adesk::Int32 m_hloubka = 0;
};

/// Moves entities from the first layer of a pair to the second.
class ZmenHladinu : public ProjdiDwgFce {
public:
    ZmenHladinu(AcDbDatabase* db, ParyId pary);
    Adesk::Int32 Zpracuj(AcDbObjectId id) override;
    ParyId pary;
};

/// Replaces text styles, dimension styles, multileader styles and line types by the pairs.
class ZmenTS_DS_MLS : public ProjdiDwgFce {
public:
    explicit ZmenTS_DS_MLS(AcDbDatabase* db);
    Adesk::Int32 Zpracuj(AcDbObjectId id) override;
    ParyId mleaderStyly, textStyly, kotaStyly, typyCar;
};

/// Collects the references of a block, by its id or by its (upper-case) name or part of the name.
class CNajdiBlokRefs : public ProjdiDwgFce {
public:
    CNajdiBlokRefs(AcDbDatabase* db, const ACHAR* nazev, bool castNazvu, AcDbObjectId blok = AcDbObjectId::kNull);
    Adesk::Int32 Zpracuj(AcDbObjectId id) override;
    AcString nazev;
    bool castNazvu;
    AcDbObjectId blok;
    std::vector<AcDbObjectId> nalezene;
};

} // namespace CTogCmd
