// SPDX-License-Identifier: MIT
#pragma once

#include <QIconEngine>
#include <functional>

/// An icon drawn by a function, at whatever size it is shown.
class ZelDrawnIconEngine : public QIconEngine
{
public:
    /// Draws into the rectangle. For a pixmap the rectangle is in device pixels, so that whole numbers are sharp.
    using Draw = std::function<void(QPainter *painter, const QRect &rect)>;

    explicit ZelDrawnIconEngine(const Draw &draw)
        : m_draw(draw)
    {
    }

    /// A disabled icon is drawn faintly.
    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State state) override;
    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override;
    QString key() const override { return QStringLiteral("ZelDrawnIconEngine"); }
    QIconEngine *clone() const override { return new ZelDrawnIconEngine(m_draw); }

private:
    Draw m_draw;
};
