// AcDbMLeader: its values are the groups of its AcDbMLeader subclass, kept as the file has them and
// changed in place. The record nests: the context data (300 CONTEXT_DATA{ ... 301 }) holds the
// content and the leaders (302 LEADER{ ... 303 }), each leader its lines (304 LEADER_LINE{ ... 305 }).
// A leader keeps the last vertex of its lines (the one at the content) as its own point (10); the
// API's vertices of a line are the line's points and then that one.
#include <algorithm>
#include <cmath>

#include "dbmtext.h"
#include "mleader.h"
#include "sim/core/Session.h"
#include "sim/db/DatabaseAccess.h"
#include "sim/db/DefineMembers.h"
#include "sim/db/ImpDatabase.h"
#include "sim/db/KeptGroups.h"

SIM_DB_DEFINE_MEMBERS(AcDbMLeader, AcDbEntity, L"MULTILEADER")

namespace {

using sim::db::KeptGroups;
using sim::db::RawTags;
const char* const kSub = "AcDbMLeader";
constexpr size_t npos = KeptGroups::npos;

struct Line {
    size_t open, close;
    int index;
};
struct Leader {
    size_t open, close;
    int index;
    std::vector<Line> lines;
};
/// Where the parts of the record are: indexes into the kept groups.
struct Shape {
    size_t begin = 0, end = 0;
    size_t contextOpen = npos, contextClose = npos;
    std::vector<Leader> leaders;
};

Shape shapeOf(const KeptGroups& g)
{
    Shape s;
    s.begin = g.begin();
    s.end = g.end();
    const RawTags& t = g.tags();
    int depth = 0;
    for (size_t i = s.begin; i < s.end; ++i) {
        const auto& tag = t[i];
        if (depth == 0 && tag.code == 300 && tag.value == "CONTEXT_DATA{") {
            s.contextOpen = i;
            depth = 1;
        } else if (depth == 1 && tag.code == 302 && tag.value == "LEADER{") {
            s.leaders.push_back({i, npos, -1, {}});
            depth = 2;
        } else if (depth == 1 && tag.code == 301) {
            s.contextClose = i;
            depth = 0;
        } else if (depth == 2 && tag.code == 304 && tag.value == "LEADER_LINE{") {
            s.leaders.back().lines.push_back({i, npos, -1});
            depth = 3;
        } else if (depth == 2 && tag.code == 303) {
            s.leaders.back().close = i;
            depth = 1;
        } else if (depth == 2 && tag.code == 90 && s.leaders.back().index < 0) {
            s.leaders.back().index = g.integer(i).value_or(0);
        } else if (depth == 3 && tag.code == 305) {
            s.leaders.back().lines.back().close = i;
            depth = 2;
        } else if (depth == 3 && tag.code == 91) {
            s.leaders.back().lines.back().index = static_cast<int>(g.integer(i).value_or(0));
        }
    }
    // An unfinished part ends with the record.
    if (s.contextOpen != npos && s.contextClose == npos)
        s.contextClose = s.end;
    for (Leader& l : s.leaders) {
        if (l.close == npos)
            l.close = s.contextClose;
        for (Line& line : l.lines)
            if (line.close == npos)
                line.close = l.close;
    }
    return s;
}

/// The first group of the code in [from, to) outside the nested parts given.
size_t findOutside(const KeptGroups& g, int code, size_t from, size_t to, const std::vector<std::pair<size_t, size_t>>& skip)
{
    const RawTags& t = g.tags();
    for (size_t i = from; i < to; ++i) {
        bool inside = false;
        for (const auto& [a, b] : skip)
            if (i >= a && i <= b) {
                inside = true;
                i = b;
                break;
            }
        if (!inside && t[i].code == code)
            return i;
    }
    return npos;
}

/// A group of the record's own level (outside the context data).
size_t topLevel(const KeptGroups& g, const Shape& s, int code)
{
    std::vector<std::pair<size_t, size_t>> skip;
    if (s.contextOpen != npos)
        skip.emplace_back(s.contextOpen, s.contextClose);
    return findOutside(g, code, s.begin, s.end, skip);
}

/// A group of the context data's own level (outside its leaders).
size_t contextLevel(const KeptGroups& g, const Shape& s, int code)
{
    if (s.contextOpen == npos)
        return npos;
    std::vector<std::pair<size_t, size_t>> skip;
    for (const Leader& l : s.leaders)
        skip.emplace_back(l.open, l.close);
    return findOutside(g, code, s.contextOpen + 1, s.contextClose, skip);
}

/// A group of a leader's own level (outside its lines).
size_t leaderLevel(const KeptGroups& g, const Leader& l, int code)
{
    std::vector<std::pair<size_t, size_t>> skip;
    for (const Line& line : l.lines)
        skip.emplace_back(line.open, line.close);
    return findOutside(g, code, l.open + 1, l.close, skip);
}

AcGePoint3d pointAt(const KeptGroups& g, size_t at)
{
    AcGePoint3d p;
    if (at == npos)
        return p;
    p.x = g.real(at).value_or(0.0);
    const RawTags& t = g.tags();
    int code = t[at].code;
    if (at + 1 < t.size() && t[at + 1].code == code + 10)
        p.y = g.real(at + 1).value_or(0.0);
    if (at + 2 < t.size() && t[at + 2].code == code + 20)
        p.z = g.real(at + 2).value_or(0.0);
    return p;
}

RawTags pointGroups(int code, double x, double y, double z)
{
    return {{code, KeptGroups::realText(x)}, {code + 10, KeptGroups::realText(y)}, {code + 20, KeptGroups::realText(z)}};
}

/// Sets the point whose X group is at `at`, or inserts it before `before`.
void putPoint(KeptGroups& g, size_t at, int code, double x, double y, double z, size_t before)
{
    RawTags& t = g.tags();
    RawTags groups = pointGroups(code, x, y, z);
    if (at != npos) {
        size_t n = 1;
        while (n < 3 && at + n < t.size() && t[at + n].code == code + 10 * static_cast<int>(n))
            ++n;
        t.erase(t.begin() + static_cast<long>(at), t.begin() + static_cast<long>(at + n));
        t.insert(t.begin() + static_cast<long>(at), groups.begin(), groups.end());
        return;
    }
    t.insert(t.begin() + static_cast<long>(before), groups.begin(), groups.end());
}

/// The points of a line (its 10 groups) in order.
std::vector<size_t> linePoints(const KeptGroups& g, const Line& line)
{
    std::vector<size_t> at;
    const RawTags& t = g.tags();
    for (size_t i = line.open + 1; i < line.close; ++i)
        if (t[i].code == 10)
            at.push_back(i);
    return at;
}

const Leader* leaderByIndex(const Shape& s, int index)
{
    for (const Leader& l : s.leaders)
        if (l.index == index)
            return &l;
    return nullptr;
}

const Leader* leaderOfLine(const Shape& s, int lineIndex, const Line** lineOut = nullptr)
{
    for (const Leader& l : s.leaders)
        for (const Line& line : l.lines)
            if (line.index == lineIndex) {
                if (lineOut)
                    *lineOut = &line;
                return &l;
            }
    return nullptr;
}

const std::string kByBlock = "-1056964608"; // colour by block, as a signed word

/// A new multileader: multi-line text content in the values of the Standard style, no leaders.
RawTags newLeaderGroups()
{
    RawTags t = {{270, "2"}, {300, "CONTEXT_DATA{"}, {40, "1.0"}};
    auto add = [&](const RawTags& more) { t.insert(t.end(), more.begin(), more.end()); };
    add(pointGroups(10, 0, 0, 0));
    add({{41, "2.5"}, {140, "2.5"}, {145, "2.0"}, {174, "1"}, {175, "1"}, {176, "0"}, {177, "0"}, {290, "0"}, {304, ""}});
    add(pointGroups(11, 0, 0, 1));
    add({{340, "0"}});
    add(pointGroups(12, 0, 0, 0));
    add(pointGroups(13, 1, 0, 0));
    add({{42, "0.0"}, {43, "0.0"}, {44, "0.0"}, {45, "1.0"}, {170, "1"}, {90, kByBlock}, {171, "1"}, {172, "1"},
         {91, "-939524096"}, {141, "1.5"}, {92, "0"}, {291, "0"}, {292, "0"}, {173, "0"}, {293, "0"}, {142, "0.0"},
         {143, "0.0"}, {294, "0"}, {295, "0"}, {296, "0"}});
    add(pointGroups(110, 0, 0, 0));
    add(pointGroups(111, 1, 0, 0));
    add(pointGroups(112, 0, 1, 0));
    add({{297, "0"}, {272, "9"}, {273, "9"}, {301, "}"}, {340, "0"}, {90, "0"}, {170, "1"}, {91, kByBlock}, {341, "0"},
         {171, "-2"}, {290, "1"}, {291, "1"}, {41, "8.0"}, {42, "2.5"}, {172, "2"}, {343, "0"}, {173, "1"}, {95, "1"},
         {174, "1"}, {175, "0"}, {92, kByBlock}, {292, "0"}, {93, kByBlock}});
    add(pointGroups(10, 1, 1, 1));
    add({{43, "0.0"}, {176, "0"}, {293, "0"}, {294, "0"}, {178, "0"}, {179, "1"}, {45, "1.0"}, {271, "0"}, {272, "9"},
         {273, "9"}, {295, "0"}});
    return t;
}

} // namespace

