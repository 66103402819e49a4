// SPDX-License-Identifier: MIT
#include "canvas/CanvasArea.h"

#include "Views/ZelMagnificationView.h"
#include "canvas/Canvas.h"

CanvasArea::CanvasArea(Canvas *canvas, QWidget *parent)
    : QScrollArea(parent)
    , m_magnifier(new ZelMagnificationView)
{
    m_magnifier->setMinMagnification(0.02);
    m_magnifier->setMaxMagnification(16);
    m_magnifier->addSubview(canvas);
    m_magnifier->setContentSize(canvas->contentSize());
    connect(canvas, &Canvas::contentSizeChanged, m_magnifier,
            [this, canvas] { m_magnifier->setContentSize(canvas->contentSize()); });
    connect(m_magnifier, &ZelMagnificationView::magnificationFactorChanged, this, &CanvasArea::zoomChanged);
    setWidget(m_magnifier);
    setBackgroundRole(QPalette::Dark);
    setFrameShape(NoFrame);
    setFocusProxy(canvas);
}

double CanvasArea::zoom() const
{
    return m_magnifier->magnificationFactor();
}

double CanvasArea::fittingZoom() const
{
    const QSizeF content = m_magnifier->contentSize();
    const QSizeF view = maximumViewportSize();
    return qMin(view.width() / content.width(), view.height() / content.height());
}

void CanvasArea::zoomToFit()
{
    m_magnifier->magnifyVisibleRectWithFactor(fittingZoom());
}
