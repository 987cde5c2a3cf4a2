// A platform run for the stores' tests: SystemNaPlatforme with a registry of its own kept in memory,
// so that what one test stores (the settings object stores at every unload) no other test sees.
#pragma once
#include "sim/win32/Registry.h"
#include "system/SystemNaPlatforme.h"

class SystemSRegistrem : public SystemNaPlatforme {
protected:
    /// The empty registry of this test; the Reg* calls reach it while the test runs.
    sim::win32::Registry m_registr;
};