AcDbMLeader::AcDbMLeader() { KeptGroups(this, kSub).assign(newLeaderGroups()); }

// --- values of the record's own level and of the context ------------------------------------------

namespace {
double topReal(const AcDbMLeader* m, int code, double def)
{
    KeptGroups g(m, kSub);
    return g.real(topLevel(g, shapeOf(g), code)).value_or(def);
}
long long topInt(const AcDbMLeader* m, int code, long long def)
{
    KeptGroups g(m, kSub);
    return g.integer(topLevel(g, shapeOf(g), code)).value_or(def);
}
void putTop(const AcDbMLeader* m, int code, std::string value)
{
    KeptGroups g(m, kSub);
    g.set(topLevel(g, shapeOf(g), code), code, std::move(value));
}
/// A group of the context's level; a missing one goes before its first leader (or its end).
void putContext(const AcDbMLeader* m, int code, std::string value)
{
    KeptGroups g(m, kSub);
    Shape s = shapeOf(g);
    if (s.contextOpen == npos)
        return;
    size_t before = s.leaders.empty() ? s.contextClose : s.leaders.front().open;
    g.set(contextLevel(g, s, code), code, std::move(value), before);
}
} // namespace

AcDbObjectId AcDbMLeader::MLeaderStyle() const
{
    KeptGroups g(this, kSub);
    return g.id(topLevel(g, shapeOf(g), 340));
}
Acad::ErrorStatus AcDbMLeader::setMLeaderStyle(AcDbObjectId newVal)
{
    SIM_DB_ASSERT_WRITE();
    putTop(this, 340, KeptGroups::handleText(newVal));
    return Acad::eOk;
}

