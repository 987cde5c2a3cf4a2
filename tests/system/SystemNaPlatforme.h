// A platform run for the system's tests: a session on a script, a fresh editor, one new drawing open,
// and the system loaded into the platform through its entry point as the host loads it.
#pragma once
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>

#include "rxregsvc.h"
#include "sim/app/Documents.h"
#include "sim/app/Loader.h"
#include "sim/core/Session.h"
#include "sim/db/Documents.h"
#include "sim/editor/EditorState.h"

class SystemNaPlatforme : public ::testing::Test {
protected:
    /// Starts the session on the script's lines (UTF-8) with a new drawing open, the system not loaded.
    void Spust(std::string_view skript = "")
    {
        m_session = std::make_unique<sim::Session>(std::make_unique<sim::ScriptInput>(skript));
        sim::editor::resetEditor();
        m_vykres = sim::db::openDocument();
    }

    /// Loads the system as the host does; fails the test when the platform refuses it.
    sim::app::Application* Nacti()
    {
        std::wstring chyba;
        m_aplikace = sim::app::dynamicLinker().load(L"TogUtility", acrxEntryPoint, &chyba);
        EXPECT_NE(m_aplikace, nullptr) << sim::toUtf8(chyba);
        return m_aplikace;
    }

    void TearDown() override
    {
        sim::app::dynamicLinker().unloadAll();
        sim::db::closeAllDocuments();
        m_session.reset();
    }

    const std::wstring& Zaznam() const { return m_session->transcript(); }

    std::unique_ptr<sim::Session> m_session;
    AcApDocument* m_vykres = nullptr;
    sim::app::Application* m_aplikace = nullptr;
};
