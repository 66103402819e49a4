// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>
#include <QString>
#include <optional>

class QPainter;
class QRect;

/// Plain text in lines that are broken at a width, each of which begins at the edge that belongs to the text's own
/// direction, or to another one.
class ZelWrappedText
{
public:
    static double height(const QString &text, const QFont &font, double width);
    /// Draws the lines that fit into the area. If some do not fit, the last drawn line is elided.
    static void paint(QPainter *painter, const QString &text, const QFont &font, const QRect &area,
                      std::optional<Qt::LayoutDirection> edge = std::nullopt);
};
