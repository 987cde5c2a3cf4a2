// CTgDlgMatVyber: the material picker. Materials of the catalogue under the filter radios on the left,
// the selected material's values, and its profiles in the tree-list; gives the chosen material and,
// when asked for, a profile.
#pragma once
#include <afxcmn.h>

#include <cstdint>

#include "CTgAcDialog.h"
#include "CTogSezMaterialu.h"
#include "CTreeListCtrl.h"

class CTgDlgMatVyber : public CTgAcDialog {
public:
    enum { IDD = 613 };
    enum : int {
        IDC_NADPIS_MATERIAL = 11100,
        IDC_NADPIS_PROFIL = 11101,
        IDC_SEZNAM = 11063,
        IDC_STROM = CTreeListCtrl::kIdMista,
        IDC_ZTI = 11030,
        IDC_SITE = 11031,
        IDC_SKUPINY_VSE = 11032,
        IDC_KANALIZACE = 11020,
        IDC_POUZITI_VSE = 11025,
        IDC_NAZEV = 11084,
        IDC_POPIS = 11086,
        IDC_VYROBCE = 11070,
        IDC_PODROBNY_POPIS = 11051,
        IDC_PN = 11073,
        IDC_SDR = 11074,
        IDC_DRSNOST = 11075,
        IDC_POPIS_DN = 11010,
        IDC_POPIS_DXT = 11011,
        IDC_POPIS_JINY = 11012,
        IDC_KRUH = 11035,
        IDC_OBDELNIK = 11039,
        IDC_SK_ZTI = 11087,
        IDC_SK_SITE = 11088,
        IDC_EDITACE = 11047,
        IDC_NAPOVEDA = 11050,
    };
    /// The media check boxes by bit of Pouziti: Kanalizace, Kan. tlaková, Voda, Plyn, Teplovody/UT.
    static constexpr int kPrvkyPouziti[5] = {11078, 11080, 11076, 11077, 11079};

    /// filtr: group mask in the low half, media in the high half (FiltrMaterialu); vybrany: the
    /// material selected at the start, may be null; profil: a profile is to be chosen too.
    CTgDlgMatVyber(CTogSezMaterialu* seznam, std::uint64_t filtr, CTogMaterial* vybrany, bool profil,
                   CWnd* pRodic = nullptr, UINT idd = IDD);

    // The choice: the selected material (and profile) while the dialog runs, the result after OK.
    CTogMaterial* m_material;
    CTogProfil* m_profil = nullptr;

protected:
    /// The tree-list's columns, once it is created.
    virtual void NaplnStrom();
    /// A line of the tree-list for the profile; its cells ask the dialog for their texts.
    virtual void PridejRadekProfilu(CTogProfil* profil);
    /// The material's values in the left pane; null clears them.
    virtual void ZobrazDetaily(const CTogMaterial* material);
    /// The list again from the catalogue under the filter, sorted by name; selects m_material or the
    /// first row.
    virtual void ObnovSeznam();
    /// The text of a cell of the tree-list.
    virtual CString TextProfilu(const CTogProfil& profil, int sloupec) const;
    /// The context of the help file that "?" opens.
    virtual int KontextNapovedy() const { return 4; }
    /// The selected material changed (the list's row); the profiles follow.
    virtual void VybranMaterial(CTogMaterial* material);
    /// The selected line of the tree-list changed.
    virtual void VybranProfil(CTogProfil* stary, CTogProfil* novy);

    BOOL OnInitDialog() override;
    void DoDataExchange(CDataExchange* pDX) override;
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;
    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
    void OnOK() override;

    /// The lines of the tree-list for the selected material, in DN order; selects the first.
    void NaplnProfily();
    /// Selects the list's row of the material (the first row for null or a material not shown).
    void VyberRadek(const CTogMaterial* material);
    /// The filter radios from m_filtr, and back.
    void NastavFiltr();
    void PrevezmiFiltr();
    void OnEditace();
    HTREEITEM RadekProfilu(const CTogProfil* profil) const;

    CTogSezMaterialu* m_seznam;
    std::uint64_t m_filtr;
    bool m_chciProfil;
    CListCtrl m_seznamMaterialu;
    CTreeListCtrl m_strom;
};

/// Compares the materials of two rows by name: Czech order, without regard to case.
int CALLBACK PorovnejNazvyMaterialu(LPARAM a, LPARAM b, LPARAM);
