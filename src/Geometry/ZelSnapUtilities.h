// SPDX-License-Identifier: MIT
#pragma once

#include "Core/Errors/ZelAssertions.h"
#include "Core/ZelExport.h"
#include "Geometry/ZelRect.h"

#include <QSizeF>
#include <QTransform>
#include <cmath>
#include <functional>

class QPainter;
class QWidget;

// Snapping, first to the whole numbers of the caller's own coordinates, then to the pixels of a painter or of a widget.

enum ZelSnapMode : qint64 {
    ZelSnapModeFloor,
    ZelSnapModeCeil,
    ZelSnapModeRound, ///< halves go away from zero
};

/// Snaps a value to a whole number or, with `halfPoints`, to a whole number and a half. Asserts "Unexpected case" for a
/// mode that does not exist, and leaves the value as it is.
inline double ZelSnapValue(double v, ZelSnapMode mode, bool halfPoints)
{
    const double shift = halfPoints ? 0.5 : 0.0;
    switch (mode) {
    case ZelSnapModeFloor:
        return ZelFloor(v + shift) - shift;
    case ZelSnapModeCeil:
        return ZelCeil(v + shift) - shift;
    case ZelSnapModeRound:
        return ZelRound(v + shift) - shift;
    }
    ZelFail(QStringLiteral("Unexpected case"));
    return v;
}

/// Snaps both coordinates, to whole numbers or, with `halfPoints`, to whole numbers and a half.
inline QPointF ZelSnapPoint(const QPointF &point, ZelSnapMode mode, bool halfPoints)
{
    return QPointF(ZelSnapValue(point.x(), mode, halfPoints), ZelSnapValue(point.y(), mode, halfPoints));
}

/// Snaps width and height as if they were coordinates.
inline QSizeF ZelSnapSize(const QSizeF &size, ZelSnapMode mode, bool halfPoints)
{
    return QSizeF(ZelSnapValue(size.width(), mode, halfPoints), ZelSnapValue(size.height(), mode, halfPoints));
}

namespace ZelSnapping {

/// Below this a double holds halves. The sum with Shifter is so large that a double holds only whole numbers, so that
/// adding and subtracting Shifter rounds.
inline constexpr double Limit = 0x1p51;
inline constexpr double Shifter = 0x1.8p52;

/// Rounds numbers below the limit as ZelFloor, ZelCeil and ZelRound do, but a zero has no sign. It does without
/// branches: which way a number is rounded, no processor foresees.
template<ZelSnapMode Mode> inline double rounded(double v)
{
    const double magnitude = Mode == ZelSnapModeRound ? std::abs(v) : v;
    const double nearest = (magnitude + Shifter) - Shifter; // halves to even
    if constexpr (Mode == ZelSnapModeFloor)
        return nearest - (nearest > v ? 1.0 : 0.0);
    if constexpr (Mode == ZelSnapModeCeil)
        return nearest + (nearest < v ? 1.0 : 0.0);
    const double up = magnitude - nearest >= 0.5 ? 1.0 : 0.0;
    return std::copysign(nearest + up, v) + 0.0; // which takes a zero's sign away
}

struct Edges
{
    double left, top, right, bottom;

    bool areBelowLimit() const // false for NaN
    {
        const auto isBelow = [](double v) { return int(std::abs(v) < Limit); };
        return (isBelow(left) & isBelow(top) & isBelow(right) & isBelow(bottom)) != 0;
    }
    template<typename Minimum, typename Maximum> QRectF mapped(Minimum minimum, Maximum maximum) const
    {
        const double x = minimum(left);
        const double y = minimum(top);
        return QRectF(x, y, maximum(right) - x, maximum(bottom) - y);
    }
    template<ZelSnapMode Minimum, ZelSnapMode Maximum> QRectF snapped(bool halfPoints) const
    {
        if (!areBelowLimit()) {
            return mapped([=](double v) { return ZelSnapValue(v, Minimum, halfPoints); },
                          [=](double v) { return ZelSnapValue(v, Maximum, halfPoints); });
        }
        const double shift = halfPoints ? 0.5 : 0.0;
        return mapped([=](double v) { return rounded<Minimum>(v + shift) - shift; },
                      [=](double v) { return rounded<Maximum>(v + shift) - shift; });
    }
};

} // namespace ZelSnapping

