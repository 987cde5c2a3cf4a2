// CTogOdkaz: a pointer of a client to a material or a profile that registers itself in its target's
// list of holders (Odkazy). A target with holders can't be deleted by the user; a target that goes
// away sets its holders to null; a catalogue replaced by a copy re-aims them (Presmeruj).
#pragma once
#include <algorithm>
#include <vector>
#include "CTogException.h"

template <class T> class CTogOdkaz;

/// The holders of one target.
template <class T> using SeznamOdkazu = std::vector<CTogOdkaz<T>*>;

/// Adds a holder to a target's list; one already there throws.
template <class T> void PridejOdkaz(SeznamOdkazu<T>& seznam, CTogOdkaz<T>* odkaz)
{
    if (std::find(seznam.begin(), seznam.end(), odkaz) != seznam.end())
        throw CTogException("Předaný odkaz již existuje v seznamu odkazů", __LINE__, __FILE__);
    seznam.push_back(odkaz);
}

/// Removes a holder from a target's list; an empty list or a holder not in it throws.
template <class T> void OdeberOdkaz(SeznamOdkazu<T>& seznam, CTogOdkaz<T>* odkaz)
{
    if (seznam.empty())
        throw CTogException("Počet ukazatelů je 0", __LINE__, __FILE__);
    auto it = std::find(seznam.begin(), seznam.end(), odkaz);
    if (it == seznam.end())
        throw CTogException("Předaný ukazatel není v seznamu odkazů", __LINE__, __FILE__);
    seznam.erase(it);
}

template <class T> class CTogOdkaz {
public:
    CTogOdkaz() = default;
    explicit CTogOdkaz(T* cil) { *this = cil; }
    ~CTogOdkaz()
    {
        if (m_cil) {
            auto& seznam = m_cil->Odkazy;
            seznam.erase(std::remove(seznam.begin(), seznam.end(), this), seznam.end());
        }
    }
    CTogOdkaz(const CTogOdkaz&) = delete;
    CTogOdkaz& operator=(const CTogOdkaz&) = delete;

    /// Leaves the old target's list and joins the new one's. Throws on a list that disagrees.
    CTogOdkaz& operator=(T* cil)
    {
        if (cil == m_cil)
            return *this;
        if (m_cil)
            OdeberOdkaz(m_cil->Odkazy, this);
        m_cil = nullptr;
        if (cil)
            PridejOdkaz(cil->Odkazy, this);
        m_cil = cil;
        return *this;
    }

    T* get() const { return m_cil; }
    T* operator->() const { return m_cil; }
    T& operator*() const { return *m_cil; }
    operator T*() const { return m_cil; }

    /// Aims at a target whose list already holds this holder (a copy of the old target): the holder
    /// leaves the old target's list, if it is still there, and the new list is left as it is.
    void Presmeruj(T* cil)
    {
        if (m_cil && m_cil != cil) {
            auto& seznam = m_cil->Odkazy;
            seznam.erase(std::remove(seznam.begin(), seznam.end(), this), seznam.end());
        }
        m_cil = cil;
    }

    /// The target goes away: forgets it without touching its list.
    void Odpoj() { m_cil = nullptr; }

private:
    T* m_cil = nullptr;
};
