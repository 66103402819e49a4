// SPDX-License-Identifier: MIT
#include "canvas/SpatialIndex.h"

#include "model/Document.h"
#include "model/ShapeGeometry.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr double CellSize = 128;
constexpr int LargeFrom = 256; // cells

QRect cellsOf(const QRectF &rect)
{
    const auto cell = [](double coordinate) { return int(std::floor(coordinate / CellSize)); };
    return {QPoint(cell(rect.left()), cell(rect.top())), QPoint(cell(rect.right()), cell(rect.bottom()))};
}

qint64 cellCount(const QRect &cells)
{
    return qint64(cells.width()) * cells.height();
}
} // namespace

void SpatialIndex::insert(Shape *shape)
{
    if (m_entries.size() <= size_t(shape->id()))
        m_entries.resize(shape->id() + 1);
    Entry &entry = m_entries[shape->id()];
    entry.shape = shape;
    ++m_count;
    sortIn(entry);
}

void SpatialIndex::remove(const QList<Shape *> &shapes)
{
    sortInStale();
    // Taking shapes out one by one searches the lists of their cells, which may be long.
    const bool most = isMost(shapes.size());
    for (const Shape *shape : shapes) {
        Entry &entry = m_entries[shape->id()];
        if (!most)
            takeOut(entry);
        entry = {};
    }
    m_count -= int(shapes.size());
    if (most)
        sortInAll();
}

void SpatialIndex::touch(Shape *shape)
{
    Entry &entry = m_entries[shape->id()];
    if (entry.stale)
        return;
    entry.stale = true;
    m_stale.append(shape);
}

QList<Shape *> SpatialIndex::shapesIn(const QRectF &rect)
{
    sortInStale();
    ++m_visit;
    QList<Shape *> found;
    const auto visit = [&](const Cell &cell) {
        for (Shape *shape : cell) {
            Entry &entry = m_entries[shape->id()];
            if (entry.visit != m_visit && entry.bounds.intersects(rect))
                found.append(shape);
            entry.visit = m_visit;
        }
    };
    visit(m_large);
    const QRect cells = cellsOf(rect);
    if (cellCount(cells) > m_cells.size()) {
        for (const Cell &cell : std::as_const(m_cells))
            visit(cell);
    } else {
        forEachCell(cells, [&](const QPoint &place) {
            if (const auto cell = m_cells.constFind(place); cell != m_cells.constEnd())
                visit(*cell);
        });
    }
    std::sort(found.begin(), found.end(), [](Shape *a, Shape *b) { return Document::row(a) < Document::row(b); });
    return found;
}

QRectF SpatialIndex::lastBounds(const Shape *shape) const
{
    return m_entries[shape->id()].bounds;
}

void SpatialIndex::sortIn(Entry &entry)
{
    entry.bounds = ShapeGeometry::paintedBounds(*entry.shape);
    entry.cells = cellsOf(entry.bounds);
    if (cellCount(entry.cells) >= LargeFrom) {
        entry.cells = {};
        m_large.append(entry.shape);
        return;
    }
    forEachCell(entry.cells, [&](const QPoint &place) { m_cells[place].append(entry.shape); });
}

void SpatialIndex::takeOut(const Entry &entry)
{
    const auto takeFrom = [&](Cell &cell) {
        const qsizetype place = cell.indexOf(entry.shape);
        cell.swapItemsAt(place, cell.size() - 1);
        cell.removeLast();
    };
    if (entry.cells.isEmpty())
        takeFrom(m_large);
    forEachCell(entry.cells, [&](const QPoint &place) { takeFrom(m_cells[place]); });
}

void SpatialIndex::sortInStale()
{
    if (m_stale.isEmpty())
        return;
    if (isMost(m_stale.size())) {
        sortInAll();
        return;
    }
    for (Shape *shape : std::exchange(m_stale, {})) {
        Entry &entry = m_entries[shape->id()];
        entry.stale = false;
        takeOut(entry);
        sortIn(entry);
    }
}

void SpatialIndex::sortInAll()
{
    m_stale.clear();
    m_cells.clear();
    m_large.clear();
    for (Entry &entry : m_entries) {
        entry.stale = false;
        if (entry.shape)
            sortIn(entry);
    }
}

template<typename Function> void SpatialIndex::forEachCell(const QRect &cells, Function function)
{
    for (int y = cells.top(); y <= cells.bottom(); ++y) {
        for (int x = cells.left(); x <= cells.right(); ++x)
            function(QPoint(x, y));
    }
}
