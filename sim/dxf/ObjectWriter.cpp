// Writing one object's record with what was kept of it.
#include "sim/dxf/ObjectWriter.h"

#include <charconv>

#include "sim/db/ImpObject.h"
#include "sim/dxf/Preserved.h"
#include "sim/dxf/XData.h"

namespace sim::dxf {

void ObjectWriter::begin(std::string_view recordName, const AcDbObject& obj, int handleCode, std::string_view tableName)
{
    m_imp = sim::db::impOf(&obj);
    m_runs.clear();
    m_seen.clear();
    m_current = std::string_view();
    m_occurrence = 0;
    m_open = true; // the groups before the first subclass marker

    const sim::db::RawTags& kept = m_imp->preservedTags;
    for (size_t i = 0; i < kept.size();) {
        if (kept[i].code >= 0) { // groups without a run: never written by the reader; keep them last
            ++i;
            continue;
        }
        Run run{kept[i].code, kept[i].value, i + 1, i + 1, false};
        size_t j = i + 1;
        while (j < kept.size() && kept[j].code >= 0)
            ++j;
        run.end = j;
        m_runs.push_back(run);
        i = j;
    }
    for (const Run& r : m_runs)
        if (r.kind == kRecordName)
            recordName = r.name;

    out.write(0, recordName);
    if (!tableName.empty())
        out.write(2, tableName);
    out.handle(handleCode, m_imp->handle);
    for (Run& r : m_runs)
        if (r.kind == kAppGroups)
            writeRun(r);
    if (!m_imp->reactors.empty()) {
        out.write(102, "{ACAD_REACTORS");
        for (const AcDbObjectId& id : m_imp->reactors)
            out.handle(330, id.handle());
        out.write(102, "}");
    }
    if (!m_imp->extDict.isNull() && !m_imp->extDict.isErased()) {
        out.write(102, "{ACAD_XDICTIONARY");
        out.handle(360, m_imp->extDict.handle());
        out.write(102, "}");
    }
    out.handle(330, m_imp->owner.handle());
}

std::optional<std::string_view> ObjectWriter::keptValue(int code) const
{
    const sim::db::RawTags& kept = m_imp->preservedTags;
    for (const Run& r : m_runs)
        if (r.kind == kKeptValue && r.begin < r.end && kept[r.begin].code == code)
            return std::string_view(kept[r.begin].value);
    return std::nullopt;
}

std::int64_t ObjectWriter::keptBits(int code) const
{
    std::optional<std::string_view> v = keptValue(code);
    std::int64_t bits = 0;
    if (v)
        std::from_chars(v->data(), v->data() + v->size(), bits);
    return bits;
}

void ObjectWriter::writeRun(Run& run)
{
    run.written = true;
    const sim::db::RawTags& kept = m_imp->preservedTags;
    for (size_t i = run.begin; i < run.end; ++i)
        out.write(kept[i].code, kept[i].value);
}

void ObjectWriter::closeSubclass()
{
    if (!m_open)
        return;
    m_open = false;
    int seen = 0;
    for (size_t i = 0; i < m_runs.size(); ++i) {
        Run& r = m_runs[i];
        if (r.kind != kSubclassRest || r.name != m_current || seen++ != m_occurrence)
            continue;
        writeRun(r);
        for (size_t k = i + 1; k < m_runs.size() && m_runs[k].kind == kWholeSegment; ++k)
            writeRun(m_runs[k]);
        break;
    }
}

void ObjectWriter::subclass(std::string_view name)
{
    closeSubclass();
    out.write(100, name);
    m_current = name;
    m_occurrence = 0;
    for (auto& [n, count] : m_seen)
        if (n == name) {
            m_occurrence = ++count;
            m_open = true;
            return;
        }
    m_seen.emplace_back(name, 0);
    m_open = true;
}

void ObjectWriter::embedded()
{
    closeSubclass();
    out.write(101, "Embedded Object");
    m_current = "Embedded Object";
    m_occurrence = 0;
    m_open = true;
}

void ObjectWriter::end(const std::vector<std::pair<std::wstring, sim::db::Chain>>* extraXData)
{
    closeSubclass();
    // Whatever the writer did not place: runs of subclasses it no longer writes, whole segments.
    const sim::db::RawTags& kept = m_imp->preservedTags;
    for (Run& r : m_runs) {
        if (r.written || r.kind == kRecordName || r.kind == kFollowers || r.kind == kAppGroups || r.kind == kKeptValue)
            continue;
        if (r.kind == kSubclassRest && !r.name.empty() && r.begin != r.end)
            out.write(100, r.name);
        writeRun(r);
    }
    for (size_t i = 0; i < kept.size() && kept[i].code >= 0; ++i)
        out.write(kept[i].code, kept[i].value);
    if (extraXData)
        writeXData(*extraXData, out);
    writeXData(m_imp->xdata, out);
    for (Run& r : m_runs)
        if (r.kind == kFollowers)
            writeRun(r);
}

} // namespace sim::dxf
