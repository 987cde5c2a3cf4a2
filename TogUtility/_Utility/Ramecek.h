// Sheet frame command (ram) and CTogRamecek, the parameters of one frame and the block that draws it:
// the outer frame with its folding marks, the inner frame and the label, generated as a block of its
// own whose definition keeps the parameters for a later edit.
#pragma once
#include <vector>

#include "AcString.h"
#include "RamecekGeometrie.h"
#include "dbid.h"
#include "gepnt3d.h"

class CTgDlgRamecek;

/// The parameters of a frame. At most one instance lives at a time (a double click on a frame while
/// `ram` runs is refused).
class CTogRamecek {
public:
    static constexpr const ACHAR* kNazevBloku = L"TOGU_RAMECEK";
    static constexpr const ACHAR* kTagPopisu = L"POP_RAM";
    static constexpr const ACHAR* kTagParametru = L"PARAM_RAM";

    /// Throws CTogException when an instance lives already.
    CTogRamecek();
    ~CTogRamecek();
    CTogRamecek(const CTogRamecek&) = delete;
    CTogRamecek& operator=(const CTogRamecek&) = delete;

    /// Collects the references of frame blocks in the current space.
    void NajdiReference();
    /// The frame to edit: the only one there is, else picked by the user. False when the user gave up.
    bool VyberExistujici(AcDbObjectId& idBloku, AcDbObjectId& idReference);
    /// Runs the dialog on the frame's parameters; on OK erases the reference, and the definition when
    /// nothing else uses it. 1 when the frame is to be built anew, 0 when the user cancelled (the
    /// drawing unchanged).
    int EditujExistujici(AcDbObjectId idReference, AcDbObjectId idBloku, CTgDlgRamecek& dlg);
    /// Reads the parameter code of the definition; 1 when it was good, else 0 with a printed line.
    int CtiKodParametru(AcDbObjectId idBloku);
    /// Takes the sizes, switches and small values of the dialog; the module follows the width.
    void PrevezmiZDialogu(const CTgDlgRamecek& dlg);
    /// Creates the definition under the next free name and inserts its reference at `vlozeni` on
    /// `hladina`, in the current space. The name goes back in `nazev`.
    void VytvorBlok(AcString& nazev);

    RamecekGeometrie::Parametry p;
    bool netisk = false;
    AcGePoint3d roh;     ///< lower right corner in the block; the block's origin
    AcGePoint3d vlozeni; ///< where the reference goes
    AcDbObjectId hladina;
    double modul = 210.0;
    std::vector<AcDbObjectId> reference;

private:
    static bool s_existuje;
};

/// `ram`: draws a new sheet frame or edits an existing one.
void PrikazRam();
