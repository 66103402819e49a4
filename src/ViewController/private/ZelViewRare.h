// SPDX-License-Identifier: MIT
#pragma once

#include "ViewController/ZelBackingLayer.h"
#include "ViewController/ZelResponderLink.h"
#include "ViewController/ZelView.h"

#include <optional>

/// Members that few views need. They are separate to keep the other views small.
struct ZelView::Rare
{
    ZelColor backgroundColor;
    ZelColor borderColor;
    std::unique_ptr<ZelBackingLayer> layer;
    ZelResponderLink next;
    std::optional<QRectF> frame; ///< the exact frame, valid as long as the geometry is geometryOfFrame
    QRect geometryOfFrame;
    std::optional<QRectF> bounds; ///< as set while the frame had the size frameSizeOfBounds
    QSizeF frameSizeOfBounds;

    /// Whether the colour surely covers what is below it: its components are in a plain colour space, and alpha is 1.
    static bool isPlainColor(const ZelColor &color);
};
