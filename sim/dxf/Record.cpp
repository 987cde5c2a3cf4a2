// Reading one record and splitting it into head, body segments and extended data.
#include "sim/dxf/Record.h"

#include "sim/dxf/DxfError.h"
#include "sim/dxf/TagReader.h"

namespace sim::dxf {

void Record::clear()
{
    type = std::string_view();
    line = 0;
    handle = AcDbHandle();
    hasOwner = false;
    owner = AcDbHandle();
    reactors.clear();
    xdict = AcDbHandle();
    appGroups.clear();
    body.clear();
    segments.clear();
    xdata.clear();
    taken.clear();
    segmentRead.clear();
    keptValues.clear();
}

bool nextIs(TagReader& reader, std::string_view type)
{
    const Tag* t = reader.peek();
    return t && t->code == 0 && t->value == type;
}

namespace {

bool atRecordEnd(TagReader& reader)
{
    const Tag* t = reader.peek();
    return !t || t->code == 0;
}

/// A 102 group of the head: "{NAME", its groups, "}".
void readAppGroup(TagReader& reader, Record& rec, const Tag& open)
{
    std::string_view name = open.value.substr(1);
    bool reactors = name == "ACAD_REACTORS";
    bool xdict = name == "ACAD_XDICTIONARY";
    if (!reactors && !xdict)
        rec.appGroups.push_back(open);
    for (;;) {
        if (atRecordEnd(reader))
            throw DxfError(open.line, "the group \"" + std::string(open.value) + "\" is not closed by 102 }");
        Tag t = reader.take();
        if (t.code == 102) {
            if (!reactors && !xdict)
                rec.appGroups.push_back(t);
            if (t.value == "}")
                return;
            continue;
        }
        if (reactors && t.code == 330)
            rec.reactors.push_back(t.handle());
        else if (xdict && t.code == 360)
            rec.xdict = t.handle();
        else if (!reactors && !xdict)
            rec.appGroups.push_back(t);
    }
}

} // namespace

void readRecord(TagReader& reader, Record& rec)
{
    rec.clear();
    Tag first = reader.take();
    if (first.code != 0)
        throw DxfError(first.line, "a record must begin with group 0, not " + std::to_string(first.code));
    rec.type = first.value;
    rec.line = first.line;

    // The head, in whatever order its parts come.
    while (!atRecordEnd(reader)) {
        const Tag& t = *reader.peek();
        if (t.code == 2 && rec.type == "TABLE" && rec.body.empty()) {
            rec.body.push_back(reader.take()); // a table's name stands before its handle
        } else if (t.code == (rec.type == "DIMSTYLE" ? 105 : 5) && rec.handle.isNull()) {
            rec.handle = t.handle();
            reader.take();
        } else if (t.code == 102 && !t.value.empty() && t.value.front() == '{') {
            Tag open = reader.take();
            readAppGroup(reader, rec, open);
        } else if (t.code == 330 && !rec.hasOwner) {
            rec.owner = t.handle();
            rec.hasOwner = true;
            reader.take();
        } else {
            break;
        }
    }

    // The body up to the extended data; an xrecord's data may hold any group, markers included.
    bool xrecord = rec.type == "XRECORD";
    rec.segments.push_back(Segment{-1, 0, 0});
    while (!atRecordEnd(reader)) {
        if (reader.peek()->code == 1001)
            break;
        Tag t = reader.take();
        int index = static_cast<int>(rec.body.size());
        bool marker = t.code == 100 || t.code == 101;
        if (marker && xrecord && rec.segments.size() > 1)
            marker = false;
        rec.body.push_back(t);
        if (marker) {
            rec.segments.back().end = index;
            rec.segments.push_back(Segment{index, index + 1, index + 1});
        }
    }
    rec.segments.back().end = static_cast<int>(rec.body.size());
    rec.taken.assign(rec.body.size(), 0);
    rec.segmentRead.assign(rec.segments.size(), 0);
    while (!atRecordEnd(reader))
        rec.xdata.push_back(reader.take());
}

} // namespace sim::dxf
