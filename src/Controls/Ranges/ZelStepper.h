// SPDX-License-Identifier: MIT
#pragma once

#include "Controls/Ranges/ZelRangeControl.h"

#include <QAbstractSpinBox>
#include <QBasicTimer>
#include <QPointer>
#include <QStyle>

class QLineEdit;
class QStyleOptionSpinBox;

/// Two small arrows that step a value up and down, repeatedly while the mouse holds one of them.
///
/// Where there is no value to step from, steps start from 0; several different values are stepped each from its own. A
/// value outside the limits is stepped into them. By default the limits are the largest finite doubles and the
/// increment is 1. An increment of 0 or one that is no number does nothing.
///
class ZEL_EXPORT ZelStepper : public ZelRangeControl
{
    Q_OBJECT
    Q_PROPERTY(bool valueWraps READ valueWraps WRITE setValueWraps)
public:
    explicit ZelStepper(QWidget *parent = nullptr);

    /// Whether a step beyond one limit continues at the other one; false by default.
    bool valueWraps() const { return m_valueWraps; }
    void setValueWraps(bool wraps);

    /// The field beside the stepper that edits the same number; null by default. The stepper then takes no focus: a
    /// press gives it to the field and selects its text. What is being typed there is taken before each step; a text
    /// that is refused stays, and nothing is stepped.
    void setField(QLineEdit *field);

    void stepBy(int steps) override;
    /// Goes towards the value by whole steps.
    void goToValue(double value) override;
    QAccessible::Role accessibleRole() const override { return QAccessible::SpinBox; }

    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void timerEvent(QTimerEvent *event) override;

    void showValue() override;
    bool takesWheel() const override;
    bool canPress(const QPoint &position) const override { return arrowAt(position) != QStyle::SC_None; }
    void pressAt(const QPoint &position) override;
    void movePressTo(const QPoint &position) override;
    void endPress() override;
    QSize makeSizeHint() const override;

private:
    void initStyleOption(QStyleOptionSpinBox *option) const;
    QPoint spinBoxOrigin() const;
    QStyle::SubControl arrowAt(const QPoint &position) const;
    bool commitField();
    QVariant valueAfter(int steps) const;
    bool canStep(int steps) const;
    QAbstractSpinBox::StepEnabled possibleSteps() const;
    void stepPressed();

    QPointer<QLineEdit> m_field;
    QBasicTimer m_repeatTimer;
    QStyle::SubControl m_pressed = QStyle::SC_None;
    bool m_pointerInside = false;
    bool m_valueWraps = false;
    QAbstractSpinBox::StepEnabled m_shownSteps; // the steps that were possible when it was last painted
};
