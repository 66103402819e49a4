// SPDX-License-Identifier: MIT
#pragma once

#include <QRectF>

class QPainter;

/// What the mouse does from its press to its release. Points are on the page.
class Gesture
{
public:
    virtual ~Gesture() = default;
    virtual void moveTo(const QPointF &point) = 0;
    /// The button was released.
    virtual void finish() {}
    /// Takes back what has happened so far.
    virtual void cancel() = 0;
    /// Painted above everything else, in paintedRect.
    virtual void paint(QPainter &) const {}
    virtual QRectF paintedRect() const { return {}; }
};
