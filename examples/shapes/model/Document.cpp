// SPDX-License-Identifier: MIT
#include "model/Document.h"

#include <QLocale>

namespace {
struct Unit
{
    double points;
    const char *sign;
    int decimals;
};
constexpr Unit UnitTable[] = {{1, "pt", 1}, {72 / 25.4, "mm", 1}, {72, "in", 2}};

struct Pattern
{
    const char *name;
    Qt::BrushStyle style;
};
constexpr Pattern PatternTable[] = {
    {"Crosses", Qt::CrossPattern},     {"Dots", Qt::Dense5Pattern},         {"Grain", Qt::Dense3Pattern},
    {"Lattice", Qt::DiagCrossPattern}, {"Slanted Lines", Qt::BDiagPattern}, {"Stripes", Qt::HorPattern},
};
} // namespace

Document::Document(QObject *parent)
    : QObject(parent)
{
}

Document::~Document()
{
    qDeleteAll(m_shapes);
}

bool Document::isShown(const Shape *shape) const
{
    return shape->isVisible() && (m_visibleLayers >> shape->layer() & 1);
}

void Document::insert(const Placements &placements)
{
    if (placements.isEmpty())
        return;
    Q_EMIT structureAboutToChange();
    // Merged in one pass: inserting one by one would move the rest of the list for each.
    QList<Shape *> merged;
    QList<Shape *> added;
    merged.reserve(m_shapes.size() + placements.size());
    added.reserve(placements.size());
    auto rest = m_shapes.cbegin();
    for (const Placement &placement : placements) {
        while (merged.size() < placement.row && rest != m_shapes.cend())
            merged.append(*rest++);
        merged.append(placement.shape);
        added.append(placement.shape);
        adopt(placement.shape);
    }
    merged.append(QList<Shape *>(rest, m_shapes.cend()));
    replaceShapes(merged, added, {});
}

void Document::append(const QList<Shape *> &shapes)
{
    Placements placements;
    for (Shape *shape : shapes)
        placements.append({int(m_shapes.size() + placements.size()), shape});
    insert(placements);
}

Document::Placements Document::take(QList<Shape *> shapes)
{
    if (shapes.isEmpty())
        return {};
    Q_EMIT structureAboutToChange();
    for (Shape *shape : shapes) {
        disconnect(shape, nullptr, this, nullptr);
        shape->m_row = -1;
    }
    Placements taken;
    QList<Shape *> left;
    for (int row = 0; row < m_shapes.size(); ++row) {
        if (m_shapes[row]->m_row < 0)
            taken.append({row, m_shapes[row]});
        else
            left.append(m_shapes[row]);
    }
    replaceShapes(left, {}, shapes);
    return taken;
}

void Document::setOrder(const QList<Shape *> &shapes)
{
    Q_ASSERT(shapes.size() == m_shapes.size());
    if (shapes == m_shapes)
        return;
    Q_EMIT structureAboutToChange();
    replaceShapes(shapes, {}, {});
}

void Document::setPageSize(const QSizeF &size)
{
    changePage(m_pageSize, QSizeF(qBound(10.0, size.width(), 1e5), qBound(10.0, size.height(), 1e5)));
}

void Document::setUnits(Units units)
{
    units = qBound(Points, units, Inches);
    if (m_units == units)
        return;
    m_units = units;
    Q_EMIT unitsChanged();
}

QString Document::lengthText(double points) const
{
    const Unit &unit = UnitTable[m_units];
    return QLocale().toString(points / unit.points, 'f', unit.decimals) + u' ' + QLatin1String(unit.sign);
}

QStringList Document::layerNames() const
{
    return {tr("Background"), tr("Drawing"), tr("Annotations")};
}

QStringList Document::patternNames()
{
    QStringList names;
    for (const Pattern &pattern : PatternTable)
        names.append(QLatin1String(pattern.name));
    return names;
}

Qt::BrushStyle Document::patternNamed(const QString &name)
{
    const auto pattern = std::find_if(std::begin(PatternTable), std::end(PatternTable),
                                      [&](const Pattern &p) { return name == QLatin1String(p.name); });
    return pattern == std::end(PatternTable) ? Qt::SolidPattern : pattern->style;
}

void Document::adopt(Shape *shape)
{
    connect(shape, &Shape::changed, this, [this, shape] { Q_EMIT shapeChanged(shape); });
}

void Document::replaceShapes(const QList<Shape *> &shapes, const QList<Shape *> &added, const QList<Shape *> &removed)
{
    m_shapes = shapes;
    for (int row = 0; row < m_shapes.size(); ++row)
        m_shapes[row]->m_row = row;
    Q_EMIT structureChanged(added, removed);
    if (added.size() != removed.size())
        Q_EMIT shapeCountChanged();
}
