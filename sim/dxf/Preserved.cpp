// Keeping what the readers of known objects leave.
#include "sim/dxf/Preserved.h"

#include <algorithm>
#include <map>

namespace sim::dxf {

namespace {

/// Whether the segment after s is one its kind does not read (written after s's end).
bool nextUnknown(const Record& rec, size_t s) { return s + 1 < rec.segments.size() && !rec.segmentRead[s + 1]; }

/// How many known segments of s's name come before s.
int occurrence(const Record& rec, size_t s)
{
    int n = 0;
    for (size_t k = 1; k < s; ++k)
        n += (rec.segmentRead[k] && rec.segmentName(rec.segments[k]) == rec.segmentName(rec.segments[s])) ? 1 : 0;
    return n;
}

} // namespace

void keepUntaken(const Record& rec, sim::db::RawTags& out)
{
    std::map<std::string, int> runsOf; // runs kept so far per subclass name
    for (const auto& [code, value] : rec.keptValues) {
        out.push_back({kKeptValue, std::string()});
        out.push_back({code, value});
    }
    if (!rec.appGroups.empty()) {
        out.push_back({kAppGroups, std::string()});
        for (const Tag& t : rec.appGroups)
            out.push_back(raw(t));
    }
    for (size_t s = 0; s < rec.segments.size(); ++s) {
        const Segment& seg = rec.segments[s];
        bool known = s == 0 || rec.segmentRead[s];
        if (!known) {
            out.push_back({kWholeSegment, std::string()});
            out.push_back(raw(rec.body[static_cast<size_t>(seg.marker)]));
            for (int i = seg.begin; i < seg.end; ++i)
                out.push_back(raw(rec.body[static_cast<size_t>(i)]));
            continue;
        }
        // Groups with a modelled one after them go back after the modelled one before them; the
        // rest, at the end of the subclass, after whatever the writer writes.
        int lastTaken = seg.begin - 1;
        for (int i = seg.begin; i < seg.end; ++i)
            if (rec.taken[static_cast<size_t>(i)])
                lastTaken = i;
        bool hasKept = nextUnknown(rec, s);
        for (int i = seg.begin; i < seg.end && !hasKept; ++i)
            hasKept = !rec.taken[static_cast<size_t>(i)];
        if (!hasKept)
            continue;
        std::string_view name = rec.segmentName(seg);
        // The writer finds the run of the n-th subclass of a name by counting runs of that name.
        for (int earlier = occurrence(rec, s) - runsOf[std::string(name)]; earlier > 0; --earlier)
            out.push_back({kSubclassRest, std::string(name)});
        ++runsOf[std::string(name)];
        out.push_back({kSubclassRest, std::string(name)});
        for (int i = lastTaken + 1; i < seg.end; ++i)
            out.push_back(raw(rec.body[static_cast<size_t>(i)]));
        std::vector<std::pair<int, int>> counts; // taken groups so far: code, how many
        std::string anchor = "-1 0";
        bool anchorOpen = false;
        for (int i = seg.begin; i < lastTaken; ++i) {
            const Tag& t = rec.body[static_cast<size_t>(i)];
            if (rec.taken[static_cast<size_t>(i)]) {
                auto it = std::find_if(counts.begin(), counts.end(), [&](const auto& c) { return c.first == t.code; });
                if (it == counts.end())
                    it = counts.insert(counts.end(), {t.code, 0});
                anchor = std::to_string(t.code) + " " + std::to_string(it->second++);
                anchorOpen = false;
                continue;
            }
            if (!anchorOpen) {
                out.push_back({kAnchored, anchor});
                anchorOpen = true;
            }
            out.push_back(raw(t));
        }
    }
}

void appendSegments(const Record& rec, size_t firstSegment, sim::db::RawTags& out)
{
    for (size_t s = firstSegment; s < rec.segments.size(); ++s) {
        const Segment& seg = rec.segments[s];
        if (seg.marker >= 0)
            out.push_back(raw(rec.body[static_cast<size_t>(seg.marker)]));
        for (int i = seg.begin; i < seg.end; ++i)
            out.push_back(raw(rec.body[static_cast<size_t>(i)]));
    }
}

} // namespace sim::dxf
