// AcDbXrecord: a chain of result buffers kept in a drawing, usually as an entry of a dictionary.
#pragma once
#include "dbmain.h"

class AcDbXrecord : public AcDbObject {
public:
    ACDB_DECLARE_MEMBERS(AcDbXrecord);
    AcDbXrecord() = default;
    AcDbXrecord(const AcDbXrecord& other);
    AcDbXrecord& operator=(const AcDbXrecord& other);
    ~AcDbXrecord() override;

    /// A copy of the chain (null when empty); the caller frees it with acutRelRb.
    Acad::ErrorStatus rbChain(resbuf*& ppRb, AcDbDatabase* auxDb = nullptr) const;
    /// Replaces the chain by a copy of the given one. Needs the record open for write.
    Acad::ErrorStatus setFromRbChain(const resbuf& pRb, AcDbDatabase* auxDb = nullptr);
    bool isXlateReferences() const { return m_xlate; }
    void setXlateReferences(bool translate);
    AcDb::DuplicateRecordCloning mergeStyle() const { return m_mergeStyle; }
    void setMergeStyle(AcDb::DuplicateRecordCloning style);

private:
    resbuf* m_chain = nullptr;
    bool m_xlate = true;
    AcDb::DuplicateRecordCloning m_mergeStyle = AcDb::kDrcIgnore;
};
