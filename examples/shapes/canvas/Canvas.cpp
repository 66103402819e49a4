// SPDX-License-Identifier: MIT
#include "canvas/Canvas.h"

#include "canvas/DragGesture.h"
#include "canvas/RubberBandGesture.h"
#include "canvas/ShapePainter.h"
#include "commands/Operations.h"
#include "model/Document.h"
#include "model/Selection.h"
#include "model/ShapeGeometry.h"

#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QtMath>

namespace {
constexpr double Margin = 24;    // points around the page
constexpr int FewUpdates = 64;   // above that, one update of everything is cheaper
constexpr int FewHandles = 200;  // selected shapes that still get handles
constexpr double HandleSize = 6; // pixels
} // namespace

Canvas::Canvas(Document *document, Selection *selection, Operations *operations, QWidget *parent)
    : QWidget(parent)
    , m_document(document)
    , m_selection(selection)
    , m_operations(operations)
{
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAccessibleName(QStringLiteral("Canvas"));
    connect(document, &Document::structureChanged, this, &Canvas::structureChanged);
    connect(document, &Document::shapeChanged, this, &Canvas::shapeChanged);
    connect(document, &Document::pageChanged, this, &Canvas::pageChanged);
    connect(selection, &Selection::changed, this, &Canvas::selectionChanged);
    structureChanged(document->shapes(), {});
    pageChanged();
}

Canvas::~Canvas() = default;

void Canvas::setZoom(double zoom)
{
    zoom = qBound(0.02, zoom, 16.0);
    if (m_zoom == zoom)
        return;
    m_zoom = zoom;
    pageChanged();
    Q_EMIT zoomChanged();
}

QRectF Canvas::visiblePage() const
{
    return m_transform.inverted().mapRect(QRectF(visibleRegion().boundingRect()));
}

QSize Canvas::sizeHint() const
{
    return ((m_document->pageSize() + QSizeF(2 * Margin, 2 * Margin)) * m_zoom).toSize();
}

Shape *Canvas::shapeAt(const QPointF &point)
{
    const QList<Shape *> shapes = pressableShapesIn(QRectF(point, QSizeF()).adjusted(-4, -4, 4, 4));
    const auto hit = std::find_if(shapes.crbegin(), shapes.crend(),
                                  [&](const Shape *shape) { return ShapeGeometry::contains(*shape, point); });
    return hit == shapes.crend() ? nullptr : *hit;
}

QPointF Canvas::toPage(const QPointF &position) const
{
    return m_transform.inverted().map(position);
}

QList<Shape *> Canvas::shownShapesIn(const QRectF &rect)
{
    QList<Shape *> shapes = m_index.shapesIn(rect);
    shapes.removeIf([this](const Shape *shape) { return !m_document->isShown(shape); });
    return shapes;
}

QList<Shape *> Canvas::pressableShapesIn(const QRectF &rect)
{
    QList<Shape *> shapes = shownShapesIn(rect);
    shapes.removeIf([](const Shape *shape) { return shape->isLocked(); });
    return shapes;
}

void Canvas::structureChanged(const QList<Shape *> &added, const QList<Shape *> &removed)
{
    for (const Shape *shape : removed)
        updatePage(m_index.lastBounds(shape));
    m_index.remove(removed);
    for (Shape *shape : added) {
        m_index.insert(shape);
        updatePage(m_index.lastBounds(shape));
    }
    if (added.isEmpty() && removed.isEmpty())
        update();      // another order
    m_gesture.reset(); // it may hold a shape that is gone
}

void Canvas::shapeChanged(Shape *shape)
{
    if (m_updates <= FewUpdates) {
        updatePage(m_index.lastBounds(shape));
        updatePage(ShapeGeometry::paintedBounds(*shape));
    }
    m_index.touch(shape);
}

void Canvas::selectionChanged()
{
    updateShapes(std::exchange(m_paintedSelection, m_selection->shapes()));
    updateShapes(m_paintedSelection);
}

void Canvas::pageChanged()
{
    setFixedSize(sizeHint().expandedTo(QSize(10, 10)));
    updateTransform();
    update();
}

void Canvas::updateTransform()
{
    m_transform = QTransform::fromScale(m_zoom, m_zoom).translate(Margin, Margin);
}

void Canvas::updateShapes(const QList<Shape *> &shapes)
{
    for (const Shape *shape : shapes) {
        if (m_updates > FewUpdates)
            return;
        if (Document::row(shape) >= 0)
            updatePage(ShapeGeometry::paintedBounds(*shape));
    }
}

void Canvas::updatePage(const QRectF &rect)
{
    if (m_updates > FewUpdates)
        return;
    if (++m_updates > FewUpdates) {
        update();
        return;
    }
    const int border = qCeil(HandleSize);
    update(m_transform.mapRect(rect).toAlignedRect().adjusted(-border, -border, border, border));
}

