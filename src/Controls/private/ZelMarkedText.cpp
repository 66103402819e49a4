// SPDX-License-Identifier: MIT
#include "Controls/private/ZelMarkedText.h"

#include <QPainter>
#include <QStyle>
#include <QTextLayout>
#include <QtMath>
#include <algorithm>

namespace {
constexpr float g_markOpacity = 0.35F; // leaves the text legible in light and dark themes
}

QRect ZelMarkedText::paint(QPainter *painter, const QWidget *widget, const QRect &area, const QString &text,
                           Qt::Alignment alignment, const QList<ZelLabel::Part> &parts)
{
    QColor color = widget->palette().color(QPalette::Highlight);
    color.setAlphaF(g_markOpacity);
    QList<QTextLayout::FormatRange> formats;
    for (const ZelLabel::Part &part : parts) {
        QTextLayout::FormatRange format;
        format.start = int(part.start);
        format.length = int(std::min(part.length, text.size() - part.start));
        format.format.setBackground(color);
        if (format.length > 0)
            formats.append(format);
    }
    QTextOption option;
    option.setTextDirection(widget->layoutDirection());
    option.setWrapMode(QTextOption::NoWrap);
    QTextLayout layout(text, widget->font());
    layout.setTextOption(option);
    layout.setFormats(formats);
    layout.beginLayout();
    QTextLine line = layout.createLine();
    line.setLineWidth(QWIDGETSIZE_MAX);
    const double length = line.naturalTextWidth();
    line.setLineWidth(length); // a line that runs from right to left begins at the right end of its width
    layout.endLayout();
    const QSize size(qCeil(length), qCeil(line.height()));
    const QRect place = QStyle::alignedRect(Qt::LeftToRight, alignment, size, area);
    layout.draw(painter, place.topLeft());
    return place;
}
