// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Resources/ZelColor.h"

#include <QIcon>

class QPainter;
class QPalette;
class QRect;

/// A rectangle filled with a colour, on a chequerboard where the colour is not opaque.
class ZelColorSwatch
{
public:
    /// Nothing but an outline for an invalid colour.
    static void paint(QPainter *painter, const QRect &rect, const ZelColor &color, const QPalette &palette);
    /// The swatch at any size. A named colour shows what its name stands for at the moment of drawing. A null image
    /// for an invalid colour.
    static QIcon image(const ZelColor &color);
};
