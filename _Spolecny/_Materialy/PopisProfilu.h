// The pure computations of a profile: its labels in the drawing and the dimensions that a new
// profile of a series takes.
#pragma once
#include "adesk.h"

constexpr int kDelkaPopisku = 15;       ///< label buffer: 14 characters and the terminator
constexpr int kDelkaPopiskuKratky = 6;  ///< short label buffer: 5 characters and the terminator

/// How a material labels its profiles.
enum TypPopisu : int { kPopisDN = 0, kPopisDxT = 1, kPopisJiny = 2 };

/// The label settings of a material.
struct NastaveniPopisu {
    int typPopisu = kPopisDxT;
    const ACHAR* prefix = L"";
    const ACHAR* suffix = L"";
    bool vnitrniPrumer = false;
};

/// The outer diameter: (wall + wall) + inner, in f32 as the files keep it.
inline float VnejsiPrumer(float vnitrni, float stena) { return (stena + stena) + vnitrni; }

/// Both labels of a profile of the DN row (valid index) with the given inner diameter and wall.
/// False when a label does not fit its buffer; the buffers are unspecified then.
bool VytvorPopisy(const NastaveniPopisu& nastaveni, int dnIndex, float vnitrni, float stena,
                  ACHAR (&popisek)[kDelkaPopisku], ACHAR (&kratky)[kDelkaPopiskuKratky]);

struct RozmeryProfilu {
    float vnitrni;
    float stena;
};

/// The dimensions of a new profile of the DN row: in mode "DN" the table DN with a wall of 3 mm (5 mm
/// from DN 400 up); otherwise the table's outer diameter with the SDr wall, or with that default
/// wall when the material has no SDr class.
RozmeryProfilu RozmeryNovehoProfilu(int typPopisu, int sdrIndex, int dnIndex);
