// SPDX-License-Identifier: MIT
#include "Controls/Cells/ZelSegmentedControl.h"

#include "Controls/ZelControlSize.h"
#include "Controls/private/ZelControlSupport.h"
#include "Controls/private/ZelThemeColor.h"
#include "Core/Values/ZelValues.h"
#include "Core/Values/private/ZelAssign.h"

#include <QPainter>
#include <QStyleOptionToolButton>

namespace {
constexpr int g_margin = 4; // around an image, in points
constexpr int g_edge = 2;   // around all segments, since editors add no margin of their own
} // namespace

ZelSegmentedControl::ZelSegmentedControl(QWidget *parent)
    : ZelGuarded(parent)
    , ZelCellGroup(this, Buttons)
{
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
}

void ZelSegmentedControl::setSegmentCount(qsizetype count)
{
    m_segments.resize(std::max<qsizetype>(count, 0));
    m_clicked = -1;
    m_current = 0;
    endPress();
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
    // Both edges are computed alike, so that neighbours share one even if the width does not divide evenly.
    const int count = int(m_segments.size());
    const QRect all = rect().adjusted(g_edge, g_edge, -g_edge, -g_edge);
    const int left = int(segment) * all.width() / count;
    const int right = int(segment + 1) * all.width() / count;
    const QRect place(all.left() + left, all.top(), right - left, all.height());
    return QStyle::visualRect(layoutDirection(), rect(), place);
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
    announceCurrentCell();
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
    announceCurrentCell();
}

void ZelSegmentedControl::setEditable(bool editable)
{
    if (!ZelAssign(m_editable, editable))
        return;
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

void ZelSegmentedControl::clickCell(int cell)
{
    if (!m_segments.at(cell).enabled || (!m_selectsAny && cell == selectedSegment()))
        return;
    const QPointer<ZelSegmentedControl> alive(this);
    m_clicked = cell;
    if (m_selectsAny) {
        m_current = cell;
        setSegmentSelected(cell, !m_segments.at(cell).selected);
    } else {
        setSelectedIndex(qsizetype(cell));
    }
    if (alive)
        ZelControlSupport::reportEdit(this);
}

void ZelSegmentedControl::setCurrentCell(int cell)
{
    m_current = cell;
    update();
    announceCurrentCell();
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
    option->state.setFlag(QStyle::State_HasFocus, hasCellFocus(int(segment)));
    option->state.setFlag(QStyle::State_MouseOver, false);
    option->state.setFlag(QStyle::State_On, isSegmentSelected(segment));
    option->state.setFlag(QStyle::State_Sunken, isCellPressed(int(segment)));
    option->state.setFlag(QStyle::State_Raised, !(option->state & (QStyle::State_On | QStyle::State_Sunken)));
    if (!isEnabled() || !m_editable || !shown.enabled)
        ZelControlSupport::showDisabled(option);
    else if (isSegmentSelected(segment) && ZelThemeColor::isDark(palette()))
        // Styles draw a button that is on a little darker, which cannot be seen on a dark button.
        option->palette.setColor(QPalette::Button, palette().color(QPalette::Highlight));
}

void ZelSegmentedControl::drawCell(QPainter *painter, int cell) const
{
    QStyleOptionToolButton option;
    initStyleOption(&option, cell);
    style()->drawComplexControl(QStyle::CC_ToolButton, &option, painter, this);
}
