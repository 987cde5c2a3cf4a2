// The HEADER section: the variables the database models are read into it and written from it;
// every other variable is kept as it came, in its place.
#pragma once
#include <optional>
#include <string>
#include <vector>

#include "dbmain.h"
#include "sim/dxf/Codec.h"
#include "sim/dxf/TagReader.h"
#include "sim/dxf/TagWriter.h"

namespace sim::dxf {

/// The variables of a HEADER section as read: the modelled ones with their groups, to be applied
/// once the tables are read.
struct HeaderValues {
    struct Value {
        size_t var; ///< index into the modelled variables
        std::vector<Tag> groups;
    };
    std::vector<Value> values;
    std::optional<AcDbHandle> handseed;
};

/// Reads the variables up to ENDSEC (not taken). The unmodelled ones, and a place holder (9 and the
/// name) for each modelled one, go to extras.
void readHeader(TagReader& reader, sim::db::RawTags& extras, HeaderValues& values);
/// Sets the modelled variables on the database; a value the database refuses (a layer that does
/// not exist, a scale of 0) leaves its own.
void applyHeader(AcDbDatabase& db, const HeaderValues& values, ReadContext& cx);
/// The version ($ACADVER) and code page ($DWGCODEPAGE) at the start of a file, read without the
/// tokenizer so that the text can be decoded first. Empty when the file does not say.
void sniffHeader(std::string_view text, std::string& version, std::string& codePage);

/// The whole HEADER section: $ACADVER AC1032, the kept variables in their order with the modelled
/// ones in their places, then the modelled ones the kept list lacks.
void writeHeader(AcDbDatabase& db, const sim::db::RawTags& extras, TagWriter& w, WriteContext& cx);

} // namespace sim::dxf
