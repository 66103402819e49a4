// SPDX-License-Identifier: MIT
#include "Controls/ZelControlSize.h"

#include <QApplication>
#include <QFontMetrics>

namespace {

QFont reduced(QFont font, double points = 11.0)
{
    const double factor = points / 13.0;
    if (font.pointSizeF() > 0)
        font.setPointSizeF(font.pointSizeF() * factor);
    else if (font.pixelSize() > 0)
        font.setPixelSize(qRound(font.pixelSize() * factor));
    return font;
}

} // namespace

QFont ZelControlSize::font(quint32 size)
{
    const QFont regular = QApplication::font();
    return size == Regular ? regular : size == Mini ? reduced(regular, 9.0) : smallFont();
}

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
