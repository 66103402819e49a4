// SPDX-License-Identifier: MIT
#include "model/Shape.h"

#include "model/ShapeGeometry.h"

#include <QMetaProperty>
#include <cmath>

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
    , m_frame(onPaper(rect))
{
}

Shape *Shape::clone() const
{
    auto *copy = new Shape(m_kind, m_frame);
    for (int i = staticMetaObject.propertyOffset(); i < staticMetaObject.propertyCount(); ++i) {
        const QMetaProperty property = staticMetaObject.property(i);
        if (property.isWritable())
            property.write(copy, property.read(this));
    }
    return copy;
}

QRectF Shape::onPaper(const QRectF &frame)
{
    return {qBound(-1e6, frame.x(), 1e6), qBound(-1e6, frame.y(), 1e6), qBound(1.0, frame.width(), 1e5),
            qBound(1.0, frame.height(), 1e5)};
}

QString Shape::validateName(const QString &name) const
{
    constexpr int longest = 60;
    if (name.size() > longest)
        return tr("A name has at most %1 letters.").arg(longest);
    return name.contains(u'/') ? tr("A name contains no slash.") : QString();
}

QString Shape::validateFrame(const QRectF &frame) const
{
    const QRectF kept = onPaper(frame);
    const bool isFar = frame.x() != kept.x() || frame.y() != kept.y();
    const bool isLarge = frame.width() > kept.width() || frame.height() > kept.height();
    return isFar     ? tr("A shape is at most 1,000,000 points from the corner of the page.")
           : isLarge ? tr("A shape is at most 100,000 points wide and high.")
                     : QString();
}

void Shape::setRotation(double degrees)
{
    const bool isTurn = degrees >= 0 && degrees <= 360;
    const double rest = isTurn || !qIsFinite(degrees) ? 0 : std::fmod(degrees, 360);
    change(m_rotation, isTurn ? degrees : rest < 0 ? rest + 360 : rest, &Shape::rotationChanged);
}

void Shape::setFrame(const QRectF &frame)
{
    const QRectF old = std::exchange(m_frame, onPaper(frame));
    if (x() != old.x())
        Q_EMIT xChanged();
    if (y() != old.y())
        Q_EMIT yChanged();
    if (width() != old.width())
        Q_EMIT widthChanged();
    if (height() != old.height())
        Q_EMIT heightChanged();
    if (m_frame == old)
        return;
    Q_EMIT frameChanged();
    Q_EMIT changed();
}

QFont Shape::standardFont()
{
    static const QFont font(QFont().family(), 18); // its data is shared by all shapes
    return font;
}

void Shape::setFont(const QFont &font)
{
    const double oldSize = fontSize();
    QFont valid = font;
    const double size = font.pointSizeF() > 0 ? font.pointSizeF() : font.pixelSize();
    valid.setPointSizeF(qBound(1.0, size, 1000.0));
    if (m_font == valid)
        return;
    m_font = valid;
    if (fontSize() != oldSize)
        Q_EMIT fontSizeChanged();
    Q_EMIT fontChanged();
    Q_EMIT changed();
}

void Shape::setFontSize(double size)
{
    QFont font = m_font;
    font.setPointSizeF(qBound(1.0, size, 1000.0));
    setFont(font);
}

int Shape::textStyle() const
{
    return (m_font.bold() ? Bold : 0) | (m_font.italic() ? Italic : 0) | (m_font.underline() ? Underline : 0) |
           (m_font.strikeOut() ? StrikeOut : 0);
}

void Shape::setTextStyle(int bits)
{
    QFont font = m_font;
    font.setBold(bits & Bold);
    font.setItalic(bits & Italic);
    font.setUnderline(bits & Underline);
    font.setStrikeOut(bits & StrikeOut);
    setFont(font);
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
