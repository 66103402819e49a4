// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Controls/ZelValueRange.h"
#include "Platform/Runtime/ZelGuarded.h"

#include <QBasicTimer>
#include <QStyle>
#include <QWidget>
#include <limits>
#include <optional>

class QStyleOptionSpinBox;
class ZelPressGrouping;

/// Two small arrows that step a value up and down.
///
/// Every step, of a click, of the auto-repeat while a button is held, of the arrow keys or of the wheel while the
/// stepper has the focus, is reported; the steps of one press are one undo grouping. Where there is no single value to
/// step from (absent or a selection marker), steps start from 0. A value outside the limits is stepped into them.
class ZelStepper : public ZelGuarded<QWidget>
{
    Q_OBJECT
    Q_PROPERTY(QVariant objectValue READ objectValue WRITE setObjectValue NOTIFY objectValueChanged)
    Q_PROPERTY(double minValue READ minValue WRITE setMinValue NOTIFY limitsChanged)
    Q_PROPERTY(double maxValue READ maxValue WRITE setMaxValue NOTIFY limitsChanged)
    Q_PROPERTY(double increment READ increment WRITE setIncrement)
    Q_PROPERTY(bool valueWraps READ valueWraps WRITE setValueWraps)
    Q_PROPERTY(bool editable READ isEditable WRITE setEditable NOTIFY editableChanged)
public:
    explicit ZelStepper(QWidget *parent = nullptr);
    ~ZelStepper() override;

    QVariant objectValue() const { return m_value; }
    void setObjectValue(const QVariant &value);
    double doubleValue() const { return ZelValueRange::number(m_value); }

    /// The largest finite doubles unless set. Setting them leaves the value as it is.
    double minValue() const { return m_range.minimum; }
    void setMinValue(double value);
    double maxValue() const { return m_range.maximum; }
    void setMaxValue(double value);
    /// 1; a step of 0 or of no number does nothing.
    double increment() const { return m_increment; }
    void setIncrement(double increment) { m_increment = increment; }
    /// Whether stepping beyond one limit goes on at the other; false.
    bool valueWraps() const { return m_valueWraps; }
    void setValueWraps(bool wraps);

    /// Whether users may step; true. Otherwise it looks disabled.
    bool isEditable() const { return m_editable; }
    void setEditable(bool editable);

    /// Steps as a user does, that many increments at once, and reports it. Nothing at the limit.
    void stepBy(int steps);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

Q_SIGNALS:
    void objectValueChanged();
    void limitsChanged();
    void editableChanged();
    /// The user has changed the value.
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
    void timerEvent(QTimerEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    void initStyleOption(QStyleOptionSpinBox *option) const;
    QPoint spinBoxOrigin() const;
    QStyle::SubControl arrowAt(const QPoint &position) const;
    bool hasSingleValue() const;
    double valueAfter(int steps) const;
    bool canStep(int steps) const;
    void stepPressed();
    void endPress();

    ZelValueRange m_range{-std::numeric_limits<double>::max(), std::numeric_limits<double>::max()};
    double m_increment = 1;
    QVariant m_value;
    std::unique_ptr<ZelPressGrouping> m_pressGrouping;
    QBasicTimer m_repeatTimer;
    QStyle::SubControl m_pressed = QStyle::SC_None;
    bool m_pointerInside = false;
    int m_wheelAngle = 0;
    bool m_valueWraps = false;
    bool m_editable = true;
    mutable QSize m_sizeHint;
};