AcMLeaderStyle::ContentType AcDbMLeader::contentType() const { return static_cast<AcMLeaderStyle::ContentType>(topInt(this, 172, 2)); }
Acad::ErrorStatus AcDbMLeader::setContentType(AcMLeaderStyle::ContentType newVal)
{
    SIM_DB_ASSERT_WRITE();
    putTop(this, 172, std::to_string(newVal));
    return Acad::eOk;
}

AcDbMText* AcDbMLeader::mtext() const
{
    KeptGroups g(this, kSub);
    Shape s = shapeOf(g);
    if (s.contextOpen == npos || g.integer(contextLevel(g, s, 290)).value_or(0) == 0)
        return nullptr;
    auto* m = new AcDbMText;
    size_t text = contextLevel(g, s, 304);
    m->setContents(text == npos ? L"" : sim::fromUtf8(g.tags()[text].value).c_str());
    AcDbObjectId style = g.id(contextLevel(g, s, 340));
    m->setTextStyle(style.isNull() ? textStyleId() : style);
    if (auto h = g.real(contextLevel(g, s, 41)); h && *h > 0.0)
        m->setTextHeight(*h);
    AcGeVector3d normal = pointAt(g, contextLevel(g, s, 11)).asVector();
    if (!normal.isZeroLength())
        m->setNormal(normal.normal());
    m->setLocation(pointAt(g, contextLevel(g, s, 12)));
    AcGeVector3d direction = pointAt(g, contextLevel(g, s, 13)).asVector();
    if (!direction.isZeroLength())
        m->setDirection(direction.normal());
    m->setWidth(g.real(contextLevel(g, s, 43)).value_or(0.0));
    long long attachment = g.integer(contextLevel(g, s, 171)).value_or(1);
    if (attachment >= 1 && attachment <= 9)
        m->setAttachment(static_cast<AcDbMText::AttachmentPoint>(attachment));
    m->setLayer(layerId());
    return m;
}

