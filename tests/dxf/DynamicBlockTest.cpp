// Dynamic properties of a level mark block survive the file: the definition's allowed values and
// a reference's own values.
#include "DxfFixture.h"

#include "dbents.h"
#include "sim/db/DynamicBlock.h"

using namespace dxftest;
using sim::db::DynamicProperty;
using sim::db::DynamicValue;

namespace {

DynamicValue real(double v)
{
    DynamicValue d;
    d.kind = DynamicValue::kReal;
    d.real = v;
    return d;
}

DynamicValue shortValue(short v)
{
    DynamicValue d;
    d.kind = DynamicValue::kShort;
    d.integer = v;
    return d;
}

DynamicValue text(const wchar_t* v)
{
    DynamicValue d;
    d.kind = DynamicValue::kText;
    d.text = v;
    return d;
}

void setProperties(AcDbObjectId id, const std::vector<DynamicProperty>& props, bool definition)
{
    AcDbObjectPointer<AcDbObject> obj(id, AcDb::kForWrite);
    resbuf* xd = sim::db::dynamicPropertiesXData(props, definition);
    ASSERT_EQ(obj->setXData(xd), Acad::eOk);
    acutRelRb(xd);
}

} // namespace

class DynamicBlock : public DxfTest {};

TEST_F(DynamicBlock, DefinitionAndReferenceKeepTheirProperties)
{
    AcDbDatabase db;
    AcDbObjectId blockId;
    {
        auto* btr = new AcDbBlockTableRecord;
        btr->setName(L"tg_kacena");
        AcDbBlockTablePointer(&db, AcDb::kForWrite)->add(blockId, btr);
        btr->close();
    }
    std::vector<DynamicProperty> definition = {
        {L"OTOCENI", real(0.0), {real(0.0), real(3.14159)}},
        {L"VIDITELNOST", shortValue(1), {shortValue(0), shortValue(1), shortValue(2)}},
        {L"TYP", text(L"nad"), {text(L"nad"), text(L"pod")}},
        {L"DELKA", real(10.0), {}},
    };
    setProperties(blockId, definition, true);
    AcDbObjectId refId = append(db, new AcDbBlockReference(AcGePoint3d(1, 2, 0), blockId));
    std::vector<DynamicProperty> values = {{L"TYP", text(L"pod"), {}}, {L"VIDITELNOST", shortValue(2), {}}};
    setProperties(refId, values, false);

    std::string first = write(db);
    auto back = read(first);
    EXPECT_EQ(write(*back), first);
    EXPECT_EQ(sim::db::dynamicProperties(*same<AcDbBlockTableRecord>(*back, blockId)), definition);
    EXPECT_EQ(sim::db::dynamicProperties(*same<AcDbBlockReference>(*back, refId)), values);
    EXPECT_TRUE(AcDbRegAppTablePointer(back.get())->has(sim::db::kDynamicBlockApp));
}
