// SPDX-License-Identifier: MIT
#pragma once

/// The points that a QLineEdit keeps free at the left and at the right of its text, which no style tells.
inline constexpr int ZelLineEditMargin = 2;
