// AcDbMText: multi-line text; its plain text without the formatting codes.
#include <cmath>
#include <cwchar>

#include "dbmtext.h"
#include "sim/db/DefineMembers.h"
#include "sim/db/Geometry.h"

namespace geom = sim::db::geom;

SIM_DB_DEFINE_MEMBERS(AcDbMText, AcDbEntity, L"MTEXT")

namespace {
ACHAR* copyString(const std::wstring& s)
{
    auto* out = new ACHAR[s.size() + 1];
    std::wmemcpy(out, s.c_str(), s.size() + 1);
    return out;
}

/// The contents without formatting: paragraphs become line breaks, groups and codes go.
std::wstring plainText(const std::wstring& s)
{
    std::wstring out;
    for (size_t i = 0; i < s.size(); ++i) {
        wchar_t c = s[i];
        if (c == L'{' || c == L'}')
            continue;
        if (c != L'\\' || i + 1 == s.size()) {
            out += c;
            continue;
        }
        wchar_t code = s[++i];
        switch (code) {
        case L'P': out += L"\r\n"; break;
        case L'~': out += L' '; break;
        case L'\\': case L'{': case L'}': out += code; break;
        case L'L': case L'l': case L'O': case L'o': case L'K': case L'k': break;
        case L'S': {
            // A stacked fraction "\Snum^den;" reads as num/den.
            size_t end = s.find(L';', i);
            std::wstring part = s.substr(i + 1, end == std::wstring::npos ? std::wstring::npos : end - i - 1);
            for (wchar_t& ch : part)
                if (ch == L'^' || ch == L'#')
                    ch = L'/';
            out += part;
            i = end == std::wstring::npos ? s.size() : end;
            break;
        }
        default: {
            // Codes with a value up to ";" (\f, \H, \C, \T, \Q, \W, \A, \p ...).
            size_t end = s.find(L';', i);
            i = end == std::wstring::npos ? s.size() : end;
            break;
        }
        }
    }
    return out;
}
} // namespace

Acad::ErrorStatus AcDbMText::setLocation(const AcGePoint3d& point)
{
    SIM_DB_ASSERT_WRITE();
    m_location = point;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbMText::setNormal(const AcGeVector3d& normal)
{
    SIM_DB_ASSERT_WRITE();
    if (normal.isZeroLength())
        return Acad::eInvalidInput;
    double rot = rotation();
    m_normal = normal.normal();
    return setRotation(rot);
}
Acad::ErrorStatus AcDbMText::setDirection(const AcGeVector3d& direction)
{
    SIM_DB_ASSERT_WRITE();
    // The direction lies in the text's plane.
    AcGeVector3d d = direction - m_normal * direction.dotProduct(m_normal);
    if (d.isZeroLength())
        return Acad::eInvalidInput;
    m_direction = d.normal();
    return Acad::eOk;
}
double AcDbMText::rotation() const
{
    AcGeVector3d x, y;
    geom::ocsAxes(m_normal, x, y);
    return geom::normalizeAngle(std::atan2(m_direction.dotProduct(y), m_direction.dotProduct(x)));
}
Acad::ErrorStatus AcDbMText::setRotation(double angle)
{
    SIM_DB_ASSERT_WRITE();
    AcGeVector3d x, y;
    geom::ocsAxes(m_normal, x, y);
    m_direction = (x * std::cos(angle) + y * std::sin(angle)).normal();
    return Acad::eOk;
}
Acad::ErrorStatus AcDbMText::setWidth(double width)
{
    SIM_DB_ASSERT_WRITE();
    if (width < 0.0)
        return Acad::eInvalidInput;
    m_width = width;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbMText::setTextHeight(double height)
{
    SIM_DB_ASSERT_WRITE();
    if (!(height > 0.0))
        return Acad::eInvalidInput;
    m_textHeight = height;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbMText::setAttachment(AttachmentPoint attachment)
{
    SIM_DB_ASSERT_WRITE();
    if (attachment < kTopLeft || attachment > kBottomRight)
        return Acad::eInvalidInput;
    m_attachment = attachment;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbMText::setFlowDirection(FlowDirection flow)
{
    SIM_DB_ASSERT_WRITE();
    m_flow = flow;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbMText::setTextStyle(AcDbObjectId textStyle)
{
    SIM_DB_ASSERT_WRITE();
    m_style = textStyle;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbMText::setLineSpacingFactor(double factor)
{
    SIM_DB_ASSERT_WRITE();
    if (factor < 0.25 || factor > 4.0)
        return Acad::eInvalidInput;
    m_lineSpacing = factor;
    return Acad::eOk;
}

ACHAR* AcDbMText::contents() const { return copyString(m_contents); }
Acad::ErrorStatus AcDbMText::contents(AcString& sContents) const
{
    sContents = m_contents.c_str();
    return Acad::eOk;
}
int AcDbMText::setContents(const ACHAR* text)
{
    if (!sim::db::beginChange(this))
        return 0;
    m_contents = text ? text : L"";
    return static_cast<int>(m_contents.size());
}
ACHAR* AcDbMText::text() const { return copyString(plainText(m_contents)); }

Acad::ErrorStatus AcDbMText::transformBy(const AcGeMatrix3d& xform)
{
    SIM_DB_ASSERT_WRITE();
    AcGeVector3d up = m_normal.crossProduct(m_direction);
    AcGeVector3d newDir = xform.apply(m_direction), newUp = xform.apply(up);
    AcGeVector3d n = xform.apply(m_normal);
    if (newDir.isZeroLength() || newUp.isZeroLength() || n.isZeroLength())
        return Acad::eNotApplicable;
    m_location = xform.apply(m_location);
    m_textHeight *= newUp.length();
    m_width *= newDir.length();
    m_normal = n.normal();
    m_direction = newDir.normal();
    return Acad::eOk;
}
