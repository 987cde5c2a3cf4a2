// The side a composed multileader's text hangs on.
#include "StranaOdkazu.h"

StranaOdkazu UrciStranuOdkazu(const AcGePoint3d& mistoTextu, const AcGePoint3d& prvniSipka)
{
    if (mistoTextu.x > prvniSipka.x)
        return {AcMLeaderStyle::kLeftAlignment, AcDbMText::kMiddleLeft, AcMLeaderStyle::kLeftLeader, AcGeVector3d(1, 0, 0)};
    return {AcMLeaderStyle::kRightAlignment, AcDbMText::kMiddleRight, AcMLeaderStyle::kRightLeader, AcGeVector3d(-1, 0, 0)};
}
