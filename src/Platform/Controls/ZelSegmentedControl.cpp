// SPDX-License-Identifier: MIT
#include "Platform/Controls/ZelSegmentedControl.h"

#include "Platform/Controls/ZelCellGroupAccessible.h"
#include "Platform/Controls/ZelControlSize.h"
#include "Platform/Controls/ZelControlSupport.h"
#include "Platform/Controls/ZelThemeColor.h"
#include "Platform/Runtime/ZelValues.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QStyleOptionToolButton>
#include <QStylePainter>
#include <QToolTip>

namespace {
constexpr int g_margin = 4; // around an image, in points
constexpr int g_edge = 2;   // around all segments: editors put the control without a margin of their own
} // namespace

ZelSegmentedControl::ZelSegmentedControl(QWidget *parent)
    : ZelGuarded(parent)
{
    ZelControlSupport::prepare();
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
}

void ZelSegmentedControl::setSegmentCount(qsizetype count)
{
    m_segments.resize(std::max<qsizetype>(count, 0));
    m_pressed = m_clicked = -1;
    m_current = 0;
    updateGeometry();
    update();
}

void ZelSegmentedControl::setImage(qsizetype segment, const QIcon &image)
{
    m_segments[segment].image = image;
    update();
}

void ZelSegmentedControl::setSegmentTitle(qsizetype segment, const QString &title)
{
    m_segments[segment].title = title;
    update();
}

void ZelSegmentedControl::setSegmentEnabled(qsizetype segment, bool enabled)
{
    m_segments[segment].enabled = enabled;
    update();
}

void ZelSegmentedControl::setSegmentToolTip(qsizetype segment, const QString &toolTip)
{
    m_segments[segment].toolTip = toolTip;
}

QRect ZelSegmentedControl::segmentRect(qsizetype segment) const
{
    // Neighbours share an edge however the width divides.
    const int count = int(m_segments.size());
    const QRect all = rect().adjusted(g_edge, g_edge, -g_edge, -g_edge);
    const int left = int(segment) * all.width() / count;
    const int right = int(segment + 1) * all.width() / count;
    const QRect place(all.left() + left, all.top(), right - left, all.height());
    return QStyle::visualRect(layoutDirection(), rect(), place);
}

qsizetype ZelSegmentedControl::segmentAt(const QPoint &position) const
{
    for (qsizetype i = 0; i < m_segments.size(); ++i) {
        if (segmentRect(i).contains(position))
            return i;
    }
    return -1;
}

qsizetype ZelSegmentedControl::selectedSegment() const
{
    return ZelIsNumber(m_selectedIndex) ? m_selectedIndex.toLongLong() : -1;
}

void ZelSegmentedControl::setSelectedIndex(const QVariant &index)
{
    if (ZelEqual(index, m_selectedIndex))
        return;
    m_selectedIndex = index;
    update();
    ZelCellGroupAccessible::selectionDidChange(this);
    Q_EMIT selectedIndexChanged();
}

void ZelSegmentedControl::setSelectsAny(bool selectsAny)
{
    m_selectsAny = selectsAny;
    update();
}

bool ZelSegmentedControl::isSegmentSelected(qsizetype segment) const
{
    return m_selectsAny ? m_segments.at(segment).selected : segment == selectedSegment();
}

void ZelSegmentedControl::setSegmentSelected(qsizetype segment, bool selected)
{
    m_segments[segment].selected = selected;
    update();
    ZelCellGroupAccessible::selectionDidChange(this);
}

void ZelSegmentedControl::setEditable(bool editable)
{
    if (m_editable == editable)
        return;
    m_editable = editable;
    update();
    Q_EMIT editableChanged();
}

ZelCellGroup::Roles ZelSegmentedControl::cellRoles() const
{
    return {QAccessible::Grouping, m_selectsAny ? QAccessible::CheckBox : QAccessible::RadioButton};
}

QString ZelSegmentedControl::cellName(int cell) const
{
    const Segment &segment = m_segments.at(cell);
    return segment.toolTip.isEmpty() ? segment.title : segment.toolTip;
}

int ZelSegmentedControl::currentCell() const
{
    return int(m_selectsAny ? m_current : std::max<qsizetype>(selectedSegment(), 0));
}

double ZelSegmentedControl::baselineOffsetForHeight(double height) const
{
    return (height + ZelControlSize::imageSide) / 2 - 2;
}

QSize ZelSegmentedControl::sizeHint() const
{
    const int side = ZelControlSize::imageSide + 2 * g_margin;
    return {int(m_segments.size()) * (side + g_margin) + 2 * g_edge, side + 2 * g_edge};
}

QSize ZelSegmentedControl::minimumSizeHint() const
{
    return {int(m_segments.size()) * (ZelControlSize::imageSide + 2) + 2 * g_edge, sizeHint().height()};
}

