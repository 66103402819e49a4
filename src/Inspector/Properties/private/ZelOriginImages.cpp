// SPDX-License-Identifier: MIT
#include "Inspector/Properties/private/ZelOriginImages.h"

#include "Resources/ZelNamedImages.h"

#include <QIconEngine>
#include <QPainter>

namespace {

/// Where the anchors are, in a picture of the natural size.
constexpr double g_places[] = {12, 35.5, 59};

class ShapeEngine : public QIconEngine
{
public:
    explicit ShapeEngine(ZelRectAnchor anchor)
        : m_anchor(anchor)
    {
    }

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode, QIcon::State) override
    {
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(rect.topLeft());
        painter->scale(rect.width() / double(ZelOriginImages::side), rect.height() / double(ZelOriginImages::side));
        paintSquare(painter);
        for (int row = 0; row < 3; ++row) {
            for (int column = 0; column < 3; ++column)
                paintAnchor(painter, QPointF(g_places[column], g_places[row]), row * 3 + column == int(m_anchor));
        }
        painter->restore();
    }
    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, pixmap.rect(), mode, state);
        return pixmap;
    }
    QIconEngine *clone() const override { return new ShapeEngine(m_anchor); }

private:
    static void paintSquare(QPainter *painter)
    {
        painter->setPen(QPen(QColor(0, 0, 0, 90), 1));
        painter->setBrush(QColor(0, 0, 0, 16));
        const double begin = g_places[0];
        const double length = g_places[2] - begin;
        painter->drawRect(QRectF(begin, begin, length, length));
    }

    static void paintAnchor(QPainter *painter, const QPointF &place, bool isChosen)
    {
        const double side = isChosen ? 13 : 7;
        const QRectF square(place - QPointF(side, side) / 2, QSizeF(side, side));
        painter->setCompositionMode(QPainter::CompositionMode_Clear); // erases the line around the anchor
        painter->fillRect(square.adjusted(-2, -2, 2, 2), Qt::black);
        painter->setCompositionMode(QPainter::CompositionMode_SourceOver);
        painter->setPen(isChosen ? QPen(Qt::NoPen) : QPen(QColor(0, 0, 0, 150), 1));
        painter->setBrush(isChosen ? QBrush(Qt::black) : QBrush(QColor(0, 0, 0, 30)));
        painter->drawRoundedRect(square, 1.5, 1.5);
    }

    ZelRectAnchor m_anchor;
};

} // namespace

QIcon ZelOriginImages::image(ZelRectAnchor anchor)
{
    return ZelNamedImages::templateImage(QIcon(new ShapeEngine(anchor)));
}
