// Keeping what the readers of known objects leave.
#include "sim/dxf/Preserved.h"

namespace sim::dxf {

void keepUntaken(const Record& rec, sim::db::RawTags& out)
{
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
        size_t runStart = out.size();
        for (int i = seg.begin; i < seg.end; ++i)
            if (!rec.taken[static_cast<size_t>(i)]) {
                if (out.size() == runStart)
                    out.push_back({kSubclassRest, std::string(rec.segmentName(seg))});
                out.push_back(raw(rec.body[static_cast<size_t>(i)]));
            }
        // An unknown subclass after this one is written after this one's end: anchor it.
        bool nextUnknown = s + 1 < rec.segments.size() && !rec.segmentRead[s + 1];
        if (out.size() == runStart && nextUnknown)
            out.push_back({kSubclassRest, std::string(rec.segmentName(seg))});
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
