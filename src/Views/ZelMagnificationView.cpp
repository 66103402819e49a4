// SPDX-License-Identifier: MIT
#include "Views/ZelMagnificationView.h"

#include "Observation/ZelObservations.h"
#include "Platform/Controls/ZelMenuItem.h"
#include "Platform/Controls/ZelPopUpButton.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QGestureEvent>
#include <QScrollArea>
#include <QScrollBar>
#include <QWheelEvent>
#include <QtMath>

namespace {

const char context = 0;

constexpr double ZoomStep = 1.25;
constexpr double AngleOfStep = 120; // eighths of a degree
constexpr double Tolerance = 1e-6;  // of a point
constexpr int MaximumRounds = 4;    // of scroll bars that come and go with the frame

struct Extent
{
    double frame;
    double bounds;
    double origin;
};

Extent extent(double available, double content, double factor)
{
    if (available > content * factor)
        return {available, available / factor, (available - content * factor) * -0.5 / factor};
    return {content * factor, content, 0};
}

bool isUsable(double factor)
{
    return factor > 0 && qIsFinite(factor);
}

int tagOf(const QAction *item)
{
    const auto *menuItem = qobject_cast<const ZelMenuItem *>(item);
    return menuItem ? menuItem->tag() : 0;
}

int tagOfSelectedItem(const QObject *sender)
{
    if (const auto *popUp = qobject_cast<const ZelPopUpButton *>(sender))
        return tagOf(popUp->selectedItem());
    if (const auto *comboBox = qobject_cast<const QComboBox *>(sender))
        return comboBox->currentData().toInt();
    return tagOf(qobject_cast<const QAction *>(sender));
}

} // namespace

/// Whatever is resized or observed may delete the view.
class ZelMagnificationView::UpdateGuard
{
public:
    explicit UpdateGuard(ZelMagnificationView *view)
        : m_view(view)
    {
        m_view->m_updating = true;
    }
    ~UpdateGuard()
    {
        if (m_view)
            m_view->m_updating = false;
    }
    Q_DISABLE_COPY_MOVE(UpdateGuard)

    bool isAlive() const { return m_view; }

private:
    QPointer<ZelMagnificationView> m_view;
};

ZelMagnificationView::ZelMagnificationView(QWidget *parent)
    : ZelView(parent)
{
    initialize();
}

ZelMagnificationView::ZelMagnificationView(const QRectF &frame, QWidget *parent)
    : ZelView(frame, parent)
{
    initialize();
}

ZelMagnificationView::ZelMagnificationView(const ZelKeyedCoder &coder, QWidget *parent)
    : ZelView(coder, parent)
{
    initialize();
}

ZelMagnificationView::~ZelMagnificationView()
{
    ZelObservations(this).removeAllObservationsForContext(&context);
}

void ZelMagnificationView::initialize()
{
    ZelObservations(this).addObservationWithObject(
        this, "contentSize", ZelKeyValueObservingOptionEqualCheck,
        [this](ZelBlockObservation *, const ZelKeyValueChange &) { updateContentFrame(); }, &context);
#ifndef Q_OS_MACOS // where the same fingers are a native gesture, too
    grabGesture(Qt::PinchGesture);
#endif
    watchSuperview();
}

// Properties

void ZelMagnificationView::setMagnificationFactor(double factor)
{
    if (factor == m_magnificationFactor || !isUsable(factor))
        return;
    const QPointer<ZelMagnificationView> guard(this);
    m_magnificationFactor = factor;
    updateContentFrame();
    if (guard)
        Q_EMIT magnificationFactorChanged();
}

void ZelMagnificationView::setMinMagnification(double factor)
{
    if (factor == m_minMagnification)
        return;
    m_minMagnification = factor;
    Q_EMIT minMagnificationChanged();
}

void ZelMagnificationView::setMaxMagnification(double factor)
{
    if (factor == m_maxMagnification)
        return;
    m_maxMagnification = factor;
    Q_EMIT maxMagnificationChanged();
}

void ZelMagnificationView::setContentSize(const QSizeF &size)
{
    if (size == m_contentSize)
        return;
    m_contentSize = size;
    updateGeometry();
    Q_EMIT contentSizeChanged();
}

void ZelMagnificationView::setPinchMagnificationFactor(double factor)
{
    if (factor == m_pinchMagnificationFactor)
        return;
    m_pinchMagnificationFactor = factor;
    Q_EMIT pinchMagnificationFactorChanged();
}

void ZelMagnificationView::setUpdatingDocumentFrame(bool updating)
{
    if (updating == m_updatingDocumentFrame)
        return;
    m_updatingDocumentFrame = updating;
    Q_EMIT updatingDocumentFrameChanged();
}

// Surroundings

QWidget *ZelMagnificationView::contentView() const
{
    const QList<QWidget *> views = subviews();
    return views.isEmpty() ? nullptr : views.first();
}

QAbstractScrollArea *ZelMagnificationView::scrollArea() const
{
    const QWidget *clip = m_superview;
    auto *area = clip ? qobject_cast<QAbstractScrollArea *>(clip->parentWidget()) : nullptr;
    return area && area->viewport() == clip ? area : nullptr;
}

