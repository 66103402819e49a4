// SPDX-License-Identifier: MIT
#include "Controls/ZelLabel.h"

#include "Controls/private/ZelControlSupport.h"
#include "Controls/private/ZelThemeColor.h"
#include "Core/Values/private/ZelAssign.h"

#include <QAccessible>
#include <QEvent>
#include <QPainter>
#include <QStyle>
#include <QTextLayout>

namespace {

const QChar g_ellipsis(0x2026);
constexpr float g_markOpacity = 0.35F; // leaves the text legible in light and dark themes

QString firstLine(const QString &text)
{
    return QString(text).replace(QLatin1Char('\n'), QLatin1Char(' '));
}

} // namespace

ZelLabel::ZelLabel(QWidget *parent)
    : ZelGuarded(parent)
{
    ZelControlSupport::prepare();
}

ZelLabel::ZelLabel(const QString &text, QWidget *parent)
    : ZelLabel(parent)
{
    m_text = firstLine(text);
}

void ZelLabel::setText(const QString &text)
{
    const QString line = firstLine(text);
    if (!ZelAssign(m_text, line))
        return;
    m_sizeHint = QSize();
    m_markedParts.clear();
    updateGeometry();
    update();
    if (QAccessible::isActive()) {
        QAccessibleEvent event(this, QAccessible::NameChanged);
        QAccessible::updateAccessibility(&event);
    }
    Q_EMIT textChanged();
}

void ZelLabel::setAlignment(Qt::Alignment alignment)
{
    m_alignment = alignment;
    update();
}

void ZelLabel::setMarkedParts(const QList<Part> &parts)
{
    if (ZelAssign(m_markedParts, parts))
        update();
}

void ZelLabel::setTextColor(const QColor &lightThemeColor)
{
    m_textColor = lightThemeColor;
    update();
}

double ZelLabel::baselineOffsetForHeight(double height) const
{
    const QFontMetrics metrics = fontMetrics();
    double top = (height - metrics.height()) / 2;
    if (m_alignment & Qt::AlignTop)
        top = 0;
    else if (m_alignment & Qt::AlignBottom)
        top = height - metrics.height();
    return top + metrics.ascent();
}

QSize ZelLabel::sizeHint() const
{
    if (!m_sizeHint.isValid()) {
        const QFontMetrics metrics = fontMetrics();
        // Rounded advances of the parts of a text may add up to a pixel less than the painted whole.
        m_sizeHint = QSize(m_text.isEmpty() ? 0 : metrics.horizontalAdvance(m_text) + 1, metrics.height());
    }
    return m_sizeHint;
}

QSize ZelLabel::minimumSizeHint() const
{
    const QSize hint = sizeHint();
    return {std::min(hint.width(), fontMetrics().horizontalAdvance(g_ellipsis) * 2), hint.height()};
}

bool ZelLabel::handleEvent(QEvent *event)
{
    if (event->type() == QEvent::ToolTip && width() < sizeHint().width() &&
        ZelControlSupport::showToolTip(event, this, m_text))
        return true;
    return QWidget::event(event);
}

void ZelLabel::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        m_sizeHint = QSize();
        updateGeometry();
    }
    QWidget::changeEvent(event);
}

void ZelLabel::paintEvent(QPaintEvent *)
{
    if (m_text.isEmpty())
        return;
    QPainter painter(this);
    const QPalette colors = palette();
    const bool themed = m_textColor.isValid() && isEnabled();
    painter.setPen(themed ? ZelThemeColor::adapted(m_textColor, colors) : colors.color(QPalette::WindowText));
    const QString text =
        width() < sizeHint().width() ? fontMetrics().elidedText(m_text, Qt::ElideRight, width()) : m_text;
    const Qt::Alignment visual = QStyle::visualAlignment(layoutDirection(), m_alignment);
    if (m_markedParts.isEmpty())
        painter.drawText(rect(), int(visual) | Qt::TextSingleLine, text);
    else
        drawMarked(painter, text, visual);
}

void ZelLabel::drawMarked(QPainter &painter, const QString &text, Qt::Alignment alignment) const
{
    QColor color = palette().color(QPalette::Highlight);
    color.setAlphaF(g_markOpacity);
    QList<QTextLayout::FormatRange> formats;
    for (const Part &part : m_markedParts) {
        QTextLayout::FormatRange format;
        format.start = int(part.start);
        format.length = int(std::min(part.length, text.size() - part.start));
        format.format.setBackground(color);
        if (format.length > 0)
            formats.append(format);
    }
    QTextOption option;
    option.setTextDirection(layoutDirection());
    option.setWrapMode(QTextOption::NoWrap);
    QTextLayout layout(text, font());
    layout.setTextOption(option);
    layout.setFormats(formats);
    layout.beginLayout();
    QTextLine line = layout.createLine();
    line.setLineWidth(sizeHint().width() + width());
    const double length = line.naturalTextWidth();
    line.setLineWidth(length); // a line that runs from right to left begins at the right end of its width
    layout.endLayout();
    const QSize size(qCeil(length), qCeil(line.height()));
    layout.draw(&painter, QStyle::alignedRect(Qt::LeftToRight, alignment, size, rect()).topLeft());
}
