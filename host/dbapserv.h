// AcDbHostApplicationServices: what the host offers the database, above all the working database
// and the search for support files.
#pragma once
#include "dbmain.h"

class AcDbLayoutManager;

class AcDbHostApplicationServices : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbHostApplicationServices);

    enum FindFileHint {
        kDefault = 0,
        kFontFile,
        kCompiledShapeFile,
        kTrueTypeFontFile,
        kEmbeddedImageFile,
        kXRefDrawing,
        kPatternFile,
        kARXApplication,
        kFontMapFile,
        kUnderlayFile,
        kDataLinkFile,
        kPhotometricWebFile,
        kMaterialMapFile,
        kCloudOrProjectFile,
    };

    /// The database that commands work on: the current document's, unless set otherwise.
    AcDbDatabase* workingDatabase() const;
    void setWorkingDatabase(AcDbDatabase* pDatabase);
    /// The host's layout manager; never null.
    AcDbLayoutManager* layoutManager() const;

    /// The full path of a file: the name as given if it exists, else beside the database's own file
    /// (pDb, else the working database), else in the support folders. eFileNotFound when it is
    /// nowhere; eBufferTooSmall when the path does not fit nBufferLength characters.
    virtual Acad::ErrorStatus findFile(ACHAR* pcFullPathOut, int nBufferLength, const ACHAR* pcFilename,
                                       AcDbDatabase* pDb = nullptr, FindFileHint hint = kDefault);
};

/// The host's services; never null.
AcDbHostApplicationServices* acdbHostApplicationServices();
