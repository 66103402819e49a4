// SPDX-License-Identifier: MIT
#include "Controls/ZelLabel.h"

#include "Controls/private/ZelControlSupport.h"
#include "Controls/private/ZelMarkedText.h"
#include "Controls/private/ZelThemeColor.h"
#include "Core/Values/private/ZelAssign.h"
#include "ViewController/private/ZelControlHelp.h"

#include <QAccessible>
#include <QEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFocusRect>
#include <algorithm>

namespace {

const QChar g_ellipsis(0x2026);

// In points.
constexpr double g_dotSize = 5;
constexpr double g_dotGap = 3; // between the dot and the text

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

void ZelLabel::setDotted(bool dotted)
{
    if (ZelAssign(m_dotted, dotted))
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
    if (event->type() == QEvent::ToolTip &&
        ZelControlHelp::showToolTip(event, this, width() < sizeHint().width() ? m_text : QString()))
        return true;
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut)
        update(); // which Qt only does for a widget with a focus policy
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
    if (m_text.isEmpty() && !m_dotted)
        return;
    QPainter painter(this);
    const QPalette colors = palette();
    const bool themed = m_textColor.isValid() && isEnabled();
    painter.setPen(themed ? ZelThemeColor::adapted(m_textColor, colors) : colors.color(QPalette::WindowText));
    const bool isRightToLeft = layoutDirection() == Qt::RightToLeft;
    const int room = m_dotted ? int(g_dotSize + g_dotGap) : 0; // on the leading side
    const QRect area = rect().adjusted(isRightToLeft ? 0 : room, 0, isRightToLeft ? -room : 0, 0);
    const QString text =
        area.width() < sizeHint().width() ? ZelControlSupport::fitted(m_text, fontMetrics(), area.width()) : m_text;
    const Qt::Alignment visual = QStyle::visualAlignment(layoutDirection(), m_alignment);
    QRect shown;
    if (m_markedParts.isEmpty())
        painter.drawText(area, int(visual) | Qt::TextSingleLine, text, &shown);
    else
        shown = ZelMarkedText::paint(&painter, this, area, text, visual, m_markedParts);
    if (m_text.isEmpty())
        shown = QStyle::alignedRect(Qt::LeftToRight, visual, QSize(0, fontMetrics().height()), rect());
    if (m_dotted)
        paintDot(&painter, shown);
    if (hasFocus())
        paintFocus(&painter, shown);
}

/// The dot is at half the height of small letters.
void ZelLabel::paintDot(QPainter *painter, const QRect &textRect) const
{
    const QFontMetricsF metrics(font());
    const double size = std::min<double>(g_dotSize, width()); // the margin of a row without labels is narrower
    const double gap = m_text.isEmpty() ? 0 : g_dotGap;
    const double left =
        layoutDirection() == Qt::RightToLeft ? textRect.right() + 1 + gap : textRect.left() - gap - size;
    const double middle = textRect.top() + metrics.ascent() - metrics.xHeight() / 2;
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(ZelThemeColor::legible(palette().color(QPalette::Highlight), palette()));
    painter->drawEllipse(QRectF(std::clamp(left, 0.0, width() - size), middle - size / 2, size, size));
}

void ZelLabel::paintFocus(QPainter *painter, const QRect &textRect) const
{
    QStyleOptionFocusRect option;
    option.initFrom(this);
    option.rect = textRect.adjusted(-1, 0, 1, 0) & rect();
    option.backgroundColor = palette().color(QPalette::Window);
    option.state |= QStyle::State_KeyboardFocusChange; // some styles draw nothing after a click, but here keys matter
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, painter, this);
}
