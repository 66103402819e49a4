// SPDX-License-Identifier: MIT
#pragma once

#include "Controls/Ranges/ZelRangeControl.h"

class QStyleOptionSlider;

/// A horizontal slider or a dial over a range of doubles.
///
/// It reports continuously while it is dragged. Escape cancels a drag: every object gets its own old value back, and
/// nothing is left to undo. A dial makes one full turn clockwise from the minimum at the top. Without a single value it
/// has no handle, and changes start at the minimum. A value outside the limits is shown at the nearer limit.
///
/// The limits are 0 and 1 by default. Dragging stops at whole numbers of increments from the minimum, and at the
/// maximum; keys and the wheel step by one increment. With an increment of 0, the default, the mouse stops anywhere,
/// and keys and the wheel step by a hundredth of the range.
class ZEL_EXPORT ZelSlider : public ZelRangeControl
{
    Q_OBJECT
    Q_PROPERTY(Type sliderType READ sliderType WRITE setSliderType)
public:
    enum Type { Linear, Circular };
    Q_ENUM(Type)

    explicit ZelSlider(QWidget *parent = nullptr);
    explicit ZelSlider(Type type, QWidget *parent = nullptr);

    Type sliderType() const { return m_type; }
    void setSliderType(Type type);
    bool isDragging() const { return isPressed(); }
    /// To multiples of what, counted from the minimum, dragged values are rounded where there is no increment; 0, the
    /// default, for not at all. Does not hold where it would make less than 200 of the range.
    double resolution() const { return m_resolution; }
    void setResolution(double resolution) { m_resolution = resolution; }

    /// Goes to a value within the limits as a user does, and reports it. Does nothing if the slider has this value
    /// already.
    void slideTo(double value);
    void stepBy(int steps) override;
    void goToValue(double value) override { slideTo(value); }
    QAccessible::Role accessibleRole() const override;

    QSize minimumSizeHint() const override;

protected:
    /// A drag goes through numbers that a model with steps of its own does not have.
    double roundingTolerance() const override
    {
        return std::max(ZelRangeControl::roundingTolerance(), (maxValue() - minValue()) / 20);
    }
    bool handleEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

    double valueForNone() const override { return range().valueAt(0); }
    int stepsForKey(int key) const override;
    bool canPress(const QPoint &) const override { return !range().isEmpty(); }
    void pressAt(const QPoint &position) override;
    void movePressTo(const QPoint &position) override;
    QSize makeSizeHint() const override;

private:
    void initStyleOption(QStyleOptionSlider *option) const;
    QRect handleRect() const;
    QRegion dialHandle() const;
    double dragStep() const;
    double fractionAt(const QPoint &position) const;
    void cancelDrag();

    QVariant m_valueBeforeDrag;
    Type m_type = Linear;
    double m_resolution = 0;
    int m_grabOffset = 0;
};
