// The AutoLISP functions applications define, per document: a name and a function number each, and
// the application that answers when the function is called.
#pragma once
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace sim::app {

struct Application;

struct LispDefinition {
    std::wstring name;
    int funcNumber = 0;
    Application* app = nullptr;
};

class LispFunctions {
public:
    using RegisteredFn = int (*)();

    /// Defines or redefines name in the document. False for an empty name or a negative number.
    bool define(void* doc, std::wstring_view name, int funcNumber, Application* app);
    /// Removes the definition; false when the document has no such name with that number.
    bool undefine(void* doc, std::wstring_view name, int funcNumber);
    /// The definition of a name in the document (case ignored), or null.
    const LispDefinition* find(void* doc, std::wstring_view name) const;
    std::vector<LispDefinition> definitions(void* doc) const;

    /// acedRegFunc: the function the host calls itself for the application's number.
    void registerFunction(Application* app, int funcNumber, RegisteredFn fn);
    RegisteredFn registeredFunction(Application* app, int funcNumber) const;

    /// Drops what a closed document or an unloaded application left behind.
    void forgetDocument(void* doc);
    void forgetApplication(Application* app);

private:
    struct Registered {
        Application* app;
        int funcNumber;
        RegisteredFn fn;
    };
    std::map<void*, std::vector<LispDefinition>> m_byDocument;
    std::vector<Registered> m_registered;
};

/// The table the host keeps.
LispFunctions& lispFunctions();

} // namespace sim::app
