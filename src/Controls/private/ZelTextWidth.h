// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

class QWidget;

/// The horizontal advance of a one-line text in the widget's font, in points. The widths of short texts are remembered
/// for each font: an inspector measures the same few words for each of its pop-ups, and shaping a word costs more than
/// the rest of a control's size hint.
int ZelTextWidth(const QWidget *widget, const QString &text);
