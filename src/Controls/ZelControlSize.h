// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"

#include <QFont>
#include <QSize>

/// Fonts and measures of controls at the small size.
///
/// Set the font once on a row or a panel: its controls inherit it. The measures are for the given font.
class ZEL_EXPORT ZelControlSize
{
public:
    enum Size : quint32 { Regular, Small, Mini };
    /// The font for the contents of controls of the given size: the application's font, for the two smaller sizes
    /// reduced in the ratio 11:13 or 9:13.
    static QFont font(quint32 size);
    /// The font for the contents of small controls: the application's font, reduced in the ratio 11:13.
    static QFont smallFont();
    /// The same in bold, for headings.
    static QFont smallBoldFont();

    /// The width in points of a field that shows about this many digits, without its frame.
    static int digitsWidth(const QFont &font, int digits);
    /// The side of small images in controls.
    static constexpr int imageSide = 14;
    static constexpr QSize imageSize{imageSide, imageSide};
};
