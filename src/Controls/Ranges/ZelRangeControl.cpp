// SPDX-License-Identifier: MIT
#include "Controls/Ranges/ZelRangeControl.h"

#include "Controls/private/ZelControlSupport.h"
#include "Controls/private/ZelPressGrouping.h"
#include "Controls/private/ZelRefusalMark.h"
#include "Core/Values/ZelNumberChange.h"
#include "Core/Values/ZelValues.h"
#include "Core/Values/private/ZelAssign.h"
#include "ViewController/private/ZelControlHelp.h"

#include <QKeyEvent>
#include <QPointer>
#include <cmath>

ZelRangeControl::ZelRangeControl(const ZelValueRange &range, double increment, QWidget *parent)
    : ZelGuarded(parent)
    , m_range(range)
    , m_increment(increment)
{
    ZelControlSupport::prepare();
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    setMouseTracking(true); // a move without a button shows that the release was lost
}

ZelRangeControl::~ZelRangeControl() = default;

// The value

void ZelRangeControl::setObjectValue(const QVariant &value)
{
    const bool changed = !ZelEqual(m_value, value);
    m_value = value;
    // Of another object, the same value may have other limits.
    if (std::exchange(m_narrowedRange, std::nullopt) || changed)
        showValue();
    if (!changed)
        return;
    ZelControlSupport::announceValue(this);
    Q_EMIT objectValueChanged();
}

void ZelRangeControl::setModelRange(const std::function<std::optional<ZelValueRange>()> &range)
{
    m_modelRange = range;
    m_narrowedRange.reset();
}

const ZelValueRange &ZelRangeControl::range() const
{
    if (!m_modelRange)
        return m_range;
    if (!m_narrowedRange) {
        m_narrowedRange = m_range;
        if (const auto model = m_modelRange()) {
            m_narrowedRange->minimum = std::max(m_range.minimum, model->minimum);
            m_narrowedRange->maximum = std::min(m_range.maximum, model->maximum);
        }
    }
    return *m_narrowedRange;
}

bool ZelRangeControl::hasSingleValue() const
{
    return !ZelIsNull(m_value) && !ZelIsControllerMarker(m_value) && !ZelNumberChange::of(m_value);
}

void ZelRangeControl::enterValue(const QVariant &value)
{
    m_value = value;
    update();
    const QPointer<ZelRangeControl> guard(this);
    ZelControlSupport::announceValue(this);
    Q_EMIT objectValueChanged();
    if (!guard)
        return;
    const auto edited = [this, guard, value] {
        Q_EMIT valueEdited();
        if (guard && isRefused(value))
            ZelRefusalMark::flash(this);
    };
    ZelControlSupport::reportEdit(this, edited, [this] { Q_EMIT action(); });
}

/// Whether the model, as its binding shows it by now, has another number than the entered one, and not because it
/// rounded that one.
bool ZelRangeControl::isRefused(const QVariant &entered) const
{
    if (ZelEqual(entered, m_value) || !ZelIsNumber(entered))
        return false;
    return !hasSingleValue() || std::abs(doubleValue() - entered.toDouble()) > roundingTolerance();
}

void ZelRangeControl::restoreValue(const QVariant &value)
{
    m_value = value;
    update();
    if (hasSingleValue())
        ZelControlSupport::reportNewValue(this);
}

void ZelRangeControl::setLimit(double *limit, double value)
{
    if (value == *limit)
        return;
    *limit = value;
    m_narrowedRange.reset();
    update();
    Q_EMIT limitsChanged();
}

void ZelRangeControl::setEditable(bool editable)
{
    if (!ZelAssign(m_editable, editable))
        return;
    if (!editable)
        endPress();
    update();
    Q_EMIT editableChanged();
}

// Size, which depends only on the font and the style

QSize ZelRangeControl::sizeHint() const
{
    if (!m_sizeHint.isValid())
        m_sizeHint = makeSizeHint();
    return m_sizeHint;
}

void ZelRangeControl::updateSizeHint()
{
    m_sizeHint = QSize();
    updateGeometry();
}

void ZelRangeControl::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        m_sizeHint = QSize();
    QWidget::changeEvent(event);
}

// Input

bool ZelRangeControl::handleEvent(QEvent *event)
{
    if (!m_editable && ZelControlSupport::isInput(event)) {
        event->ignore();
        return true;
    }
    if (event->type() == QEvent::ToolTip && ZelControlHelp::showToolTip(event, this))
        return true;
    return QWidget::event(event);
}

int ZelRangeControl::stepsForKey(int key) const
{
    static const QHash<int, int> steps = {
        {Qt::Key_Up, 1}, {Qt::Key_Down, -1}, {Qt::Key_PageUp, 10}, {Qt::Key_PageDown, -10}};
    return steps.value(key);
}

void ZelRangeControl::keyPressEvent(QKeyEvent *event)
{
    const int steps = ZelControlSupport::hasCommandModifier(event) ? 0 : stepsForKey(event->key());
    if (steps == 0) {
        event->ignore();
        return;
    }
    const ZelUndoBurst::Edit edit(m_steps, event->isAutoRepeat());
    stepBy(steps);
}

void ZelRangeControl::wheelEvent(QWheelEvent *event)
{
    if (!takesWheel()) {
        event->ignore();
        return;
    }
    event->accept();
    const int steps = ZelControlSupport::wheelSteps(event, &m_wheelAngle);
    if (steps == 0)
        return;
    const ZelUndoBurst::Edit edit(m_steps);
    stepBy(steps);
}

// The press of the mouse

void ZelRangeControl::mousePressEvent(QMouseEvent *event)
{
    const QPoint position = event->position().toPoint();
    if (event->button() != Qt::LeftButton || !canPress(position)) {
        event->ignore();
        return;
    }
    m_pressGrouping = std::make_unique<ZelPressGrouping>(this, [this] { endPress(); });
    update();
    pressAt(position);
}

void ZelRangeControl::mouseMoveEvent(QMouseEvent *event)
{
    if (!isPressed())
        return;
    if (event->buttons() & Qt::LeftButton)
        movePressTo(event->position().toPoint());
    else
        endPress();
}

void ZelRangeControl::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        endPress();
}

void ZelRangeControl::endPress()
{
    update();
    // Destroyed last, because the end of a grouping may call others, which may delete the control.
    const auto grouping = std::move(m_pressGrouping);
}

bool ZelRangeControl::rollBackPress() const
{
    return m_pressGrouping && m_pressGrouping->rollBack();
}
