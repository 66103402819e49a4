// SPDX-License-Identifier: MIT
#include "Platform/Controls/ZelSlider.h"

#include "Platform/Controls/ZelControlSupport.h"
#include "Platform/Controls/ZelPressGrouping.h"
#include "Platform/Runtime/ZelValues.h"

#include <QKeyEvent>
#include <QStyleOptionSlider>
#include <QStylePainter>
#include <QtMath>

namespace {

/// Styles position handles by integers.
constexpr int s_positions = 10000;

} // namespace

ZelSlider::ZelSlider(QWidget *parent)
    : ZelSlider(Linear, parent)
{
}

ZelSlider::ZelSlider(Type type, QWidget *parent)
    : ZelGuarded(parent)
{
    ZelControlSupport::prepare();
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    setMouseTracking(true); // a move without buttons tells of a release that was lost
    setSliderType(type);
}

ZelSlider::~ZelSlider() = default;

void ZelSlider::setObjectValue(const QVariant &value)
{
    const bool changed = !ZelEqual(m_value, value);
    m_value = value;
    if (!changed)
        return;
    update();
    ZelControlSupport::announceValue(this);
    Q_EMIT objectValueChanged();
}

void ZelSlider::setMinValue(double value)
{
    if (value == m_range.minimum)
        return;
    m_range.minimum = value;
    update();
    Q_EMIT limitsChanged();
}

void ZelSlider::setMaxValue(double value)
{
    if (value == m_range.maximum)
        return;
    m_range.maximum = value;
    update();
    Q_EMIT limitsChanged();
}

void ZelSlider::setSliderType(Type type)
{
    m_type = type;
    m_sizeHint = QSize();
    setSizePolicy(type == Linear ? QSizePolicy::Expanding : QSizePolicy::Fixed, QSizePolicy::Fixed);
    updateGeometry();
    update();
}

void ZelSlider::setEditable(bool editable)
{
    if (editable == m_editable)
        return;
    m_editable = editable;
    if (!editable)
        endDrag();
    update();
    Q_EMIT editableChanged();
}

bool ZelSlider::hasSingleValue() const
{
    return !ZelIsNull(m_value) && !ZelIsControllerMarker(m_value);
}

void ZelSlider::slideTo(double value)
{
    const double target = m_range.clamp(value);
    if (m_range.isEmpty() || (hasSingleValue() && target == doubleValue()))
        return;
    m_value = target;
    update();
    ZelControlSupport::reportNewValue(this);
}

void ZelSlider::slideBy(double steps)
{
    const double hundredth = m_range.valueAt(1) / 100 - m_range.valueAt(0) / 100;
    slideTo(m_range.stepped(doubleValue(), steps * (m_increment != 0 ? m_increment : hundredth)));
}

void ZelSlider::initStyleOption(QStyleOptionSlider *option) const
{
    option->initFrom(this);
    option->orientation = Qt::Horizontal;
    option->state |= QStyle::State_Horizontal;
    option->minimum = 0;
    option->maximum = s_positions;
    option->singleStep = 1;
    option->pageStep = s_positions / 10;
    int position = qRound(m_range.fractionOf(doubleValue()) * s_positions);
    if (m_type == Circular) {
        option->subControls = QStyle::SC_DialGroove | QStyle::SC_DialHandle;
        option->dialWrapping = true;
        // A dial's turn begins at the bottom; "upside down" is clockwise.
        option->upsideDown = true;
        position = (position + s_positions / 2) % s_positions;
    } else {
        option->subControls = QStyle::SC_SliderGroove | QStyle::SC_SliderHandle;
        option->upsideDown = layoutDirection() == Qt::RightToLeft;
        option->direction = Qt::LeftToRight;
    }
    option->sliderPosition = option->sliderValue = position;
    if (!hasSingleValue())
        option->subControls &= ~(QStyle::SC_DialHandle | QStyle::SC_SliderHandle);
    if (m_dragging) {
        option->activeSubControls = m_type == Circular ? QStyle::SC_DialHandle : QStyle::SC_SliderHandle;
        option->state |= QStyle::State_Sunken;
    }
    if (!m_editable || m_range.isEmpty())
        ZelControlSupport::showDisabled(option);
}

QRect ZelSlider::handleRect() const
{
    QStyleOptionSlider option;
    initStyleOption(&option);
    return style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, this);
}

double ZelSlider::fractionAt(const QPoint &position) const
{
    if (m_type == Linear) {
        QStyleOptionSlider option;
        initStyleOption(&option);
        const QRect groove = style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderGroove, this);
        const int way = std::max(1, groove.width() - handleRect().width());
        const double fraction = std::clamp(double(position.x() - m_grabOffset - groove.left()) / way, 0.0, 1.0);
        return option.upsideDown ? 1 - fraction : fraction;
    }
    const QPoint fromCentre = position - rect().center();
    if (fromCentre.x() == 0 && fromCentre.y() <= 0) // both ends meet at the top: the one that is near
        return m_range.fractionOf(doubleValue()) > 0.5 ? 1 : 0;
    const double angle = std::atan2(fromCentre.x(), -fromCentre.y());
    return (angle < 0 ? angle + 2 * M_PI : angle) / (2 * M_PI);
}

