// SPDX-License-Identifier: MIT
#pragma once

#include "canvas/SpatialIndex.h"

#include <QTransform>
#include <QWidget>
#include <memory>

class Document;
class Gesture;
class Operations;
class Selection;

/// The page with its shapes, to be put into a scroll area.
///
/// Shapes are pressed, Shift-pressed, caught with a rubber band, dragged, and nudged with the arrow keys. The mouse
/// passes through locked shapes: they are selected in the list.
class Canvas : public QWidget
{
    Q_OBJECT
public:
    Canvas(Document *document, Selection *selection, Operations *operations, QWidget *parent = nullptr);
    ~Canvas() override;

    double zoom() const { return m_zoom; }
    void setZoom(double zoom);
    /// The visible part of the page.
    QRectF visiblePage() const;
    /// The topmost shape that can be pressed at the point of the page; null if there is none.
    Shape *shapeAt(const QPointF &point);
    QPointF toPage(const QPointF &position) const;
    QPointF fromPage(const QPointF &point) const { return m_transform.map(point); }

    QSize sizeHint() const override;

Q_SIGNALS:
    void zoomChanged();

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    void structureChanged(const QList<Shape *> &added, const QList<Shape *> &removed);
    void shapeChanged(Shape *shape);
    void selectionChanged();
    void pageChanged();

    void updateTransform();
    void updatePage(const QRectF &rect);
    void updateShapes(const QList<Shape *> &shapes);
    QList<Shape *> shownShapesIn(const QRectF &rect);
    QList<Shape *> pressableShapesIn(const QRectF &rect);
    void cancelGesture();

    void paintPage(QPainter &painter, const QRectF &rect) const;
    void paintSelection(QPainter &painter, const QList<Shape *> &shapes) const;

    Document *m_document;
    Selection *m_selection;
    Operations *m_operations;
    SpatialIndex m_index;
    QList<Shape *> m_paintedSelection;
    QTransform m_transform;
    double m_zoom = 1;
    int m_updates = 0; // since the last painting
    std::unique_ptr<Gesture> m_gesture;
};
