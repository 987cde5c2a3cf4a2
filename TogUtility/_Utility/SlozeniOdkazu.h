// Leader composition (cmm): a loose text and an old leader, or a point, become one multileader of the
// drawing standard, the text at its old place with a leader line from each old arrow point.
#pragma once
#include "dbmain.h"
#include "dbobjptr.h"

/// Asks for an old LEADER or MLEADER, or on Enter a point. Fills the arrow points (a leader's first
/// vertex, each line's first vertex of a multileader, or the point) and holds the old leader open for
/// write (nothing for a point). False when the user gave up or refused to lose a multileader's text.
bool VyberOdkazNeboBod(AcGePoint3dArray& sipky, AcDbObjectPointer<AcDbEntity>& staryOdkaz);

/// `cmm`: composes a multileader out of a text and a leader.
void PrikazCmm();
