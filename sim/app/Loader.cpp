// The dynamic linker: loading and unloading applications through their entry point.
#include "sim/app/Loader.h"

#include <algorithm>

#include "sim/app/CommandStack.h"
#include "sim/app/Documents.h"
#include "sim/app/LispFunctions.h"

// The module handle the application reads at kInitAppMsg (DllMain sets it in a Windows build).
HINSTANCE _hdllInstance = nullptr;

namespace sim::app {

namespace {

Application* g_current = nullptr;

/// Makes a document current for the length of a message and restores the previous one after.
class CurrentDocument {
public:
    explicit CurrentDocument(void* doc) : m_previous(currentDocument()) { activateDocument(doc); }
    ~CurrentDocument()
    {
        if (m_previous)
            activateDocument(m_previous);
    }
    CurrentDocument(const CurrentDocument&) = delete;
    CurrentDocument& operator=(const CurrentDocument&) = delete;

private:
    void* m_previous;
};

} // namespace

Application* currentApplication() { return g_current; }

void* currentApplicationId() { return g_current; }

DynamicLinker& dynamicLinker()
{
    static DynamicLinker linker;
    return linker;
}

Application* DynamicLinker::find(std::wstring_view name) const
{
    for (auto& a : m_apps)
        if (sameName(a->name, name))
            return a.get();
    return nullptr;
}

Application* DynamicLinker::find(void* appId) const
{
    for (auto& a : m_apps)
        if (a.get() == appId)
            return a.get();
    return nullptr;
}

bool DynamicLinker::unlockApplication(void* appId) const
{
    Application* app = find(appId);
    if (app)
        app->locked = false;
    return app != nullptr;
}

bool DynamicLinker::lockApplication(void* appId) const
{
    Application* app = find(appId);
    if (app)
        app->locked = true;
    return app != nullptr;
}

bool DynamicLinker::isApplicationLocked(const ACHAR* name) const
{
    Application* app = name ? find(std::wstring_view(name)) : nullptr;
    return app != nullptr && app->locked;
}

bool DynamicLinker::registerAppMDIAware(void* appId) const
{
    Application* app = find(appId);
    if (app)
        app->mdiAware = true;
    return app != nullptr;
}

bool DynamicLinker::registerAppNotMDIAware(void* appId) const
{
    Application* app = find(appId);
    if (app)
        app->mdiAware = false;
    return app != nullptr;
}

AcRx::AppRetCode DynamicLinker::send(Application& app, AcRx::AppMsgCode msg, void* pkt) const
{
    Application* previous = g_current;
    g_current = &app;
    // One process holds every application here: the module handle is that of the application
    // whose message runs, and stays so for the commands it runs later.
    _hdllInstance = app.module;
    struct Restore {
        Application* previous;
        ~Restore() { g_current = previous; }
    } restore{previous};
    return app.entry(msg, pkt);
}

Application* DynamicLinker::load(std::wstring name, EntryPoint entry, std::wstring* error)
{
    auto fail = [&](std::wstring why) -> Application* {
        if (error)
            *error = std::move(why);
        return nullptr;
    };
    if (!entry || name.empty())
        return fail(L"no application to load");
    if (find(std::wstring_view(name)))
        return fail(L"the application " + name + L" is already loaded");
    auto owned = std::make_unique<Application>();
    Application& app = *owned;
    app.name = std::move(name);
    app.entry = entry;
    // A distinct, stable value per application stands for its module handle.
    app.module = reinterpret_cast<HINSTANCE>(owned.get());
    m_apps.push_back(std::move(owned));
    if (send(app, AcRx::kInitAppMsg, &app) != AcRx::kRetOK) {
        std::wstring why = L"the application " + app.name + L" refused to load";
        m_apps.remove_if([&](const auto& a) { return a.get() == &app; });
        return fail(std::move(why));
    }
    for (void* doc : openDocuments()) {
        CurrentDocument current(doc);
        send(app, AcRx::kLoadDwgMsg, doc);
    }
    return &app;
}

bool DynamicLinker::unload(Application& app, bool force)
{
    if (!find(&app) || (app.locked && !force))
        return false;
    for (void* doc : openDocuments()) {
        CurrentDocument current(doc);
        send(app, AcRx::kUnloadDwgMsg, doc);
    }
    send(app, AcRx::kUnloadAppMsg, &app);
    lispFunctions().forgetApplication(&app);
    m_apps.remove_if([&](const auto& a) { return a.get() == &app; });
    return true;
}

void DynamicLinker::unloadAll()
{
    while (!m_apps.empty())
        unload(*m_apps.back(), true);
}

void DynamicLinker::documentOpened(void* doc) const
{
    CurrentDocument current(doc);
    for (auto& a : m_apps)
        send(*a, AcRx::kLoadDwgMsg, doc);
}

void DynamicLinker::documentClosing(void* doc) const
{
    CurrentDocument current(doc);
    for (auto& a : m_apps)
        send(*a, AcRx::kUnloadDwgMsg, doc);
    lispFunctions().forgetDocument(doc);
}

} // namespace sim::app
