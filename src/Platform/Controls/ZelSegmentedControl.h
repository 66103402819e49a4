// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Controls/ZelCellGroup.h"
#include "Platform/Layout/ZelBaselineProvider.h"
#include "Platform/Runtime/ZelGuarded.h"

#include <QIcon>
#include <QList>
#include <QVariant>
#include <QWidget>

class QStyleOptionToolButton;

/// A row of segments that share the width, one of which may be selected.
///
/// The selected segment is a number, a selection marker or nothing: with the latter two no segment is selected. Arrow
/// keys step to the neighbouring enabled segment.
///
/// Where each segment is selected by itself, a click toggles the segment; there is no selected index then. Arrow keys
/// move to the neighbouring segment and the space key clicks it.
class ZelSegmentedControl : public ZelGuarded<QWidget>, public ZelBaselineProvider, public ZelCellGroup
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
    /// Shown where there is no image.
    void setSegmentTitle(qsizetype segment, const QString &title);
    void setSegmentEnabled(qsizetype segment, bool enabled);
    bool isSegmentEnabled(qsizetype segment) const { return m_segments.at(segment).enabled; }
    /// Also the segment's accessible name.
    void setSegmentToolTip(qsizetype segment, const QString &toolTip);
    QString segmentToolTip(qsizetype segment) const { return m_segments.at(segment).toolTip; }
    /// The place of a segment in the control.
    QRect segmentRect(qsizetype segment) const;

    QVariant selectedIndex() const { return m_selectedIndex; }
    void setSelectedIndex(const QVariant &index);

    /// Whether each segment is selected by itself; false.
    bool selectsAny() const { return m_selectsAny; }
    void setSelectsAny(bool selectsAny);
    bool isSegmentSelected(qsizetype segment) const;
    /// Where each is selected by itself.
    void setSegmentSelected(qsizetype segment, bool selected);
    /// The segment that the user has clicked last; -1 before the first time.
    qsizetype clickedSegment() const { return m_clicked; }

    /// Whether users may choose; true. Otherwise it looks disabled.
    bool isEditable() const { return m_editable; }
    void setEditable(bool editable);

    /// The images have no baseline: their lower edge.
    double baselineOffset() const { return baselineOffsetForHeight(height()); }
    double baselineOffsetForHeight(double height) const override;

    Roles cellRoles() const override;
    int cellCount() const override { return int(segmentCount()); }
    QRect cellRect(int cell) const override { return segmentRect(cell); }
    QString cellName(int cell) const override;
    bool isCellEnabled(int cell) const override { return isEditable() && isSegmentEnabled(cell); }
    bool isCellSelected(int cell) const override { return isSegmentSelected(cell); }
    int currentCell() const override;
    void clickCell(int cell) override { choose(cell); }

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
    bool handleEvent(QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    struct Segment
    {
        QIcon image;
        QString title;
        QString toolTip;
        bool enabled = true;
        bool selected = false; // by itself
    };
    void step(int direction);
    qsizetype selectedSegment() const;
    qsizetype segmentAt(const QPoint &position) const;
    void choose(qsizetype segment);
    void initStyleOption(QStyleOptionToolButton *option, qsizetype segment) const;

    QList<Segment> m_segments;
    QVariant m_selectedIndex;
    qsizetype m_pressed = -1;
    qsizetype m_clicked = -1;
    qsizetype m_current = 0; // where the keyboard is, if each is selected by itself
    bool m_selectsAny = false;
    bool m_isInside = false; // the pointer is over the pressed segment
    bool m_editable = true;
};
