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
#include <QPainter>
#include <QtMath>

namespace {
constexpr double Margin = 24;   // points around the page
constexpr int FewUpdates = 64;  // above that, one update of everything is cheaper
constexpr int FewHandles = 200; // selected shapes that still get handles
// In pixels, however much the page is magnified.
constexpr double HandleSize = 6;
constexpr double Slack = 3;   // around a shape that still counts as a hit
constexpr double Tremble = 3; // of a hand, before shapes move

double scaleOf(const QPainter &painter)
{
    return painter.transform().m11();
}
} // namespace

Canvas::Canvas(Document *document, Selection *selection, Operations *operations, QWidget *parent)
    : ZelView(parent)
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

QRectF Canvas::contentRect() const
{
    return QRectF(QPointF(), m_document->pageSize()).adjusted(-Margin, -Margin, Margin, Margin);
}

QRectF Canvas::visiblePage() const
{
    return boundsTransform().inverted().mapRect(QRectF(visibleRegion().boundingRect()));
}

Shape *Canvas::shapeAt(const QPointF &point)
{
    const double slack = Slack / scale();
    const QRectF near = QRectF(point, QSizeF()).adjusted(-slack, -slack, slack, slack);
    const QList<Shape *> shapes = pressableShapesIn(near.adjusted(-1, -1, 1, 1));
    const auto hit = std::find_if(shapes.crbegin(), shapes.crend(),
                                  [&](const Shape *shape) { return ShapeGeometry::contains(*shape, point, slack); });
    return hit == shapes.crend() ? nullptr : *hit;
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
    const QSizeF size = contentSize();
    const bool isResized = frame().size() != size;
    setFrame(QRectF(frame().topLeft(), size)); // of the bounds' size: the view itself scales nothing
    setBounds(contentRect());
    update();
    if (isResized)
        Q_EMIT contentSizeChanged();
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
    update(boundsTransform().mapRect(rect).toAlignedRect().adjusted(-border, -border, border, border));
}

void Canvas::drawRect(QPainter &painter, const QRect &dirtyRect)
{
    m_updates = 0;
    const double scale = scaleOf(painter);
    const double border = HandleSize / scale;
    const QRectF rect = QRectF(dirtyRect).adjusted(-border, -border, border, border);
    const QRectF page(QPointF(), m_document->pageSize());
    painter.fillRect(dirtyRect, palette().color(QPalette::Dark));
    painter.fillRect(page, Qt::white);
    painter.setRenderHint(QPainter::Antialiasing);
    if (const double spacing = m_document->gridSpacing(); m_document->isGridVisible() && spacing * scale >= 4)
        paintGrid(painter, rect.intersected(page), spacing);
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

void Canvas::paintGrid(QPainter &painter, const QRectF &part, double spacing)
{
    QList<QLineF> lines;
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
    const double scale = scaleOf(painter);
    const double size = HandleSize / scale;
    const bool withHandles = m_selection->count() <= FewHandles;
    for (const Shape *shape : shapes) {
        if (!m_selection->contains(shape))
            continue;
        if (ShapePainter::isSpot(*shape, scale)) {
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
    const QPointF point = event->position();
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
        m_gesture = std::make_unique<DragGesture>(m_operations, point, Tremble / scale());
    }
}

void Canvas::mouseMoveEvent(QMouseEvent *event)
{
    if (!m_gesture)
        return;
    updatePage(m_gesture->paintedRect());
    m_gesture->moveTo(event->position());
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
        ZelView::keyPressEvent(event);
    }
}

void Canvas::cancelGesture()
{
    if (!m_gesture)
        return;
    updatePage(m_gesture->paintedRect());
    std::exchange(m_gesture, nullptr)->cancel();
}
