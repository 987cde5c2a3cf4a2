// CTogEntity: the one place where block references with their attributes and dynamic properties,
// new block definitions and single-line texts are made. Commands fill a description; these turn it
// into database objects with the right defaults, order and failure handling.
#pragma once
#include <map>

#include "AcString.h"
#include "acdb.h"
#include "adesk.h"
#include "dbid.h"
#include "gepnt3d.h"

class AcDbAttribute;
class AcDbBlockReference;
class AcDbBlockTableRecord;
class AcDbDatabase;
class AcDbEntity;
class AcDbText;

/// A value of a dynamic property of a block reference, by its kind.
class CTogDynProp {
public:
    enum : int { kRealne = 1, kKratke = 3, kText = 5 };

    CTogDynProp() = default;
    static CTogDynProp Realne(double hodnota);
    /// A 16-bit property whose values fit in one byte (switches 0/1).
    static CTogDynProp Kratke(Adesk::UInt8 hodnota);
    static CTogDynProp Text(const ACHAR* hodnota);

    int druh = 0;
    double realne = 0.0;
    Adesk::UInt8 kratke = 0;
    AcString text;
};

/// An attribute of a new reference: its text, whether it becomes multi-line, and the modes (-1
/// leaves the definition's).
struct PopisAtributu {
    AcString text;
    bool viceradkovy = false;
    Adesk::Int32 horizontalni = -1;
    Adesk::Int32 vertikalni = -1;
};

/// A block reference to make.
struct PopisBloku {
    AcDbObjectId blok;
    AcDbObjectId hladina;
    AcGePoint3d pozice;
    double rotace = 0.0;            ///< radians
    double meritkoXZ = 1.0;
    double meritkoY = 1.0;
    std::map<AcString, PopisAtributu> atributy;  ///< by tag, compared exactly
    std::map<AcString, CTogDynProp> dynVlastnosti; ///< by upper-case name
};

/// A single-line text to make.
struct PopisTextu {
    AcGePoint3d pozice;
    AcDbObjectId hladina;
    AcDbObjectId styl;
    double rotace = 0.0;
    double sirkovyFaktor = 1.0;
    double vyska = 0.0;
    AcString text;
    AcDb::TextHorzMode horizontalni = AcDb::kTextLeft;
    AcDb::TextVertMode vertikalni = AcDb::kTextBase;
};

/// The name of a new block: the base and the counter whose lower-case hexadecimal form follows it.
struct NazevBloku {
    AcString zaklad;
    Adesk::UInt32 citac = 0;
    /// zaklad + "_" + the counter in hexadecimal.
    AcString Nazev() const;
};

class CTogEntity {
public:
    static constexpr const ACHAR* kKacena = L"tg_kacena";

    /// The level mark block of the working database, brought in from the installation's BLOKY
    /// folder when missing, and marked annotative. The null id when it couldn't be brought in.
    static void NajdiNeboNactiKacenu(AcDbObjectId& idBloku);

    /// Inserts the reference of the description into the space record (open for write), with the
    /// attributes of the definition in its order. `reference` is the reference open for write when
    /// `nechatOtevrene`, else null. Throws CTogException; a failure leaves no reference behind.
    static void VlozBlok(AcDbObjectId& idEntity, AcDbBlockReference*& reference, const PopisBloku& popis,
                         AcDbBlockTableRecord* prostor, bool nechatOtevrene, bool anotativni);

    /// Makes the text in the space record (open for write); `text` is the text open for write unless
    /// `zavrit`, else null.
    static void VytvorText(AcDbObjectId& idEntity, AcDbText*& text, const PopisTextu& popis, AcDbBlockTableRecord* prostor,
                           bool zavrit);

    /// Sets the dynamic properties of the description on the reference (open for write). Properties
    /// that the block lacks are passed over; a block that isn't dynamic throws.
    static void NastavDynVlastnosti(AcDbBlockReference* reference, const PopisBloku& popis);

    /// The attribute of the tag (case ignored), open in the mode asked; false when the reference has
    /// none or it can't be opened so (an attribute on a locked layer opens only for read).
    static bool NajdiAtribut(AcDbBlockReference* reference, AcDbAttribute*& atribut, const ACHAR* tag,
                             AcDb::OpenMode rezim = AcDb::kForWrite);

    /// A new block definition in the working database under the first free name from the counter
    /// on; the record stays open for write and the counter stays where it stopped.
    static void NovyBlok(AcDbObjectId& idBloku, AcDbBlockTableRecord*& zaznam, NazevBloku& nazev);

    /// Colour, line type and line weight ByLayer, sub-entities included; the sum of the statuses.
    static int NastavByLayer(AcDbEntity* entita, AcDbDatabase* db);

private:
    static void PridejAtributy(AcDbBlockReference* reference, const PopisBloku& popis, bool anotativni);
};
