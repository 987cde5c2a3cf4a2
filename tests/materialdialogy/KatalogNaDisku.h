// A platform run with the system loaded, its own registry and installation folders on disk, and a user
// catalogue made for the test.
#pragma once
#include <unistd.h>

#include <filesystem>
#include <initializer_list>
#include <string>

#include "CTogBaseNastav.h"
#include "CTogRegistry.h"
#include "CTogSezMaterialu.h"
#include "stores/SystemSRegistrem.h"

struct MaterialTestu {
    const wchar_t* nazev;
    int skupina;
};

class KatalogNaDisku : public SystemSRegistrem {
protected:
    void SetUp() override
    {
        namespace fs = std::filesystem;
        m_koren = fs::temp_directory_path() / ("togu-matdlg-" + std::to_string(::getpid()));
        fs::remove_all(m_koren);
        fs::create_directories(m_koren / "inst" / "Materialy");
        fs::create_directories(m_koren / "data");
    }
    void TearDown() override
    {
        SystemSRegistrem::TearDown();
        std::filesystem::remove_all(m_koren);
    }
    /// Starts the run on the script with the system loaded (past its first run) and the user's catalogue
    /// holding the materials, each with the profiles DN 15 to DN 25.
    void Spust(std::string_view skript, std::initializer_list<MaterialTestu> materialy)
    {
        SystemSRegistrem::Spust(skript);
        CTogRegistry::UlozRetezec(CTogRegistry::kKlicVyrobce, L"CommonInstallPath",
                                  sim::fromUtf8((m_koren / "inst").string()).c_str());
        CTogRegistry::UlozRetezec(CTogRegistry::kKlicVyrobce, L"CommonDataPath",
                                  sim::fromUtf8((m_koren / "data").string()).c_str());
        CTogRegistry::UlozNastaveno(1);
        {
            CTogSezMaterialu seznam;
            for (const MaterialTestu& m : materialy) {
                CTogMaterial* material = seznam.Vloz(std::make_unique<CTogMaterial>(&seznam, m.nazev, m.skupina));
                material->PnIndex = 3;
                material->SdrIndex = 4;
                material->GenerujRadu(3, 5);
            }
            seznam.Uloz();
        }
        Nacti();
    }
    std::string Text() const { return sim::toUtf8(Zaznam()); }
    std::filesystem::path Uzivatel() const { return m_koren / "data" / "Materialy" / "Potrubi_2026.tgp"; }

    std::filesystem::path m_koren;
};
