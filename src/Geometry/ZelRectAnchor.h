// SPDX-License-Identifier: MIT
#pragma once

#include "Geometry/ZelRect.h"

#include <QSizeF>

/// The nine anchors of a rectangle, row by row from the top. The top is the edge at the rectangle's y.
///
/// The left and top anchors lie at the stored x and y, the others at the normalised middle and maximum. For a rectangle
/// of negative size these do not fit together: its left and right anchors are the same point.
enum ZelRectAnchor : quint64 {
    ZelOriginTopLeft,
    ZelOriginTopCenter,
    ZelOriginTopRight,
    ZelOriginMiddleLeft,
    ZelOriginMiddleCenter,
    ZelOriginMiddleRight,
    ZelOriginBottomLeft,
    ZelOriginBottomCenter,
    ZelOriginBottomRight,
};

/// One axis of an anchor: its column or its row.
enum class ZelAnchorPosition { Low, Middle, High, None };

constexpr ZelAnchorPosition ZelAnchorColumn(ZelRectAnchor anchor)
{
    return anchor > ZelOriginBottomRight ? ZelAnchorPosition::None : ZelAnchorPosition(anchor % 3);
}

constexpr ZelAnchorPosition ZelAnchorRow(ZelRectAnchor anchor)
{
    return anchor > ZelOriginBottomRight ? ZelAnchorPosition::None : ZelAnchorPosition(anchor / 3);
}

/// The place of the anchor; the stored origin for a value that is no anchor.
constexpr QPointF CGRectGetOriginForAnchor(ZelRectAnchor anchor, const QRectF &rect)
{
    const ZelAnchorPosition column = ZelAnchorColumn(anchor);
    const ZelAnchorPosition row = ZelAnchorRow(anchor);
    return QPointF(column == ZelAnchorPosition::Middle ? CGRectGetMidX(rect)
                   : column == ZelAnchorPosition::High ? CGRectGetMaxX(rect)
                                                       : rect.x(),
                   row == ZelAnchorPosition::Middle ? CGRectGetMidY(rect)
                   : row == ZelAnchorPosition::High ? CGRectGetMaxY(rect)
                                                    : rect.y());
}

/// The rectangle with its anchor moved to the given x. Without `resizes` all of it moves. With it, the opposite edge
/// stays where it is; an anchor of the middle column moves all of it nevertheless, and a value that is no anchor
/// changes nothing.
constexpr QRectF CGRectSetOriginXForAnchor(const QRectF &rect, ZelRectAnchor anchor, double x, bool resizes)
{
    const double delta = x - CGRectGetOriginForAnchor(anchor, rect).x();
    const QRectF moved(rect.x() + delta, rect.y(), rect.width(), rect.height());
    if (!resizes)
        return moved;
    switch (ZelAnchorColumn(anchor)) {
    case ZelAnchorPosition::Low:
        return QRectF(moved.x(), rect.y(), rect.width() - delta, rect.height());
    case ZelAnchorPosition::Middle:
        return moved;
    case ZelAnchorPosition::High:
        return QRectF(rect.x(), rect.y(), rect.width() + delta, rect.height());
    case ZelAnchorPosition::None:
        break;
    }
    return rect;
}

/// The same for y, with the anchor's row.
constexpr QRectF CGRectSetOriginYForAnchor(const QRectF &rect, ZelRectAnchor anchor, double y, bool resizes)
{
    const double delta = y - CGRectGetOriginForAnchor(anchor, rect).y();
    const QRectF moved(rect.x(), rect.y() + delta, rect.width(), rect.height());
    if (!resizes)
        return moved;
    switch (ZelAnchorRow(anchor)) {
    case ZelAnchorPosition::Low:
        return QRectF(rect.x(), moved.y(), rect.width(), rect.height() - delta);
    case ZelAnchorPosition::Middle:
        return moved;
    case ZelAnchorPosition::High:
        return QRectF(rect.x(), rect.y(), rect.width(), rect.height() + delta);
    case ZelAnchorPosition::None:
        break;
    }
    return rect;
}

constexpr QRectF CGRectSetOriginForAnchor(const QRectF &rect, ZelRectAnchor anchor, const QPointF &point, bool resizes)
{
    return CGRectSetOriginYForAnchor(CGRectSetOriginXForAnchor(rect, anchor, point.x(), resizes), anchor, point.y(),
                                     resizes);
}

/// The rectangle with another width; the anchor's x stays where it is. A value that is no anchor counts as the left
/// column.
constexpr QRectF CGRectSetSizeWidthForAnchor(const QRectF &rect, ZelRectAnchor anchor, double width)
{
    const double delta = width - rect.width();
    const ZelAnchorPosition column = ZelAnchorColumn(anchor);
    const double x = column == ZelAnchorPosition::Middle ? rect.x() + -0.5 * delta
                     : column == ZelAnchorPosition::High ? rect.x() - delta
                                                         : rect.x();
    return QRectF(x, rect.y(), rect.width() + delta, rect.height());
}

/// The same for the height, with the anchor's row.
constexpr QRectF CGRectSetSizeHeightForAnchor(const QRectF &rect, ZelRectAnchor anchor, double height)
{
    const double delta = height - rect.height();
    const ZelAnchorPosition row = ZelAnchorRow(anchor);
    const double y = row == ZelAnchorPosition::Middle ? rect.y() + -0.5 * delta
                     : row == ZelAnchorPosition::High ? rect.y() - delta
                                                      : rect.y();
    return QRectF(rect.x(), y, rect.width(), rect.height() + delta);
}

constexpr QRectF CGRectSetSizeForAnchor(const QRectF &rect, ZelRectAnchor anchor, const QSizeF &size)
{
    return CGRectSetSizeHeightForAnchor(CGRectSetSizeWidthForAnchor(rect, anchor, size.width()), anchor, size.height());
}
