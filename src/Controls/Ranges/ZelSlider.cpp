// SPDX-License-Identifier: MIT
#include "Controls/Ranges/ZelSlider.h"

#include "Controls/private/ZelControlSupport.h"
#include "Core/Values/ZelValues.h"

#include <QKeyEvent>
#include <QStyleOptionSlider>
#include <QStylePainter>
#include <QtMath>

namespace {

/// Styles place handles by integers, so the range is divided into this many positions.
constexpr int g_positions = 10000;

} // namespace

ZelSlider::ZelSlider(QWidget *parent)
    : ZelSlider(Linear, parent)
{
}

ZelSlider::ZelSlider(Type type, QWidget *parent)
    : ZelRangeControl({0, 1}, 0, parent)
{
    setSliderType(type);
}

void ZelSlider::setSliderType(Type type)
{
    m_type = type;
    setSizePolicy(type == Linear ? QSizePolicy::Expanding : QSizePolicy::Fixed, QSizePolicy::Fixed);
    updateSizeHint();
    update();
}

QAccessible::Role ZelSlider::accessibleRole() const
{
    return m_type == Circular ? QAccessible::Dial : QAccessible::Slider;
}

void ZelSlider::slideTo(double value)
{
    const double target = range().clamp(value);
    if (!range().isEmpty() && (!hasSingleValue() || target != doubleValue()))
        enterValue(target);
}

void ZelSlider::stepBy(int steps)
{
    const double hundredth = range().valueAt(1) / 100 - range().valueAt(0) / 100;
    const double change = steps * (increment() != 0 ? increment() : hundredth);
    if (hasSingleValue() || ZelIsNull(objectValue()))
        slideTo(range().stepped(doubleValue(), change));
    else if (!range().isEmpty())
        enterValue(range().steppedValue(objectValue(), change, doubleValue()));
}

void ZelSlider::initStyleOption(QStyleOptionSlider *option) const
{
    option->initFrom(this);
    option->orientation = Qt::Horizontal;
    option->state |= QStyle::State_Horizontal;
    option->minimum = 0;
    option->maximum = g_positions;
    option->singleStep = 1;
    option->pageStep = g_positions / 10;
    int position = qRound(range().fractionOf(doubleValue()) * g_positions);
    if (m_type == Circular) {
        option->subControls = QStyle::SC_DialGroove | QStyle::SC_DialHandle;
        option->dialWrapping = true;
        // A dial of Qt begins at the bottom. "Upside down" makes it turn clockwise.
        option->upsideDown = true;
        position = (position + g_positions / 2) % g_positions;
    } else {
        option->subControls = QStyle::SC_SliderGroove | QStyle::SC_SliderHandle;
        option->upsideDown = layoutDirection() == Qt::RightToLeft;
        option->direction = Qt::LeftToRight;
    }
    option->sliderPosition = option->sliderValue = position;
    if (!hasSingleValue())
        option->subControls &= ~(QStyle::SC_DialHandle | QStyle::SC_SliderHandle);
    if (isPressed()) {
        option->activeSubControls = m_type == Circular ? QStyle::SC_DialHandle : QStyle::SC_SliderHandle;
        option->state |= QStyle::State_Sunken;
    }
    if (!isEditable() || range().isEmpty())
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
    if (fromCentre.x() == 0 && fromCentre.y() <= 0) // both ends meet at the top: the nearer one counts
        return range().fractionOf(doubleValue()) > 0.5 ? 1 : 0;
    const double angle = std::atan2(fromCentre.x(), -fromCentre.y());
    return (angle < 0 ? angle + 2 * M_PI : angle) / (2 * M_PI);
}

void ZelSlider::pressAt(const QPoint &position)
{
    m_valueBeforeDrag = objectValue();
    if (m_type == Linear) {
        const QRect handle = handleRect();
        const bool grabsHandle = hasSingleValue() && handle.contains(position);
        m_grabOffset = grabsHandle ? position.x() - handle.left() : handle.width() / 2;
        if (grabsHandle)
            return;
    }
    movePressTo(position);
}

void ZelSlider::movePressTo(const QPoint &position)
{
    slideTo(range().nearestStep(range().valueAt(fractionAt(position)), dragStep()));
}

double ZelSlider::dragStep() const
{
    constexpr int fewest = 200;
    const bool isFine = m_resolution * fewest <= range().valueAt(1) - range().valueAt(0);
    return increment() == 0 && isFine ? m_resolution : increment();
}

/// If nobody recorded changes that can be undone, the former value is entered again.
void ZelSlider::cancelDrag()
{
    const QPointer<ZelSlider> guard(this);
    const bool wasUndone = rollBackPress();
    if (guard && !wasUndone && !ZelEqual(objectValue(), m_valueBeforeDrag))
        restoreValue(m_valueBeforeDrag);
    if (guard)
        endPress();
}

QSize ZelSlider::makeSizeHint() const
{
    QStyleOptionSlider option;
    initStyleOption(&option);
    if (m_type == Circular) {
        const int side = ZelControlSupport::fieldHeight(this); // as high as a field, for rows that have both
        return {side, side};
    }
    const int thickness = style()->pixelMetric(QStyle::PM_SliderThickness, &option, this);
    return style()->sizeFromContents(QStyle::CT_Slider, &option, QSize(84, thickness), this);
}

QSize ZelSlider::minimumSizeHint() const
{
    const QSize hint = sizeHint();
    return m_type == Circular ? hint : QSize(std::min(hint.width(), 2 * hint.height()), hint.height());
}

bool ZelSlider::handleEvent(QEvent *event)
{
    if (isPressed() && event->type() == QEvent::ShortcutOverride &&
        static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape) {
        event->accept();
        return true;
    }
    return ZelRangeControl::handleEvent(event);
}

int ZelSlider::stepsForKey(int key) const
{
    const int forwards = m_type == Linear && layoutDirection() == Qt::RightToLeft ? -1 : 1;
    if (key == Qt::Key_Right || key == Qt::Key_Left)
        return key == Qt::Key_Right ? forwards : -forwards;
    return ZelRangeControl::stepsForKey(key);
}

void ZelSlider::keyPressEvent(QKeyEvent *event)
{
    const bool goesToEnd = event->key() == Qt::Key_Home || event->key() == Qt::Key_End;
    if (isPressed() && event->key() == Qt::Key_Escape)
        cancelDrag();
    else if (goesToEnd && !ZelControlSupport::hasCommandModifier(event))
        slideTo(range().valueAt(event->key() == Qt::Key_Home ? 0 : 1));
    else
        ZelRangeControl::keyPressEvent(event);
}

/// The region of a dial's handle at the minimum, with the measures that Qt's styles have in common. Styles draw the
/// handle in any case; it is clipped out where there is no single value.
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
