// Writing groups: the abstract writer that every part of the DXF writer talks to, the text writer
// of files and the recorder that tests compare groups with.
#pragma once
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

#include "dbhandle.h"
#include "gepnt3d.h"
#include "gevec3d.h"
#include "sim/db/RawTag.h"

namespace sim::dxf {

/// The typed writers check that the group code carries a value of their type and throw
/// std::logic_error when it does not.
class TagWriter {
public:
    virtual ~TagWriter() = default;
    /// One group with its value as it goes to the file (UTF-8, no line break in it).
    virtual void write(int code, std::string_view value) = 0;

    /// Wide text in UTF-8; control characters are written as DXF caret escapes (^J for a line break).
    void text(int code, std::wstring_view value);
    /// The shortest text that reads back as the same double.
    void real(int code, double value);
    void integer(int code, std::int64_t value);
    /// Hexadecimal in capitals; "0" for a null handle.
    void handle(int code, AcDbHandle value);
    /// The three groups code, code + 10, code + 20.
    void point(int code, const AcGePoint3d& p);
    void point(int code, const AcGeVector3d& v);
    void point2d(int code, double x, double y);
    void raw(const sim::db::RawTag& tag) { write(tag.code, tag.value); }
    void raw(const sim::db::RawTags& tags)
    {
        for (const auto& t : tags)
            write(t.code, t.value);
    }
};

/// Writes the groups as DXF text (codes right-aligned in three columns, LF line ends). Into a
/// string, or through a buffer into an open file.
class TextTagWriter : public TagWriter {
public:
    /// Collects the whole text in memory (contents()).
    TextTagWriter() = default;
    /// Writes to the file as the buffer fills; the caller closes it after flush().
    explicit TextTagWriter(std::FILE* file) : m_file(file) { m_buffer.reserve(kFlushAt + 4096); }
    ~TextTagWriter() override { flush(); }

    void write(int code, std::string_view value) override;
    /// False when the file refused data.
    bool flush();
    bool failed() const { return m_failed; }
    const std::string& contents() const { return m_buffer; }

private:
    static constexpr size_t kFlushAt = 1 << 20;
    std::FILE* m_file = nullptr;
    std::string m_buffer;
    bool m_failed = false;
};

/// Keeps the groups (tests compare them).
class TagRecorder : public TagWriter {
public:
    void write(int code, std::string_view value) override { tags.push_back({code, std::string(value)}); }
    sim::db::RawTags tags;
};

/// The text of a double as the writer writes it.
std::string formatReal(double value);

} // namespace sim::dxf
