// Pick one entity: the selection opening that many commands share. The entities selected before
// the command count first; else the user picks one, filtered by entity types.
#pragma once
#include <initializer_list>
#include "acedads.h"

/// A filter chain on entity types, in the host's form: -4 "<or", the types under code 0, -4 "or>".
class FiltrTypu {
public:
    FiltrTypu(std::initializer_list<const ACHAR*> typy);
    ~FiltrTypu();
    FiltrTypu(const FiltrTypu&) = delete;
    FiltrTypu& operator=(const FiltrTypu&) = delete;
    const resbuf* Retezec() const { return m_retezec; }

private:
    resbuf* m_retezec = nullptr;
};

/// A selection set that the holder frees when it goes.
class SadaVyberu {
public:
    SadaVyberu() = default;
    ~SadaVyberu() { Uvolni(); }
    SadaVyberu(const SadaVyberu&) = delete;
    SadaVyberu& operator=(const SadaVyberu&) = delete;

    /// The name to hand to acedSSGet; the set held before is freed first.
    ads_name& ProVyber();
    const ads_name& Jmeno() const { return m_jmeno; }
    bool Plna() const { return m_plna; }
    /// Marks the set as made by acedSSGet (after an answer RTNORM).
    void Prevzata() { m_plna = true; }
    void Uvolni();
    /// The number of entities; 0 for no set.
    long Pocet() const;
    /// The id of the i-th entity (the top-level one); null on failure.
    AcDbObjectId Id(long i) const;

private:
    ads_name m_jmeno = {0, 0};
    bool m_plna = false;
};

/// Runs acedSSGet into the set; true for RTNORM. Gives the host's result in vysledek when asked.
bool VyberDoSady(SadaVyberu& sada, const ACHAR* rezim, const resbuf* filtr, int* vysledek = nullptr);

/// The pick of one entity: the implied selection ("_I", cleared from the screen when taken), else
/// "\nVyber <noun>:" and single picks (":S", or nested single picks when rezim says so) until one
/// passes the filter. Enter, Escape or a failure of the host end it with false; any other answer
/// prints "\nMusíte vybrat <noun>!!!" and asks again. The first entity of the set counts.
bool VyberJednuEntitu(SadaVyberu& sada, const resbuf* filtr, const ACHAR* nazev, const ACHAR* rezim = L":S");
