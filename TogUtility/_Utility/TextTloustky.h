// A line weight as the entity information shows it.
#pragma once
#include "AcString.h"
#include "acdb.h"

/// -1 "DLEHLAD", -2 "DLEBLOK", -3 "Výchozí"; a width w in hundredths of a millimetre as w / 100 with
/// one decimal ("0.5" for 50).
AcString TextTloustky(AcDb::LineWeight tloustka);
