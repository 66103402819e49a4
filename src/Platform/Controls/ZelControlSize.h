// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>
#include <QSize>

/// Fonts and measures of controls at the small size.
///
/// Set the font once on a row or a panel: its controls inherit it. The measures are those of the given font.
class ZelControlSize
{
public:
    enum Size : quint32 { Regular, Small, Mini };
    /// The font of controls' contents at a size: the application's font, reduced by 11 or 9 to 13 for the smaller ones.
    static QFont font(quint32 size);
    /// The font of controls' contents: the application's font, reduced by 11 to 13.
    static QFont smallFont();
    /// The same in bold, for headings.
    static QFont smallBoldFont();

    /// Width of a field that shows about this many digits, without its frame.
    static int digitsWidth(const QFont &font, int digits);
    /// The side of small images in controls.
    static constexpr int imageSide = 14;
    static constexpr QSize imageSize{imageSide, imageSide};
};
