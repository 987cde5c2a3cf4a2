// What the host draws for a linear dimension: extension lines, the dimension line, arrows or ticks
// and the text, from its points and the values of its style. Pure geometry; the dimension's block is
// made from it (AcDbDimension::recomputeDimBlock).
#pragma once
#include <string>
#include <vector>

#include "gepnt3d.h"
#include "gevec3d.h"

namespace sim::db {

/// The style's values that shape the graphics, in paper units; `scale` turns them into drawing units
/// (the annotation scale of an annotative dimension, else DIMSCALE).
struct DimensionLook {
    double asz = 2.5, exo = 0.625, exe = 1.25, dle = 0.0, gap = 0.625, txt = 2.5;
    double scale = 1.0;
    int tad = 0;
    bool se1 = false, se2 = false, sd1 = false, sd2 = false;
    bool tick = false;       ///< the arrows are ticks: the dimension line runs on by DIMDLE
    double widthFactor = 1.0; ///< of the text style, for the length of the text
};

/// The points of the dimension in WCS; `along` is the measured direction (x1 to x2 for an aligned
/// dimension, the rotation of a rotated one). `textAt` is the user's text position, or null for the
/// default place in the middle.
struct DimensionPoints {
    AcGePoint3d x1, x2, dimLine;
    AcGeVector3d along;
    const AcGePoint3d* textAt = nullptr;
    double horizontalRotation = 0.0;
};

struct DimensionArrow {
    AcGePoint3d tip;
    double angle; ///< the direction the arrow points (radians), a block's tip at its origin
};

struct DimensionGraphics {
    std::vector<std::pair<AcGePoint3d, AcGePoint3d>> lines;
    std::vector<DimensionArrow> arrows;
    double arrowSize = 0.0;
    AcGePoint3d textPoint; ///< the bottom middle (text above the line) or the middle of the text
    bool textAbove = false;
    double textAngle = 0.0;
    double textHeight = 0.0;
};

/// The graphics of the dimension with that text (the shown text, its length estimated from it).
DimensionGraphics linearDimensionGraphics(const DimensionPoints& p, const DimensionLook& look, const std::wstring& text);

/// The measured value as the style shows it: times DIMLFAC, rounded to DIMRND, DIMDEC decimals with
/// DIMDSEP, trailing zeros dropped with DIMZIN 8, then DIMPOST ("<>" in it stands for the value).
std::wstring formatMeasurement(double value, double lfac, double rnd, int dec, wchar_t dsep, int zin,
                               const std::wstring& post);

/// The dimension's text as shown: its own text, "<>" in it (or an empty text) the measurement.
std::wstring shownDimensionText(const std::wstring& own, const std::wstring& measurement);

} // namespace sim::db
