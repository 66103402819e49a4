// SPDX-License-Identifier: MIT
#pragma once

#include "ViewController/ZelBackingLayer.h"
#include "ViewController/ZelResponderLink.h"
#include "ViewController/ZelView.h"

#include <optional>

/// What few views have, kept apart so that the many stay small.
struct ZelView::Rare
{
    ZelColor backgroundColor;
    ZelColor borderColor;
    std::unique_ptr<ZelBackingLayer> layer;
    ZelResponderLink next;
    std::optional<QRectF> frame; ///< the exact frame, valid while the geometry is still the one made from it
    QRect geometryOfFrame;
    std::optional<QRectF> bounds; ///< as they were set, for a frame of this size
    QSizeF frameSizeOfBounds;

    /// Whether the colour covers what is below it: components of a plain colour space, alpha 1.
    static bool isPlainColor(const ZelColor &color);
};
