// SPDX-License-Identifier: MIT
#pragma once

/// The application's light and dark palette.
namespace Theme {
void apply(bool dark);
} // namespace Theme
