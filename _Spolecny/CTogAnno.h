// CTogAnno: annotative objects and the drawing's list of annotation scales.
#pragma once
#include "adesk.h"

class AcDbObject;
class AcDbEntity;
class AcDbDatabase;
class AcDbAnnotationScale;

namespace CTogAnno {

/// Makes an object (open for write) annotative; true on success. Throws for a null object, one not
/// open for write, or one without the annotative protocol.
bool NastavAnnotative(AcDbObject* objekt);
/// Adds the scale to the entity (open for write); true when it was newly added.
bool PridejMeritko(AcDbEntity* entita, const AcDbAnnotationScale* meritko);
/// Adds the database's current annotation scale (CANNOSCALE).
bool PridejAktualniMeritko(AcDbEntity* entita, AcDbDatabase* db);
/// Adds the standard list of scales for the units (6 metres, anything else millimetres) to the working
/// database.
void PridejMeritka(int jednotky);
/// Removes the scales that the host lets go (unused, not current).
void SmazMeritka(AcDbDatabase* db);

} // namespace CTogAnno
