// What a known object holds in its drawing file that the database does not model, kept in the
// object's preservedTags so that it is written back where it was. The groups are kept in runs;
// each run begins with a marker group of a negative code (files have none):
//   {-1, name}  the object is written under this record name (a subclass of a modelled kind,
//               e.g. ACDBDICTIONARYWDFLT read as a dictionary); no groups follow
//   {-2, ""}    application groups of the head (102 {NAME ... 102 }), written before the owner
//   {-3, name}  groups of a subclass the object's writer writes ("" for the groups before the
//               first subclass marker) that it does not model; written at the end of the subclass
//   {-4, ""}    a whole subclass or embedded object the writer does not know, its own 100 or 101
//               marker first; written right after the run before it
//   {-5, ""}    records that follow the object's own (a 3D polyline's vertices), written after its
//               extended data
//   {-6, ""}    one group whose value the writer computes, as the file had it where it says more
//               than the database models: bits of a flags group the object does not model (the
//               writer adds them), the colour index beside a true colour, the spelling of a name
//               that differs in case from its record's (the writer uses them while they still fit)
//   {-7, "c n"} groups of the subclass of the {-3} run before it that came in the file right after
//               the n-th (from 0) modelled group of code c in that subclass ("-1 0": right after the
//               subclass marker); the writer puts them back after that group, or at the end of the
//               subclass when it no longer writes it
#pragma once
#include "sim/db/RawTag.h"
#include "sim/dxf/Record.h"

namespace sim::dxf {

enum PreservedMarker { kRecordName = -1, kAppGroups = -2, kSubclassRest = -3, kWholeSegment = -4, kFollowers = -5, kKeptValue = -6,
                      kAnchored = -7 };

/// Appends the runs for what the reader of a record left: its application groups, the groups of
/// the subclasses it read that it did not take, and the subclasses it did not read.
void keepUntaken(const Record& rec, sim::db::RawTags& out);

/// Appends the groups of a record's body from a segment on, markers included (for tag storage).
void appendSegments(const Record& rec, size_t firstSegment, sim::db::RawTags& out);

/// A copy of a group as kept.
inline sim::db::RawTag raw(const Tag& t) { return sim::db::RawTag{t.code, std::string(t.value)}; }

} // namespace sim::dxf