QSizeF ZelMagnificationView::superviewSize() const
{
    if (const auto *view = qobject_cast<const ZelView *>(m_superview))
        return view->bounds().size();
    return m_superview ? QSizeF(m_superview->size()) : QSizeF(0, 0);
}

QRectF ZelMagnificationView::visibleDocumentRect() const
{
    if (!m_superview)
        return bounds();
    return boundsTransform().inverted().mapRect(QRectF(m_superview->rect().translated(-pos())));
}

void ZelMagnificationView::watchSuperview()
{
    QWidget *superview = isWindow() ? nullptr : parentWidget();
    if (m_superview == superview)
        return;
    if (m_superview)
        m_superview->removeEventFilter(this);
    m_superview = superview;
    m_anchor.reset();
    if (!superview)
        return;
    superview->installEventFilter(this);
    updateContentFrame();
}

// Frame

void ZelMagnificationView::updateContentFrame()
{
    if (m_updating) {
        m_superviewChanged = true;
        return;
    }
    UpdateGuard guard(this);
    for (int round = 0; round < MaximumRounds; ++round) {
        m_superviewChanged = false;
        placeContent();
        if (!guard.isAlive())
            return;
        if (!m_superviewChanged)
            break;
    }
    setUpdatingDocumentFrame(false);
}

void ZelMagnificationView::placeContent()
{
    const QPointer<ZelMagnificationView> guard(this);
    const QRectF contentFrame(QPointF(), m_contentSize);
    if (auto *content = qobject_cast<ZelView *>(contentView()); content && content->frame() != contentFrame)
        content->setFrame(contentFrame);
    if (!guard)
        return;
    const QSizeF available = superviewSize();
    const Extent x = extent(available.width(), m_contentSize.width(), m_magnificationFactor);
    const Extent y = extent(available.height(), m_contentSize.height(), m_magnificationFactor);
    const QSizeF size(x.frame, y.frame);
    prepareScrollBars(size);
    if (guard && frame().size() != size)
        setFrame(QRectF(frame().topLeft(), size));
    if (!guard)
        return;
    if (const QRectF wanted(x.origin, y.origin, x.bounds, y.bounds); bounds() != wanted)
        setBounds(wanted);
    if (!guard)
        return;
    if (QWidget *content = contentView(); content && !qobject_cast<ZelView *>(content))
        content->setGeometry(boundsTransform().mapRect(contentFrame).toRect());
}

/// The scroll area sets the same ranges when the view or its superview has changed. But it goes on with the view after
/// the scroll bars have told of it, and whoever hears that may have deleted the view. Here, and before, it may.
void ZelMagnificationView::prepareScrollBars(const QSizeF &frameSize)
{
    const auto *area = qobject_cast<QScrollArea *>(scrollArea());
    if (!area || area->widget() != this || area->widgetResizable())
        return;
    const QPointer<ZelMagnificationView> guard(this);
    const QPointer<QScrollBar> vertical = area->verticalScrollBar();
    const QSize size = QSize(qCeil(frameSize.width() - Tolerance), qCeil(frameSize.height() - Tolerance));
    const QSize whole = area->maximumViewportSize();
    const QSize shown = whole.expandedTo(size) == whole ? whole : area->viewport()->size();
    area->horizontalScrollBar()->setRange(0, size.width() - shown.width());
    if (guard && vertical)
        vertical->setRange(0, size.height() - shown.height());
}

void ZelMagnificationView::layoutSubviews()
{
    const QPointer<ZelMagnificationView> guard(this);
    ZelView::layoutSubviews();
    if (guard && !m_updating)
        updateContentFrame();
}

void ZelMagnificationView::didAddSubview(QWidget *subview)
{
    ZelView::didAddSubview(subview);
    QCoreApplication::postEvent(this, new QEvent(QEvent::LayoutRequest)); // when it is complete
}

void ZelMagnificationView::willRemoveSubview(QWidget *subview)
{
    ZelView::willRemoveSubview(subview);
    QCoreApplication::postEvent(this, new QEvent(QEvent::LayoutRequest));
}

bool ZelMagnificationView::drawsContent() const
{
    return typeid(*this) != typeid(ZelMagnificationView);
}

QSize ZelMagnificationView::sizeHint() const
{
    return (m_contentSize * m_magnificationFactor).toSize();
}

// Zooming

void ZelMagnificationView::magnifyVisibleRectWithFactor(double factor)
{
    magnifyVisibleRectWithFactor(factor, visibleDocumentRect().center());
}

void ZelMagnificationView::magnifyVisibleRectWithFactor(double factor, const QPointF &point)
{
    magnify(factor, point, pos() + boundsTransform().map(point));
}

