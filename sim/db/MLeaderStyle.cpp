// AcDbMLeaderStyle: its values are the groups of its AcDbMLeaderStyle subclass, kept as the file has
// them and changed in place; a new style starts from the host's Standard style.
#include <cwchar>

#include "dbdict.h"
#include "dbsymtb.h"
#include "mleaderstyle.h"
#include "sim/core/Session.h"
#include "sim/db/DefineMembers.h"
#include "sim/db/FileAccess.h"
#include "sim/db/KeptGroups.h"

SIM_DB_DEFINE_MEMBERS(AcDbMLeaderStyle, AcDbObject, L"MLEADERSTYLE")

namespace {

using sim::db::KeptGroups;
const char* const kSub = "AcDbMLeaderStyle";

/// The Standard style as the DXF reference lists its groups (millimetres); no line type, text style
/// or arrow yet.
sim::db::RawTags standardGroups()
{
    const char* byBlock = "-1056964608"; // colour by block, as a signed word
    return {{179, "2"},     {170, "2"},     {171, "1"},     {172, "0"},      {90, "2"},     {40, "0.0"},
            {41, "0.0"},    {173, "1"},     {91, byBlock},  {340, "0"},      {92, "-2"},    {290, "1"},
            {42, "2.0"},    {291, "1"},     {43, "8.0"},    {3, "Standard"}, {44, "2.5"},   {300, ""},
            {342, "0"},     {174, "1"},     {178, "1"},     {175, "1"},      {176, "0"},    {93, byBlock},
            {45, "2.5"},    {292, "0"},     {297, "0"},     {46, "4.0"},     {94, byBlock}, {47, "1.0"},
            {49, "1.0"},    {140, "1.0"},   {293, "1"},     {141, "0.0"},    {294, "1"},    {177, "0"},
            {142, "1.0"},   {295, "0"},     {296, "0"},     {143, "3.75"},   {271, "0"},    {272, "9"},
            {273, "9"}};
}

double realOf(const AcDbObject* o, int code, double def)
{
    KeptGroups g(o, kSub);
    return g.real(g.find(code)).value_or(def);
}
long long intOf(const AcDbObject* o, int code, long long def)
{
    KeptGroups g(o, kSub);
    return g.integer(g.find(code)).value_or(def);
}
AcDbObjectId idOf(const AcDbObject* o, int code)
{
    KeptGroups g(o, kSub);
    return g.id(g.find(code));
}
/// A group of the subclass set; a missing one goes before the group `before` when there is one.
void put(const AcDbObject* o, int code, std::string value, int before = -1)
{
    KeptGroups g(o, kSub);
    g.set(g.find(code), code, std::move(value), before < 0 ? KeptGroups::npos : g.find(before));
}

} // namespace

#define SIM_STYLE_SET(CODE, TEXT)                                                                  \
    do {                                                                                           \
        SIM_DB_ASSERT_WRITE();                                                                     \
        put(this, CODE, TEXT);                                                                     \
        return Acad::eOk;                                                                          \
    } while (0)

AcDbMLeaderStyle::AcDbMLeaderStyle() { KeptGroups(this, kSub).assign(standardGroups()); }

Acad::ErrorStatus AcDbMLeaderStyle::getName(ACHAR*& pszName) const
{
    const ACHAR* n = getName();
    size_t len = std::wcslen(n);
    pszName = new ACHAR[len + 1];
    std::wmemcpy(pszName, n, len + 1);
    return Acad::eOk;
}

const ACHAR* AcDbMLeaderStyle::getName() const
{
    // In a dictionary the style bears the key of its entry.
    if (auto* dict = AcDbDictionary::cast(sim::db::objectOf(ownerId())))
        for (const auto& [key, id] : sim::db::dictionaryEntries(dict))
            if (id == objectId()) {
                m_name = key;
                break;
            }
    return m_name.c_str();
}

