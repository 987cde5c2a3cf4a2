// AcDbLayoutManager: the layouts of a drawing by name and which one is active. The host keeps the
// active layout per database; the platform starts every database in model space (TILEMODE 1).
#pragma once
#include "AcString.h"
#include "dbmain.h"

class AcDbLayout;

class AcDbLayoutManager : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbLayoutManager);
    ~AcDbLayoutManager() override = default;

    /// Makes the layout of the name (case ignored; "Model" for model space) the active one and sets
    /// TILEMODE accordingly. eKeyNotFound for a name the drawing lacks. pDb null: the working
    /// database.
    virtual Acad::ErrorStatus setCurrentLayout(const ACHAR* newname, AcDbDatabase* pDb = nullptr);
    virtual Acad::ErrorStatus setCurrentLayoutId(AcDbObjectId layoutId);
    /// The active layout's name; with allowModel false and model space active, the paper layout last
    /// active (else the first by tab order).
    virtual Acad::ErrorStatus getActiveLayoutName(AcString& sName, bool allowModel, const AcDbDatabase* pDb = nullptr);
    /// The block table record of the active layout: *Model_Space while TILEMODE is 1.
    virtual AcDbObjectId getActiveLayoutBTRId(const AcDbDatabase* pDb = nullptr);
    /// The LAYOUT object of the name (case ignored); the null id when there is none.
    virtual AcDbObjectId findLayoutNamed(const ACHAR* name, const AcDbDatabase* pDb = nullptr);
    virtual bool layoutExists(const ACHAR* name, const AcDbDatabase* pDb = nullptr);
    /// The number of layouts, model space included.
    virtual int countLayouts(AcDbDatabase* pDb = nullptr);
};

/// The host's layout manager (the same object acdbHostApplicationServices()->layoutManager() gives).
AcDbLayoutManager* acdbLayoutManager();
