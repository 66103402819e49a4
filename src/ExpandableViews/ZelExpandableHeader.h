// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Runtime/ZelGuarded.h"

#include <QAbstractButton>

/// The title of a ZelExpandableView with its disclosure triangle. Checked means expanded.
///
/// A click, Space and Return toggle; the arrow key towards the triangle folds, the other unfolds.
class ZelExpandableHeader : public ZelGuarded<QAbstractButton>
{
    Q_OBJECT
public:
    explicit ZelExpandableHeader(QWidget *parent = nullptr);

    /// Plain text: an ampersand in it is shown, and no key.
    QString title() const;
    void setTitle(const QString &title);

    quint32 style() const { return m_style; }
    void setStyle(quint32 style);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    bool handleEvent(QEvent *event) override;

private:
    void drawBackground(QPainter &painter) const;
    void drawTriangle(QPainter &painter) const;
    QRect fromLeft(const QRect &rect) const;

    quint32 m_style = 0;
};
