// The AutoLISP functions applications define, and the host calls that define them.
#include "sim/app/LispFunctions.h"

#include <algorithm>

#include "acedlisp.h"
#include "sim/app/CommandStack.h"
#include "sim/app/Documents.h"
#include "sim/app/Loader.h"

namespace sim::app {

LispFunctions& lispFunctions()
{
    static LispFunctions table;
    return table;
}

bool LispFunctions::define(void* doc, std::wstring_view name, int funcNumber, Application* app)
{
    if (name.empty() || funcNumber < 0)
        return false;
    auto& defs = m_byDocument[doc];
    for (auto& d : defs)
        if (sameName(d.name, name)) {
            d = LispDefinition{std::wstring(name), funcNumber, app};
            return true;
        }
    defs.push_back(LispDefinition{std::wstring(name), funcNumber, app});
    return true;
}

bool LispFunctions::undefine(void* doc, std::wstring_view name, int funcNumber)
{
    auto it = m_byDocument.find(doc);
    if (it == m_byDocument.end())
        return false;
    auto& defs = it->second;
    auto d = std::find_if(defs.begin(), defs.end(),
                          [&](const LispDefinition& x) { return sameName(x.name, name) && x.funcNumber == funcNumber; });
    if (d == defs.end())
        return false;
    defs.erase(d);
    return true;
}

const LispDefinition* LispFunctions::find(void* doc, std::wstring_view name) const
{
    auto it = m_byDocument.find(doc);
    if (it == m_byDocument.end())
        return nullptr;
    for (auto& d : it->second)
        if (sameName(d.name, name))
            return &d;
    return nullptr;
}

std::vector<LispDefinition> LispFunctions::definitions(void* doc) const
{
    auto it = m_byDocument.find(doc);
    return it == m_byDocument.end() ? std::vector<LispDefinition>{} : it->second;
}

void LispFunctions::registerFunction(Application* app, int funcNumber, RegisteredFn fn)
{
    std::erase_if(m_registered, [&](const Registered& r) { return r.app == app && r.funcNumber == funcNumber; });
    if (fn)
        m_registered.push_back(Registered{app, funcNumber, fn});
}

LispFunctions::RegisteredFn LispFunctions::registeredFunction(Application* app, int funcNumber) const
{
    for (auto& r : m_registered)
        if (r.app == app && r.funcNumber == funcNumber)
            return r.fn;
    return nullptr;
}

void LispFunctions::forgetDocument(void* doc) { m_byDocument.erase(doc); }

void LispFunctions::forgetApplication(Application* app)
{
    for (auto& [doc, defs] : m_byDocument)
        std::erase_if(defs, [&](const LispDefinition& d) { return d.app == app; });
    std::erase_if(m_registered, [&](const Registered& r) { return r.app == app; });
}

} // namespace sim::app

int acedDefun(const ACHAR* pszName, int nFuncNum)
{
    using namespace sim::app;
    if (!pszName)
        return RTERROR;
    return lispFunctions().define(currentDocument(), pszName, nFuncNum, currentApplication()) ? RTNORM : RTERROR;
}

int acedUndef(const ACHAR* pszName, int nFuncNum)
{
    using namespace sim::app;
    if (!pszName)
        return RTERROR;
    return lispFunctions().undefine(currentDocument(), pszName, nFuncNum) ? RTNORM : RTERROR;
}

int acedRegFunc(int (*fhdl)(), int fcode)
{
    using namespace sim::app;
    if (fcode < 0)
        return RTERROR;
    lispFunctions().registerFunction(currentApplication(), fcode, fhdl);
    return RTNORM;
}
