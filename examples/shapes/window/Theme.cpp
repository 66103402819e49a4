// SPDX-License-Identifier: MIT
#include "window/Theme.h"

#include "window/Icons.h"

#include <QApplication>
#include <QPalette>

namespace {
struct Tone
{
    QPalette::ColorRole role;
    QRgb light;
    QRgb dark;
};
constexpr Tone ToneTable[] = {
    {QPalette::Window, 0xfff0f1f3, 0xff2b2d31},      {QPalette::WindowText, 0xff1d1f23, 0xffe6e7ea},
    {QPalette::Base, 0xffffffff, 0xff1f2124},        {QPalette::AlternateBase, 0xfff5f6f8, 0xff26282c},
    {QPalette::Text, 0xff1d1f23, 0xffe6e7ea},        {QPalette::Button, 0xfff7f8f9, 0xff3a3d42},
    {QPalette::ButtonText, 0xff1d1f23, 0xffe6e7ea},  {QPalette::ToolTipBase, 0xffffffff, 0xff3a3d42},
    {QPalette::ToolTipText, 0xff1d1f23, 0xffe6e7ea}, {QPalette::PlaceholderText, 0xff80858d, 0xff8b9099},
    {QPalette::Highlight, 0xff2f6fb5, 0xff4a8fd6},   {QPalette::HighlightedText, 0xffffffff, 0xffffffff},
    {QPalette::Link, 0xff2f6fb5, 0xff7db3e8},        {QPalette::BrightText, 0xffffffff, 0xffffffff},
    {QPalette::Light, 0xffffffff, 0xff4a4d53},       {QPalette::Midlight, 0xfff7f8f9, 0xff404348},
    {QPalette::Mid, 0xffc4c8ce, 0xff212327},         {QPalette::Dark, 0xffb4b8be, 0xff191a1d},
    {QPalette::Shadow, 0xff7a7e85, 0xff000000},
};
constexpr Tone DisabledTable[] = {
    {QPalette::WindowText, 0xff9a9ea6, 0xff777b83},
    {QPalette::Text, 0xff9a9ea6, 0xff777b83},
    {QPalette::ButtonText, 0xff9a9ea6, 0xff777b83},
    {QPalette::Highlight, 0xffc4c8ce, 0xff4a4d53},
};
} // namespace

void Theme::apply(bool dark)
{
    QPalette palette;
    for (const Tone &tone : ToneTable)
        palette.setColor(tone.role, QColor(dark ? tone.dark : tone.light));
    for (const Tone &tone : DisabledTable)
        palette.setColor(QPalette::Disabled, tone.role, QColor(dark ? tone.dark : tone.light));
    Icons::forget();
    QApplication::setPalette(palette);
}
