// SPDX-License-Identifier: MIT
#include "Bench.h"

#include "Views/ZelMagnificationView.h"

#include <QApplication>
#include <QPaintEvent>
#include <QScrollArea>
#include <QScrollBar>

namespace {

constexpr int Count = 1000;
constexpr QSizeF PageSize(800, 640);

/// Paints the same shapes for both.
void paintShapes(QPainter &painter, const QRectF &rect)
{
    painter.fillRect(rect, Qt::white);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Qt::darkBlue, 1));
    for (int i = 0; i < Count; ++i) {
        const QRectF frame(i % 40 * 20 + 2, i / 40 * 25 + 3, 16, 19);
        if (!frame.adjusted(-1, -1, 1, 1).intersects(rect))
            continue;
        painter.setBrush(QColor::fromHsv(i % 360, 120, 240));
        if (i % 2)
            painter.drawEllipse(frame);
        else
            painter.drawRoundedRect(frame, 3, 3);
    }
}

class MagnifiedCanvas : public ZelView
{
public:
    void drawRect(QPainter &painter, const QRect &dirtyRect) override { paintShapes(painter, dirtyRect); }
};

/// The same by hand: a widget that scales its painter, and scrolls to the point it zooms about.
class PlainCanvas : public QWidget
{
public:
    void setZoom(double zoom, QScrollArea &area)
    {
        const QPointF place = QRectF(area.viewport()->rect()).center();
        const QPointF point = (place - pos()) / m_zoom;
        m_zoom = zoom;
        resize((PageSize * zoom).toSize());
        update();
        const QPointF position = point * zoom - place;
        area.horizontalScrollBar()->setValue(qRound(position.x()));
        area.verticalScrollBar()->setValue(qRound(position.y()));
    }

protected:
    void paintEvent(QPaintEvent *event) override
    {
        QPainter painter(this);
        painter.scale(m_zoom, m_zoom);
        paintShapes(painter, painter.transform().inverted().mapRect(QRectF(event->rect())));
    }

private:
    double m_zoom = 1;
};

void show(QScrollArea &area, QWidget *widget)
{
    area.setFrameShape(QFrame::NoFrame);
    area.setWidget(widget);
    area.resize(900, 700);
    area.show();
    QApplication::processEvents();
}

/// Each round goes through factors of which all, most or few of the shapes are seen.
void zoomStep()
{
    QScrollArea ours;
    auto *magnifier = new ZelMagnificationView;
    magnifier->addSubview(new MagnifiedCanvas);
    magnifier->setContentSize(PageSize);
    show(ours, magnifier);
    QScrollArea plain;
    auto *canvas = new PlainCanvas;
    canvas->resize(PageSize.toSize());
    show(plain, canvas);

    const double factors[] = {1, 1.25, 1.5625, 1.953125, 4};
    const auto magnify = [&] {
        for (const double factor : factors) {
            magnifier->magnifyVisibleRectWithFactor(factor);
            QApplication::processEvents();
        }
    };
    const auto zoom = [&] {
        for (const double factor : factors) {
            canvas->setZoom(factor, plain);
            QApplication::processEvents();
        }
    };
    magnify();
    zoom();
    // The content was centred, the widget was not, so that they have come to different places.
    const auto middle = [](QScrollArea &area) {
        area.horizontalScrollBar()->setValue(1000);
        area.verticalScrollBar()->setValue(800);
        return area.viewport()->grab().toImage();
    };
    Bench::expect(magnifier->magnificationFactor() == 4 && canvas->size() == magnifier->size(), "both are at 400 %");
    Bench::expect(middle(ours) == middle(plain), "both look the same");
    Bench::compare(QStringLiteral("zoom a canvas of %1 shapes in steps").arg(Count), 1.2, magnify, zoom, Bench::small);
}

} // namespace

ZEL_BENCHMARK(zoomStep)
