// SPDX-License-Identifier: MIT
#include "Platform/Controls/ZelThemeColor.h"

namespace {

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