Acad::ErrorStatus AcDbMLeaderStyle::setName(const ACHAR* pszName)
{
    SIM_DB_ASSERT_WRITE();
    if (!pszName || !*pszName)
        return Acad::eInvalidInput;
    if (auto* dict = AcDbDictionary::cast(sim::db::objectOf(ownerId()))) {
        std::wstring old = getName();
        if (old != pszName) {
            AcDbObject* open = nullptr;
            if (Acad::ErrorStatus es = acdbOpenObject(open, dict->objectId(), AcDb::kForWrite); es != Acad::eOk)
                return es;
            Acad::ErrorStatus es = dict->setName(old.c_str(), pszName);
            open->close();
            if (es != Acad::eOk)
                return es;
        }
    }
    m_name = pszName;
    return Acad::eOk;
}

const ACHAR* AcDbMLeaderStyle::description() const
{
    static thread_local std::wstring text;
    KeptGroups g(this, kSub);
    size_t at = g.find(3);
    text = at == KeptGroups::npos ? std::wstring() : sim::fromUtf8(g.tags()[at].value);
    return text.c_str();
}
Acad::ErrorStatus AcDbMLeaderStyle::setDescription(const ACHAR* d) { SIM_STYLE_SET(3, sim::toUtf8(d ? d : L"")); }

