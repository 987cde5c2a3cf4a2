// Writing one object's record with what was kept of it.
#include "sim/dxf/ObjectWriter.h"

#include <algorithm>
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
    m_anchors.clear();

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

    m_tap.target.write(0, recordName);
    if (!tableName.empty())
        m_tap.target.write(2, tableName);
    m_tap.target.handle(handleCode, m_imp->handle);
    for (Run& r : m_runs)
        if (r.kind == kAppGroups)
            writeRun(r);
    if (!m_imp->reactors.empty()) {
        m_tap.target.write(102, "{ACAD_REACTORS");
        for (const AcDbObjectId& id : m_imp->reactors)
            m_tap.target.handle(330, id.handle());
        m_tap.target.write(102, "}");
    }
    if (!m_imp->extDict.isNull() && !m_imp->extDict.isErased()) {
        m_tap.target.write(102, "{ACAD_XDICTIONARY");
        m_tap.target.handle(360, m_imp->extDict.handle());
        m_tap.target.write(102, "}");
    }
    m_tap.target.handle(330, m_imp->owner.handle());
    openAnchors();
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
        m_tap.target.write(kept[i].code, kept[i].value);
}

size_t ObjectWriter::currentRun() const
{
    int seen = 0;
    for (size_t i = 0; i < m_runs.size(); ++i)
        if (m_runs[i].kind == kSubclassRest && m_runs[i].name == m_current && seen++ == m_occurrence)
            return i;
    return std::string::npos;
}

void ObjectWriter::openAnchors()
{
    m_anchors.clear();
    m_counts.clear();
    size_t i = currentRun();
    if (i == std::string::npos)
        return;
    for (size_t k = i + 1; k < m_runs.size() && m_runs[k].kind == kAnchored; ++k) {
        Anchor a{k, -1, 0};
        std::string_view v = m_runs[k].name;
        size_t space = v.find(' ');
        std::from_chars(v.data(), v.data() + space, a.code);
        std::from_chars(v.data() + space + 1, v.data() + v.size(), a.occurrence);
        if (a.code < 0)
            writeRun(m_runs[k]);
        else
            m_anchors.push_back(a);
    }
}

void ObjectWriter::wrote(int code)
{
    auto c = std::find_if(m_counts.begin(), m_counts.end(), [&](const auto& e) { return e.first == code; });
    if (c == m_counts.end())
        c = m_counts.insert(m_counts.end(), {code, 0});
    int n = c->second++;
    for (const Anchor& a : m_anchors)
        if (a.code == code && a.occurrence == n && !m_runs[a.run].written)
            writeRun(m_runs[a.run]);
}

void ObjectWriter::closeSubclass()
{
    if (!m_open)
        return;
    m_open = false;
    m_anchors.clear();
    size_t i = currentRun();
    if (i == std::string::npos)
        return;
    // Groups whose modelled group before them was not written come first, as they came first.
    size_t k = i + 1;
    for (; k < m_runs.size() && m_runs[k].kind == kAnchored; ++k)
        if (!m_runs[k].written)
            writeRun(m_runs[k]);
    writeRun(m_runs[i]);
    for (; k < m_runs.size() && m_runs[k].kind == kWholeSegment; ++k)
        writeRun(m_runs[k]);
}

void ObjectWriter::subclass(std::string_view name)
{
    closeSubclass();
    m_tap.target.write(100, name);
    m_current = name;
    m_occurrence = 0;
    auto seen = std::find_if(m_seen.begin(), m_seen.end(), [&](const auto& e) { return e.first == name; });
    if (seen != m_seen.end())
        m_occurrence = ++seen->second;
    else
        m_seen.emplace_back(name, 0);
    m_open = true;
    openAnchors();
}

void ObjectWriter::embedded()
{
    closeSubclass();
    m_tap.target.write(101, "Embedded Object");
    m_current = "Embedded Object";
    m_occurrence = 0;
    m_open = true;
    openAnchors();
}

void ObjectWriter::end(const std::vector<std::pair<std::wstring, sim::db::Chain>>* extraXData)
{
    closeSubclass();
    // Whatever the writer did not place: runs of subclasses it no longer writes (their groups in
    // file order), whole segments.
    const sim::db::RawTags& kept = m_imp->preservedTags;
    for (size_t i = 0; i < m_runs.size(); ++i) {
        Run& r = m_runs[i];
        if (r.written || r.kind == kRecordName || r.kind == kFollowers || r.kind == kAppGroups || r.kind == kKeptValue)
            continue;
        if (r.kind == kSubclassRest) {
            size_t k = i + 1;
            bool any = r.begin != r.end;
            for (; k < m_runs.size() && m_runs[k].kind == kAnchored; ++k)
                any = any || m_runs[k].begin != m_runs[k].end;
            if (!r.name.empty() && any)
                m_tap.target.write(100, r.name);
            for (size_t a = i + 1; a < k; ++a)
                writeRun(m_runs[a]);
        }
        writeRun(r);
    }
    for (size_t i = 0; i < kept.size() && kept[i].code >= 0; ++i)
        m_tap.target.write(kept[i].code, kept[i].value);
    if (extraXData)
        writeXData(*extraXData, m_tap.target);
    writeXData(m_imp->xdata, m_tap.target);
    for (Run& r : m_runs)
        if (r.kind == kFollowers)
            writeRun(r);
}

} // namespace sim::dxf
