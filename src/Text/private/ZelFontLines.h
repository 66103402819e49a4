// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>

/// The bits of a font's resolve mask that stand for lines. Texts keep these apart from their fonts.
inline constexpr uint ZelFontLines = QFont::UnderlineResolved | QFont::OverlineResolved | QFont::StrikeOutResolved;