void ZelSlider::beginDrag()
{
    m_dragging = true;
    m_valueBeforeDrag = m_value;
    m_dragGrouping = std::make_unique<ZelPressGrouping>(this, [this] { endDrag(); });
    update();
}

void ZelSlider::dragTo(const QPoint &position)
{
    slideTo(m_range.nearestStep(m_range.valueAt(fractionAt(position)), m_increment));
}

/// Where nobody recorded the objects' own values, a single former one is written again.
void ZelSlider::cancelDrag()
{
    const QPointer<ZelSlider> guard(this);
    const bool wasUndone = m_dragGrouping && m_dragGrouping->rollBack();
    if (guard && !wasUndone && !ZelEqual(m_value, m_valueBeforeDrag)) {
        m_value = m_valueBeforeDrag;
        update();
        if (hasSingleValue())
            ZelControlSupport::reportNewValue(this);
    }
    if (guard)
        endDrag();
}

void ZelSlider::endDrag()
{
    m_dragging = false;
    update();
    // Last, because the end of a grouping may be heard of, too.
    const auto grouping = std::move(m_dragGrouping);
}

QSize ZelSlider::sizeHint() const
{
    if (m_sizeHint.isValid())
        return m_sizeHint;
    QStyleOptionSlider option;
    initStyleOption(&option);
    if (m_type == Circular) {
        const int side = ZelControlSupport::fieldHeight(this); // beside a field it makes the row no higher
        m_sizeHint = QSize(side, side);
    } else {
        const int thickness = style()->pixelMetric(QStyle::PM_SliderThickness, &option, this);
        m_sizeHint = style()->sizeFromContents(QStyle::CT_Slider, &option, QSize(84, thickness), this);
    }
    return m_sizeHint;
}

QSize ZelSlider::minimumSizeHint() const
{
    const QSize hint = sizeHint();
    return m_type == Circular ? hint : QSize(std::min(hint.width(), 2 * hint.height()), hint.height());
}

bool ZelSlider::handleEvent(QEvent *event)
{
    if (!m_editable && ZelControlSupport::isInput(event)) {
        event->ignore();
        return true;
    }
    if (m_dragging && event->type() == QEvent::ShortcutOverride &&
        static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape) {
        event->accept();
        return true;
    }
    return QWidget::event(event);
}

void ZelSlider::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        m_sizeHint = QSize();
    QWidget::changeEvent(event);
}

void ZelSlider::keyPressEvent(QKeyEvent *event)
{
    const int forwards = m_type == Linear && layoutDirection() == Qt::RightToLeft ? -1 : 1;
    const QHash<int, int> steps = {{Qt::Key_Up, 1},           {Qt::Key_Down, -1},   {Qt::Key_Right, forwards},
                                   {Qt::Key_Left, -forwards}, {Qt::Key_PageUp, 10}, {Qt::Key_PageDown, -10}};
    if (m_dragging && event->key() == Qt::Key_Escape)
        cancelDrag();
    else if (ZelControlSupport::hasCommandModifier(event))
        event->ignore();
    else if (event->key() == Qt::Key_Home || event->key() == Qt::Key_End)
        slideTo(m_range.valueAt(event->key() == Qt::Key_Home ? 0 : 1));
    else if (const int step = steps.value(event->key()))
        slideBy(step);
    else
        event->ignore();
}

void ZelSlider::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton || m_range.isEmpty()) {
        event->ignore();
        return;
    }
    const QPoint position = event->position().toPoint();
    beginDrag();
    if (m_type == Linear) {
        const QRect handle = handleRect();
        const bool grabsHandle = hasSingleValue() && handle.contains(position);
        m_grabOffset = grabsHandle ? position.x() - handle.left() : handle.width() / 2;
        if (grabsHandle)
            return;
    }
    dragTo(position);
}

void ZelSlider::mouseMoveEvent(QMouseEvent *event)
{
    if (!m_dragging)
        return;
    if (event->buttons() & Qt::LeftButton)
        dragTo(event->position().toPoint());
    else
        endDrag();
}

void ZelSlider::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        endDrag();
}

/// Where a dial's handle is at the minimum. Styles draw it in any case; left out, it looks hollow.
QRegion ZelSlider::dialHandle() const
{
    const double radius = std::min(width(), height()) / 2.0;
    const double scale = std::clamp(radius / 6, std::min(4.0, radius / 2), radius / 2);
    QRectF handle(0, 0, 2 * radius / 7 + 2, 2 * radius / 7 + 2);
    handle.moveCenter(QPointF(width() / 2.0, height() / 2.0 - 0.7 * (radius - scale - 3)));
    return QRegion(handle.toAlignedRect(), QRegion::Ellipse);
}

void ZelSlider::paintEvent(QPaintEvent *)
{
    QStylePainter painter(this);
    QStyleOptionSlider option;
    initStyleOption(&option);
    if (m_type == Circular && !hasSingleValue())
        painter.setClipRegion(QRegion(rect()) - dialHandle());
    painter.drawComplexControl(m_type == Circular ? QStyle::CC_Dial : QStyle::CC_Slider, option);
}

void ZelSlider::wheelEvent(QWheelEvent *event)
{
    if (!hasFocus()) {
        event->ignore();
        return;
    }
    event->accept();
    if (const int steps = ZelControlSupport::wheelSteps(event, &m_wheelAngle))
        slideBy(steps);
}
