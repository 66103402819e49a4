// SPDX-License-Identifier: MIT
#pragma once

#include <QScrollArea>

class Canvas;
class ZelMagnificationView;

/// The canvas, magnified and scrolled: by the wheel with the Control key, by pinching, and by the magnifier's slots.
class CanvasArea : public QScrollArea
{
    Q_OBJECT
public:
    /// Takes the canvas over.
    explicit CanvasArea(Canvas *canvas, QWidget *parent = nullptr);

    ZelMagnificationView *magnifier() const { return m_magnifier; }
    double zoom() const;
    /// The one at which the page is whole and as large as it can be.
    double fittingZoom() const;
    void zoomToFit();

Q_SIGNALS:
    void zoomChanged();

private:
    ZelMagnificationView *m_magnifier;
};
