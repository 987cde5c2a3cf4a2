// AcCmEntityColor: colour methods, index colours and the host's 255-colour palette.
#include <cmath>

#include "dbcolor.h"

namespace {

Adesk::UInt32 pack(unsigned r, unsigned g, unsigned b) { return (r << 16) | (g << 8) | b; }

/// The palette entry of index i (1 to 255) as 0xRRGGBB.
Adesk::UInt32 paletteEntry(unsigned i)
{
    static const Adesk::UInt32 firstNine[] = {
        pack(255, 0, 0), pack(255, 255, 0), pack(0, 255, 0), pack(0, 255, 255), pack(0, 0, 255),
        pack(255, 0, 255), pack(255, 255, 255), pack(128, 128, 128), pack(192, 192, 192),
    };
    static const unsigned grays[] = {51, 91, 132, 173, 214, 255};
    if (i >= 1 && i <= 9)
        return firstNine[i - 1];
    if (i >= 250 && i <= 255)
        return pack(grays[i - 250], grays[i - 250], grays[i - 250]);
    if (i < 10 || i > 249)
        return 0;
    // Indexes 10 to 249: 24 hues 15 degrees apart, each in five shades, full and half saturated.
    static const double values[] = {255, 204, 153, 127, 76};
    unsigned hue = i / 10 - 1;
    unsigned k = i % 10;
    double v = values[k / 2];
    double lo = (k % 2) ? std::floor(v * 0.5) : 0.0;
    double h = hue * 15.0 / 60.0;
    int sector = static_cast<int>(h);
    double f = h - sector;
    double up = std::floor(lo + (v - lo) * f);
    double down = std::floor(v - (v - lo) * f);
    double r = 0, g = 0, b = 0;
    switch (sector % 6) {
    case 0: r = v, g = up, b = lo; break;
    case 1: r = down, g = v, b = lo; break;
    case 2: r = lo, g = v, b = up; break;
    case 3: r = lo, g = down, b = v; break;
    case 4: r = up, g = lo, b = v; break;
    default: r = v, g = lo, b = down; break;
    }
    return pack(static_cast<unsigned>(r), static_cast<unsigned>(g), static_cast<unsigned>(b));
}

Adesk::UInt32 methodBits(AcCmEntityColor::ColorMethod m) { return static_cast<Adesk::UInt32>(m) << 24; }

} // namespace

AcCmEntityColor::AcCmEntityColor(ColorMethod eColorMethod) : m_value(methodBits(eColorMethod))
{
    if (eColorMethod == kByACI)
        m_value |= 7;
}

AcCmEntityColor::AcCmEntityColor(Adesk::UInt8 red, Adesk::UInt8 green, Adesk::UInt8 blue)
{
    setRGB(red, green, blue);
}

Acad::ErrorStatus AcCmEntityColor::setColorMethod(ColorMethod eColorMethod)
{
    if (eColorMethod < kByLayer || eColorMethod > kNone)
        return Acad::eInvalidInput;
    Adesk::UInt32 low = m_value & 0xFFFFFF;
    if (eColorMethod == kByACI && (colorMethod() != kByACI || low == 0))
        low = 7;
    m_value = methodBits(eColorMethod) | low;
    return Acad::eOk;
}

Acad::ErrorStatus AcCmEntityColor::setColor(Adesk::UInt32 color)
{
    unsigned m = color >> 24;
    if (m < kByLayer || m > kNone)
        return Acad::eInvalidInput;
    m_value = color;
    return Acad::eOk;
}

Acad::ErrorStatus AcCmEntityColor::setColorIndex(Adesk::Int16 colorIndex)
{
    if (colorIndex == kACIbyLayer)
        m_value = methodBits(kByLayer);
    else if (colorIndex == kACIbyBlock)
        m_value = methodBits(kByBlock);
    else if (colorIndex == kACInone)
        m_value = methodBits(kNone);
    else if (colorIndex >= 1 && colorIndex <= 255)
        m_value = methodBits(kByACI) | static_cast<Adesk::UInt32>(colorIndex);
    else
        return Acad::eInvalidInput;
    return Acad::eOk;
}

Adesk::Int16 AcCmEntityColor::colorIndex() const
{
    switch (colorMethod()) {
    case kByLayer: return kACIbyLayer;
    case kByBlock: return kACIbyBlock;
    case kByACI: return static_cast<Adesk::Int16>(m_value & 0xFFFF);
    case kByColor: return lookUpACI(red(), green(), blue());
    case kForeground: return kACIforeground;
    case kNone: return kACInone;
    default: return kACIbyLayer;
    }
}

Acad::ErrorStatus AcCmEntityColor::setRGB(Adesk::UInt8 red, Adesk::UInt8 green, Adesk::UInt8 blue)
{
    m_value = methodBits(kByColor) | pack(red, green, blue);
    return Acad::eOk;
}

namespace {
Adesk::UInt32 rgbOf(const AcCmEntityColor& c)
{
    if (c.isByColor())
        return c.color() & 0xFFFFFF;
    if (c.isByACI())
        return paletteEntry(static_cast<unsigned>(c.color() & 0xFF));
    if (c.isForeground())
        return pack(255, 255, 255);
    return 0;
}
} // namespace

Adesk::UInt8 AcCmEntityColor::red() const { return static_cast<Adesk::UInt8>(rgbOf(*this) >> 16); }
Adesk::UInt8 AcCmEntityColor::green() const { return static_cast<Adesk::UInt8>(rgbOf(*this) >> 8); }
Adesk::UInt8 AcCmEntityColor::blue() const { return static_cast<Adesk::UInt8>(rgbOf(*this)); }

Adesk::UInt32 AcCmEntityColor::lookUpRGB(Adesk::UInt8 colorIndex) { return paletteEntry(colorIndex); }

Adesk::UInt8 AcCmEntityColor::lookUpACI(Adesk::UInt8 red, Adesk::UInt8 green, Adesk::UInt8 blue)
{
    unsigned best = 7;
    long bestDist = -1;
    for (unsigned i = 1; i <= 255; ++i) {
        Adesk::UInt32 e = paletteEntry(i);
        long dr = static_cast<long>((e >> 16) & 0xFF) - red, dg = static_cast<long>((e >> 8) & 0xFF) - green,
             db = static_cast<long>(e & 0xFF) - blue;
        long d = dr * dr + dg * dg + db * db;
        if (bestDist < 0 || d < bestDist) {
            bestDist = d;
            best = i;
        }
    }
    return static_cast<Adesk::UInt8>(best);
}