Acad::ErrorStatus AcDbMLeader::setMText(const AcDbMText* pMText)
{
    SIM_DB_ASSERT_WRITE();
    if (!pMText)
        return Acad::eNullObjectPointer;
    ACHAR* contents = pMText->contents();
    putContext(this, 290, "1");
    putContext(this, 304, sim::toUtf8(contents ? contents : L""));
    delete[] contents;
    if (!pMText->textStyle().isNull())
        putContext(this, 340, KeptGroups::handleText(pMText->textStyle()));
    if (pMText->textHeight() > 0.0)
        putContext(this, 41, KeptGroups::realText(pMText->textHeight()));
    putContext(this, 43, KeptGroups::realText(pMText->width()));
    putContext(this, 171, std::to_string(pMText->attachment()));
    KeptGroups g(this, kSub);
    Shape s = shapeOf(g);
    if (s.contextOpen == npos)
        return Acad::eOk;
    size_t before = s.leaders.empty() ? s.contextClose : s.leaders.front().open;
    AcGePoint3d p = pMText->location();
    AcGeVector3d d = pMText->direction(), n = pMText->normal();
    putPoint(g, contextLevel(g, s, 12), 12, p.x, p.y, p.z, before);
    s = shapeOf(g);
    putPoint(g, contextLevel(g, s, 13), 13, d.x, d.y, d.z, s.leaders.empty() ? s.contextClose : s.leaders.front().open);
    s = shapeOf(g);
    putPoint(g, contextLevel(g, s, 11), 11, n.x, n.y, n.z, s.leaders.empty() ? s.contextClose : s.leaders.front().open);
    return Acad::eOk;
}

AcDbObjectId AcDbMLeader::textStyleId() const
{
    KeptGroups g(this, kSub);
    return g.id(topLevel(g, shapeOf(g), 343));
}
Acad::ErrorStatus AcDbMLeader::setTextStyleId(AcDbObjectId newVal)
{
    SIM_DB_ASSERT_WRITE();
    putTop(this, 343, KeptGroups::handleText(newVal));
    putContext(this, 340, KeptGroups::handleText(newVal));
    return Acad::eOk;
}