void Canvas::paintEvent(QPaintEvent *event)
{
    m_updates = 0;
    QPainter painter(this);
    painter.fillRect(event->rect(), palette().color(QPalette::Dark));
    painter.setTransform(m_transform);
    painter.setRenderHint(QPainter::Antialiasing);
    const double border = HandleSize / m_zoom;
    const QRectF rect =
        m_transform.inverted().mapRect(QRectF(event->rect())).adjusted(-border, -border, border, border);
    paintPage(painter, rect);
    const QList<Shape *> shapes = shownShapesIn(rect);
    ShapePainter shapePainter(&painter);
    for (const Shape *shape : shapes)
        shapePainter.paint(*shape);
    painter.setOpacity(1);
    painter.setRenderHint(QPainter::Antialiasing, false);
    paintSelection(painter, shapes);
    if (m_gesture)
        m_gesture->paint(painter);
}

void Canvas::paintPage(QPainter &painter, const QRectF &rect) const
{
    const QRectF page(QPointF(), m_document->pageSize());
    painter.fillRect(page, Qt::white);
    const double spacing = m_document->gridSpacing();
    if (!m_document->isGridVisible() || spacing * m_zoom < 4)
        return;
    QList<QLineF> lines;
    const QRectF part = rect.intersected(page);
    for (double x = qCeil(part.left() / spacing) * spacing; x < part.right(); x += spacing)
        lines.append({x, part.top(), x, part.bottom()});
    for (double y = qCeil(part.top() / spacing) * spacing; y < part.bottom(); y += spacing)
        lines.append({part.left(), y, part.right(), y});
    painter.setPen(QPen(QColor(0xdd, 0xe3, 0xea), 0));
    painter.drawLines(lines);
}

void Canvas::paintSelection(QPainter &painter, const QList<Shape *> &shapes) const
{
    QList<QLineF> lines;
    QList<QRectF> handles;
    const double size = HandleSize / m_zoom;
    const bool withHandles = m_selection->count() <= FewHandles;
    for (const Shape *shape : shapes) {
        if (!m_selection->contains(shape))
            continue;
        if (ShapePainter::isSpot(*shape, m_zoom)) {
            painter.fillRect(shape->frame(), palette().color(QPalette::Highlight));
            continue;
        }
        const QPolygonF frame = ShapeGeometry::frame(*shape);
        for (int i = 0; i < 4; ++i) {
            lines.append(QLineF(frame[i], frame[(i + 1) % 4]));
            if (withHandles)
                handles.append(QRectF(frame[i] - QPointF(size / 2, size / 2), QSizeF(size, size)));
        }
    }
    painter.setPen(QPen(palette().color(QPalette::Highlight), 0));
    painter.setBrush(Qt::white);
    painter.drawLines(lines);
    painter.drawRects(handles);
}

void Canvas::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    const QPointF point = toPage(event->position());
    Shape *shape = shapeAt(point);
    const bool extends = event->modifiers() & Qt::ShiftModifier;
    if (shape && extends)
        m_selection->toggle({shape});
    else if (shape ? !m_selection->contains(shape) : !extends)
        m_selection->set(shape ? QList<Shape *>{shape} : QList<Shape *>{});

    if (!shape) {
        const auto shapesIn = [this](const QRectF &rect) { return pressableShapesIn(rect); };
        m_gesture = std::make_unique<RubberBandGesture>(m_selection, shapesIn, point);
    } else if (m_selection->contains(shape)) {
        m_gesture = std::make_unique<DragGesture>(m_operations, point);
    }
}

void Canvas::mouseMoveEvent(QMouseEvent *event)
{
    if (!m_gesture)
        return;
    updatePage(m_gesture->paintedRect());
    m_gesture->moveTo(toPage(event->position()));
    updatePage(m_gesture->paintedRect());
}

void Canvas::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton || !m_gesture)
        return;
    updatePage(m_gesture->paintedRect());
    std::exchange(m_gesture, nullptr)->finish();
}

void Canvas::keyPressEvent(QKeyEvent *event)
{
    const double step = event->modifiers() & Qt::ShiftModifier ? 10 : 1;
    switch (event->key()) {
    case Qt::Key_Left:
        return m_operations->moveBy({-step, 0});
    case Qt::Key_Right:
        return m_operations->moveBy({step, 0});
    case Qt::Key_Up:
        return m_operations->moveBy({0, -step});
    case Qt::Key_Down:
        return m_operations->moveBy({0, step});
    case Qt::Key_Escape:
        return cancelGesture();
    default:
        QWidget::keyPressEvent(event);
    }
}

void Canvas::cancelGesture()
{
    if (!m_gesture)
        return;
    updatePage(m_gesture->paintedRect());
    std::exchange(m_gesture, nullptr)->cancel();
}

void Canvas::wheelEvent(QWheelEvent *event)
{
    if (event->modifiers() & Qt::ControlModifier)
        setZoom(m_zoom * std::pow(1.2, event->angleDelta().y() / 120.0));
    else
        QWidget::wheelEvent(event);
}
