// Colours of entities and layers: AcCmEntityColor (method and value in one word) and AcCmColor,
// the colour the database's setters take. Index 256 is by layer, 0 by block.
#pragma once
#include "adesk.h"
#include "acadstrc.h"

class AcCmEntityColor {
public:
    enum Color { kRed, kGreen, kBlue };
    enum ColorMethod {
        kByLayer = 0xC0,
        kByBlock = 0xC1,
        kByColor = 0xC2,
        kByACI = 0xC3,
        kByPen = 0xC4,
        kForeground = 0xC5,
        kLayerOff = 0xC6,
        kLayerFrozen = 0xC7,
        kNone = 0xC8,
    };
    enum ACIcolorMethod {
        kACIbyBlock = 0,
        kACIforeground = 7,
        kACIbyLayer = 256,
        kACIclear = 0,
        kACIRed = 1,
        kACIYellow = 2,
        kACIGreen = 3,
        kACICyan = 4,
        kACIBlue = 5,
        kACIMagenta = 6,
        kACIWhite = 7,
        kACIstandard = 7,
        kACImaximum = 255,
        kACInone = 257,
        kACIminimum = -255,
    };

    AcCmEntityColor() = default;
    AcCmEntityColor(ColorMethod eColorMethod);
    AcCmEntityColor(Adesk::UInt8 red, Adesk::UInt8 green, Adesk::UInt8 blue);

    Acad::ErrorStatus setColorMethod(ColorMethod eColorMethod);
    ColorMethod colorMethod() const { return static_cast<ColorMethod>(m_value >> 24); }
    /// The whole word: method in the top byte, then red, green and blue, or the index in the low bits.
    Acad::ErrorStatus setColor(Adesk::UInt32 color);
    Adesk::UInt32 color() const { return m_value; }
    /// 256 sets by layer, 0 by block, 1 to 255 an index colour.
    Acad::ErrorStatus setColorIndex(Adesk::Int16 colorIndex);
    /// The index colour; for a true colour the nearest index.
    Adesk::Int16 colorIndex() const;
    Acad::ErrorStatus setRGB(Adesk::UInt8 red, Adesk::UInt8 green, Adesk::UInt8 blue);
    /// The components; for an index colour those of its palette entry.
    Adesk::UInt8 red() const;
    Adesk::UInt8 green() const;
    Adesk::UInt8 blue() const;

    bool isByColor() const { return colorMethod() == kByColor; }
    bool isByLayer() const { return colorMethod() == kByLayer; }
    bool isByBlock() const { return colorMethod() == kByBlock; }
    bool isByACI() const { return colorMethod() == kByACI; }
    bool isForeground() const { return colorMethod() == kForeground; }
    bool isNone() const { return colorMethod() == kNone; }

    /// The palette's components of an index colour (1 to 255).
    static Adesk::UInt32 lookUpRGB(Adesk::UInt8 colorIndex);
    /// The index colour nearest to a true colour.
    static Adesk::UInt8 lookUpACI(Adesk::UInt8 red, Adesk::UInt8 green, Adesk::UInt8 blue);

    bool operator==(const AcCmEntityColor& o) const { return m_value == o.m_value; }
    bool operator!=(const AcCmEntityColor& o) const { return m_value != o.m_value; }

private:
    Adesk::UInt32 m_value = static_cast<Adesk::UInt32>(kByLayer) << 24;
};

class AcCmColor {
public:
    AcCmColor() = default;
    AcCmColor(AcCmEntityColor::ColorMethod color) : m_color(color) {}

    AcCmEntityColor::ColorMethod colorMethod() const { return m_color.colorMethod(); }
    Acad::ErrorStatus setColorMethod(AcCmEntityColor::ColorMethod eColorMethod) { return m_color.setColorMethod(eColorMethod); }
    bool isByColor() const { return m_color.isByColor(); }
    bool isByLayer() const { return m_color.isByLayer(); }
    bool isByBlock() const { return m_color.isByBlock(); }
    bool isByACI() const { return m_color.isByACI(); }
    bool isForeground() const { return m_color.isForeground(); }
    bool isNone() const { return m_color.isNone(); }

    Adesk::UInt32 color() const { return m_color.color(); }
    Acad::ErrorStatus setColor(Adesk::UInt32 color) { return m_color.setColor(color); }
    Acad::ErrorStatus setRGB(Adesk::UInt8 red, Adesk::UInt8 green, Adesk::UInt8 blue) { return m_color.setRGB(red, green, blue); }
    Acad::ErrorStatus setRed(Adesk::UInt8 red) { return setRGB(red, green(), blue()); }
    Acad::ErrorStatus setGreen(Adesk::UInt8 green) { return setRGB(red(), green, blue()); }
    Acad::ErrorStatus setBlue(Adesk::UInt8 blue) { return setRGB(red(), green(), blue); }
    Adesk::UInt8 red() const { return m_color.red(); }
    Adesk::UInt8 green() const { return m_color.green(); }
    Adesk::UInt8 blue() const { return m_color.blue(); }
    /// 256 by layer, 0 by block, 1 to 255 the index; a true colour gives its nearest index.
    Adesk::UInt16 colorIndex() const { return static_cast<Adesk::UInt16>(m_color.colorIndex()); }
    Acad::ErrorStatus setColorIndex(Adesk::UInt16 colorIndex) { return m_color.setColorIndex(static_cast<Adesk::Int16>(colorIndex)); }
    Acad::ErrorStatus setByBlock() { return m_color.setColorMethod(AcCmEntityColor::kByBlock); }
    Acad::ErrorStatus setByLayer() { return m_color.setColorMethod(AcCmEntityColor::kByLayer); }
    Acad::ErrorStatus setForeground() { return m_color.setColorMethod(AcCmEntityColor::kForeground); }
    Acad::ErrorStatus setNone() { return m_color.setColorMethod(AcCmEntityColor::kNone); }
    const AcCmEntityColor& entityColor() const { return m_color; }

    bool operator==(const AcCmColor& o) const { return m_color == o.m_color; }
    bool operator!=(const AcCmColor& o) const { return m_color != o.m_color; }

private:
    AcCmEntityColor m_color;
};
