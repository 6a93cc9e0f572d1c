#include "settings/LabelColors.h"

#include <QPalette>

#include <algorithm>
#include <cmath>

namespace {

constexpr float secondaryShare = 0.65F; // of the text's colour in the background's
constexpr float tertiaryShare = 0.35F;
constexpr QColor red{0xff, 0x3b, 0x30};

constexpr double almostBlack = 0.1;
constexpr double readable = 4.5;
constexpr int steps = 20;

QColor mixed(const QColor &from, const QColor &to, float share)
{
    const auto channel = [share](float a, float b) { return a + (b - a) * share; };
    return QColor::fromRgbF(channel(from.redF(), to.redF()), channel(from.greenF(), to.greenF()),
                            channel(from.blueF(), to.blueF()));
}

double linear(double channel)
{
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor &color)
{
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

QColor legible(const QColor &wanted, const QPalette &palette)
{
    const QColor text = palette.color(QPalette::WindowText);
    for (int step = 0; step < steps; ++step) {
        const QColor color = mixed(wanted, text, static_cast<float>(step) / steps);
        if (LabelColors::contrast(color, palette.color(QPalette::Window)) >= readable)
            return color;
    }
    return text;
}

QColor faded(const QPalette &palette, float share)
{
    return legible(mixed(palette.color(QPalette::Window), palette.color(QPalette::WindowText), share),
                   palette);
}

} // namespace

namespace LabelColors {

QColor secondary(const QPalette &palette) { return faded(palette, secondaryShare); }

QColor tertiary(const QPalette &palette) { return faded(palette, tertiaryShare); }

QColor refusal(const QPalette &palette) { return legible(red, palette); }

QColor link(const QPalette &palette) { return legible(palette.color(QPalette::Link), palette); }

QColor frame(const QPalette &palette)
{
    const QColor window = palette.color(QPalette::Window);
    return window.lightnessF() < almostBlack ? palette.color(QPalette::WindowText) : window;
}

double contrast(const QColor &a, const QColor &b)
{
    const auto [dark, light] = std::minmax({luminance(a), luminance(b)});
    return (light + 0.05) / (dark + 0.05);
}

} // namespace LabelColors
