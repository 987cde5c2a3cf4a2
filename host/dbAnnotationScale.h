// AcDbAnnotationScale: an annotation scale as the context collection hands it out, a copy of the
// drawing's scale that the caller owns.
#pragma once
#include "dbObjContext.h"

class AcDbDatabase;

class AcDbAnnotationScale : public AcDbObjectContext {
public:
    ACRX_DECLARE_MEMBERS(AcDbAnnotationScale);
    AcDbAnnotationScale() = default;
    ~AcDbAnnotationScale() override = default;

    /// Takes over name, units and identity of another annotation scale; eWrongObjectType otherwise.
    virtual Acad::ErrorStatus copyFrom(const AcRxObject* pOther);

    Acad::ErrorStatus getName(AcString& name) const override;
    /// eInvalidInput for an empty name.
    Acad::ErrorStatus setName(const AcString& name) override;
    Adesk::LongPtr uniqueIdentifier() const override { return m_id; }
    const AcString collectionName() const override;

    /// Paper units per the scale's drawing units: 1:50 is paper 1, drawing 50.
    virtual Acad::ErrorStatus getPaperUnits(double& dPaperUnits) const;
    virtual Acad::ErrorStatus getDrawingUnits(double& dDrawingUnits) const;
    /// eInvalidInput for a value not above zero.
    virtual Acad::ErrorStatus setPaperUnits(double dPaperUnits);
    virtual Acad::ErrorStatus setDrawingUnits(double dDrawingUnits);
    virtual Acad::ErrorStatus getIsTemporaryScale(bool& bTemporary) const;
    /// Paper units / drawing units: 1:50 gives 0.02.
    virtual Acad::ErrorStatus getScale(double& dScale) const;
    /// True when the scale is the one of this identifier.
    virtual bool matchScaleId(Adesk::LongPtr id) const { return m_id != 0 && id == m_id; }

private:
    friend class AcDbImpDatabase;
    AcString m_name;
    double m_paper = 1.0;
    double m_drawing = 1.0;
    Adesk::LongPtr m_id = 0;
    AcDbDatabase* m_db = nullptr;
};
