// AcApLayoutManager: the application's layout manager, the object that
// acdbHostApplicationServices()->layoutManager() gives (cast to this class as the SDK's samples do).
#pragma once
#include "dblaymgr.h"

class AcApLayoutManager : public AcDbLayoutManager {
public:
    ACRX_DECLARE_MEMBERS(AcApLayoutManager);
    ~AcApLayoutManager() override = default;
};
