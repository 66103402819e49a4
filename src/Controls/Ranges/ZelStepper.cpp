// SPDX-License-Identifier: MIT
#include "Controls/Ranges/ZelStepper.h"

#include "Controls/private/ZelControlSupport.h"
#include "Core/Binding/ZelEditor.h"
#include "Core/Values/ZelValues.h"

#include <QLineEdit>
#include <QMouseEvent>
#include <QStyleOptionSpinBox>
#include <QStylePainter>
#include <QTimerEvent>
#include <algorithm>
#include <cmath>
#include <limits>

namespace {

/// The style draws a whole spin box. Its field lies outside the widget, so that only the arrows are seen.
constexpr int g_hiddenFieldWidth = 64;
constexpr double g_largest = std::numeric_limits<double>::max();

int directionOf(QStyle::SubControl arrow)
{
    return arrow == QStyle::SC_SpinBoxUp ? 1 : arrow == QStyle::SC_SpinBoxDown ? -1 : 0;
}

} // namespace

ZelStepper::ZelStepper(QWidget *parent)
    : ZelRangeControl({-g_largest, g_largest}, 1, parent)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

/// The stepper shows nothing of the value but which steps are possible.
void ZelStepper::showValue()
{
    if (possibleSteps() != m_shownSteps)
        update();
}

void ZelStepper::setValueWraps(bool wraps)
{
    m_valueWraps = wraps;
    update();
}

void ZelStepper::setField(QLineEdit *field)
{
    m_field = field;
    setFocusPolicy(field ? Qt::NoFocus : Qt::StrongFocus);
}

QVariant ZelStepper::valueAfter(int steps) const
{
    return range().steppedValue(objectValue(), increment() * steps, 0, m_valueWraps && !ZelIsNull(objectValue()));
}

bool ZelStepper::canStep(int steps) const
{
    if (!isEditable() || !isEnabled() || range().isEmpty() || !std::isfinite(increment()) || increment() * steps == 0)
        return false;
    return !hasSingleValue() || ZelNotEqual(valueAfter(steps), objectValue());
}

QAbstractSpinBox::StepEnabled ZelStepper::possibleSteps() const
{
    QAbstractSpinBox::StepEnabled steps;
    steps.setFlag(QAbstractSpinBox::StepUpEnabled, canStep(1));
    steps.setFlag(QAbstractSpinBox::StepDownEnabled, canStep(-1));
    return steps;
}

bool ZelStepper::takesWheel() const
{
    return m_field ? m_field->hasFocus() : ZelRangeControl::takesWheel();
}

/// Answers false if the stepper is not to step: the field keeps a refused text, or the stepper is gone.
bool ZelStepper::commitField()
{
    const QPointer<ZelStepper> guard(this);
    auto *field = qobject_cast<ZelEditor *>(m_field);
    return !field || (field->commitEditing() && guard);
}

/// What was being typed is an undo step of its own, so it is taken before that of the press begins.
void ZelStepper::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton && !commitField())
        return;
    if (m_field && event->button() == Qt::LeftButton) {
        const QPointer<ZelStepper> guard(this);
        m_field->setFocus(Qt::MouseFocusReason);
        if (!guard)
            return;
        if (m_field)
            m_field->selectAll();
    }
    ZelRangeControl::mousePressEvent(event);
}

void ZelStepper::stepBy(int steps)
{
    if (commitField() && canStep(steps))
        enterValue(valueAfter(steps));
}

void ZelStepper::goToValue(double value)
{
    if (increment() != 0 && qIsFinite(value)) // rounded, since 0.3 - 0.1 is less than two steps of 0.1
        stepBy(int(std::clamp(std::round((value - doubleValue()) / increment()), -1e9, 1e9)));
}

void ZelStepper::stepPressed()
{
    const QPointer<ZelStepper> guard(this);
    stepBy(directionOf(m_pressed));
    // A receiver of the step may have deleted, hidden or disabled the stepper, which ends the press.
    if (!guard || !isPressed())
        return;
    const QStyle::StyleHint delay =
        m_repeatTimer.isActive() ? QStyle::SH_SpinBox_ClickAutoRepeatRate : QStyle::SH_SpinBox_ClickAutoRepeatThreshold;
    m_repeatTimer.start(style()->styleHint(delay, nullptr, this), this);
}

void ZelStepper::pressAt(const QPoint &position)
{
    m_pressed = arrowAt(position);
    m_pointerInside = true;
    stepPressed();
}

void ZelStepper::movePressTo(const QPoint &position)
{
    m_pointerInside = arrowAt(position) == m_pressed;
    update();
}

void ZelStepper::endPress()
{
    m_repeatTimer.stop();
    ZelRangeControl::endPress();
}

void ZelStepper::initStyleOption(QStyleOptionSpinBox *option) const
{
    option->initFrom(this);
    option->rect.setWidth(width() + g_hiddenFieldWidth);
    option->frame = true;
    option->subControls = QStyle::SC_SpinBoxFrame | QStyle::SC_SpinBoxUp | QStyle::SC_SpinBoxDown;
    option->stepEnabled = possibleSteps();
    if (isPressed() && m_pointerInside) {
        option->activeSubControls = m_pressed;
        option->state |= QStyle::State_Sunken;
    }
    if (!isEditable())
        ZelControlSupport::showDisabled(option);
}

/// The origin of the spin box in the widget. Styles expect it at (0, 0), so painter and positions are moved by it.
QPoint ZelStepper::spinBoxOrigin() const
{
    return {layoutDirection() == Qt::RightToLeft ? 0 : -g_hiddenFieldWidth, 0};
}

QStyle::SubControl ZelStepper::arrowAt(const QPoint &position) const
{
    QStyleOptionSpinBox option;
    initStyleOption(&option);
    for (const QStyle::SubControl arrow : {QStyle::SC_SpinBoxUp, QStyle::SC_SpinBoxDown}) {
        if (style()->subControlRect(QStyle::CC_SpinBox, &option, arrow, this).contains(position - spinBoxOrigin()))
            return arrow;
    }
    return QStyle::SC_None;
}

QSize ZelStepper::makeSizeHint() const
{
    QStyleOptionSpinBox option;
    option.initFrom(this);
    option.direction = Qt::LeftToRight;
    option.frame = true;
    option.subControls = QStyle::SC_All;
    const int height = ZelControlSupport::fieldHeight(this);
    option.rect = QRect(0, 0, 2 * g_hiddenFieldWidth, height);
    const QRect arrow = style()->subControlRect(QStyle::CC_SpinBox, &option, QStyle::SC_SpinBoxUp, this);
    return {option.rect.right() - arrow.left() + 1, height};
}

void ZelStepper::paintEvent(QPaintEvent *)
{
    QStylePainter painter(this);
    QStyleOptionSpinBox option;
    initStyleOption(&option);
    m_shownSteps = option.stepEnabled;
    painter.translate(spinBoxOrigin());
    painter.drawComplexControl(QStyle::CC_SpinBox, option);
}

void ZelStepper::timerEvent(QTimerEvent *event)
{
    if (event->timerId() != m_repeatTimer.timerId())
        QWidget::timerEvent(event);
    else if (m_pointerInside)
        stepPressed();
}
