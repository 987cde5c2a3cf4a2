// AcDbBlockReference: an insertion of a block definition, its transform, and its attributes.
#include <algorithm>
#include <cmath>

#include "dbents.h"
#include "dbsymtb.h"
#include "sim/db/DefineMembers.h"
#include "sim/db/Geometry.h"
#include "sim/db/ImpDatabase.h"

namespace geom = sim::db::geom;

SIM_DB_DEFINE_MEMBERS(AcDbBlockReference, AcDbEntity, L"INSERT")

Acad::ErrorStatus AcDbBlockReference::setBlockTableRecord(AcDbObjectId newVal)
{
    SIM_DB_ASSERT_WRITE();
    if (newVal.isNull())
        return Acad::eNullObjectId;
    AcDbObject* obj = AcDbImpDatabase::lookup(newVal);
    if (!AcDbBlockTableRecord::cast(obj))
        return obj ? Acad::eWrongObjectType : Acad::eUnknownHandle;
    if (database() && newVal.database() != database())
        return Acad::eWrongDatabase;
    m_block = newVal;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbBlockReference::setPosition(const AcGePoint3d& newVal)
{
    SIM_DB_ASSERT_WRITE();
    m_position = newVal;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbBlockReference::setScaleFactors(const AcGeScale3d& scale)
{
    SIM_DB_ASSERT_WRITE();
    if (scale.sx == 0.0 || scale.sy == 0.0 || scale.sz == 0.0)
        return Acad::eInvalidInput;
    m_scale = scale;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbBlockReference::setRotation(double newVal)
{
    SIM_DB_ASSERT_WRITE();
    m_rotation = newVal;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbBlockReference::setNormal(const AcGeVector3d& newVal)
{
    SIM_DB_ASSERT_WRITE();
    if (newVal.isZeroLength())
        return Acad::eInvalidInput;
    m_normal = newVal.normal();
    return Acad::eOk;
}

AcGeMatrix3d AcDbBlockReference::blockTransform() const
{
    AcGePoint3d base;
    if (auto* btr = AcDbBlockTableRecord::cast(AcDbImpDatabase::lookup(m_block)))
        base = btr->origin();
    AcGeVector3d x, y;
    geom::ocsAxes(m_normal, x, y);
    AcGeMatrix3d plane;
    plane.setCoordSystem(m_position, x, y, m_normal.normal());
    AcGeMatrix3d scale;
    scale(0, 0) = m_scale.sx;
    scale(1, 1) = m_scale.sy;
    scale(2, 2) = m_scale.sz;
    return plane * AcGeMatrix3d::rotation(m_rotation, AcGeVector3d::kZAxis) * scale *
           AcGeMatrix3d::translation(AcGePoint3d::kOrigin - base);
}

Acad::ErrorStatus AcDbBlockReference::setBlockTransform(const AcGeMatrix3d& mat)
{
    SIM_DB_ASSERT_WRITE();
    AcGePoint3d base;
    if (auto* btr = AcDbBlockTableRecord::cast(AcDbImpDatabase::lookup(m_block)))
        base = btr->origin();
    AcGePoint3d origin;
    AcGeVector3d bx, by, bz;
    mat.getCoordSystem(origin, bx, by, bz);
    double sx = bx.length(), sy = by.length(), sz = bz.length();
    if (sx == 0.0 || sy == 0.0 || sz == 0.0)
        return Acad::eInvalidInput;
    AcGeVector3d n = bz.normal();
    // A mirrored transform keeps the normal of its Z axis and mirrors in X.
    if (bx.crossProduct(by).dotProduct(bz) < 0)
        sx = -sx;
    AcGeVector3d x, y;
    geom::ocsAxes(n, x, y);
    AcGeVector3d dirX = bx * (1.0 / sx);
    m_rotation = geom::normalizeAngle(std::atan2(dirX.dotProduct(y), dirX.dotProduct(x)));
    m_normal = n;
    m_scale = AcGeScale3d(sx, sy, sz);
    m_position = mat.apply(base);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockReference::appendAttribute(AcDbAttribute* pAttr)
{
    AcDbObjectId id;
    return appendAttribute(id, pAttr);
}

Acad::ErrorStatus AcDbBlockReference::appendAttribute(AcDbObjectId& attId, AcDbAttribute* pAttr)
{
    attId = AcDbObjectId::kNull;
    if (!pAttr)
        return Acad::eNullObjectPointer;
    AcDbImpDatabase* db = AcDbImpDatabase::of(database());
    if (!db)
        return Acad::eNoDatabase;
    SIM_DB_ASSERT_WRITE();
    if (pAttr->database())
        return Acad::eAlreadyInDb;
    if (pAttr->layerId().isNull())
        AcDbImpDatabase::layerId(pAttr) = layerId();
    if (pAttr->linetypeId().isNull())
        AcDbImpDatabase::linetypeId(pAttr) = database()->celtype();
    Acad::ErrorStatus es = db->addObject(pAttr, objectId(), attId);
    if (es != Acad::eOk)
        return es;
    m_attributes.push_back(attId);
    if (m_seqEnd.isNull()) {
        auto* end = new AcDbSequenceEnd;
        AcDbImpDatabase::layerId(end) = layerId();
        db->addObject(end, objectId(), m_seqEnd, AcDbHandle(), false);
    }
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockReference::openAttribute(AcDbAttribute*& pAttr, AcDbObjectId attId, AcDb::OpenMode mode, bool openErasedOne)
{
    pAttr = nullptr;
    if (std::find(m_attributes.begin(), m_attributes.end(), attId) == m_attributes.end())
        return Acad::eKeyNotFound;
    return acdbOpenObject(pAttr, attId, mode, openErasedOne);
}

Acad::ErrorStatus AcDbBlockReference::openSequenceEnd(AcDbSequenceEnd*& pSeqEnd, AcDb::OpenMode mode)
{
    return acdbOpenObject(pSeqEnd, m_seqEnd, mode);
}

AcDbObjectIterator* AcDbBlockReference::attributeIterator() const
{
    auto* it = new AcDbObjectIterator(m_attributes);
    it->start();
    return it;
}

Acad::ErrorStatus AcDbBlockReference::transformBy(const AcGeMatrix3d& xform)
{
    SIM_DB_ASSERT_WRITE();
    AcGeMatrix3d before = blockTransform();
    Acad::ErrorStatus es = setBlockTransform(xform * before);
    if (es != Acad::eOk)
        return es;
    // The attributes go with the reference, whatever their open state.
    AcDbImpDatabase* db = AcDbImpDatabase::of(database());
    for (AcDbObjectId id : m_attributes) {
        auto* attr = AcDbAttribute::cast(AcDbImpDatabase::lookup(id));
        if (!attr || !db)
            continue;
        db->touch(attr);
        AcDbImpObject* ai = AcDbImpDatabase::imp(attr);
        bool wasWriter = ai->writer;
        ai->writer = true;
        attr->transformBy(xform);
        ai->writer = wasWriter;
    }
    return Acad::eOk;
}
