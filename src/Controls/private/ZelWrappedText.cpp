// SPDX-License-Identifier: MIT
#include "Controls/private/ZelWrappedText.h"

#include <QPainter>
#include <QStyle>
#include <QTextLayout>
#include <QtMath>

namespace {

/// The direction of the text itself, which may differ from the window's.
Qt::LayoutDirection directionOf(const QString &text)
{
    return text.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight;
}

QString withLineSeparators(const QString &text)
{
    return QString(text).replace(QLatin1Char('\n'), QChar::LineSeparator);
}

/// Lays out a text as a text edit does, and answers its height.
double layOut(QTextLayout *layout, double width, Qt::LayoutDirection edge)
{
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    option.setTextDirection(directionOf(layout->text()));
    option.setAlignment(QStyle::visualAlignment(edge, Qt::AlignLeft));
    layout->setTextOption(option);
    double height = 0;
    layout->beginLayout();
    for (QTextLine line = layout->createLine(); line.isValid(); line = layout->createLine()) {
        line.setLeadingIncluded(true);
        line.setLineWidth(width);
        line.setPosition(QPointF(0, height));
        height += line.height();
    }
    layout->endLayout();
    return height;
}

} // namespace

double ZelWrappedText::height(const QString &text, const QFont &font, double width)
{
    QTextLayout layout(withLineSeparators(text), font);
    return layOut(&layout, width, directionOf(text));
}

void ZelWrappedText::paint(QPainter *painter, const QString &text, const QFont &font, const QRect &area,
                           std::optional<Qt::LayoutDirection> edge)
{
    const Qt::LayoutDirection from = edge.value_or(directionOf(text));
    QTextLayout layout(withLineSeparators(text), font);
    layOut(&layout, area.width(), from);
    const int lines = std::clamp(int(area.height() / layout.lineAt(0).height() + 0.01), 1, layout.lineCount());
    for (int i = 0; i < lines; ++i) {
        const QTextLine line = layout.lineAt(i);
        if (i + 1 < lines || lines == layout.lineCount()) {
            line.draw(painter, area.topLeft());
            continue;
        }
        const QString rest = text.mid(line.textStart()).replace(QLatin1Char('\n'), QLatin1Char(' '));
        const QRect place(area.x(), area.y() + qRound(line.y()), area.width(), qCeil(line.height()));
        const int flags = int(QStyle::visualAlignment(from, Qt::AlignLeft)) | Qt::TextSingleLine;
        painter->drawText(place, flags, painter->fontMetrics().elidedText(rest, Qt::ElideRight, area.width()));
    }
}
