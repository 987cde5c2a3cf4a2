// AutoLISP functions of an application: their definition per document, the arguments of a call and
// the answer, and the filters of the host's window messages.
#pragma once
#include <windows.h>
#include "acutads.h"

/// Defines an AutoLISP function in the current document under a function number that the
/// application reads back with acedGetFunCode when the function is called. RTNORM, or RTERROR for
/// an empty name or a negative number.
int acedDefun(const ACHAR* pszName, int nFuncNum);
/// Removes the definition from the current document; RTERROR when name and number do not match one.
int acedUndef(const ACHAR* pszName, int nFuncNum);
/// The function number of the call being made (during kInvkSubrMsg); RTERROR outside a call.
int acedGetFunCode();
/// The arguments of the call being made; the host owns the chain (do not free it). Null when the
/// call has no arguments.
struct resbuf* acedGetArgs();
/// Registers a function the host calls itself for the number, instead of sending kInvkSubrMsg.
int acedRegFunc(int (*fhdl)(), int fcode);

// The answer of the call being made: one of these, once. Each gives RTNORM.
int acedRetStr(const ACHAR* pszString);
int acedRetInt(int nValue);
int acedRetReal(ads_real dValue);
/// A 3D point.
int acedRetPoint(const ads_point pt);
int acedRetName(const ads_name aname, int nType);
int acedRetT();
int acedRetNil();
/// Answers nothing printable (the command line shows an empty line).
int acedRetVoid();
/// A single value of any result type.
int acedRetVal(const struct resbuf* pRb);
/// A list built of the chain's values (RTLB/RTLE for nested lists).
int acedRetList(const struct resbuf* pRb);

/// A filter of the host's window messages; true means the message is used up.
typedef bool (*AcedFilterWinMsgFn)(MSG*);
/// Adds a filter; false when it is there already.
bool acedRegisterFilterWinMsg(const AcedFilterWinMsgFn pfn);
/// Removes a filter; false when it was not there.
bool acedRemoveFilterWinMsg(const AcedFilterWinMsgFn pfn);
