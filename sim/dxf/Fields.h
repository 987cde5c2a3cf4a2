// Reading the body of a record field by field, subclass by subclass. Each group a reader takes is
// marked; what no reader takes is kept with the object (see Preserved.h) and written back.
#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "gepnt3d.h"
#include "gevec3d.h"
#include "sim/dxf/Record.h"

namespace sim::dxf {

class Fields {
public:
    explicit Fields(Record& rec) : m_rec(rec) { select(0); }

    /// Goes to the n-th segment of a subclass (100 name). A record without subclass markers has
    /// all its fields in its one segment; a subclass the record lacks reads as empty (defaults).
    Fields& sub(std::string_view name, int occurrence = 0);
    /// Goes to the segment of the embedded object (101 "Embedded Object"); false when there is none.
    bool embedded();
    /// The fields before the first subclass marker.
    Fields& head();

    /// The first group of the code in the segment not yet taken; null when none. Does not take it.
    const Tag* find(int code) const;
    /// As find, and takes it.
    const Tag* take(int code);
    bool has(int code) const { return find(code) != nullptr; }

    double real(int code, double def = 0.0);
    std::int64_t integer(int code, std::int64_t def = 0);
    int int32(int code, int def = 0) { return static_cast<int>(integer(code, def)); }
    bool flag(int code, bool def = false) { return integer(code, def ? 1 : 0) != 0; }
    /// The value as written (UTF-8).
    std::string_view str(int code, std::string_view def = std::string_view());
    /// The value as wide text, caret escapes decoded.
    std::wstring text(int code, std::wstring_view def = std::wstring_view());
    AcDbHandle handle(int code);
    /// The groups code, code + 10 and code + 20 (a missing Z reads 0).
    AcGePoint3d point(int code, const AcGePoint3d& def = AcGePoint3d::kOrigin);
    AcGeVector3d vector(int code, const AcGeVector3d& def);

    // Walking the segment in order, for repeated groups (vertices, dashes).
    int begin() const { return m_begin; }
    int end() const { return m_end; }
    const Tag& at(int i) const { return m_rec.body[static_cast<size_t>(i)]; }
    bool isTaken(int i) const { return m_rec.taken[static_cast<size_t>(i)] != 0; }
    void takeAt(int i) { m_rec.taken[static_cast<size_t>(i)] = 1; }

    /// Keeps the bits of a flags group that the object does not model, for its writer.
    void keepBits(int code, std::int64_t bits)
    {
        if (bits)
            m_rec.keptValues.emplace_back(code, std::to_string(bits));
    }
    /// Keeps the value of a group the writer computes, as the file had it.
    void keepValue(int code, std::string_view value) { m_rec.keptValues.emplace_back(code, std::string(value)); }

    Record& record() { return m_rec; }

private:
    void select(size_t segment);
    Record& m_rec;
    int m_begin = 0;
    int m_end = 0;
};

/// UTF-8 to wide text with caret escapes decoded.
std::wstring decodeText(std::string_view utf8);

/// A group's integer as a value of a host enumeration whose values run from first to last; nothing
/// for an integer out of that range, which the enumeration can't hold (casting it is undefined).
template <class E>
std::optional<E> enumValue(std::int64_t v, E first, E last)
{
    if (v < first || v > last)
        return std::nullopt;
    return static_cast<E>(v);
}

} // namespace sim::dxf
