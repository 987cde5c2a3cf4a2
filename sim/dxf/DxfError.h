// The one failure of reading a drawing file: what is wrong and on which line of the file.
#pragma once
#include <stdexcept>
#include <string>

namespace sim::dxf {

class DxfError : public std::runtime_error {
public:
    /// line is 1-based; 0 when the failure has no line (the file as a whole).
    DxfError(int line, const std::string& what)
        : std::runtime_error(line > 0 ? "line " + std::to_string(line) + ": " + what : what), m_line(line)
    {
    }
    int line() const { return m_line; }

private:
    int m_line;
};

} // namespace sim::dxf
