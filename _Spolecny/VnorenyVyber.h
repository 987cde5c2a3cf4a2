// Nested picks: the innermost entity under a pick, also inside a block or an external reference,
// and for a polyline the segment under the pick; the picks of a text and of a line or a text.
#pragma once
#include <memory>
#include <vector>
#include "dbobjptr.h"
#include "VyberJedne.h"

/// What a nested pick gave.
struct VnorenaEntita {
    /// The innermost entity, open for read (closed when a segment stands for it).
    AcDbObjectPointer<AcDbEntity> otevrena;
    /// The segment of a polyline under the pick, a new entity in the polyline's coordinates.
    std::unique_ptr<AcDbEntity> segment;
    /// The polyline that the segment comes from.
    AcDbObjectId vlastnikSegmentu;
    /// The top-level entity that was picked when the result lies inside it (a block reference);
    /// null when the result is the top-level entity itself.
    AcDbObjectId kontejner;
    /// The block references around the innermost entity, innermost first.
    std::vector<AcDbObjectId> kontejnery;
    /// From the innermost entity's coordinates to WCS.
    AcGeMatrix3d doSveta;

    /// The result: the segment when there is one, else the open entity (null after a failure).
    AcDbEntity* Entita() { return segment ? segment.get() : otevrena.object(); }
    void Vycisti();
};

/// Follows the nested pick of item 0 of the set to the innermost entity and opens it for read. With
/// sChasti, a polyline (exactly AcDbPolyline) gives its segment under the pick instead, and is
/// closed. Gives 0, 5 when the set holds no pick, or the status of the failed open (printed).
int OtevriVnoreny(const SadaVyberu& sada, VnorenaEntita& vysledek, bool sCastmi);

/// Picks a TEXT, an MTEXT, a multileader or an attribute of a block. Gives 0 with the entity open
/// for read, or 3 when the user cancelled or something failed (nothing open then).
int VyberText(VnorenaEntita& vysledek);

/// Picks a LINE, a TEXT, an MTEXT or a multileader, also inside a block or an xref, or a segment of
/// a lightweight polyline (as a new line or arc, also inside a block). Gives 0 or 3 as VyberText.
int VyberCaruNeboText(VnorenaEntita& vysledek);
