#include "toolbar/ColorName.h"

#include "l10n/L10n.h"
#include "toolbar/ColorHex.h"

#include <algorithm>
#include <iterator>

namespace {

// Of the lightness and the saturation, from 0 to 1.
constexpr double blackBelow = 0.1;
constexpr double whiteAbove = 0.95;
constexpr double greyBelow = 0.12;
constexpr double brownBelow = 0.4; // a dark orange
constexpr double pinkAbove = 0.75; // a light red

struct Hues {
    int below; // degrees
    QStringView text;
};
constexpr Hues hues[] = {
    {16, u"Rojo"},  {45, u"Naranja"}, {70, u"Amarillo"}, {160, u"Verde"}, {195, u"Turquesa"},
    {255, u"Azul"}, {300, u"Morado"}, {345, u"Rosa"},    {360, u"Rojo"},
};

QStringView textOf(const QColor &color)
{
    const QColor hsl = color.toHsl();
    const double lightness = hsl.lightnessF();
    if (lightness < blackBelow)
        return u"Negro";
    if (lightness > whiteAbove)
        return u"Blanco";
    if (hsl.hslSaturationF() < greyBelow)
        return u"Gris";
    const auto *row = std::ranges::find_if(hues, [&](const Hues &each) { return hsl.hslHue() < each.below; });
    if (row->text == u"Naranja" && lightness < brownBelow)
        return u"Marrón";
    return row->text == u"Rojo" && lightness > pinkAbove ? u"Rosa" : row->text;
}

} // namespace

QString colorName(const QColor &color) { return L10n::t(textOf(color)); }

QString spokenColor(const QColor &color) { return colorName(color) + QStringLiteral(", ") + hex(color); }