double AcDbMLeader::textHeight() const
{
    KeptGroups g(this, kSub);
    Shape s = shapeOf(g);
    return g.real(contextLevel(g, s, 41)).value_or(2.5);
}
Acad::ErrorStatus AcDbMLeader::setTextHeight(double newVal)
{
    SIM_DB_ASSERT_WRITE();
    if (!(newVal > 0.0))
        return Acad::eInvalidInput;
    putContext(this, 41, KeptGroups::realText(newVal));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMLeader::getTextLocation(AcGePoint3d& location) const
{
    KeptGroups g(this, kSub);
    Shape s = shapeOf(g);
    size_t at = contextLevel(g, s, 12);
    if (at == npos)
        return Acad::eInvalidInput;
    location = pointAt(g, at);
    return Acad::eOk;
}
Acad::ErrorStatus AcDbMLeader::setTextLocation(const AcGePoint3d& location)
{
    SIM_DB_ASSERT_WRITE();
    KeptGroups g(this, kSub);
    Shape s = shapeOf(g);
    if (s.contextOpen == npos)
        return Acad::eInvalidInput;
    putPoint(g, contextLevel(g, s, 12), 12, location.x, location.y, location.z,
             s.leaders.empty() ? s.contextClose : s.leaders.front().open);
    return Acad::eOk;
}

AcMLeaderStyle::TextAlignmentType AcDbMLeader::textAlignmentType() const
{
    return static_cast<AcMLeaderStyle::TextAlignmentType>(topInt(this, 175, 0));
}
Acad::ErrorStatus AcDbMLeader::setTextAlignmentType(AcMLeaderStyle::TextAlignmentType t)
{
    SIM_DB_ASSERT_WRITE();
    putTop(this, 175, std::to_string(t));
    putContext(this, 176, std::to_string(t));
    return Acad::eOk;
}

AcMLeaderStyle::TextAttachmentType AcDbMLeader::textAttachmentType(AcMLeaderStyle::LeaderDirectionType d) const
{
    return static_cast<AcMLeaderStyle::TextAttachmentType>(topInt(this, d == AcMLeaderStyle::kRightLeader ? 95 : 173, 1));
}
Acad::ErrorStatus AcDbMLeader::setTextAttachmentType(AcMLeaderStyle::TextAttachmentType t, AcMLeaderStyle::LeaderDirectionType d)
{
    SIM_DB_ASSERT_WRITE();
    if (d != AcMLeaderStyle::kLeftLeader && d != AcMLeaderStyle::kRightLeader)
        return Acad::eInvalidInput;
    bool right = d == AcMLeaderStyle::kRightLeader;
    putTop(this, right ? 95 : 173, std::to_string(t));
    putContext(this, right ? 175 : 174, std::to_string(t));
    return Acad::eOk;
}

AcMLeaderStyle::BlockConnectionType AcDbMLeader::blockConnectionType() const
{
    return static_cast<AcMLeaderStyle::BlockConnectionType>(topInt(this, 176, 0));
}
Acad::ErrorStatus AcDbMLeader::setBlockConnectionType(AcMLeaderStyle::BlockConnectionType t)
{
    SIM_DB_ASSERT_WRITE();
    putTop(this, 176, std::to_string(t));
    return Acad::eOk;
}

double AcDbMLeader::doglegLength() const { return topReal(this, 41, 8.0); }
Acad::ErrorStatus AcDbMLeader::setDoglegLength(double v)
{
    SIM_DB_ASSERT_WRITE();
    if (v < 0.0)
        return Acad::eInvalidInput;
    putTop(this, 41, KeptGroups::realText(v));
    KeptGroups g(this, kSub);
    Shape s = shapeOf(g);
    for (const Leader& l : s.leaders)
        g.set(leaderLevel(g, l, 40), 40, KeptGroups::realText(v), l.close);
    return Acad::eOk;
}

double AcDbMLeader::arrowSize() const { return topReal(this, 42, 2.5); }
Acad::ErrorStatus AcDbMLeader::setArrowSize(double v)
{
    SIM_DB_ASSERT_WRITE();
    if (v < 0.0)
        return Acad::eInvalidInput;
    putTop(this, 42, KeptGroups::realText(v));
    putContext(this, 140, KeptGroups::realText(v));
    return Acad::eOk;
}

// --- leaders and their lines ---------------------------------------------------------------------

Acad::ErrorStatus AcDbMLeader::addLeader(int& leaderIndex)
{
    SIM_DB_ASSERT_WRITE();
    KeptGroups g(this, kSub);
    Shape s = shapeOf(g);
    if (s.contextOpen == npos)
        return Acad::eInvalidInput;
    leaderIndex = 0;
    for (const Leader& l : s.leaders)
        leaderIndex = std::max(leaderIndex, l.index + 1);
    // After the last leader; the first one before the context's closing groups (272, 273, 301).
    size_t at = s.contextClose;
    if (!s.leaders.empty())
        at = s.leaders.back().close + 1;
    else if (size_t closing = contextLevel(g, s, 272); closing != npos)
        at = closing;
    RawTags groups = {{302, "LEADER{"}, {290, "0"}, {291, "1"}};
    RawTags more = pointGroups(10, 0, 0, 0);
    groups.insert(groups.end(), more.begin(), more.end());
    more = pointGroups(11, 1, 0, 0);
    groups.insert(groups.end(), more.begin(), more.end());
    groups.push_back({90, std::to_string(leaderIndex)});
    groups.push_back({40, KeptGroups::realText(doglegLength())});
    groups.push_back({271, "0"});
    groups.push_back({303, "}"});
    g.tags().insert(g.tags().begin() + static_cast<long>(at), groups.begin(), groups.end());
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMLeader::removeLeader(int leaderIndex)
{
    SIM_DB_ASSERT_WRITE();
    KeptGroups g(this, kSub);
    Shape s = shapeOf(g);
    const Leader* l = leaderByIndex(s, leaderIndex);
    if (!l)
        return Acad::eInvalidIndex;
    g.tags().erase(g.tags().begin() + static_cast<long>(l->open), g.tags().begin() + static_cast<long>(l->close + 1));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMLeader::addLeaderLine(int leaderIndex, int& leaderLineIndex)
{
    SIM_DB_ASSERT_WRITE();
    KeptGroups g(this, kSub);
    Shape s = shapeOf(g);
    const Leader* l = leaderByIndex(s, leaderIndex);
    if (!l)
        return Acad::eInvalidIndex;
    leaderLineIndex = 0;
    for (const Leader& other : s.leaders)
        for (const Line& line : other.lines)
            leaderLineIndex = std::max(leaderLineIndex, line.index + 1);
    size_t at = l->lines.empty() ? leaderLevel(g, *l, 271) : l->lines.back().close + 1;
    if (at == npos)
        at = l->close;
    RawTags groups = {{304, "LEADER_LINE{"}, {91, std::to_string(leaderLineIndex)}, {305, "}"}};
    g.tags().insert(g.tags().begin() + static_cast<long>(at), groups.begin(), groups.end());
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMLeader::addLeaderLine(const AcGePoint3d& point, int& leaderLineIndex)
{
    SIM_DB_ASSERT_WRITE();
    AcArray<int> leaders;
    getLeaderIndexes(leaders);
    int leader = 0;
    if (leaders.isEmpty()) {
        if (Acad::ErrorStatus es = addLeader(leader); es != Acad::eOk)
            return es;
    } else {
        leader = leaders.first();
    }
    if (Acad::ErrorStatus es = addLeaderLine(leader, leaderLineIndex); es != Acad::eOk)
        return es;
    AcGePoint3d content;
    getTextLocation(content);
    addFirstVertex(leaderLineIndex, point);
    return addLastVertex(leaderLineIndex, content);
}

Acad::ErrorStatus AcDbMLeader::removeLeaderLine(int leaderLineIndex)
{
    SIM_DB_ASSERT_WRITE();
    KeptGroups g(this, kSub);
    Shape s = shapeOf(g);
    const Line* line = nullptr;
    if (!leaderOfLine(s, leaderLineIndex, &line))
        return Acad::eInvalidIndex;
    g.tags().erase(g.tags().begin() + static_cast<long>(line->open), g.tags().begin() + static_cast<long>(line->close + 1));
    return Acad::eOk;
}

namespace {
/// The vertices of a line: its points, then its leader's last point when the leader has one.
std::vector<AcGePoint3d> vertices(const KeptGroups& g, const Leader& l, const Line& line)
{
    std::vector<AcGePoint3d> v;
    for (size_t at : linePoints(g, line))
        v.push_back(pointAt(g, at));
    if (g.integer(leaderLevel(g, l, 290)).value_or(0) != 0)
        v.push_back(pointAt(g, leaderLevel(g, l, 10)));
    return v;
}
} // namespace

Acad::ErrorStatus AcDbMLeader::addFirstVertex(int leaderLineIndex, const AcGePoint3d& point)
{
    SIM_DB_ASSERT_WRITE();
    KeptGroups g(this, kSub);
    Shape s = shapeOf(g);
    const Line* line = nullptr;
    if (!leaderOfLine(s, leaderLineIndex, &line))
        return Acad::eInvalidIndex;
    putPoint(g, npos, 10, point.x, point.y, point.z, line->open + 1);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMLeader::addLastVertex(int leaderLineIndex, const AcGePoint3d& point)
{
    SIM_DB_ASSERT_WRITE();
    KeptGroups g(this, kSub);
    Shape s = shapeOf(g);
    const Line* line = nullptr;
    const Leader* l = leaderOfLine(s, leaderLineIndex, &line);
    if (!l)
        return Acad::eInvalidIndex;
    // The leader's last point so far becomes a point of the line.
    Leader leader = *l;
    Line target = *line;
    size_t last = leaderLevel(g, leader, 10);
    bool hasLast = g.integer(leaderLevel(g, leader, 290)).value_or(0) != 0;
    if (hasLast) {
        AcGePoint3d old = pointAt(g, last);
        std::vector<size_t> points = linePoints(g, target);
        size_t before = target.close;
        for (size_t i = target.open + 1; i < target.close; ++i)
            if (g.tags()[i].code == 91) {
                before = points.empty() || i > points.back() ? i : before;
                break;
            }
        putPoint(g, npos, 10, old.x, old.y, old.z, before);
        s = shapeOf(g);
        leader = *leaderOfLine(s, leaderLineIndex, &line);
    }
    putPoint(g, leaderLevel(g, leader, 10), 10, point.x, point.y, point.z, leader.close);
    s = shapeOf(g);
    leader = *leaderOfLine(s, leaderLineIndex, &line);
    g.set(leaderLevel(g, leader, 290), 290, "1", leader.open + 1);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMLeader::getFirstVertex(int leaderLineIndex, AcGePoint3d& point) const { return getVertex(leaderLineIndex, 0, point); }

Acad::ErrorStatus AcDbMLeader::getLastVertex(int leaderLineIndex, AcGePoint3d& point) const
{
    int n = 0;
    if (Acad::ErrorStatus es = numVertices(leaderLineIndex, n); es != Acad::eOk)
        return es;
    return n == 0 ? Acad::eInvalidIndex : getVertex(leaderLineIndex, n - 1, point);
}

Acad::ErrorStatus AcDbMLeader::numVertices(int leaderLineIndex, int& num) const
{
    KeptGroups g(this, kSub);
    Shape s = shapeOf(g);
    const Line* line = nullptr;
    const Leader* l = leaderOfLine(s, leaderLineIndex, &line);
    if (!l)
        return Acad::eInvalidIndex;
    num = static_cast<int>(vertices(g, *l, *line).size());
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMLeader::getVertex(int leaderLineIndex, int index, AcGePoint3d& point) const
{
    KeptGroups g(this, kSub);
    Shape s = shapeOf(g);
    const Line* line = nullptr;
    const Leader* l = leaderOfLine(s, leaderLineIndex, &line);
    if (!l)
        return Acad::eInvalidIndex;
    std::vector<AcGePoint3d> v = vertices(g, *l, *line);
    if (index < 0 || index >= static_cast<int>(v.size()))
        return Acad::eInvalidIndex;
    point = v[static_cast<size_t>(index)];
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMLeader::setVertex(int leaderLineIndex, int index, const AcGePoint3d& point)
{
    SIM_DB_ASSERT_WRITE();
    KeptGroups g(this, kSub);
    Shape s = shapeOf(g);
    const Line* line = nullptr;
    const Leader* l = leaderOfLine(s, leaderLineIndex, &line);
    if (!l)
        return Acad::eInvalidIndex;
    std::vector<size_t> points = linePoints(g, *line);
    if (index >= 0 && index < static_cast<int>(points.size())) {
        putPoint(g, points[static_cast<size_t>(index)], 10, point.x, point.y, point.z, npos);
        return Acad::eOk;
    }
    if (index == static_cast<int>(points.size()) && g.integer(leaderLevel(g, *l, 290)).value_or(0) != 0) {
        putPoint(g, leaderLevel(g, *l, 10), 10, point.x, point.y, point.z, npos);
        return Acad::eOk;
    }
    return Acad::eInvalidIndex;
}

Acad::ErrorStatus AcDbMLeader::getLeaderIndexes(AcArray<int>& leaderIndexes) const
{
    KeptGroups g(this, kSub);
    leaderIndexes.removeAll();
    for (const Leader& l : shapeOf(g).leaders)
        leaderIndexes.append(l.index);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMLeader::getLeaderLineIndexes(int leaderIndex, AcArray<int>& leaderLineIndexes) const
{
    KeptGroups g(this, kSub);
    Shape s = shapeOf(g);
    const Leader* l = leaderByIndex(s, leaderIndex);
    if (!l)
        return Acad::eInvalidIndex;
    leaderLineIndexes.removeAll();
    for (const Line& line : l->lines)
        leaderLineIndexes.append(line.index);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMLeader::getLeaderIndex(int leaderLineIndex, int& leaderIndex) const
{
    KeptGroups g(this, kSub);
    Shape s = shapeOf(g);
    const Leader* l = leaderOfLine(s, leaderLineIndex);
    if (!l)
        return Acad::eInvalidIndex;
    leaderIndex = l->index;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMLeader::setDoglegDirection(int leaderIndex, const AcGeVector3d& vector)
{
    SIM_DB_ASSERT_WRITE();
    KeptGroups g(this, kSub);
    Shape s = shapeOf(g);
    const Leader* l = leaderByIndex(s, leaderIndex);
    if (!l)
        return Acad::eInvalidIndex;
    if (vector.isZeroLength())
        return Acad::eInvalidInput;
    AcGeVector3d v = vector.normal();
    putPoint(g, leaderLevel(g, *l, 11), 11, v.x, v.y, v.z, l->close);
    s = shapeOf(g);
    g.set(leaderLevel(g, *leaderByIndex(s, leaderIndex), 291), 291, "1", leaderByIndex(s, leaderIndex)->open + 1);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMLeader::getDoglegDirection(int leaderIndex, AcGeVector3d& vec) const
{
    KeptGroups g(this, kSub);
    Shape s = shapeOf(g);
    const Leader* l = leaderByIndex(s, leaderIndex);
    if (!l)
        return Acad::eInvalidIndex;
    vec = pointAt(g, leaderLevel(g, *l, 11)).asVector();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMLeader::transformBy(const AcGeMatrix3d& xform)
{
    SIM_DB_ASSERT_WRITE();
    KeptGroups g(this, kSub);
    Shape s = shapeOf(g);
    if (s.contextOpen == npos)
        return Acad::eOk;
    // Points of the context and of the leaders move; their directions turn.
    std::vector<std::pair<size_t, bool>> targets; // index of the X group, is a point
    for (int code : {10, 12, 110})
        if (size_t at = contextLevel(g, s, code); at != npos)
            targets.emplace_back(at, true);
    for (int code : {11, 13, 111, 112})
        if (size_t at = contextLevel(g, s, code); at != npos)
            targets.emplace_back(at, false);
    for (const Leader& l : s.leaders) {
        if (size_t at = leaderLevel(g, l, 10); at != npos)
            targets.emplace_back(at, true);
        if (size_t at = leaderLevel(g, l, 11); at != npos)
            targets.emplace_back(at, false);
        for (const Line& line : l.lines)
            for (size_t at : linePoints(g, line))
                targets.emplace_back(at, true);
    }
    for (const auto& [at, isPoint] : targets) {
        int code = g.tags()[at].code;
        AcGePoint3d p = pointAt(g, at);
        if (isPoint) {
            p.transformBy(xform);
        } else {
            AcGeVector3d v = p.asVector();
            v.transformBy(xform);
            if (!v.isZeroLength())
                v = v.normal();
            p = AcGePoint3d(v.x, v.y, v.z);
        }
        putPoint(g, at, code, p.x, p.y, p.z, npos);
    }
    return Acad::eOk;
}

namespace sim::db {

void completeMLeader(AcDbObject* obj)
{
    auto* leader = AcDbMLeader::cast(obj);
    AcDbDatabase* db = obj ? obj->database() : nullptr;
    if (!leader || !db)
        return;
    KeptGroups g(leader, kSub);
    auto fill = [&](int code, bool context, AcDbObjectId value) {
        Shape s = shapeOf(g);
        size_t at = context ? contextLevel(g, s, code) : topLevel(g, s, code);
        if (at != npos && g.id(at).isNull() && !value.isNull())
            g.set(at, code, KeptGroups::handleText(value));
    };
    AcDbObjectId styleId = leader->MLeaderStyle().isNull() ? db->cmleaderstyle() : leader->MLeaderStyle();
    auto* style = AcDbMLeaderStyle::cast(AcDbImpDatabase::lookup(styleId));
    AcDbObjectId text = style && !style->textStyleId().isNull() ? style->textStyleId() : db->textstyle();
    fill(340, false, styleId);
    fill(341, false, style && !style->leaderLineTypeId().isNull() ? style->leaderLineTypeId() : db->byBlockLinetype());
    fill(343, false, text);
    fill(340, true, text);
}

} // namespace sim::db