AcDbObjectId AcDbMLeaderStyle::textStyleId() const { return idOf(this, 342); }
Acad::ErrorStatus AcDbMLeaderStyle::setTextStyleId(AcDbObjectId v) { SIM_STYLE_SET(342, KeptGroups::handleText(v)); }
double AcDbMLeaderStyle::textHeight() const { return realOf(this, 45, 2.5); }
Acad::ErrorStatus AcDbMLeaderStyle::setTextHeight(double v)
{
    if (v < 0.0)
        return Acad::eInvalidInput;
    SIM_STYLE_SET(45, KeptGroups::realText(v));
}
AcDbMLeaderStyle::LeaderType AcDbMLeaderStyle::leaderLineType() const { return static_cast<LeaderType>(intOf(this, 173, 1)); }
Acad::ErrorStatus AcDbMLeaderStyle::setLeaderLineType(LeaderType v) { SIM_STYLE_SET(173, std::to_string(v)); }
AcDbMLeaderStyle::TextAttachmentType AcDbMLeaderStyle::textAttachmentType(LeaderDirectionType d) const
{
    return static_cast<TextAttachmentType>(intOf(this, d == kRightLeader ? 178 : 174, 1));
}
Acad::ErrorStatus AcDbMLeaderStyle::setTextAttachmentType(TextAttachmentType t, LeaderDirectionType d)
{
    if (d != kLeftLeader && d != kRightLeader)
        return Acad::eInvalidInput;
    SIM_STYLE_SET(d == kRightLeader ? 178 : 174, std::to_string(t));
}
double AcDbMLeaderStyle::arrowSize() const { return realOf(this, 44, 2.5); }
Acad::ErrorStatus AcDbMLeaderStyle::setArrowSize(double v)
{
    if (v < 0.0)
        return Acad::eInvalidInput;
    SIM_STYLE_SET(44, KeptGroups::realText(v));
}
AcDbMLeaderStyle::ContentType AcDbMLeaderStyle::contentType() const { return static_cast<ContentType>(intOf(this, 170, 2)); }
Acad::ErrorStatus AcDbMLeaderStyle::setContentType(ContentType v) { SIM_STYLE_SET(170, std::to_string(v)); }
double AcDbMLeaderStyle::doglegLength() const { return realOf(this, 43, 8.0); }
Acad::ErrorStatus AcDbMLeaderStyle::setDoglegLength(double v) { SIM_STYLE_SET(43, KeptGroups::realText(v)); }
double AcDbMLeaderStyle::landingGap() const { return realOf(this, 42, 2.0); }
Acad::ErrorStatus AcDbMLeaderStyle::setLandingGap(double v) { SIM_STYLE_SET(42, KeptGroups::realText(v)); }
bool AcDbMLeaderStyle::textAlignAlwaysLeft() const { return intOf(this, 297, 0) != 0; }
Acad::ErrorStatus AcDbMLeaderStyle::setTextAlignAlwaysLeft(bool v) { SIM_STYLE_SET(297, v ? "1" : "0"); }
double AcDbMLeaderStyle::alignSpace() const { return realOf(this, 46, 4.0); }
Acad::ErrorStatus AcDbMLeaderStyle::setAlignSpace(double v) { SIM_STYLE_SET(46, KeptGroups::realText(v)); }
AcDbObjectId AcDbMLeaderStyle::leaderLineTypeId() const { return idOf(this, 340); }
Acad::ErrorStatus AcDbMLeaderStyle::setLeaderLineTypeId(AcDbObjectId v) { SIM_STYLE_SET(340, KeptGroups::handleText(v)); }
bool AcDbMLeaderStyle::enableLanding() const { return intOf(this, 290, 1) != 0; }
Acad::ErrorStatus AcDbMLeaderStyle::setEnableLanding(bool v) { SIM_STYLE_SET(290, v ? "1" : "0"); }
bool AcDbMLeaderStyle::enableDogleg() const { return intOf(this, 291, 1) != 0; }
Acad::ErrorStatus AcDbMLeaderStyle::setEnableDogleg(bool v) { SIM_STYLE_SET(291, v ? "1" : "0"); }
AcDbObjectId AcDbMLeaderStyle::arrowSymbolId() const { return idOf(this, 341); }
Acad::ErrorStatus AcDbMLeaderStyle::setArrowSymbolId(AcDbObjectId v)
{
    SIM_DB_ASSERT_WRITE();
    // The arrow follows the description in the record.
    KeptGroups g(this, kSub);
    size_t after = g.find(3);
    g.set(g.find(341), 341, KeptGroups::handleText(v), after == KeptGroups::npos ? KeptGroups::npos : after + 1);
    return Acad::eOk;
}
Acad::ErrorStatus AcDbMLeaderStyle::setArrowSymbolId(const ACHAR* name)
{
    SIM_DB_ASSERT_WRITE();
    if (!name || !*name) {
        KeptGroups g(this, kSub);
        if (size_t at = g.find(341); at != KeptGroups::npos)
            g.tags().erase(g.tags().begin() + static_cast<long>(at));
        return Acad::eOk;
    }
    AcDbDatabase* db = databaseToUse();
    AcDbBlockTable* table = nullptr;
    if (!db || db->getBlockTable(table, AcDb::kForRead) != Acad::eOk)
        return Acad::eNoDatabase;
    AcDbObjectId id;
    Acad::ErrorStatus es = table->getAt(name, id);
    table->close();
    return es == Acad::eOk ? setArrowSymbolId(id) : Acad::eKeyNotFound;
}
bool AcDbMLeaderStyle::annotative() const { return intOf(this, 296, 0) != 0; }
Acad::ErrorStatus AcDbMLeaderStyle::setAnnotative(bool v) { SIM_STYLE_SET(296, v ? "1" : "0"); }
double AcDbMLeaderStyle::scale() const { return realOf(this, 142, 1.0); }
Acad::ErrorStatus AcDbMLeaderStyle::setScale(double v)
{
    if (!(v > 0.0))
        return Acad::eInvalidInput;
    SIM_STYLE_SET(142, KeptGroups::realText(v));
}

Acad::ErrorStatus AcDbMLeaderStyle::postMLeaderStyleToDb(AcDbDatabase* pDb, const ACHAR* styleName, AcDbObjectId& mleaderStyleId)
{
    if (!pDb || !styleName || !*styleName)
        return Acad::eInvalidInput;
    AcDbObject* obj = nullptr;
    if (Acad::ErrorStatus es = acdbOpenObject(obj, pDb->mLeaderStyleDictionaryId(), AcDb::kForWrite); es != Acad::eOk)
        return es;
    auto* dict = AcDbDictionary::cast(obj);
    Acad::ErrorStatus es = Acad::eWrongObjectType;
    if (dict) {
        es = dict->getAt(styleName, mleaderStyleId);
        if (es != Acad::eOk) {
            m_name = styleName;
            es = dict->setAt(styleName, this, mleaderStyleId);
        }
    }
    obj->close();
    return es;
}
