// SPDX-License-Identifier: MIT
#include "Geometry/ZelSnapUtilities.h"

#include <QPainter>
#include <QWidget>

namespace {

ZelSnapUtilities::UserSpace g_userSpace = nullptr;

/// A transformation to pixels and back.
class DeviceSpace
{
public:
    explicit DeviceSpace(const QTransform &toDevice)
        : m_toDevice(toDevice)
        , m_toUser(toDevice.inverted(&m_isInvertible))
    {
    }

    template<typename Value, typename Block> Value changed(const Value &value, const Block &block) const
    {
        return m_isInvertible ? fromDevice(block(map(m_toDevice, value))) : value;
    }

private:
    static QPointF map(const QTransform &transform, const QPointF &point) { return transform.map(point); }
    static QSizeF map(const QTransform &t, const QSizeF &size)
    {
        return QSizeF(t.m11() * size.width() + t.m21() * size.height(),
                      t.m12() * size.width() + t.m22() * size.height());
    }
    static QRectF map(const QTransform &transform, const QRectF &rect)
    {
        return transform.mapRect(
            QRectF(CGRectGetMinX(rect), CGRectGetMinY(rect), std::abs(rect.width()), std::abs(rect.height())));
    }

    // A mere scale is undone by division, not by the inverse, which is rounded: with that of 1.5, 3 pixels would not be
    // exactly 2 points.
    bool isScale() const { return m_toDevice.type() <= QTransform::TxScale; }

    QPointF fromDevice(const QPointF &point) const
    {
        return isScale() ? QPointF((point.x() - m_toDevice.dx()) / m_toDevice.m11(),
                                   (point.y() - m_toDevice.dy()) / m_toDevice.m22())
                         : m_toUser.map(point);
    }
    QSizeF fromDevice(const QSizeF &size) const
    {
        return isScale() ? QSizeF(size.width() / m_toDevice.m11(), size.height() / m_toDevice.m22())
                         : map(m_toUser, size);
    }
    /// A negative size, to which less than a pixel may snap, stays negative.
    QRectF fromDevice(const QRectF &rect) const
    {
        if (!isScale())
            return map(m_toUser, rect);
        const QPointF first = fromDevice(rect.topLeft());
        const QPointF last = fromDevice(rect.topLeft() + QPointF(rect.width(), rect.height()));
        const bool mirrorsX = m_toDevice.m11() < 0;
        const bool mirrorsY = m_toDevice.m22() < 0;
        const double x = mirrorsX ? last.x() : first.x();
        const double y = mirrorsY ? last.y() : first.y();
        return QRectF(x, y, (mirrorsX ? first.x() : last.x()) - x, (mirrorsY ? first.y() : last.y()) - y);
    }

    QTransform m_toDevice;
    bool m_isInvertible = false;
    QTransform m_toUser;
};

template<typename Value, typename Block>
Value changedOnPainter(const QPainter *context, const Value &value, const Block &block)
{
    return DeviceSpace(context->deviceTransform()).changed(value, block);
}

/// Asserts that there is an active painter and a block. The signature of the calling function is its location.
bool requireDevice(const QPainter *context, bool hasBlock, const char *signature)
{
    return ZelCheck(context && context->isActive(), QStringLiteral("Missing context"), signature) &&
           ZelCheck(hasBlock, QStringLiteral("Missing dispatch block"), signature);
}

constexpr char g_pointSignature[] =
    "CGPoint ZelTransformPointInDeviceSpace(CGContextRef, CGPoint, __strong ZelPointTransformBlock)";
constexpr char g_sizeSignature[] =
    "CGSize ZelTransformSizeInDeviceSpace(CGContextRef, CGSize, __strong ZelSizeTransformBlock)";
constexpr char g_rectSignature[] =
    "CGRect ZelTransformRectInDeviceSpace(CGContextRef, CGRect, __strong ZelRectTransformBlock)";

template<typename Value, typename Block>
Value changedInBacking(const QWidget *view, const Value &value, const Block &block)
{
    if (!view)
        return block(value);
    const double ratio = view->devicePixelRatioF();
    const QPointF origin = view->mapTo(view->window(), QPointF());
    const QTransform toBacking(ratio, 0, 0, ratio, origin.x() * ratio, origin.y() * ratio);
    const QTransform toWidget = g_userSpace ? g_userSpace(view) : QTransform();
    return DeviceSpace(toWidget * toBacking).changed(value, block);
}

} // namespace