/// Snaps the edges. Other than for a point, floor means inward, to the pixels that are wholly covered (if there is less
/// than one, the size becomes negative), and ceiling means outward, to all pixels that are touched. Every other mode
/// rounds each edge. A negative size is made positive first.
inline QRectF ZelSnapRect(const QRectF &rect, ZelSnapMode mode, bool halfPoints)
{
    const ZelSnapping::Edges edges{CGRectGetMinX(rect), CGRectGetMinY(rect), CGRectGetMaxX(rect), CGRectGetMaxY(rect)};
    switch (mode) {
    case ZelSnapModeFloor:
        return edges.snapped<ZelSnapModeCeil, ZelSnapModeFloor>(halfPoints);
    case ZelSnapModeCeil:
        return edges.snapped<ZelSnapModeFloor, ZelSnapModeCeil>(halfPoints);
    case ZelSnapModeRound:
        break;
    }
    return edges.snapped<ZelSnapModeRound, ZelSnapModeRound>(halfPoints);
}

using ZelPointTransformBlock = std::function<QPointF(const QPointF &)>;
using ZelSizeTransformBlock = std::function<QSizeF(const QSizeF &)>;
using ZelRectTransformBlock = std::function<QRectF(const QRectF &)>;

// These functions change a value in the device pixels of a painter. Its transformation, its device's pixel ratio and,
// in a paint event, the place of the widget in the window count. The block gets and returns the value in device pixels.
//
// A rectangle becomes the smallest upright one that holds it, so it comes back larger under a rotation. A size is
// mapped as a vector and may change its signs. If the transformation cannot be inverted, the value comes back unchanged
// and the block is not called.
//
// They assert "Missing context" without a painter and for one that is not painting, and "Missing dispatch block"
// without a block.

ZEL_EXPORT QPointF ZelTransformPointInDeviceSpace(const QPainter *context, const QPointF &point,
                                                  const ZelPointTransformBlock &block);
ZEL_EXPORT QSizeF ZelTransformSizeInDeviceSpace(const QPainter *context, const QSizeF &size,
                                                const ZelSizeTransformBlock &block);
ZEL_EXPORT QRectF ZelTransformRectInDeviceSpace(const QPainter *context, const QRectF &rect,
                                                const ZelRectTransformBlock &block);

ZEL_EXPORT QPointF ZelSnapPointInDeviceSpace(const QPainter *context, const QPointF &point, ZelSnapMode mode,
                                             bool halfPoints);
ZEL_EXPORT QSizeF ZelSnapSizeInDeviceSpace(const QPainter *context, const QSizeF &size, ZelSnapMode mode,
                                           bool halfPoints);
ZEL_EXPORT QRectF ZelSnapRectInDeviceSpace(const QPainter *context, const QRectF &rect, ZelSnapMode mode,
                                           bool halfPoints);

/// Changes values in the pixels of a widget's backing store, outside of painting:
/// `ZelSnapUtilities(view).snapRectInBacking(rect, ZelSnapModeRound, false)`.
///
/// The widget's device pixel ratio counts, and its place in the window: under a ratio such as 1.5, a child at an odd
/// coordinate begins in the middle of a pixel. The scale of a view whose bounds differ from its frame, as in a
/// magnified document, counts as well. Other scales that its painting uses do not count; only a painter knows them.
/// Without a widget the coordinates are taken for pixels. Asserts "block" if there is none, and returns the value
/// unchanged.
class ZEL_EXPORT ZelSnapUtilities
{
public:
    explicit ZelSnapUtilities(const QWidget *view)
        : m_view(view)
    {
    }

    /// Maps a widget's own coordinates to those in which Qt places it.
    using UserSpace = QTransform (*)(const QWidget *view);
    /// The views call this, because they may have coordinates of their own.
    static void setUserSpace(UserSpace userSpace);

    QPointF transformPointInBacking(const QPointF &point, const ZelPointTransformBlock &block) const;
    QSizeF transformSizeInBacking(const QSizeF &size, const ZelSizeTransformBlock &block) const;
    QRectF transformRectInBacking(const QRectF &rect, const ZelRectTransformBlock &block) const;

    QPointF snapPointInBacking(const QPointF &point, ZelSnapMode mode, bool halfPoints) const;
    QSizeF snapSizeInBacking(const QSizeF &size, ZelSnapMode mode, bool halfPoints) const;
    QRectF snapRectInBacking(const QRectF &rect, ZelSnapMode mode, bool halfPoints) const;

private:
    const QWidget *m_view;
};
