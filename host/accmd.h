// The host's command stack: groups of commands with global and local names, their flags and the
// functions the command line runs.
#pragma once
#include <windows.h>
#include "adesk.h"
#include "acadstrc.h"
#include "rxobject.h"
#include "rxregsvc.h"

/// A command's function: no arguments, no result.
typedef void (*AcRxFunctionPtr)();

class AcEdUIContext;

// Command flags (addCommand's commandFlags).
#define ACRX_CMD_MODAL 0x00000000
#define ACRX_CMD_TRANSPARENT 0x00000001
#define ACRX_CMD_USEPICKSET 0x00000002
#define ACRX_CMD_REDRAW 0x00000004
#define ACRX_CMD_NOPERSPECTIVE 0x00000008
#define ACRX_CMD_NOMULTIPLE 0x00000010
#define ACRX_CMD_NOTILEMODE 0x00000020
#define ACRX_CMD_NOPAPERSPACE 0x00000040
#define ACRX_CMD_PLOTONLY 0x00000080
#define ACRX_CMD_NOOEM 0x00000100
#define ACRX_CMD_UNDEFINED 0x00000200
#define ACRX_CMD_INPROGRESS 0x00000400
#define ACRX_CMD_DEFUN 0x00000800
#define ACRX_CMD_NONEWSTACK 0x00010000
#define ACRX_CMD_NOINTERNALLOCK 0x00020000
#define ACRX_CMD_DOCREADLOCK 0x00080000
#define ACRX_CMD_DOCEXCLUSIVELOCK 0x00100000
#define ACRX_CMD_SESSION 0x00200000
#define ACRX_CMD_INTERRUPTIBLE 0x00400000
#define ACRX_CMD_NOHISTORY 0x00800000
#define ACRX_CMD_NO_UNDO_MARKER 0x01000000
#define ACRX_CMD_NOBEDIT 0x02000000

/// One registered command. The stack owns it.
class AcEdCommand : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcEdCommand);
    virtual AcRxFunctionPtr functionAddr() const = 0;
    virtual void functionAddr(AcRxFunctionPtr fhdl) = 0;
    /// The application that added the command (its id as the linker knows it), or null.
    virtual void* commandApp() const = 0;
    virtual AcEdUIContext* UIContext() const = 0;
    virtual int functionCode() const = 0;
    virtual void functionCode(int fcode) = 0;
    virtual const ACHAR* globalName() const = 0;
    virtual const ACHAR* localName() const = 0;
    virtual Adesk::Int32 commandFlags() const = 0;
    virtual HINSTANCE resourceHandle() const = 0;
};

/// Walks the stack's commands, group by group from the top. The caller deletes it.
class AcEdCommandIterator : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcEdCommandIterator);
    virtual bool done() const = 0;
    virtual bool next() = 0;
    virtual const AcEdCommand* command() const = 0;
    virtual const ACHAR* commandGroup() const = 0;
};

/// The stack of command groups. Names are looked up without regard to case; the group added last
/// is searched first.
class AcEdCommandStack : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcEdCommandStack);
    /// Adds a command to a group, creating the group on top of the stack when it is new. A global
    /// or local name already in that group gives eDuplicateKey and changes nothing.
    virtual Acad::ErrorStatus addCommand(const ACHAR* cmdGroupName, const ACHAR* cmdGlobalName,
                                         const ACHAR* cmdLocalName, Adesk::Int32 commandFlags,
                                         AcRxFunctionPtr functionAddr, AcEdUIContext* UIContext = nullptr,
                                         int fcode = -1, HINSTANCE hResourceHandle = nullptr,
                                         AcEdCommand** cmdPtrRet = nullptr) = 0;
    virtual AcEdCommandIterator* iterator() = 0;
    /// The command of that global name in the topmost group that has one, or null.
    virtual AcEdCommand* lookupGlobalCmd(const ACHAR* cmdName) = 0;
    /// The command of that local name in the topmost group that has one, or null.
    virtual AcEdCommand* lookupLocalCmd(const ACHAR* cmdName) = 0;
    virtual AcEdCommand* lookupCmd(const ACHAR* cmdName, bool globalFlag) = 0;
    virtual Acad::ErrorStatus popGroupToTop(const ACHAR* cmdGroupName) = 0;
    /// eKeyNotFound when the group or the command in it does not exist.
    virtual Acad::ErrorStatus removeCmd(const ACHAR* cmdGroupName, const ACHAR* cmdGlobalName) = 0;
    /// Removes the group with all its commands; eKeyNotFound when there is no such group.
    virtual Acad::ErrorStatus removeGroup(const ACHAR* groupName) = 0;
};

#define acedRegCmds AcEdCommandStack::cast(acrxSysRegistry()->at(ACRX_COMMAND_DOCK))
