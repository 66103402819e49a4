// SPDX-License-Identifier: MIT
#include "Platform/Controls/ZelControlSize.h"

#include <QApplication>
#include <QFontMetrics>

namespace {

QFont reduced(QFont font)
{
    constexpr double factor = 11.0 / 13.0;
    if (font.pointSizeF() > 0)
        font.setPointSizeF(font.pointSizeF() * factor);
    else if (font.pixelSize() > 0)
        font.setPixelSize(qRound(font.pixelSize() * factor));
    return font;
}

} // namespace

QFont ZelControlSize::smallFont()
{
    static QFont source;
    static QFont font = reduced(source);
    const QFont current = QApplication::font();
    if (current != source) {
        source = current;
        font = reduced(current);
    }
    return font;
}

QFont ZelControlSize::smallBoldFont()
{
    QFont font = smallFont();
    font.setBold(true);
    return font;
}

int ZelControlSize::digitsWidth(const QFont &font, int digits)
{
    return QFontMetrics(font).horizontalAdvance(QLatin1Char('0')) * digits;
}
