// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Controls/ZelTextField.h"

/// A text field with a plain line around it, or along some of its edges, instead of the style's frame.
///
/// The line has the palette's highlight colour while the field has the focus. A field with an error has the line of
/// errors instead, along all of its edges.
class ZelBorderedTextField : public ZelTextField
{
    Q_OBJECT
    /// Invalid, the default, is the colour of separators.
    Q_PROPERTY(QColor borderColor READ borderColor WRITE setBorderColor)
    /// In points; 1 by default, 0 for no line.
    Q_PROPERTY(int borderWidth READ borderWidth WRITE setBorderWidth)
    /// All of them by default.
    Q_PROPERTY(Qt::Edges borderEdges READ borderEdges WRITE setBorderEdges)
public:
    explicit ZelBorderedTextField(QWidget *parent = nullptr);

    const QColor &borderColor() const { return m_borderColor; }
    void setBorderColor(const QColor &color);
    int borderWidth() const { return m_borderWidth; }
    /// Asserts that it is not negative.
    void setBorderWidth(int width);
    Qt::Edges borderEdges() const { return m_borderEdges; }
    void setBorderEdges(Qt::Edges edges);

protected:
    bool handleEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void updateMargins();
    QColor shownBorderColor() const;

    QColor m_borderColor;
    Qt::Edges m_borderEdges = Qt::TopEdge | Qt::LeftEdge | Qt::RightEdge | Qt::BottomEdge;
    int m_borderWidth = 1;
};
