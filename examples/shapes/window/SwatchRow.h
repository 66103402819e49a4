// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QList>
#include <QWidget>

/// A row of colours to choose from, by the mouse or with the arrow keys.
class SwatchRow : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QColor color READ color WRITE setColor)
public:
    explicit SwatchRow(QWidget *parent = nullptr);

    /// The color that is marked; an invalid one, or one that is not in the row, marks none.
    QColor color() const { return m_color; }
    void setColor(const QColor &color);

    QSize sizeHint() const override { return {int(m_colors.size()) * 20, 20}; }
    QSize minimumSizeHint() const override { return {int(m_colors.size()) * 12, 20}; }

Q_SIGNALS:
    /// By the user.
    void colorPicked(const QColor &color);

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    int indexAt(double x) const;
    QRectF swatchRect(int index) const;
    void pick(int index);

    QList<QColor> m_colors;
    QColor m_color;
};
