// CTogMaterial: one pipe material (a product line) with its profiles, one per DN row.
#pragma once
#include <afx.h>
#include <map>
#include <memory>
#include "CTogOdkaz.h"
#include "CTogProfil.h"
#include "ParametryMaterialu.h"

class CTogSezMaterialu;

/// Bits of Skupina.
constexpr int kSkupinaZTI = 1, kSkupinaSite = 2, kSkupinyVse = 3;
/// Bits of Pouziti.
constexpr int kPouzitiKanalizace = 1, kPouzitiKanTlakova = 2, kPouzitiVoda = 4, kPouzitiPlyn = 8,
              kPouzitiTeplovody = 16, kPouzitiVse = 31;
/// Values of Tvar.
enum TvarProfilu : Adesk::UInt8 { kTvarKruh = 0, kTvarVejce = 1, kTvarVejcePraha = 2, kTvarTlama = 3, kTvarObdelnik = 4 };
constexpr int kPocetTvaru = 5;
constexpr int kDelkaPrefixu = 7; ///< prefix and suffix: 6 characters and the terminator
constexpr int kMaxDelkaVyrobce = 25;

class CTogMaterial : public CObject {
public:
    using MapaProfilu = std::map<int, std::unique_ptr<CTogProfil>>;

    /// A material of the list (not inserted); a zero mask takes its default (3, 31).
    CTogMaterial(CTogSezMaterialu* seznam, const ACHAR* nazev, int skupina = kSkupinyVse,
                 int pouziti = kPouzitiVse);
    /// A copy for a new list: every stored field, the profiles and the holders.
    CTogMaterial(CTogSezMaterialu* seznam, const CTogMaterial& zdroj);
    /// Deletes the profiles and sets the holders aimed at this material to null.
    ~CTogMaterial() override;
    CTogMaterial(const CTogMaterial&) = delete;
    CTogMaterial& operator=(const CTogMaterial&) = delete;

    /// One material record with its profiles. Loading a first byte of FF sets Poradi to -1 (the end
    /// of the list). Throws CTogException for a version it doesn't know or a damaged record, and the
    /// archive's exceptions for a file that ends inside it.
    void Serialize(CArchive& ar) override;

    /// Applies a dialog's values; see the messages in the implementation. Renaming is the list's.
    void NastavParametry(const ParametryMaterialu& parametry);
    /// The material's values as the dialogs' record (Drsnost as a number).
    ParametryMaterialu Parametry() const;

    /// Adds a profile of the DN row with the dimensions of the material's series; false when the row
    /// is taken or outside the table. `novy` receives the profile.
    bool PridejProfil(int dnIndex, CTogProfil** novy = nullptr);
    /// Replaces all profiles with those of rows a to b; "Nelze přidat profil" on failure.
    void GenerujRadu(int od, int po);
    /// Deletes all profiles and clears the saved flag.
    void VymazProfily();
    /// Deletes one profile; false when there is none or it has holders.
    bool VymazProfil(int dnIndex);
    /// The first free DN row at or above `start` (also stored there); -1 when none is free.
    int PrvniVolneDN(int& start) const;
    /// Inserts copies (without holders) of the source's profiles on rows this material lacks; gives
    /// the new number of profiles.
    int KopirujProfily(const CTogMaterial& zdroj);
    /// Adds copies of the source's profiles on rows this material lacks; with `prepsat` the
    /// dimensions and codes of the rows it has are taken over too.
    void SlucProfily(const CTogMaterial& zdroj, bool prepsat);
    /// True when names, descriptions, manufacturer and the profiles agree.
    bool Shodny(const CTogMaterial& jiny) const;
    /// The profile nearest to the diameter (outer, or inner in mode "DN"); the smaller DN on a tie;
    /// null without profiles.
    CTogProfil* NajdiProfil(double prumer) const;
    /// The profile of a DN row, or null.
    CTogProfil* Profil(int dnIndex) const;

    /// The label settings that the profiles' labels follow.
    NastaveniPopisu Popisy() const;
    /// Clears the saved flag of the list.
    void ZrusUlozeno();

    int Poradi = -2; ///< running number in the file last read; -2 when not read
    int TypPopisu = kPopisDxT;
    ACHAR Prefix[kDelkaPrefixu] = {};
    ACHAR Suffix[kDelkaPrefixu] = {};
    bool VnitrniPrumer = false;
    CString Nazev;
    CString Popis;
    CString PodrobnyPopis;
    CString Vyrobce;
    float Drsnost = 0.00001f; ///< hydraulic roughness in mm
    int Skupina = kSkupinyVse;
    int Pouziti = kPouzitiVse;
    MapaProfilu Profily;
    CTogSezMaterialu* Seznam;
    int PnIndex = -1;
    int SdrIndex = -1;
    Adesk::UInt8 Tvar = kTvarKruh;
    SeznamOdkazu<CTogMaterial> Odkazy;
};