/// The point comes to that place in the superview.
void ZelMagnificationView::magnify(double factor, const QPointF &point, const QPointF &place)
{
    factor = qMax(qMin(m_maxMagnification, factor), m_minMagnification);
    if (factor == m_magnificationFactor || !isUsable(factor))
        return;
    const QPointer<ZelMagnificationView> guard(this);
    m_magnificationFactor = factor;
    updateContentFrame();
    if (guard)
        scrollTo(place - boundsTransform().map(point));
    if (guard)
        Q_EMIT magnificationFactorChanged();
}

void ZelMagnificationView::scrollTo(const QPointF &position)
{
    const QPointer<QAbstractScrollArea> area = scrollArea();
    if (!area)
        return;
    const int x = qRound(position.x());
    const int y = -qRound(position.y());
    area->horizontalScrollBar()->setValue(area->isRightToLeft() ? x + width() - area->viewport()->width() : -x);
    if (area)
        area->verticalScrollBar()->setValue(y);
}

void ZelMagnificationView::magnifyAtPlace(double factor, const QPointF &place)
{
    const bool isContinued = m_anchor && m_anchor->place == place && m_anchor->viewPosition == pos() &&
                             m_anchor->factor == m_magnificationFactor;
    const QPointF point = isContinued ? m_anchor->point : boundsTransform().inverted().map(place - pos());
    const QPointer<ZelMagnificationView> guard(this);
    magnify(factor, point, place);
    if (!guard)
        return;
    // Not while the content is held at the middle or at an edge: there another point has come to the place.
    const QPointF error = pos() + boundsTransform().map(point) - place;
    if (error.manhattanLength() > 1)
        m_anchor.reset();
    else
        m_anchor = Anchor{point, place, pos(), m_magnificationFactor};
}

void ZelMagnificationView::magnifyWithEvent(QNativeGestureEvent *event)
{
    pinchBy(event->value(), mapToParent(mapFrom(window(), event->scenePosition())));
}

void ZelMagnificationView::pinchBy(double magnification, const QPointF &place)
{
    const QPointer<ZelMagnificationView> guard(this);
    setPinchMagnificationFactor(m_pinchMagnificationFactor * (magnification + 1));
    if (guard)
        magnifyAtPlace((magnification + 1) * m_magnificationFactor, place);
}

bool ZelMagnificationView::pinch(QGestureEvent *event)
{
    const auto *gesture = static_cast<QPinchGesture *>(event->gesture(Qt::PinchGesture));
    if (!gesture)
        return false;
    event->accept(Qt::PinchGesture);
    // The end reports the last change once more.
    const bool isUnderWay = gesture->state() == Qt::GestureStarted || gesture->state() == Qt::GestureUpdated;
    if (isUnderWay && gesture->changeFlags() & QPinchGesture::ScaleFactorChanged)
        pinchBy(gesture->scaleFactor() - 1, mapToParent(mapFromGlobal(gesture->centerPoint())));
    return true;
}

void ZelMagnificationView::wheelEvent(QWheelEvent *event)
{
    if (!(event->modifiers() & Qt::ControlModifier)) {
        ZelView::wheelEvent(event);
        return;
    }
    event->accept();
    const double steps = event->angleDelta().y() / AngleOfStep;
    if (steps != 0)
        magnifyAtPlace(m_magnificationFactor * std::pow(ZoomStep, steps),
                       mapToParent(mapFromGlobal(event->globalPosition())));
}

void ZelMagnificationView::zoomIn(QObject *)
{
    magnifyVisibleRectWithFactor(m_magnificationFactor * ZoomStep);
}

void ZelMagnificationView::zoomOut(QObject *)
{
    magnifyVisibleRectWithFactor(m_magnificationFactor / ZoomStep);
}

void ZelMagnificationView::zoomToActualSize(QObject *)
{
    magnifyVisibleRectWithFactor(1);
}

void ZelMagnificationView::zoomFitInWindow(QObject *)
{
    magnifyVisibleRectWithFactor(1);
}

void ZelMagnificationView::selectMagnificationFactor(QObject *sender)
{
    const int tag = tagOfSelectedItem(sender);
    if (tag >= 1 && tag <= 400)
        magnifyVisibleRectWithFactor(tag / 100.0);
}

// Events

bool ZelMagnificationView::handleEvent(QEvent *event)
{
    switch (event->type()) {
    case QEvent::NativeGesture:
        if (auto *gesture = static_cast<QNativeGestureEvent *>(event);
            gesture->gestureType() == Qt::ZoomNativeGesture) {
            gesture->accept();
            magnifyWithEvent(gesture);
            return true;
        }
        break;
    case QEvent::Gesture:
        if (pinch(static_cast<QGestureEvent *>(event)))
            return true;
        break;
    case QEvent::ParentChange: {
        const QPointer<ZelMagnificationView> guard(this);
        const bool handled = ZelView::handleEvent(event);
        if (guard)
            watchSuperview();
        return handled;
    }
    default:
        break;
    }
    return ZelView::handleEvent(event);
}

bool ZelMagnificationView::filterEvent(QObject *watched, QEvent *event)
{
    if (watched == m_superview && event->type() == QEvent::Resize)
        updateContentFrame(); // which may delete the view
    return false;
}
