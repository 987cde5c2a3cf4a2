// Reading the body of a record field by field.
#include "sim/dxf/Fields.h"

#include "sim/core/Session.h"
#include "sim/dxf/TextCodec.h"

namespace sim::dxf {

std::wstring decodeText(std::string_view utf8)
{
    if (utf8.find('^') == std::string_view::npos)
        return sim::fromUtf8(utf8);
    return sim::fromUtf8(decodeCarets(utf8));
}

void Fields::select(size_t segment)
{
    const Segment& s = m_rec.segments[segment];
    m_begin = s.begin;
    m_end = s.end;
    m_rec.segmentRead[segment] = 1;
}

Fields& Fields::sub(std::string_view name, int occurrence)
{
    if (!m_rec.hasSubclassMarkers()) {
        select(0);
        return *this;
    }
    for (size_t i = 1; i < m_rec.segments.size(); ++i) {
        const Segment& s = m_rec.segments[i];
        if (m_rec.body[static_cast<size_t>(s.marker)].code == 100 && m_rec.segmentName(s) == name && occurrence-- == 0) {
            select(i);
            return *this;
        }
    }
    m_begin = m_end = 0;
    return *this;
}

bool Fields::embedded()
{
    for (size_t i = 1; i < m_rec.segments.size(); ++i)
        if (m_rec.body[static_cast<size_t>(m_rec.segments[i].marker)].code == 101) {
            select(i);
            return true;
        }
    m_begin = m_end = 0;
    return false;
}

Fields& Fields::head()
{
    select(0);
    return *this;
}

const Tag* Fields::find(int code) const
{
    for (int i = m_begin; i < m_end; ++i)
        if (m_rec.body[static_cast<size_t>(i)].code == code && !m_rec.taken[static_cast<size_t>(i)])
            return &m_rec.body[static_cast<size_t>(i)];
    return nullptr;
}

const Tag* Fields::take(int code)
{
    for (int i = m_begin; i < m_end; ++i)
        if (m_rec.body[static_cast<size_t>(i)].code == code && !m_rec.taken[static_cast<size_t>(i)]) {
            m_rec.taken[static_cast<size_t>(i)] = 1;
            return &m_rec.body[static_cast<size_t>(i)];
        }
    return nullptr;
}

double Fields::real(int code, double def)
{
    const Tag* t = take(code);
    return t ? t->real : def;
}

std::int64_t Fields::integer(int code, std::int64_t def)
{
    const Tag* t = take(code);
    return t ? t->integer : def;
}

std::string_view Fields::str(int code, std::string_view def)
{
    const Tag* t = take(code);
    return t ? t->value : def;
}

std::wstring Fields::text(int code, std::wstring_view def)
{
    const Tag* t = take(code);
    return t ? decodeText(t->value) : std::wstring(def);
}

AcDbHandle Fields::handle(int code)
{
    const Tag* t = take(code);
    return t ? t->handle() : AcDbHandle();
}

AcGePoint3d Fields::point(int code, const AcGePoint3d& def)
{
    const Tag* x = take(code);
    if (!x)
        return def;
    AcGePoint3d p(x->real, 0.0, 0.0);
    if (const Tag* y = take(code + 10))
        p.y = y->real;
    if (const Tag* z = take(code + 20))
        p.z = z->real;
    return p;
}

AcGeVector3d Fields::vector(int code, const AcGeVector3d& def)
{
    if (!has(code))
        return def;
    AcGePoint3d p = point(code);
    return AcGeVector3d(p.x, p.y, p.z);
}

} // namespace sim::dxf
