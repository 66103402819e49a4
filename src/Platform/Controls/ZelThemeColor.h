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
};
