// Reading and changing the kept groups of a subclass in place.
#include "sim/db/KeptGroups.h"

#include <charconv>
#include <cstdio>

#include "dbapserv.h"
#include "sim/db/ImpObject.h"

namespace sim::db {

KeptGroups::KeptGroups(const AcDbObject* obj, std::string_view subclass) : m_obj(obj)
{
    RawTags& t = tags();
    for (size_t i = 0; i < t.size(); ++i)
        if (t[i].code == kSubclassRun && t[i].value == subclass) {
            m_begin = i + 1;
            return;
        }
    t.push_back({kSubclassRun, std::string(subclass)});
    m_begin = t.size();
}

RawTags& KeptGroups::tags() const { return AcDbImpObject::of(m_obj)->preservedTags.ensure(); }

size_t KeptGroups::end() const
{
    const RawTags& t = tags();
    size_t i = m_begin;
    while (i < t.size() && t[i].code >= 0)
        ++i;
    return i;
}

void KeptGroups::assign(const RawTags& groups)
{
    RawTags& t = tags();
    size_t e = end();
    t.erase(t.begin() + static_cast<long>(m_begin), t.begin() + static_cast<long>(e));
    t.insert(t.begin() + static_cast<long>(m_begin), groups.begin(), groups.end());
}

size_t KeptGroups::find(int code, size_t from, size_t to) const
{
    const RawTags& t = tags();
    size_t stop = to ? to : end();
    for (size_t i = from ? from : m_begin; i < stop; ++i)
        if (t[i].code == code)
            return i;
    return npos;
}

std::optional<double> KeptGroups::real(size_t at) const
{
    if (at == npos)
        return std::nullopt;
    try {
        return std::stod(tags()[at].value);
    } catch (...) {
        return std::nullopt;
    }
}

std::optional<long long> KeptGroups::integer(size_t at) const
{
    if (at == npos)
        return std::nullopt;
    const std::string& v = tags()[at].value;
    size_t b = v.find_first_not_of(' ');
    long long n = 0;
    if (b == std::string::npos || std::from_chars(v.data() + b, v.data() + v.size(), n).ec != std::errc())
        return std::nullopt;
    return n;
}

AcDbObjectId KeptGroups::id(size_t at) const
{
    if (at == npos)
        return AcDbObjectId::kNull;
    const std::string& v = tags()[at].value;
    unsigned long long h = 0;
    if (std::from_chars(v.data(), v.data() + v.size(), h, 16).ec != std::errc() || h == 0)
        return AcDbObjectId::kNull;
    AcDbDatabase* db = m_obj->databaseToUse();
    return db ? AcDbObjectId(db, AcDbHandle(h)) : AcDbObjectId::kNull;
}

void KeptGroups::set(size_t at, int code, std::string value, size_t before)
{
    RawTags& t = tags();
    if (at != npos) {
        t[at].value = std::move(value);
        return;
    }
    size_t pos = before == npos ? end() : before;
    t.insert(t.begin() + static_cast<long>(pos), RawTag{code, std::move(value)});
}

std::string KeptGroups::realText(double v)
{
    char buf[64];
    auto r = std::to_chars(buf, buf + sizeof buf, v);
    std::string s(buf, r.ptr);
    if (s.find_first_of(".eEn") == std::string::npos)
        s += ".0";
    return s;
}

std::string KeptGroups::handleText(AcDbObjectId id)
{
    char buf[32];
    std::snprintf(buf, sizeof buf, "%llX", static_cast<unsigned long long>(id.handle().value()));
    return buf;
}

} // namespace sim::db
