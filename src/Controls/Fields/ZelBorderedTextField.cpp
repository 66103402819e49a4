// SPDX-License-Identifier: MIT
#include "Controls/Fields/ZelBorderedTextField.h"

#include "Core/Errors/ZelAssertions.h"
#include "Extensions/ZelSeparatorColor.h"

#include <QEvent>
#include <QPainter>

namespace {
// The space between the line and the text. Above and below the text it makes a field with a thin line as high as one
// with the style's frame.
constexpr int g_sidePadding = 2;
constexpr int g_uprightPadding = 1;
} // namespace

ZelBorderedTextField::ZelBorderedTextField(QWidget *parent)
    : ZelTextField(parent)
{
    setFrame(false);
    updateMargins();
}

void ZelBorderedTextField::setBorderColor(const QColor &color)
{
    m_borderColor = color;
    update();
}

void ZelBorderedTextField::setBorderWidth(int width)
{
    if (!ZelRequire(width >= 0, "width >= 0"))
        return;
    m_borderWidth = width;
    updateMargins();
}

void ZelBorderedTextField::setBorderEdges(Qt::Edges edges)
{
    m_borderEdges = edges;
    updateMargins();
}

/// The margins are the same on all edges, with or without a line, so that the texts of neighbours stay aligned.
void ZelBorderedTextField::updateMargins()
{
    const int side = m_borderWidth + g_sidePadding;
    const int upright = m_borderWidth + g_uprightPadding;
    setTextMargins(side, upright, side, upright);
    update();
}

QColor ZelBorderedTextField::shownBorderColor() const
{
    if (hasFocus() && !isReadOnly())
        return palette().color(QPalette::Highlight);
    if (!m_borderColor.isValid())
        return ZelSeparatorColorForLevel(isEnabled() ? 0 : 2, isActiveWindow(), palette());
    QColor color = m_borderColor;
    if (!isEnabled())
        color.setAlphaF(color.alphaF() / 2);
    return color;
}

bool ZelBorderedTextField::handleEvent(QEvent *event)
{
    if (event->type() == QEvent::WindowActivate || event->type() == QEvent::WindowDeactivate)
        update();
    return ZelTextField::handleEvent(event);
}

void ZelBorderedTextField::paintEvent(QPaintEvent *event)
{
    ZelTextField::paintEvent(event);
    if (!errorText().isNull()) // the base class has drawn the line of the error
        return;
    QPainter painter(this);
    const QRect all = rect();
    const QRect inner = all.marginsRemoved({m_borderWidth, m_borderWidth, m_borderWidth, m_borderWidth});
    const QColor color = shownBorderColor();
    const std::pair<Qt::Edge, QRect> lines[] = {
        {Qt::TopEdge, {all.topLeft(), QSize(all.width(), m_borderWidth)}},
        {Qt::BottomEdge, {all.left(), inner.bottom() + 1, all.width(), m_borderWidth}},
        {Qt::LeftEdge, {all.left(), inner.top(), m_borderWidth, inner.height()}},
        {Qt::RightEdge, {inner.right() + 1, inner.top(), m_borderWidth, inner.height()}},
    };
    for (const auto &[edge, line] : lines)
        if (m_borderEdges & edge)
            painter.fillRect(line, color);
}
