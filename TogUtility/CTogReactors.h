// CTogReactors: the application's hooks into the host's events; here the filter of window messages
// that turns a double click on a sheet frame or an attribute into its editing.
#pragma once
#include <windows.h>

class CTogReactors {
public:
    /// The double-click filter registered with acedRegisterFilterWinMsg. True when the message is used
    /// up; false lets the host handle it.
    static bool FiltrDvojkliku(MSG* zprava);
};
