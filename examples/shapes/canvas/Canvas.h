// SPDX-License-Identifier: MIT
#pragma once

#include "ViewController/ZelView.h"
#include "canvas/SpatialIndex.h"

#include <memory>

class Document;
class Gesture;
class Operations;
class Selection;

/// The page with its shapes, to be put into a view that magnifies it.
///
/// The view's own coordinates are those of the page, whatever its magnification: it is painted in them, and the mouse
/// comes in them.
///
/// Shapes are pressed, Shift-pressed, caught with a rubber band, dragged, and nudged with the arrow keys. The mouse
/// passes through locked shapes: they are selected in the list.
class Canvas : public ZelView
{
    Q_OBJECT
public:
    Canvas(Document *document, Selection *selection, Operations *operations, QWidget *parent = nullptr);
    ~Canvas() override;

    /// The size of the page with its margins, in points.
    QSizeF contentSize() const { return contentRect().size(); }
    /// The visible part of the page.
    QRectF visiblePage() const;
    /// The topmost shape that can be pressed at the point of the page; null if there is none.
    Shape *shapeAt(const QPointF &point);

    void drawRect(QPainter &painter, const QRect &dirtyRect) override;

Q_SIGNALS:
    void contentSizeChanged();

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void structureChanged(const QList<Shape *> &added, const QList<Shape *> &removed);
    void shapeChanged(Shape *shape);
    void selectionChanged();
    void pageChanged();

    QRectF contentRect() const;
    double scale() const { return boundsTransform().m11(); } // pixels for each point
    void updatePage(const QRectF &rect);
    void updateShapes(const QList<Shape *> &shapes);
    QList<Shape *> shownShapesIn(const QRectF &rect);
    QList<Shape *> pressableShapesIn(const QRectF &rect);
    void cancelGesture();

    static void paintGrid(QPainter &painter, const QRectF &part, double spacing);
    void paintSelection(QPainter &painter, const QList<Shape *> &shapes) const;

    Document *m_document;
    Selection *m_selection;
    Operations *m_operations;
    SpatialIndex m_index;
    QList<Shape *> m_paintedSelection;
    int m_updates = 0; // since the last painting
    std::unique_ptr<Gesture> m_gesture;
};
