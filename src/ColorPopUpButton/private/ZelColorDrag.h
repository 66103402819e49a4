// SPDX-License-Identifier: MIT
#pragma once

#include "Resources/ZelColor.h"

#include <QPoint>
#include <memory>

class QMouseEvent;
class QWidget;

/// A press of the mouse on a colour, which becomes a drag of the colour when the mouse moves far enough.
class ZelColorDrag
{
public:
    /// Null if there is no colour to be dragged.
    static std::unique_ptr<ZelColorDrag> press(QWidget *widget, const QMouseEvent *event, const ZelColor &color);
    /// Answers whether the move begins the drag. What was pressed is not needed any more then.
    bool begins(const QMouseEvent *move) const;

private:
    ZelColorDrag(QWidget *widget, const QPoint &place, const ZelColor &color);

    QWidget *m_widget;
    QPoint m_place;
    ZelColor m_color;
};
