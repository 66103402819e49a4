// SPDX-License-Identifier: MIT
#pragma once

#include "Resources/ZelColor.h"

#include <QMimeData>

/// A colour that is dragged or lies in the clipboard.
///
/// Other programs find an "application/x-color", and a text: "#rrggbb", or "#aarrggbb" where it is not opaque, as Qt
/// writes and reads colours. This program finds the colour itself, with its space or name.
class ZelColorMimeData : public QMimeData
{
    Q_OBJECT
public:
    explicit ZelColorMimeData(const ZelColor &color);

    /// The colour in any data; invalid if there is none. A text is one only in the forms above, in which blanks around
    /// it do not count.
    static ZelColor colorIn(const QMimeData *data);

private:
    ZelColor m_color;
};
