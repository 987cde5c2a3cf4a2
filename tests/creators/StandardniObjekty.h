// A platform run for the standard objects: a registry whose CommonDataPath is the shipped data folder
// (the line type files), the system loaded with the first-run question answered, and small readers of
// what the drawing then holds.
#pragma once
#include "SourceDir.h"
#include <filesystem>
#include <memory>
#include <string>

#include "StdAfx.h"
#include "system/SystemNaPlatforme.h"
#include "sim/win32/Registry.h"

class StandardniObjekty : public SystemNaPlatforme {
protected:
    void SetUp() override
    {
        const auto* test = ::testing::UnitTest::GetInstance()->current_test_info();
        m_slozka = std::filesystem::temp_directory_path() /
                   (std::string("togu-creators-") + test->test_suite_name() + "-" + test->name());
        std::filesystem::remove_all(m_slozka);
        std::filesystem::create_directories(m_slozka);
        const std::wstring data = sim::fromUtf8(toguSourceDir() + "/data/");
        const std::wstring vyrobce = L"HKEY_LOCAL_MACHINE\\Software\\Togvarnik";
        const std::wstring produkt = vyrobce + L"\\Togovy Utility";
        sim::win32::writeMachineFile(m_slozka, {{produkt, L"InstallPath", data},
                                                {produkt, L"DataPath", data},
                                                {vyrobce, L"CommonInstallPath", data},
                                                {vyrobce, L"CommonDataPath", data}});
        m_registr = sim::win32::Registry::open(m_slozka);
    }

    void TearDown() override
    {
        SystemNaPlatforme::TearDown();
        m_registr.reset();
        std::filesystem::remove_all(m_slozka);
    }

    /// A new drawing and the system loaded; the script's lines answer what comes after the first-run
    /// question.
    void Start(const std::string& skript = "")
    {
        Spust("no\n" + skript);
        Nacti();
    }

    AcDbDatabase* Db() const { return acdbHostApplicationServices()->workingDatabase(); }

    /// Adds a layer of that name and colour, locked or not; gives its id.
    AcDbObjectId PridejHladinu(const wchar_t* nazev, int barva = 7, bool zamcena = false)
    {
        AcDbLayerTable* tabulka = nullptr;
        EXPECT_EQ(Db()->getLayerTable(tabulka, AcDb::kForWrite), Acad::eOk);
        auto* zaznam = new AcDbLayerTableRecord;
        zaznam->setName(nazev);
        AcCmColor c;
        c.setColorIndex(static_cast<Adesk::UInt16>(barva));
        zaznam->setColor(c);
        zaznam->setIsLocked(zamcena);
        zaznam->setLinetypeObjectId(Db()->continuousLinetype());
        AcDbObjectId id;
        EXPECT_EQ(tabulka->add(id, zaznam), Acad::eOk);
        zaznam->close();
        tabulka->close();
        return id;
    }

    /// Opens an object of the class for read; the caller closes it.
    template <class T> T* Otevri(AcDbObjectId id)
    {
        T* objekt = nullptr;
        EXPECT_EQ(acdbOpenObject(objekt, id, AcDb::kForRead), Acad::eOk);
        return objekt;
    }

    struct Hladina {
        std::wstring nazev;
        int barva = 0;
        int tloustka = 0;
        std::wstring typCary;
        std::wstring popis;
        bool tisknout = false;
        bool zamcena = false;
    };

    Hladina CtiHladinu(AcDbObjectId id)
    {
        Hladina h;
        auto* z = Otevri<AcDbLayerTableRecord>(id);
        if (!z)
            return h;
        AcString jmeno;
        z->getName(jmeno);
        h.nazev = jmeno.kwszPtr();
        h.barva = z->color().colorIndex();
        h.tloustka = z->lineWeight();
        h.tisknout = z->isPlottable();
        h.zamcena = z->isLocked();
        ACHAR* popis = z->description();
        h.popis = popis ? popis : L"";
        delete[] popis;
        if (auto* typ = Otevri<AcDbLinetypeTableRecord>(z->linetypeObjectId())) {
            AcString t;
            typ->getName(t);
            h.typCary = t.kwszPtr();
            typ->close();
        }
        z->close();
        return h;
    }

    std::filesystem::path m_slozka;
    std::unique_ptr<sim::win32::Registry> m_registr;
};
