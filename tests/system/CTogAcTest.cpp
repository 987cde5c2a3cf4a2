// Reading integer system variables.
#include "CTogAc.h"
#include "CTogException.h"
#include "SystemNaPlatforme.h"

using NactiPromennou = SystemNaPlatforme;

TEST_F(NactiPromennou, ReadsShortVariablesAndRefusesOthers)
{
    Spust();
    EXPECT_EQ(CTogAc::NactiPromennou(L"INSUNITS"), 4);
    EXPECT_EQ(CTogAc::NactiPromennou(L"insunitsdefsource"), 4);
    try {
        CTogAc::NactiPromennou(L"NENIPROMENNA");
        FAIL() << "an unknown variable can't be read";
    } catch (const CTogException& e) {
        EXPECT_EQ(std::string(e.what()).rfind("Neznámá chyba při čtení systémové proměné\n", 0), 0u);
    }
    // A real and a text variable: the text value is freed on the way (the sanitizer build checks it).
    for (const wchar_t* nazev : {L"LTSCALE", L"CLAYER"}) {
        try {
            CTogAc::NactiPromennou(nazev);
            FAIL() << "not an integer variable";
        } catch (const CTogException& e) {
            EXPECT_EQ(std::string(e.what()).rfind("Neočekávaný typ při čtení systémové proměné\n", 0), 0u);
        }
    }
}
