// SPDX-License-Identifier: MIT
#include "Controls/private/ZelThemeColor.h"

#include <cmath>

namespace {

constexpr double g_legible = 4.5;

/// The relative luminance as in WCAG 2, from 0 for black to 1 for white.
double luminance(const QColor &color)
{
    const auto linear = [](double part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

QColor mixed(const QColor &a, const QColor &b, float share)
{
    const auto mix = [share](float x, float y) { return x + (y - x) * share; };
    return QColor::fromRgbF(mix(a.redF(), b.redF()), mix(a.greenF(), b.greenF()), mix(a.blueF(), b.blueF()));
}

} // namespace

bool ZelThemeColor::isDark(const QPalette &palette)
{
    return palette.color(QPalette::WindowText).lightnessF() > palette.color(QPalette::Window).lightnessF();
}

QColor ZelThemeColor::adapted(const QColor &lightThemeColor, const QPalette &palette)
{
    if (!isDark(palette))
        return lightThemeColor;
    const QColor hsl = lightThemeColor.toHsl();
    QColor color;
    if (hsl.hslSaturationF() < 0.01F)
        color = mixed(palette.color(QPalette::WindowText), palette.color(QPalette::Window), hsl.lightnessF());
    else
        color = QColor::fromHslF(hsl.hslHueF(), hsl.hslSaturationF(), 1 - hsl.lightnessF());
    color.setAlphaF(lightThemeColor.alphaF());
    return color;
}

QColor ZelThemeColor::error(const QPalette &palette)
{
    const bool dark = palette.color(QPalette::Base).lightnessF() < 0.5F;
    return dark ? QColor(0xff, 0x8a, 0x80) : QColor(0xb3, 0x1d, 0x1d);
}

QColor ZelThemeColor::closed(const QPalette &palette)
{
    const auto distance = [&](QPalette::ColorRole role) {
        return std::abs(palette.color(QPalette::Active, role).lightnessF() -
                        palette.color(QPalette::Active, QPalette::Base).lightnessF());
    };
    const bool isButton = distance(QPalette::Button) > distance(QPalette::Window);
    return palette.color(QPalette::Active, isButton ? QPalette::Button : QPalette::Window);
}

QColor ZelThemeColor::dimmed(const QPalette &palette)
{
    return legible(palette.color(QPalette::Active, QPalette::PlaceholderText), palette);
}

QColor ZelThemeColor::legible(const QColor &faint, const QPalette &palette)
{
    QColor color = mixed(palette.color(QPalette::Active, QPalette::Base), faint, faint.alphaF());
    const auto isLegible = [&](QPalette::ColorRole role) {
        return contrast(color, palette.color(QPalette::Active, role)) >= g_legible;
    };
    constexpr int steps = 8;
    for (int i = 0; i < steps; ++i) {
        if (isLegible(QPalette::Base) && isLegible(QPalette::Button) && isLegible(QPalette::Window))
            break;
        // Equal steps towards the text colour: the last one reaches it.
        color = mixed(color, palette.color(QPalette::Active, QPalette::Text), 1.0F / float(steps - i));
    }
    return color;
}

double ZelThemeColor::contrast(const QColor &a, const QColor &b)
{
    const double first = luminance(a);
    const double second = luminance(b);
    return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}
