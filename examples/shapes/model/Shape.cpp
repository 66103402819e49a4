// SPDX-License-Identifier: MIT
#include "model/Shape.h"

#include "model/ShapeGeometry.h"

#include <QMetaProperty>

namespace {
int nextId()
{
    static int last = 0;
    return last++;
}

QVariant lengthOrNone(const QVariant &value)
{
    return value.isNull() ? QVariant() : QVariant(qBound(0.0, value.toDouble(), 1000.0));
}
} // namespace

Shape::Shape(Kind kind, const QRectF &rect, QObject *parent)
    : QObject(parent)
    , m_id(nextId())
    , m_kind(kind)
    , m_x(rect.x())
    , m_y(rect.y())
    , m_width(rect.width())
    , m_height(rect.height())
{
}

Shape *Shape::clone() const
{
    auto *copy = new Shape(m_kind, rect());
    for (int i = staticMetaObject.propertyOffset(); i < staticMetaObject.propertyCount(); ++i) {
        const QMetaProperty property = staticMetaObject.property(i);
        if (property.isWritable())
            property.write(copy, property.read(this));
    }
    return copy;
}

void Shape::setPosition(const QPointF &position)
{
    const QPointF old = this->position();
    m_x = onPaper(position.x());
    m_y = onPaper(position.y());
    if (m_x != old.x())
        Q_EMIT xChanged();
    if (m_y != old.y())
        Q_EMIT yChanged();
    if (this->position() != old)
        Q_EMIT changed();
}

double Shape::area() const
{
    return ShapeGeometry::area(*this);
}

void Shape::setShadowOffset(const QVariant &offset)
{
    change(m_shadowOffset, lengthOrNone(offset), &Shape::shadowOffsetChanged);
}

void Shape::setCornerRadius(const QVariant &radius)
{
    change(m_cornerRadius, lengthOrNone(radius), &Shape::cornerRadiusChanged);
}
