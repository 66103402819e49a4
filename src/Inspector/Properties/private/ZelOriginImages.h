// SPDX-License-Identifier: MIT
#pragma once

#include "Geometry/ZelRectAnchor.h"

#include <QIcon>

/// The pictures of a rectangle's anchors.
class ZelOriginImages
{
public:
    static constexpr int side = 71;
    /// A square with its nine anchors, the given one stressed; drawn at any size in the text colour of the palette.
    static QIcon image(ZelRectAnchor anchor);
};
