// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QPalette>

/// The colours of a theme, from values that were chosen for a light one.
class ZelThemeColor
{
public:
    /// Whether the palette has light texts on a dark window.
    static bool isDark(const QPalette &palette);
    /// A text colour that was chosen for a light theme, for this palette: the colour itself in a light palette; in a
    /// dark one a grey keeps its share between text and window colour, and any other colour gets its lightness
    /// inverted.
    static QColor adapted(const QColor &lightThemeColor, const QPalette &palette);
    /// The colour of texts that cannot be taken, legible on the palette's Base.
    static QColor error(const QPalette &palette);
    /// The colour of texts that are no values but stand for some, such as "Multiple Values", and of what cannot be
    /// edited: as faint as the palette's placeholders, as far as it is legible.
    static QColor dimmed(const QPalette &palette);
    /// The colour, or one that is nearer to the palette's text, so that it can be read on fields, buttons and windows.
    static QColor legible(const QColor &color, const QPalette &palette);
    /// The contrast of two opaque colours, from 1 to 21; texts of any size can be read from 4.5 on.
    static double contrast(const QColor &a, const QColor &b);
};
