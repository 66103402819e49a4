// SPDX-License-Identifier: MIT
#include "Views/ZelMagnificationView.h"

#include "Controls/Menus/ZelMenuItem.h"
#include "Controls/Menus/ZelPopUpButton.h"
#include "Core/RunLoop/ZelMemberScope.h"
#include "Core/Values/private/ZelAssign.h"
#include "Observation/ZelObservations.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QGestureEvent>
#include <QScrollArea>
#include <QScrollBar>
#include <QWheelEvent>
#include <QtMath>

namespace {

const char g_context = 0;

constexpr double g_zoomStep = 1.25;
constexpr double g_angleOfStep = 120; // eighths of a degree
constexpr double g_tolerance = 1e-6;  // of a point
constexpr int g_maximumRounds = 4;    // limits updates if scroll bars come and go with every frame

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
    ZelObservations(this).removeAllObservationsForContext(&g_context);
}

void ZelMagnificationView::initialize()
{
    ZelObservations(this).addObservationWithObject(
        this, "contentSize", ZelKeyValueObservingOptionEqualCheck,
        [this](ZelBlockObservation *, const ZelKeyValueChange &) { updateContentFrame(); }, &g_context);
#ifndef Q_OS_MACOS // there the same fingers also send a native gesture
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
    if (ZelAssign(m_minMagnification, factor))
        Q_EMIT minMagnificationChanged();
}

void ZelMagnificationView::setMaxMagnification(double factor)
{
    if (ZelAssign(m_maxMagnification, factor))
        Q_EMIT maxMagnificationChanged();
}

void ZelMagnificationView::setContentSize(const QSizeF &size)
{
    if (!ZelAssign(m_contentSize, size))
        return;
    updateGeometry();
    Q_EMIT contentSizeChanged();
}

void ZelMagnificationView::setPinchMagnificationFactor(double factor)
{
    if (ZelAssign(m_pinchMagnificationFactor, factor))
        Q_EMIT pinchMagnificationFactorChanged();
}

void ZelMagnificationView::setUpdatingDocumentFrame(bool updating)
{
    if (ZelAssign(m_updatingDocumentFrame, updating))
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
    const ZelMemberScope updating(this, m_updating, true);
    for (int round = 0; round < g_maximumRounds; ++round) {
        m_superviewChanged = false;
        placeContent();
        if (!updating.isOwnerAlive())
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

/// Sets the same ranges that the scroll area would set when the view or its superview changes. But QScrollArea uses the
/// view after the scroll bars have reported the change, and a receiver may have deleted the view by then. Set here
/// first, the ranges do not change there, and this function survives the deletion.
void ZelMagnificationView::prepareScrollBars(const QSizeF &frameSize)
{
    const auto *area = qobject_cast<QScrollArea *>(scrollArea());
    if (!area || area->widget() != this || area->widgetResizable())
        return;
    const QPointer<ZelMagnificationView> guard(this);
    const QPointer<QScrollBar> vertical = area->verticalScrollBar();
    const QSize size = QSize(qCeil(frameSize.width() - g_tolerance), qCeil(frameSize.height() - g_tolerance));
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
    QCoreApplication::postEvent(this, new QEvent(QEvent::LayoutRequest)); // later, when the subview is complete
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

/// Zooms and scrolls so that the point comes to the given place in the superview.
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
    // The anchor does not hold if the content is kept in the middle or at an edge, because another point is at the
    // place then.
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
    // Only these states count, because the end of the gesture reports the last change again.
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
    const double steps = event->angleDelta().y() / g_angleOfStep;
    if (steps != 0)
        magnifyAtPlace(m_magnificationFactor * std::pow(g_zoomStep, steps),
                       mapToParent(mapFromGlobal(event->globalPosition())));
}

void ZelMagnificationView::zoomIn(QObject *)
{
    magnifyVisibleRectWithFactor(m_magnificationFactor * g_zoomStep);
}

void ZelMagnificationView::zoomOut(QObject *)
{
    magnifyVisibleRectWithFactor(m_magnificationFactor / g_zoomStep);
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
        updateContentFrame(); // this may delete the view
    return false;
}
