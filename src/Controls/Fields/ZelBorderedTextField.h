// SPDX-License-Identifier: MIT
#pragma once

#include "Controls/Fields/ZelTextField.h"
#include "Core/ZelExport.h"

/// A text field with a plain line around it, or along some of its edges, instead of the style's frame.
///
/// The line has the palette's highlight colour while the field has the focus. A field whose text was refused has a line
/// in the error colour instead, along all of its edges.
class ZEL_EXPORT ZelBorderedTextField : public ZelTextField
{
    Q_OBJECT
    /// An invalid colour, the default, stands for the colour of separators.
    Q_PROPERTY(QColor borderColor READ borderColor WRITE setBorderColor)
    /// In points; 1 by default. 0 draws no line.
    Q_PROPERTY(int borderWidth READ borderWidth WRITE setBorderWidth)
    /// All of them by default.
    Q_PROPERTY(Qt::Edges borderEdges READ borderEdges WRITE setBorderEdges)
public:
    explicit ZelBorderedTextField(QWidget *parent = nullptr);

    const QColor &borderColor() const { return m_borderColor; }
    void setBorderColor(const QColor &color);
    int borderWidth() const { return m_borderWidth; }
    /// Asserts that the width is not negative.
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
