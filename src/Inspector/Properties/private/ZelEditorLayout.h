// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

class QWidget;
class ZelLabel;
class ZelView;

/// The arrangement that editors share: a control across the view, and its title centred below it.
class ZelEditorLayout
{
public:
    /// Gaps in points.
    struct Gaps
    {
        double side = 2;
        double top = 2;
        double titleGap = 0;
        double bottom = 2;
    };

    /// Makes the label of the title; null for an empty title.
    static ZelLabel *addTitleLabel(ZelView *container, const QString &title);
    /// Names the control for people who cannot see it. Without a title, the row that holds the editor names it.
    static void setName(QWidget *control, const QString &title);
    /// Pins the control to the container, with the label below it where there is one.
    static void layOut(ZelView *container, QWidget *control, ZelLabel *label, const Gaps &gaps = {2, 2, 0, 2});
    /// Does only the vertical part, and makes the label as wide as the control.
    static void layOutVertically(ZelView *container, QWidget *control, ZelLabel *label,
                                 const Gaps &gaps = {2, 2, 0, 2});
    /// Lets the control be stretched, and squeezed below its size hint with the given priority.
    static void setStretches(QWidget *control, float compression = 750);
};