QPointF ZelTransformPointInDeviceSpace(const QPainter *context, const QPointF &point,
                                       const ZelPointTransformBlock &block)
{
    return requireDevice(context, bool(block), g_pointSignature) ? changedOnPainter(context, point, block) : point;
}

QSizeF ZelTransformSizeInDeviceSpace(const QPainter *context, const QSizeF &size, const ZelSizeTransformBlock &block)
{
    return requireDevice(context, bool(block), g_sizeSignature) ? changedOnPainter(context, size, block) : size;
}

QRectF ZelTransformRectInDeviceSpace(const QPainter *context, const QRectF &rect, const ZelRectTransformBlock &block)
{
    return requireDevice(context, bool(block), g_rectSignature) ? changedOnPainter(context, rect, block) : rect;
}

QPointF ZelSnapPointInDeviceSpace(const QPainter *context, const QPointF &point, ZelSnapMode mode, bool halfPoints)
{
    if (!requireDevice(context, true, g_pointSignature))
        return point;
    return changedOnPainter(context, point, [=](const QPointF &p) { return ZelSnapPoint(p, mode, halfPoints); });
}

QSizeF ZelSnapSizeInDeviceSpace(const QPainter *context, const QSizeF &size, ZelSnapMode mode, bool halfPoints)
{
    if (!requireDevice(context, true, g_sizeSignature))
        return size;
    return changedOnPainter(context, size, [=](const QSizeF &s) { return ZelSnapSize(s, mode, halfPoints); });
}

QRectF ZelSnapRectInDeviceSpace(const QPainter *context, const QRectF &rect, ZelSnapMode mode, bool halfPoints)
{
    if (!requireDevice(context, true, g_rectSignature))
        return rect;
    return changedOnPainter(context, rect, [=](const QRectF &r) { return ZelSnapRect(r, mode, halfPoints); });
}

void ZelSnapUtilities::setUserSpace(UserSpace userSpace)
{
    g_userSpace = userSpace;
}

QPointF ZelSnapUtilities::transformPointInBacking(const QPointF &point, const ZelPointTransformBlock &block) const
{
    return ZelRequire(bool(block), "block") ? changedInBacking(m_view, point, block) : point;
}

QSizeF ZelSnapUtilities::transformSizeInBacking(const QSizeF &size, const ZelSizeTransformBlock &block) const
{
    return ZelRequire(bool(block), "block") ? changedInBacking(m_view, size, block) : size;
}

QRectF ZelSnapUtilities::transformRectInBacking(const QRectF &rect, const ZelRectTransformBlock &block) const
{
    return ZelRequire(bool(block), "block") ? changedInBacking(m_view, rect, block) : rect;
}

QPointF ZelSnapUtilities::snapPointInBacking(const QPointF &point, ZelSnapMode mode, bool halfPoints) const
{
    return changedInBacking(m_view, point, [=](const QPointF &p) { return ZelSnapPoint(p, mode, halfPoints); });
}

QSizeF ZelSnapUtilities::snapSizeInBacking(const QSizeF &size, ZelSnapMode mode, bool halfPoints) const
{
    return changedInBacking(m_view, size, [=](const QSizeF &s) { return ZelSnapSize(s, mode, halfPoints); });
}

QRectF ZelSnapUtilities::snapRectInBacking(const QRectF &rect, ZelSnapMode mode, bool halfPoints) const
{
    return changedInBacking(m_view, rect, [=](const QRectF &r) { return ZelSnapRect(r, mode, halfPoints); });
}
