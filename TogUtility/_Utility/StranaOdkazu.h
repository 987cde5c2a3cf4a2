// The side a composed multileader's text hangs on: decided by the first arrow point alone.
#pragma once
#include "dbmtext.h"
#include "gepnt3d.h"
#include "gevec3d.h"
#include "mleaderstyle.h"

struct StranaOdkazu {
    AcMLeaderStyle::TextAlignmentType zarovnani;
    AcDbMText::AttachmentPoint pripojeni;
    /// The leader direction whose text attachment is set.
    AcMLeaderStyle::LeaderDirectionType smerOdkazu;
    /// The dogleg's direction, from the leaders towards the text.
    AcGeVector3d smer;
};

/// A text to the right of the first arrow point hangs on its left side, with the dogleg pointing
/// right; a text at the arrow's X or left of it hangs on its right side.
StranaOdkazu UrciStranuOdkazu(const AcGePoint3d& mistoTextu, const AcGePoint3d& prvniSipka);
