// AcDbDynBlockReference: a block reference seen as a dynamic block, its properties by name, and the
// definitions behind it (the dynamic block and the anonymous block that shows the current values).
#pragma once
#include "AcString.h"
#include "dbeval.h"
#include "dbid.h"
#include "dbmain.h"

class AcDbBlockReference;

/// One property of a dynamic block reference: its name, kind, value and the values it allows.
class AcDbDynBlockReferenceProperty {
public:
    AcDbDynBlockReferenceProperty() = default;

    AcDbObjectId blockId() const { return m_ref; }
    AcString propertyName() const { return m_name.c_str(); }
    AcDb::DwgDataType propertyType() const { return m_value.getType(); }
    bool readOnly() const { return false; }
    bool show() const { return true; }
    AcDbEvalVariant value() const { return m_value; }
    /// Sets the value on the reference and brings what the reference shows up to date. eInvalidInput
    /// for a value of another kind or one the definition doesn't allow; the reference must be open
    /// for write when the property came from an open reference, else it is opened here.
    Acad::ErrorStatus setValue(const AcDbEvalVariant& value);
    /// The values the definition allows; empty for any.
    Acad::ErrorStatus getAllowedValues(AcDbEvalVariantArray& allowedValues) const
    {
        allowedValues = m_allowed;
        return Acad::eOk;
    }

private:
    friend class AcDbDynBlockReference;
    AcDbObjectId m_ref;
    AcDbBlockReference* m_open = nullptr; ///< the reference, when the caller holds it open
    std::wstring m_name;
    AcDbEvalVariant m_value;
    AcDbEvalVariantArray m_allowed;
};

typedef AcArray<AcDbDynBlockReferenceProperty> AcDbDynBlockReferencePropertyArray;

class AcDbDynBlockReference {
public:
    /// A reference by id; it is opened for each call.
    explicit AcDbDynBlockReference(AcDbObjectId blockRefId);
    /// A reference the caller holds open (for write, where properties are to be set).
    explicit AcDbDynBlockReference(AcDbBlockReference* pRef);

    /// True when the block table record is a dynamic block or a representation of one.
    static bool isDynamicBlock(AcDbObjectId blockTableRecordId);
    bool isDynamicBlock() const;
    AcDbObjectId blockId() const { return m_ref; }
    /// The properties with their current values; empty for a reference that isn't dynamic.
    void getBlockProperties(AcDbDynBlockReferencePropertyArray& properties) const;
    /// Every property back to the definition's default.
    Acad::ErrorStatus resetBlock();
    /// The dynamic block definition (not the anonymous block the reference points to).
    AcDbObjectId dynamicBlockTableRecord() const;
    /// The anonymous block that shows the current values; null while the reference points to the
    /// definition itself.
    AcDbObjectId anonymousBlockTableRecord() const;

private:
    AcDbObjectId m_ref;
    AcDbBlockReference* m_open = nullptr;
};
