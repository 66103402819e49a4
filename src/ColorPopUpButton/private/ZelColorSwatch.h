// SPDX-License-Identifier: MIT
#pragma once

#include "Resources/ZelColor.h"

#include <QIcon>

class QPainter;
class QPalette;
class QRect;

/// A rectangle filled with a colour, on a chequerboard where the colour is not opaque.
class ZelColorSwatch
{
public:
    /// For an invalid colour only the outline is painted.
    static void paint(QPainter *painter, const QRect &rect, const ZelColor &color, const QPalette &palette);
    /// A place in which there is no colour yet.
    static void paintEmpty(QPainter *painter, const QRect &rect, const QPalette &palette);
    /// An icon that draws the swatch at any size. A named colour is looked up each time the icon is drawn. Answers a
    /// null icon for an invalid colour.
    static QIcon image(const ZelColor &color);
};
