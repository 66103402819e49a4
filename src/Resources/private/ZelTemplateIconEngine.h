// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>
#include <QIconEngine>

/// Paints the shape of an icon in the text colour that the application's palette has for the icon's mode at that
/// moment.
class ZelTemplateIconEngine : public QIconEngine
{
public:
    explicit ZelTemplateIconEngine(const QIcon &shape)
        : m_shape(shape)
    {
    }

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State state) override;
    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override;
    QPixmap scaledPixmap(const QSize &size, QIcon::Mode mode, QIcon::State state, qreal scale) override;
    QSize actualSize(const QSize &size, QIcon::Mode mode, QIcon::State state) override;
    QList<QSize> availableSizes(QIcon::Mode mode, QIcon::State state) override;
    QString iconName() override { return m_shape.name(); }
    bool isNull() override { return m_shape.isNull(); }
    QString key() const override { return QStringLiteral("ZelTemplateIconEngine"); }
    QIconEngine *clone() const override { return new ZelTemplateIconEngine(m_shape); }

private:
    QIcon m_shape;
};