void ZelSegmentedControl::choose(qsizetype segment)
{
    if (segment < 0 || !m_segments.at(segment).enabled || (!m_selectsAny && segment == selectedSegment()))
        return;
    const QPointer<ZelSegmentedControl> alive(this);
    m_clicked = segment;
    if (m_selectsAny) {
        m_current = segment;
        setSegmentSelected(segment, !m_segments.at(segment).selected);
    } else {
        setSelectedIndex(segment);
    }
    if (alive)
        ZelControlSupport::reportEdit(this);
}

bool ZelSegmentedControl::handleEvent(QEvent *event)
{
    if (!m_editable && ZelControlSupport::isInput(event)) {
        event->ignore();
        return false;
    }
    if (event->type() == QEvent::ToolTip) {
        const qsizetype segment = segmentAt(static_cast<QHelpEvent *>(event)->pos());
        if (segment >= 0 && !m_segments.at(segment).toolTip.isEmpty()) {
            QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(), m_segments.at(segment).toolTip, this);
            return true;
        }
    }
    if (ZelControlSupport::endsMouseGrab(event, this))
        m_pressed = -1;
    return QWidget::event(event);
}

void ZelSegmentedControl::changeEvent(QEvent *event)
{
    update();
    QWidget::changeEvent(event);
}

void ZelSegmentedControl::keyPressEvent(QKeyEvent *event)
{
    const int forward = layoutDirection() == Qt::RightToLeft ? Qt::Key_Left : Qt::Key_Right;
    const int backward = layoutDirection() == Qt::RightToLeft ? Qt::Key_Right : Qt::Key_Left;
    if (event->key() == forward)
        step(1);
    else if (event->key() == backward)
        step(-1);
    else if (m_selectsAny && event->key() == Qt::Key_Space && m_current < m_segments.size())
        choose(m_current);
    else
        QWidget::keyPressEvent(event);
}

void ZelSegmentedControl::step(int direction)
{
    const qsizetype from = m_selectsAny ? m_current : selectedSegment();
    qsizetype segment = from < 0 ? (direction > 0 ? 0 : m_segments.size() - 1) : from + direction;
    while (segment >= 0 && segment < m_segments.size() && !m_segments.at(segment).enabled)
        segment += direction;
    if (segment < 0 || segment >= m_segments.size())
        return;
    if (!m_selectsAny) {
        choose(segment);
        return;
    }
    m_current = segment;
    update();
    ZelCellGroupAccessible::selectionDidChange(this);
}

void ZelSegmentedControl::mousePressEvent(QMouseEvent *event)
{
    const qsizetype segment = segmentAt(event->position().toPoint());
    if (event->button() != Qt::LeftButton || segment < 0 || !m_segments.at(segment).enabled)
        return;
    m_pressed = segment;
    m_isInside = true;
    update();
}

void ZelSegmentedControl::mouseMoveEvent(QMouseEvent *event)
{
    m_isInside = m_pressed >= 0 && segmentAt(event->position().toPoint()) == m_pressed;
    update();
}

void ZelSegmentedControl::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    const qsizetype segment = std::exchange(m_pressed, -1);
    update();
    if (segment >= 0 && segmentAt(event->position().toPoint()) == segment)
        choose(segment);
}

void ZelSegmentedControl::initStyleOption(QStyleOptionToolButton *option, qsizetype segment) const
{
    const Segment &shown = m_segments.at(segment);
    option->initFrom(this);
    option->rect = segmentRect(segment);
    option->icon = shown.image;
    option->iconSize = ZelControlSize::imageSize;
    option->text = shown.title;
    option->toolButtonStyle = shown.image.isNull() ? Qt::ToolButtonTextOnly : Qt::ToolButtonIconOnly;
    option->subControls = QStyle::SC_ToolButton;
    option->state.setFlag(QStyle::State_HasFocus, hasFocus() && segment == currentCell());
    option->state.setFlag(QStyle::State_MouseOver, false);
    option->state.setFlag(QStyle::State_On, isSegmentSelected(segment));
    option->state.setFlag(QStyle::State_Sunken, segment == m_pressed && m_isInside);
    option->state.setFlag(QStyle::State_Raised, !(option->state & (QStyle::State_On | QStyle::State_Sunken)));
    if (!isEnabled() || !m_editable || !shown.enabled)
        ZelControlSupport::showDisabled(option);
    else if (isSegmentSelected(segment) && ZelThemeColor::isDark(palette()))
        // Styles show what is on a little darker, which is not seen on a dark button.
        option->palette.setColor(QPalette::Button, palette().color(QPalette::Highlight));
}

void ZelSegmentedControl::paintEvent(QPaintEvent *)
{
    QStylePainter painter(this);
    for (qsizetype i = 0; i < m_segments.size(); ++i) {
        QStyleOptionToolButton option;
        initStyleOption(&option, i);
        painter.drawComplexControl(QStyle::CC_ToolButton, option);
    }
}
