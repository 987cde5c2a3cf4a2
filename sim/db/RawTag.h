// One group of a drawing file as it was read: its group code and its value as written (UTF-8).
#pragma once
#include <string>
#include <vector>

namespace sim::db {

struct RawTag {
    int code = 0;
    std::string value;
    bool operator==(const RawTag&) const = default;
};

typedef std::vector<RawTag> RawTags;

} // namespace sim::db
