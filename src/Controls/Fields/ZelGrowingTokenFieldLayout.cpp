// SPDX-License-Identifier: MIT
// Where the tokens lie, and the look of the field.
#include "Controls/Fields/ZelGrowingTokenField.h"

#include "Controls/Fields/ZelToken.h"
#include "Controls/ZelControlSize.h"
#include "Controls/private/ZelControlSupport.h"
#include "Controls/private/ZelThemeColor.h"

#include <QLineEdit>
#include <QPainter>
#include <QStyleOptionFrame>

namespace {

constexpr int g_gap = 3;         // between tokens and between lines
constexpr int g_inputMargin = 6; // the width that a line edit needs beside its text
constexpr int g_leastInput = 24;
constexpr int g_widthInDigits = 16;

} // namespace

QList<QWidget *> ZelGrowingTokenField::itemsInOrder() const
{
    QList<QWidget *> items{m_tokens.begin(), m_tokens.end()};
    if (m_editable)
        items.insert(m_inputIndex, m_input);
    return items;
}

void ZelGrowingTokenField::initStyleOption(QStyleOptionFrame *option) const
{
    option->initFrom(this);
    option->lineWidth = style()->pixelMetric(QStyle::PM_DefaultFrameWidth, option, this);
    option->state |= QStyle::State_Sunken;
    option->state.setFlag(QStyle::State_ReadOnly, !m_editable);
    option->state.setFlag(QStyle::State_HasFocus, m_editable && hasFocusInside());
    ZelControlSupport::showTypable(option, m_editable);
}

/// A field of one line is as high as a line edit.
QMargins ZelGrowingTokenField::margins() const
{
    const int vertical = qMax(1, (ZelControlSupport::fieldHeight(this) - fontMetrics().height()) / 2);
    const int horizontal = style()->pixelMetric(QStyle::PM_DefaultFrameWidth, nullptr, this) + 2;
    return {horizontal, vertical, horizontal, vertical};
}

/// Arranges the items in lines and answers the height that they need. Moves them only if `places` is set.
int ZelGrowingTokenField::arrange(int width, bool places) const
{
    const QMargins margins = this->margins();
    const int available = qMax(1, width - margins.left() - margins.right());
    const int lineHeight = fontMetrics().height();
    const int inputWidth = qMax(g_leastInput, fontMetrics().horizontalAdvance(m_input->text()) + g_inputMargin);
    const QList<QWidget *> items = itemsInOrder();
    QPoint place;
    for (QWidget *item : items) {
        const int wanted = item == m_input ? inputWidth : item->sizeHint().width();
        const int itemWidth = qMin(wanted, available);
        if (place.x() > 0 && place.x() + itemWidth > available)
            place = QPoint(0, place.y() + lineHeight + g_gap);
        if (places) {
            const bool takesRest = item == m_input && item == items.last();
            const QRect rect(place, QSize(takesRest ? available - place.x() : itemWidth, lineHeight));
            item->setGeometry(
                QStyle::visualRect(layoutDirection(), this->rect(), rect.translated(margins.left(), margins.top())));
        }
        place.rx() += itemWidth + g_gap;
    }
    return place.y() + lineHeight + margins.top() + margins.bottom();
}

void ZelGrowingTokenField::itemsDidChange()
{
    m_input->setPlaceholderText(m_tokens.isEmpty() ? placeholder() : QString());
    arrange(width(), true);
    updateGeometry();
    update();
}

void ZelGrowingTokenField::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    arrange(width(), true);
}

QSize ZelGrowingTokenField::sizeHint() const
{
    ensurePolished();
    const int width = ZelControlSize::digitsWidth(font(), g_widthInDigits) + margins().left() + margins().right();
    return {width, heightForWidth(width)};
}

QSize ZelGrowingTokenField::minimumSizeHint() const
{
    ensurePolished();
    return {g_leastInput + margins().left() + margins().right(),
            fontMetrics().height() + margins().top() + margins().bottom()};
}

double ZelGrowingTokenField::baselineOffsetForHeight(double) const
{
    return margins().top() + fontMetrics().ascent();
}

void ZelGrowingTokenField::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    QStyleOptionFrame panel;
    initStyleOption(&panel);
    style()->drawPrimitive(QStyle::PE_PanelLineEdit, &panel, &painter, this);
    paintError(&painter);
}
