// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>
#include <QVariant>

/// The images of a bar with which text is formatted. All are drawn at the size at which they are shown.
class ZelTextFormatImages
{
public:
    /// The application's image of that name, where it has one, else the library's, in the text colour of the palette:
    /// "ZelTextAlignLeftTemplate", and the same with Center, Right, Justified and Natural. Null for any other name.
    static QIcon alignmentImage(const QString &name);
    /// A swatch of a colour. Nothing but an outline for no colour; striped where there are several.
    static QIcon textColorImage(const QVariant &color);
    /// The same swatch with a letter on it.
    static QIcon backgroundColorImage(const QVariant &color);
};
