// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"

#include <QPalette>

/// The colour of a line between parts of a window. It is fainter with each of the levels 0, 1 and 2, and fainter in a
/// window that is not the active one. Any other level is an assertion, and has the colour of level 2.
ZEL_EXPORT QColor ZelSeparatorColorForLevel(quint64 level, bool active, const QPalette &palette);
