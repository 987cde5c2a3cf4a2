// AcDbXrecord: a deep copy of a result-buffer chain.
#include "dbxrecrd.h"
#include "sim/core/ResBuf.h"
#include "sim/db/DefineMembers.h"

SIM_DB_DEFINE_MEMBERS(AcDbXrecord, AcDbObject, L"XRECORD")

AcDbXrecord::AcDbXrecord(const AcDbXrecord& other)
    : AcDbObject(other), m_chain(sim::copyChain(other.m_chain)), m_xlate(other.m_xlate), m_mergeStyle(other.m_mergeStyle)
{
}

AcDbXrecord& AcDbXrecord::operator=(const AcDbXrecord& other)
{
    if (this != &other) {
        AcDbObject::operator=(other);
        resbuf* copy = sim::copyChain(other.m_chain);
        acutRelRb(m_chain);
        m_chain = copy;
        m_xlate = other.m_xlate;
        m_mergeStyle = other.m_mergeStyle;
    }
    return *this;
}

AcDbXrecord::~AcDbXrecord() { acutRelRb(m_chain); }

Acad::ErrorStatus AcDbXrecord::rbChain(resbuf*& ppRb, AcDbDatabase*) const
{
    ppRb = sim::copyChain(m_chain);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbXrecord::setFromRbChain(const resbuf& pRb, AcDbDatabase*)
{
    SIM_DB_ASSERT_WRITE();
    // Only group codes of the data of a record go in: a result type of ADS (RTSTR, ...) or a code of
    // the record structure (0) would break the record when the drawing is saved.
    for (const resbuf* rb = &pRb; rb; rb = rb->rbnext)
        if (rb->restype <= 0 || rb->restype >= 1100 || sim::rbKind(rb->restype) == sim::RbKind::None)
            return Acad::eInvalidDxfCode;
    resbuf* copy = sim::copyChain(&pRb);
    acutRelRb(m_chain);
    m_chain = copy;
    return Acad::eOk;
}

void AcDbXrecord::setXlateReferences(bool translate)
{
    if (sim::db::beginChange(this))
        m_xlate = translate;
}

void AcDbXrecord::setMergeStyle(AcDb::DuplicateRecordCloning style)
{
    if (sim::db::beginChange(this))
        m_mergeStyle = style;
}
