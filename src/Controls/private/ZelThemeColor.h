// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QPalette>

/// Adapts colours that were chosen for a light theme to the theme in use.
class ZelThemeColor
{
public:
    /// Whether the palette has light texts on a dark window.
    static bool isDark(const QPalette &palette);
    /// Adapts a text colour that was chosen for a light theme to the palette. For a light palette the colour stays as
    /// it is. For a dark one a grey keeps its relative place between text and window colour, and any other colour gets
    /// its lightness inverted.
    static QColor adapted(const QColor &lightThemeColor, const QPalette &palette);
    /// The colour of texts that were refused, legible on the palette's Base.
    static QColor error(const QPalette &palette);
    /// The colour of placeholder texts, such as "Multiple Values", and of what cannot be edited: as faint as the
    /// palette's placeholders, but legible.
    static QColor dimmed(const QPalette &palette);
    /// The background of fields that cannot be edited: the colour of buttons or of windows, whichever is farther from
    /// that of open fields.
    static QColor closed(const QPalette &palette);
    /// The colour, moved towards the palette's text colour as far as is needed to read it on fields, buttons and
    /// windows.
    static QColor legible(const QColor &color, const QPalette &palette);
    /// The contrast of two opaque colours, from 1 to 21. From 4.5 on, texts of any size can be read.
    static double contrast(const QColor &a, const QColor &b);
};
