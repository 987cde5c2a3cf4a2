// CTgDlgMatEdituj: the material editor. The picker's panes made editable: materials are added, copied,
// edited and deleted on the left, profiles added, generated, deleted and edited in their cells on the
// right, catalogue files loaded. It works on a copy of the list: OK saves the copy and puts it in place
// of the list, Cancel drops it.
#pragma once
#include "CCheckedEdit.h"
#include "CTgDlgMatVyber.h"
#include "ParametryMaterialu.h"

class CTgDlgMatEdituj : public CTgDlgMatVyber {
public:
    enum { IDD = 612 };
    enum : int {
        IDC_NOVY = 11066,
        IDC_KOPIE = 11065,
        IDC_UPRAVIT = 11067,
        IDC_SMAZAT = 11064,
        IDC_ULOZ = 11082,
        IDC_ZRUS = 11083,
        IDC_PRIDEJ_PROFIL = 11068,
        IDC_SMAZ_PROFIL = 11069,
        IDC_SMAZ_PROFILY = 11071,
        IDC_GENERUJ = 11085,
        IDC_URS_MONTAZ = 11081,
        IDC_URS_MATERIAL = 11072,
        IDC_NACTI_SOUBOR = 11058,
        IDC_NACTI_STANDARD = 11056,
    };
    /// The edit states of the left pane.
    enum Stav { kZadny = 0, kNovy = 1, kKopie = 2, kUprava = 3 };
    /// The columns of the tree-list.
    enum Sloupec { kProfil = 0, kOD, kStena, kID, kDN, kSirka };

    /// seznam: the list that OK replaces; vybrany: a material of it to select, may be null.
    CTgDlgMatEdituj(CTogSezMaterialu* seznam, std::uint64_t filtr, CTogMaterial* vybrany, CWnd* pRodic = nullptr);
    /// Lets go of the holders that the copy listed, so that they stay with the real list.
    ~CTgDlgMatEdituj() override;

    int Stav() const { return m_stav; }

    /// The check of a cell's value and its effect on the profile: an empty text when it was applied,
    /// else the message that refuses it. Pure model work, no window.
    static CString ZkontrolujBunku(CTogProfil& profil, int sloupec, double hodnota);
    /// The commit of a cell that passed its check.
    static void PrevezmiBunku(CTogProfil& profil, int sloupec, double hodnota);

protected:
    void NaplnStrom() override;
    void ZobrazDetaily(const CTogMaterial* material) override;
    CString TextProfilu(const CTogProfil& profil, int sloupec) const override;
    int KontextNapovedy() const override { return 5; }
    void VybranMaterial(CTogMaterial* material) override;
    void VybranProfil(CTogProfil* stary, CTogProfil* novy) override;

    BOOL OnInitDialog() override;
    void DoDataExchange(CDataExchange* pDX) override;
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;
    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    void OnOK() override;
    void OnCancel() override;

    /// The state and the controls it enables.
    void NastavStav(int stav);
    void OnNovy();
    void OnKopieNeboUprava(int stav);
    void OnSmazat();
    /// Saves the details in states 1 to 3; false (the state stays) when they can't be saved.
    bool UlozDetaily();
    void OnZrus();
    /// The details into m_parametry; false with a balloon for a roughness out of its range.
    bool PrevezmiDetaily();
    void OnPridejProfil();
    void OnSmazProfil();
    void OnSmazProfily();
    void OnGeneruj();
    void OnNactiSoubor();
    void OnNactiStandard();
    /// Removes every material that has no holder (a used one stays).
    void VymazNepouzite();
    /// The list again, everything shown, after a load.
    void PoNacteni();
    /// The codes of the URS edits into the profile left, if it is still there.
    void UlozUrs();
    /// At least one box of the group stays on; a box turned off as the last one comes back.
    void AsponJeden(int id, const int* skupina, int pocet);
    void OnJinyPopis();
    /// The tree-list's line of the profile, selected.
    void VyberProfil(const CTogProfil* profil);
    /// Sirka editable and the heading of ID by the material's shape.
    void PodleTvaru(const CTogMaterial* material);

    CTogSezMaterialu m_pracovni;
    CTogSezMaterialu* m_skutecny;
    ParametryMaterialu m_parametry;
    int m_stav = kZadny;
    CTogMaterial* m_upravovany = nullptr;
    int m_predchoziPopis = 1;
    CCheckedEdit m_edNazev;
    CCheckedEdit m_edPopis;
    CCheckedEdit m_edVyrobce;
    CDoubleEdit m_edDrsnost;
    CCheckedEdit m_edUrsMontaz;
    CCheckedEdit m_edUrsMaterial;
};
