// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Layout/ZelBaselineProvider.h"

#include <QIcon>
#include <QList>
#include <QVariant>
#include <QWidget>

class QStyleOptionToolButton;

/// A row of segments that share the width, one of which may be selected.
///
/// The selected segment is a number, a selection marker or nothing: with the latter two no segment is selected. Arrow
/// keys step to the neighbouring enabled segment.
class ZelSegmentedControl : public QWidget, public ZelBaselineProvider
{
    Q_OBJECT
    Q_INTERFACES(ZelBaselineProvider)
    Q_PROPERTY(QVariant selectedIndex READ selectedIndex WRITE setSelectedIndex NOTIFY selectedIndexChanged)
    Q_PROPERTY(bool editable READ isEditable WRITE setEditable NOTIFY editableChanged)
    Q_PROPERTY(double baselineOffset READ baselineOffset)
public:
    explicit ZelSegmentedControl(QWidget *parent = nullptr);

    qsizetype segmentCount() const { return m_segments.size(); }
    /// New segments are enabled and have no image, title or tool tip.
    void setSegmentCount(qsizetype count);
    void setImage(qsizetype segment, const QIcon &image);
    void setSegmentEnabled(qsizetype segment, bool enabled);
    bool isSegmentEnabled(qsizetype segment) const { return m_segments.at(segment).enabled; }
    /// Also the segment's accessible name.
    void setSegmentToolTip(qsizetype segment, const QString &toolTip);
    QString segmentToolTip(qsizetype segment) const { return m_segments.at(segment).toolTip; }
    /// The place of a segment in the control.
    QRect segmentRect(qsizetype segment) const;

    QVariant selectedIndex() const { return m_selectedIndex; }
    void setSelectedIndex(const QVariant &index);

    /// Whether users may choose; true. Otherwise it looks disabled.
    bool isEditable() const { return m_editable; }
    void setEditable(bool editable);

    /// The images have no baseline: their lower edge.
    double baselineOffset() const { return baselineOffsetForHeight(height()); }
    double baselineOffsetForHeight(double height) const override;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    void selectedIndexChanged();
    void editableChanged();
    /// The user has chosen another segment.
    void valueEdited();
    /// Sent after valueEdited.
    void action();

protected:
    bool event(QEvent *event) override;
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
        QString toolTip;
        bool enabled = true;
    };
    qsizetype selectedSegment() const;
    qsizetype segmentAt(const QPoint &position) const;
    void choose(qsizetype segment);
    void initStyleOption(QStyleOptionToolButton *option, qsizetype segment) const;

    QList<Segment> m_segments;
    QVariant m_selectedIndex;
    qsizetype m_pressed = -1;
    bool m_isInside = false; // the pointer is over the pressed segment
    bool m_editable = true;
};
