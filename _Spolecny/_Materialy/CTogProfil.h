// CTogProfil: one profile (nominal diameter) of a material: inner diameter, wall, width, the two
// price-list codes and the labels derived from them.
#pragma once
#include <afx.h>
#include "CTogOdkaz.h"
#include "PopisProfilu.h"

class CTogMaterial;

constexpr int kDelkaUrs = 11; ///< a price-list code: 9 characters and the terminator, room for 10 read

class CTogProfil : public CObject {
public:
    /// For reading: DnIndex -1, all else zero. The owner is never null and not owned.
    explicit CTogProfil(CTogMaterial* material);
    /// A copy for a new owner: DnIndex, dimensions, width, codes and holders; labels rebuilt.
    CTogProfil(CTogMaterial* material, const CTogProfil& zdroj);
    /// Sets the holders aimed at this profile to null.
    ~CTogProfil() override;
    CTogProfil(const CTogProfil&) = delete;
    CTogProfil& operator=(const CTogProfil&) = delete;

    /// One profile record; loading a first byte of FF leaves DnIndex -1 (the end of the profiles).
    /// A loaded record's bad values are replaced and reported; its labels are rebuilt.
    void Serialize(CArchive& ar) override;

    /// Rebuilds both labels and clears the list's saved flag; "Nepodařilo se vytvořit popis" when a
    /// label does not fit.
    void AktualizujPopis();
    /// Moves the profile to another DN row of its material; false for its own row, a taken row or a
    /// row outside the table. With `prevzitPrumer` the inner diameter becomes the row's DN.
    bool ZmenDN(int novyIndex, bool prevzitPrumer);
    /// True when DN, inner diameter (0.001), wall (0.0001) or the material code differ.
    bool LisiSe(const CTogProfil& jiny) const;

    /// (Stena + Stena) + Vnitrni, in f32.
    float Vnejsi() const { return VnejsiPrumer(Vnitrni, Stena); }
    /// The codes, 9 characters at most; a longer one throws "Chyba při kopírování řetězce".
    void NastavUrsMaterial(const ACHAR* kod);
    void NastavUrsMontaz(const ACHAR* kod);
    /// Clears the saved flag of the list the material belongs to.
    void ZrusUlozeno();

    int DnIndex = -1;
    float Vnitrni = 0.0f; ///< inner diameter in mm; the height of a non-round shape
    float Stena = 0.0f;   ///< wall in mm
    int Sirka = 0;        ///< width in mm, for non-round shapes
    CTogMaterial* Material;
    ACHAR UrsMaterial[kDelkaUrs] = {};
    ACHAR UrsMontaz[kDelkaUrs] = {};
    ACHAR Popisek[kDelkaPopisku] = {};
    ACHAR PopisekKratky[kDelkaPopiskuKratky] = {};
    SeznamOdkazu<CTogProfil> Odkazy;
};
