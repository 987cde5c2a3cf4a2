// The host's in-place text editor: edits a text or an MText where it stands in the drawing.
#pragma once
#include "acadstrc.h"
#include "dbmain.h"

class AcDbMText;
class AcDbText;

/// How the editor opens. Null settings mean the defaults.
class AcEdInplaceTextEditorSettings {
public:
    enum EditFlags {
        kForceOpaqueBackground = 1 << 0,
        kSelectAll = 1 << 1,
        kCursorAtEnd = 1 << 2,
    };
    enum EntityType {
        kDefault,
        kTableCell,
        kMultiAttribute,
    };

    AcEdInplaceTextEditorSettings() = default;
    virtual ~AcEdInplaceTextEditorSettings() = default;

    int editFlags() const { return m_flags; }
    bool setEditFlags(int flags)
    {
        m_flags = flags;
        return true;
    }
    EntityType sourceEntityType() const { return m_type; }
    bool setSourceEntityType(EntityType type)
    {
        m_type = type;
        return true;
    }

private:
    int m_flags = 0;
    EntityType m_type = kDefault;
};

class AcEdInplaceTextEditor {
public:
    /// Edits the contents of an MText open for write (also one in no database). The entity keeps
    /// its old contents when the user cancels.
    static Acad::ErrorStatus invoke(AcDbMText* pMText, const AcEdInplaceTextEditorSettings* pSettings);
    /// Edits the text string of a text (or an attribute) open for write; appendedEntities takes the
    /// texts the editor added below it (none here).
    static Acad::ErrorStatus invoke(AcDbText* pText, const AcEdInplaceTextEditorSettings* pSettings,
                                    AcDbObjectIdArray& appendedEntities);
};
