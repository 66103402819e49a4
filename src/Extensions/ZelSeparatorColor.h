// SPDX-License-Identifier: MIT
#pragma once

#include <QPalette>

/// The colour of a line between parts of a window, fainter at each of the levels 0, 1 and 2, and where the window is
/// not the active one. Asserts that it is one of these levels; an unknown one has the last one's colour.
QColor ZelSeparatorColorForLevel(quint64 level, bool active, const QPalette &palette);
