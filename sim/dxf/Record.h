// One record of a DXF section (from its 0 group up to the next one), split the way the format
// builds every object: the handle, the head (application groups, reactors, extension dictionary,
// owner), the body in segments that begin at each subclass marker, and the extended data.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "dbhandle.h"
#include "sim/dxf/Tag.h"

namespace sim::dxf {

class TagReader;

/// A run of the body: the groups after one subclass marker (100) or embedded-object marker (101)
/// up to the next marker. The first segment holds what comes before any marker; its marker index
/// is -1.
struct Segment {
    int marker = -1; ///< index in Record::body of the marker group, -1 for the first segment
    int begin = 0;   ///< first group of the segment
    int end = 0;     ///< one past the last
};

struct Record {
    std::string_view type; ///< "LINE", "LAYER", ...
    int line = 0;          ///< line of the 0 group
    AcDbHandle handle;     ///< 5 (105 for a dimension style); null when the record has none
    bool hasOwner = false;
    AcDbHandle owner;                 ///< the 330 of the head
    std::vector<AcDbHandle> reactors; ///< {ACAD_REACTORS
    AcDbHandle xdict;                 ///< {ACAD_XDICTIONARY
    std::vector<Tag> appGroups;       ///< other 102 {NAME ... 102 } groups of the head, with their brackets
    std::vector<Tag> body;
    std::vector<Segment> segments; ///< at least one
    std::vector<Tag> xdata;        ///< from the first 1001 on
    /// Per body group: taken by the reader of the object's kind.
    std::vector<std::uint8_t> taken;
    /// Per segment: the reader of the object's kind knows the subclass.
    std::vector<std::uint8_t> segmentRead;
    /// Values of groups the writer computes, as the file had them, where they say more than the
    /// database models (flag bits, a colour index beside a true colour, a name's spelling); kept,
    /// see Preserved.h.
    std::vector<std::pair<int, std::string>> keptValues;

    void clear();
    /// The segment's marker text (the subclass name); empty for the first segment.
    std::string_view segmentName(const Segment& s) const { return s.marker < 0 ? std::string_view() : body[static_cast<size_t>(s.marker)].value; }
    bool hasSubclassMarkers() const { return segments.size() > 1; }
};

/// Reads the record that starts at the reader's next group (a 0 group). Throws DxfError.
void readRecord(TagReader& reader, Record& rec);
/// True when the next group is 0 with this value.
bool nextIs(TagReader& reader, std::string_view type);

} // namespace sim::dxf
