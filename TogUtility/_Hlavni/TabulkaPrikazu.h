// The commands of the system: the group TOGU_utility in the order of registration, the settings group,
// and their registration in the host's command stack.
#pragma once
#include <array>
#include "accmd.h"

inline constexpr const ACHAR* kSkupinaUtilit = L"TOGU_utility";
inline constexpr const ACHAR* kSkupinaNastaveni = L"TOGU_nastaveniUtilit";

struct PolozkaPrikazu {
    const ACHAR* globalniNazev;
    const ACHAR* mistniNazev;
    Adesk::Int32 priznaky; ///< ACRX_CMD_...
    AcRxFunctionPtr funkce;
};

/// The group TOGU_utility in the order of registration.
extern const std::array<PolozkaPrikazu, 30> TabulkaPrikazu;

/// The host's command stack, found in the system registry. Throws CTogException when the registry
/// holds no command stack there.
AcEdCommandStack* ZasobnikPrikazu();

/// Adds a command to the group with no UI context, function code -1 and no resource instance. A
/// refused command throws CTogException with the status.
void PridejPrikaz(AcEdCommandStack* zasobnik, const ACHAR* skupina, const PolozkaPrikazu& prikaz);

/// Adds the whole group TOGU_utility in table order, then registers the double-click filter.
void RegistrujPrikazy();

/// Removes the double-click filter, then the group TOGU_utility.
void OdregistrujPrikazy();
