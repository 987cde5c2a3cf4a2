// ParametryMaterialu: the plain record of a material's values that a dialog fills and
// CTogMaterial::NastavParametry applies.
#pragma once
#include "afxstr.h"

struct ParametryMaterialu {
    /// Drsnost with this value sends NastavParametry to DrsnostText.
    static constexpr double kDrsnostZTextu = -1000.0;

    CString Nazev;
    CString Vyrobce;
    CString PodrobnyPopis;
    int PnIndex = -1;  ///< -1 when nothing is chosen
    int SdrIndex = -1; ///< -1 when nothing is chosen
    double Drsnost = 0.0;
    CString DrsnostText;
    int Skupina = 3;
    int Pouziti = 31;
    int TypPopisu = 1;
    int Tvar = 0;
    CString Prefix;
    CString Suffix;
    bool VnitrniPrumer = false;
    CString Popis;
};
