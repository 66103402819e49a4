// SPDX-License-Identifier: MIT
#pragma once

#include "Controls/Cells/ZelCellGroup.h"
#include "Core/RunLoop/ZelGuarded.h"
#include "Core/ZelExport.h"
#include "Layout/ZelBaselineProvider.h"

#include <QIcon>
#include <QList>
#include <QVariant>
#include <QWidget>

class QStyleOptionToolButton;

/// A row of segments that share the width. One of them may be selected.
///
/// The selected segment is a number, a selection marker or nothing: with a marker or nothing, no segment is selected.
/// Arrow keys select the neighbouring enabled segment.
///
/// Where selectsAny() is set, each segment is selected independently: a click toggles it, and there is no selected
/// index. Arrow keys move to the neighbouring segment and the space key clicks it.
class ZEL_EXPORT ZelSegmentedControl : public ZelGuarded<QWidget>, public ZelBaselineProvider, public ZelCellGroup
{
    Q_OBJECT
    Q_INTERFACES(ZelBaselineProvider ZelCellGroup)
    Q_PROPERTY(QVariant selectedIndex READ selectedIndex WRITE setSelectedIndex NOTIFY selectedIndexChanged)
    Q_PROPERTY(bool editable READ isEditable WRITE setEditable NOTIFY editableChanged)
    Q_PROPERTY(double baselineOffset READ baselineOffset)
public:
    explicit ZelSegmentedControl(QWidget *parent = nullptr);

    qsizetype segmentCount() const { return m_segments.size(); }
    /// New segments are enabled and have no image, title or tool tip.
    void setSegmentCount(qsizetype count);
    void setImage(qsizetype segment, const QIcon &image);
    QIcon image(qsizetype segment) const { return m_segments.at(segment).image; }
    /// The title is shown where the segment has no image.
    void setSegmentTitle(qsizetype segment, const QString &title);
    void setSegmentEnabled(qsizetype segment, bool enabled);
    bool isSegmentEnabled(qsizetype segment) const { return m_segments.at(segment).enabled; }
    /// The tool tip is also the segment's accessible name.
    void setSegmentToolTip(qsizetype segment, const QString &toolTip);
    QString segmentToolTip(qsizetype segment) const { return m_segments.at(segment).toolTip; }
    /// The place of a segment in the control.
    QRect segmentRect(qsizetype segment) const;

    QVariant selectedIndex() const { return m_selectedIndex; }
    void setSelectedIndex(const QVariant &index);

    /// Whether each segment is selected independently of the others; false by default.
    bool selectsAny() const { return m_selectsAny; }
    void setSelectsAny(bool selectsAny);
    bool isSegmentSelected(qsizetype segment) const;
    /// Applies where selectsAny() is set.
    void setSegmentSelected(qsizetype segment, bool selected);
    /// The segment that the user clicked last; -1 before the first click.
    qsizetype clickedSegment() const { return m_clicked; }

    /// Whether users may choose; true by default. If not, the control looks disabled.
    bool isEditable() const { return m_editable; }
    void setEditable(bool editable);

    /// The distance of the baseline from the top. Images have no baseline: their lower edge stands for it.
    double baselineOffset() const { return baselineOffsetForHeight(height()); }
    double baselineOffsetForHeight(double height) const override;

    Roles cellRoles() const override;
    int cellCount() const override { return int(segmentCount()); }
    QRect cellRect(int cell) const override { return segmentRect(cell); }
    QString cellName(int cell) const override;
    QString cellToolTip(int cell) const override { return segmentToolTip(cell); }
    bool isCellEnabled(int cell) const override { return isEditable() && isSegmentEnabled(cell); }
    bool isCellSelected(int cell) const override { return isSegmentSelected(cell); }
    int currentCell() const override;
    void clickCell(int cell) override;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    void selectedIndexChanged();
    void editableChanged();
    /// The user has chosen another segment, or toggled one.
    void valueEdited();
    /// Sent after valueEdited.
    void action();

protected:
    bool handleEvent(QEvent *event) override { return handleCellEvent(event) || QWidget::event(event); }
    void paintEvent(QPaintEvent *event) override { paintCells(event); }
    bool takesInput() const override { return isEnabled() && m_editable; }
    void setCurrentCell(int cell) override;
    void drawCell(QPainter *painter, int cell) const override;

private:
    struct Segment
    {
        QIcon image;
        QString title;
        QString toolTip;
        bool enabled = true;
        bool selected = false; // used where selectsAny() is set
    };
    qsizetype selectedSegment() const;
    void initStyleOption(QStyleOptionToolButton *option, qsizetype segment) const;

    QList<Segment> m_segments;
    QVariant m_selectedIndex;
    qsizetype m_clicked = -1;
    qsizetype m_current = 0; // the segment that keys act on where selectsAny() is set
    bool m_selectsAny = false;
    bool m_editable = true;
};
