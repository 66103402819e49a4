// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QRectF>
#include <vector>

class Shape;

/// Finds the shapes near a place without looking at all of them.
///
/// The plane is cut into square cells, each with a list of the shapes whose painted bounds touch it; shapes that would
/// touch very many cells are kept in a list of their own. Changed shapes are only marked, and sorted in again before
/// the next search: a drag of many shapes costs one pass a frame, whatever was changed about them.
class SpatialIndex
{
public:
    void insert(Shape *shape);
    void remove(const QList<Shape *> &shapes);
    /// To be called when anything about the shape has changed.
    void touch(Shape *shape);

    /// The shapes whose painted bounds touch the rectangle, from the bottom to the top.
    QList<Shape *> shapesIn(const QRectF &rect);
    /// Where the shape was when it was last sorted in.
    QRectF lastBounds(const Shape *shape) const;

private:
    struct Entry
    {
        Shape *shape = nullptr;
        QRectF bounds;
        QRect cells; // empty for a shape in the list of the large ones
        quint32 visit = 0;
        bool stale = false;
    };
    using Cell = QList<Shape *>;

    void sortIn(Entry &entry);
    void takeOut(const Entry &entry);
    void sortInStale();
    void sortInAll();
    bool isMost(qsizetype count) const { return count > 1000 && count > m_count / 8; }
    template<typename Function> void forEachCell(const QRect &cells, Function function);

    std::vector<Entry> m_entries; // by the id of a shape
    QHash<QPoint, Cell> m_cells;
    Cell m_large;
    QList<Shape *> m_stale;
    quint32 m_visit = 0;
    int m_count = 0;
};
