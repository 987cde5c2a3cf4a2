// AcRxObject and AcRxClass: the host's run-time class system (isA, isKindOf, desc, cast).
#pragma once
#include "adesk.h"
#include "acadstrc.h"

class AcRxClass;

class AcRxObject {
public:
    virtual ~AcRxObject() = default;
    static AcRxClass* desc();
    virtual AcRxClass* isA() const;
    bool isKindOf(const AcRxClass* pClass) const;
    static AcRxObject* cast(const AcRxObject* inPtr) { return const_cast<AcRxObject*>(inPtr); }
    /// A protocol extension of the object's class, or null (queryX of the host).
    AcRxObject* queryX(const AcRxClass* protocolClass) const;
};

class AcRxClass {
public:
    AcRxClass(const ACHAR* name, AcRxClass* parent, const ACHAR* dxfName = nullptr)
        : m_name(name), m_parent(parent), m_dxfName(dxfName) {}
    const ACHAR* name() const { return m_name; }
    const ACHAR* dxfName() const { return m_dxfName; }
    AcRxClass* myParent() const { return m_parent; }
    bool isDerivedFrom(const AcRxClass* other) const
    {
        for (const AcRxClass* c = this; c; c = c->m_parent)
            if (c == other)
                return true;
        return false;
    }

private:
    const ACHAR* m_name;
    AcRxClass* m_parent;
    const ACHAR* m_dxfName;
};

inline AcRxClass* AcRxObject::desc()
{
    static AcRxClass c(L"AcRxObject", nullptr);
    return &c;
}
inline AcRxClass* AcRxObject::isA() const { return desc(); }
inline bool AcRxObject::isKindOf(const AcRxClass* pClass) const { return isA()->isDerivedFrom(pClass); }

/// Declares desc, isA and cast for a class of the host. The class is defined once with
/// ACRX_DEFINE_MEMBERS in the platform.
#define ACRX_DECLARE_MEMBERS(CLASS_NAME)                                                        \
    static AcRxClass* desc();                                                                   \
    AcRxClass* isA() const override;                                                            \
    static CLASS_NAME* cast(const AcRxObject* inPtr)                                            \
    {                                                                                           \
        return (inPtr == nullptr || !inPtr->isKindOf(CLASS_NAME::desc()))                       \
                   ? nullptr                                                                    \
                   : const_cast<CLASS_NAME*>(static_cast<const CLASS_NAME*>(inPtr));            \
    }

#define ACRX_DEFINE_MEMBERS(CLASS_NAME, PARENT_CLASS, DXF_NAME)                                 \
    AcRxClass* CLASS_NAME::desc()                                                               \
    {                                                                                           \
        static AcRxClass c(L## #CLASS_NAME, PARENT_CLASS::desc(), DXF_NAME);                    \
        return &c;                                                                              \
    }                                                                                           \
    AcRxClass* CLASS_NAME::isA() const { return CLASS_NAME::desc(); }
