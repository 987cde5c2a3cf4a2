// CTgDlgPropInfo: shows what an entity is (class, layer, colours, line type and weight), and for an
// entity inside a block the reference that holds it. It only displays.
#pragma once
#include "AcString.h"
#include "CTgAcDialog.h"
#include "CTogTrueColorComboBox.h"

/// What the dialog shows; texts as they stand in the fields.
struct InfoOEntite {
    AcString trida, hladina, typCary, typCaryHladiny, tloustka, tloustkaHladiny, meritkoTypuCary;
    AcCmColor barva, barvaHladiny;
    /// The block section: filled only for an entity inside a block.
    bool vBloku = false;
    AcString blok, hladinaReference;
    AcCmColor barvaReference, barvaHladinyReference;
};

class CTgDlgPropInfo : public CTgAcDialog {
public:
    enum { IDD = 122 };
    enum : int {
        IDC_MERITKO = 155,
        IDC_TRIDA = 156,
        IDC_TYP_CARY = 162,
        IDC_TLOUSTKA = 163,
        IDC_TYP_CARY_HLADINY = 164,
        IDC_TLOUSTKA_HLADINY = 165,
        IDC_HLADINA = 166,
        IDC_BARVA = 167,
        IDC_BARVA_HLADINY = 168,
        IDC_NADPIS_ENTITY = 169,
        IDC_NADPIS_BLOKU = 170,
        IDC_BARVA_REFERENCE = 175,
        IDC_HLADINA_REFERENCE = 176,
        IDC_BLOK = 177,
        IDC_BARVA_HLADINY_REFERENCE = 178,
    };

    explicit CTgDlgPropInfo(const InfoOEntite& info, CWnd* pRodic = nullptr);

protected:
    BOOL OnInitDialog() override;
    void DoDataExchange(CDataExchange* pDX) override;

    InfoOEntite m_info;
    CTogTrueColorComboBox m_barva, m_barvaHladiny, m_barvaReference, m_barvaHladinyReference;
};
