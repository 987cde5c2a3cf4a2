// The application's hooks into the host's events.
#include "StdAfx.h"
#include "CTogReactors.h"

bool CTogReactors::FiltrDvojkliku(MSG* /*zprava*/)
{
    // The editing of frames and attributes isn't in this build yet: every message goes to the host.
    return false;
}
