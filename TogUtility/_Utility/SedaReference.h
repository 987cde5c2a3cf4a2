// ss: an external reference made a grey background. Its drawing file is rewritten with grey layers
// and line type scales that hold under the host drawing's scale; the reference goes to the layer XRefs.
#pragma once
#include <optional>
#include "acdb.h"
#include "dbid.h"

class AcDbDatabase;
class AcTransaction;

/// The factor of the line type scales of the reference's entities: its X scale × LTSCALE of its
/// drawing, ÷ the annotation scale of that drawing when MSLTSCALE is on there, × the annotation
/// scale of the host. A scale that can't be had (nullopt) counts as none.
double ModifikatorMeritka(double meritkoX, double ltscaleReference, bool msltscaleReference,
                          std::optional<double> anotaceReference, std::optional<double> anotaceVykresu);

/// Every layer of the database that opens for write through the transaction gets colour 8 and the
/// default line weight. Gives the number of layers changed.
int SedeHladiny(AcTransaction* transakce, AcDbDatabase* db);

/// After a reload: the dependent layers of the external reference in the drawing that holds it turn
/// grey (colour 8). eNotApplicable for a record that is no external reference.
Acad::ErrorStatus SedeZavisleHladiny(AcDbObjectId idReference);

/// The command ss.
void SedaReference();
