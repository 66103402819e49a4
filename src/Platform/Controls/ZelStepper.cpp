// SPDX-License-Identifier: MIT
#include "Platform/Controls/ZelStepper.h"

#include "Platform/Controls/ZelControlSupport.h"
#include "Platform/Controls/ZelPressGrouping.h"
#include "Platform/Runtime/ZelValues.h"

#include <QKeyEvent>
#include <QStyleOptionSpinBox>
#include <QStylePainter>

namespace {

/// The arrows are the end of a spin box, whose field lies outside of the widget.
constexpr int s_hiddenFieldWidth = 64;

int directionOf(QStyle::SubControl arrow)
{
    return arrow == QStyle::SC_SpinBoxUp ? 1 : arrow == QStyle::SC_SpinBoxDown ? -1 : 0;
}

} // namespace

ZelStepper::ZelStepper(QWidget *parent)
    : ZelGuarded(parent)
{
    ZelControlSupport::prepare();
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    setMouseTracking(true); // a move without buttons tells of a release that was lost
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

ZelStepper::~ZelStepper() = default;

void ZelStepper::setObjectValue(const QVariant &value)
{
    if (ZelEqual(m_value, value)) {
        m_value = value;
        return;
    }
    const bool couldStepUp = canStep(1);
    const bool couldStepDown = canStep(-1);
    m_value = value;
    if (canStep(1) != couldStepUp || canStep(-1) != couldStepDown) // nothing else of the value is seen
        update();
    ZelControlSupport::announceValue(this);
    Q_EMIT objectValueChanged();
}

void ZelStepper::setMinValue(double value)
{
    if (value == m_range.minimum)
        return;
    m_range.minimum = value;
    update();
    Q_EMIT limitsChanged();
}

void ZelStepper::setMaxValue(double value)
{
    if (value == m_range.maximum)
        return;
    m_range.maximum = value;
    update();
    Q_EMIT limitsChanged();
}

void ZelStepper::setValueWraps(bool wraps)
{
    m_valueWraps = wraps;
    update();
}

void ZelStepper::setEditable(bool editable)
{
    if (editable == m_editable)
        return;
    m_editable = editable;
    if (!editable)
        endPress();
    update();
    Q_EMIT editableChanged();
}

bool ZelStepper::hasSingleValue() const
{
    return !ZelIsNull(m_value) && !ZelIsControllerMarker(m_value);
}

double ZelStepper::valueAfter(int steps) const
{
    const double value = doubleValue();
    const double next = m_range.stepped(value, m_increment * steps);
    if (!m_valueWraps || !hasSingleValue() || m_range.isEmpty() || next != value)
        return next;
    return m_range.valueAt(m_increment * steps > 0 ? 0 : 1);
}

bool ZelStepper::canStep(int steps) const
{
    if (!m_editable || !isEnabled() || m_range.isEmpty() || !std::isfinite(m_increment) || m_increment * steps == 0)
        return false;
    return !hasSingleValue() || valueAfter(steps) != doubleValue();
}

void ZelStepper::stepBy(int steps)
{
    if (!canStep(steps))
        return;
    m_value = valueAfter(steps);
    update();
    ZelControlSupport::reportNewValue(this);
}

void ZelStepper::stepPressed()
{
    const QPointer<ZelStepper> guard(this);
    stepBy(directionOf(m_pressed));
    // Whoever heard of the step may have ended the press: deleted, hidden or disabled the stepper.
    if (!guard || m_pressed == QStyle::SC_None)
        return;
    const QStyle::StyleHint delay =
        m_repeatTimer.isActive() ? QStyle::SH_SpinBox_ClickAutoRepeatRate : QStyle::SH_SpinBox_ClickAutoRepeatThreshold;
    m_repeatTimer.start(style()->styleHint(delay, nullptr, this), this);
}

void ZelStepper::endPress()
{
    m_repeatTimer.stop();
    m_pressed = QStyle::SC_None;
    update();
    // Last, because the end of a grouping may be heard of, too.
    const auto grouping = std::move(m_pressGrouping);
}

void ZelStepper::initStyleOption(QStyleOptionSpinBox *option) const
{
    option->initFrom(this);
    option->rect.setWidth(width() + s_hiddenFieldWidth);
    option->frame = true;
    option->subControls = QStyle::SC_SpinBoxFrame | QStyle::SC_SpinBoxUp | QStyle::SC_SpinBoxDown;
    option->stepEnabled = QAbstractSpinBox::StepNone;
    if (canStep(1))
        option->stepEnabled |= QAbstractSpinBox::StepUpEnabled;
    if (canStep(-1))
        option->stepEnabled |= QAbstractSpinBox::StepDownEnabled;
    if (m_pressed != QStyle::SC_None && m_pointerInside) {
        option->activeSubControls = m_pressed;
        option->state |= QStyle::State_Sunken;
    }
    if (!m_editable)
        ZelControlSupport::showDisabled(option);
}

/// Where the spin box begins, whose end the arrows are. Styles want it at their origin.
QPoint ZelStepper::spinBoxOrigin() const
{
    return {layoutDirection() == Qt::RightToLeft ? 0 : -s_hiddenFieldWidth, 0};
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

QSize ZelStepper::sizeHint() const
{
    if (!m_sizeHint.isValid()) {
        QStyleOptionSpinBox option;
        option.initFrom(this);
        option.direction = Qt::LeftToRight;
        option.frame = true;
        option.subControls = QStyle::SC_All;
        const int height = ZelControlSupport::fieldHeight(this);
        option.rect = QRect(0, 0, 2 * s_hiddenFieldWidth, height);
        const QRect arrow = style()->subControlRect(QStyle::CC_SpinBox, &option, QStyle::SC_SpinBoxUp, this);
        m_sizeHint = QSize(option.rect.right() - arrow.left() + 1, height);
    }
    return m_sizeHint;
}

bool ZelStepper::handleEvent(QEvent *event)
{
    if (!m_editable && ZelControlSupport::isInput(event)) {
        event->ignore();
        return true;
    }
    return QWidget::event(event);
}

void ZelStepper::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        m_sizeHint = QSize();
    QWidget::changeEvent(event);
}

void ZelStepper::keyPressEvent(QKeyEvent *event)
{
    static const QHash<int, int> steps = {
        {Qt::Key_Up, 1}, {Qt::Key_Down, -1}, {Qt::Key_PageUp, 10}, {Qt::Key_PageDown, -10}};
    const int step = ZelControlSupport::hasCommandModifier(event) ? 0 : steps.value(event->key());
    if (step)
        stepBy(step);
    else
        event->ignore();
}

void ZelStepper::mousePressEvent(QMouseEvent *event)
{
    const QStyle::SubControl arrow = arrowAt(event->position().toPoint());
    if (event->button() != Qt::LeftButton || arrow == QStyle::SC_None) {
        event->ignore();
        return;
    }
    m_pressed = arrow;
    m_pointerInside = true;
    m_pressGrouping = std::make_unique<ZelPressGrouping>(this, [this] { endPress(); });
    update();
    stepPressed();
}

void ZelStepper::mouseMoveEvent(QMouseEvent *event)
{
    if (m_pressed == QStyle::SC_None)
        return;
    if (!(event->buttons() & Qt::LeftButton)) {
        endPress();
        return;
    }
    m_pointerInside = arrowAt(event->position().toPoint()) == m_pressed;
    update();
}

void ZelStepper::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        endPress();
}

void ZelStepper::paintEvent(QPaintEvent *)
{
    QStylePainter painter(this);
    QStyleOptionSpinBox option;
    initStyleOption(&option);
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

void ZelStepper::wheelEvent(QWheelEvent *event)
{
    if (!hasFocus()) {
        event->ignore();
        return;
    }
    event->accept();
    stepBy(ZelControlSupport::wheelSteps(event, &m_wheelAngle));
}
