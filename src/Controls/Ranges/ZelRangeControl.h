// SPDX-License-Identifier: MIT
#pragma once

#include "Controls/Ranges/ZelValueRange.h"
#include "Core/RunLoop/ZelGuarded.h"
#include "Core/Undo/ZelUndoBurst.h"
#include "Core/ZelExport.h"

#include <QAccessible>
#include <QWidget>
#include <cmath>
#include <memory>

class ZelPressGrouping;

/// A control for a number between two limits, which users change with the mouse, the keys, and the wheel while it has
/// the focus.
///
/// Every change that a user makes is reported. The changes from a press to its release are one undo grouping, which
/// also ends when the control is hidden, disabled or destroyed in between; so are steps by the keys or the wheel that
/// follow each other within half a second. The value may also be a selection marker or absent; where it stands for
/// several values, a user's step reports a ZelNumberChange. A value outside the limits stays as it is until a user
/// changes it. In an empty range users can change nothing.
class ZEL_EXPORT ZelRangeControl : public ZelGuarded<QWidget>
{
    Q_OBJECT
    Q_PROPERTY(QVariant objectValue READ objectValue WRITE setObjectValue NOTIFY objectValueChanged)
    Q_PROPERTY(double minValue READ minValue WRITE setMinValue NOTIFY limitsChanged)
    Q_PROPERTY(double maxValue READ maxValue WRITE setMaxValue NOTIFY limitsChanged)
    Q_PROPERTY(double increment READ increment WRITE setIncrement)
    Q_PROPERTY(bool editable READ isEditable WRITE setEditable NOTIFY editableChanged)
public:
    ~ZelRangeControl() override;

    QVariant objectValue() const { return m_value; }
    void setObjectValue(const QVariant &value);
    /// The number at which steps start: the value, or valueForNone() if there is no single value.
    double doubleValue() const { return ZelValueRange::number(m_value, valueForNone()); }
    /// Whether there is one value, rather than several or none.
    bool hasSingleValue() const;

    /// Setting a limit does not change the value.
    double minValue() const { return m_range.minimum; }
    void setMinValue(double value) { setLimit(&m_range.minimum, value); }
    double maxValue() const { return m_range.maximum; }
    void setMaxValue(double value) { setLimit(&m_range.maximum, value); }
    double increment() const { return m_increment; }
    void setIncrement(double increment) { m_increment = increment; }

    /// Sets what is asked, after the value was set, for the limits of the model: users keep to these, too.
    void setModelRange(const std::function<std::optional<ZelValueRange>()> &range);

    /// Whether users may change the value; true by default. If not, the control looks disabled.
    bool isEditable() const { return m_editable; }
    void setEditable(bool editable);
    /// Whether the user is holding the mouse button down on the control.
    bool isPressed() const { return m_pressGrouping != nullptr; }

    /// Steps by that many increments at once as a user does, and reports it. Does nothing at the limit.
    virtual void stepBy(int steps) = 0;
    /// Goes as near to the value as a user's steps can get, and reports it.
    virtual void goToValue(double value) = 0;
    virtual QAccessible::Role accessibleRole() const = 0;

    QSize sizeHint() const override;

Q_SIGNALS:
    void objectValueChanged();
    void limitsChanged();
    void editableChanged();
    /// The user has changed the value.
    void valueEdited();
    /// Sent after valueEdited.
    void action();

protected:
    ZelRangeControl(const ZelValueRange &range, double increment, QWidget *parent);

    /// The limits, and those of the model within them.
    const ZelValueRange &range() const;
    virtual double valueForNone() const { return 0; }
    /// How far a number may be from the entered one that it was made of and still count as rounded.
    virtual double roundingTolerance() const { return std::abs(m_increment) * 0.75; }
    /// Called when the value has changed. Redraws what shows it.
    virtual void showValue() { update(); }
    /// Sets a value that the user has entered, and reports it. The control may be gone afterwards.
    void enterValue(const QVariant &value);
    /// Puts a former value back as if none had been entered. It is reported only if it is a single value.
    void restoreValue(const QVariant &value);

    /// The number of increments by which a key steps; 0 for a key that the control does not use.
    virtual int stepsForKey(int key) const;

    /// Whether the wheel steps the control instead of scrolling what it lies in: while it has the focus.
    virtual bool takesWheel() const { return hasFocus(); }
    /// Whether the control takes a press at this position. If not, its parent gets the press.
    virtual bool canPress(const QPoint &position) const = 0;
    /// These do what the press, and each move until its release, does.
    virtual void pressAt(const QPoint &position) = 0;
    virtual void movePressTo(const QPoint &position) = 0;
    virtual void endPress();
    /// Undoes the changes that were recorded since the press began. Answers whether there were any.
    bool rollBackPress() const;

    virtual QSize makeSizeHint() const = 0;
    void updateSizeHint();

    bool handleEvent(QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    bool isRefused(const QVariant &entered) const;
    void setLimit(double *limit, double value);

    ZelValueRange m_range;
    std::function<std::optional<ZelValueRange>()> m_modelRange;
    mutable std::optional<ZelValueRange> m_narrowedRange; // until the value is set anew
    double m_increment;
    QVariant m_value;
    int m_wheelAngle = 0;
    ZelUndoBurst m_steps; // by keys and wheel
    bool m_editable = true;
    mutable QSize m_sizeHint;
    std::unique_ptr<ZelPressGrouping> m_pressGrouping; // destroyed first, because its end may call others
};
