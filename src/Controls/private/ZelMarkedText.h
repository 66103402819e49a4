// SPDX-License-Identifier: MIT
#pragma once

#include "Controls/ZelLabel.h"

class QPainter;

/// One line of text with parts that have a coloured background.
class ZelMarkedText
{
public:
    /// Paints the text of the widget into the area, with the painter's pen and the widget's font. The alignment is the
    /// visual one. Answers the rectangle of the text.
    static QRect paint(QPainter *painter, const QWidget *widget, const QRect &area, const QString &text,
                       Qt::Alignment alignment, const QList<ZelLabel::Part> &parts);
};
