// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"

#include <QFont>
#include <QStringList>

/// Looks fonts up by what people call them: a family, a face and a size.
///
/// A size is in the font's own unit: points, or pixels for a font that was made with a pixel size.
class ZEL_EXPORT ZelFontManager
{
public:
    /// In alphabetical order.
    static QStringList availableFontFamilies();
    /// The one of these families for which a name stands. Case does not matter. Of families of that name from several
    /// foundries, which stand in brackets after it, it is the first. Null if there is none.
    static QString familyAmong(const QStringList &families, const QString &name);
    /// The available family for which the font's name stands. A generic name, such as "sans-serif", stands for the
    /// family that is taken for it.
    static QString availableFamilyOf(const QFont &font);
    /// The faces of a family, such as "Regular" and "Bold Italic", sorted by the rules of the language. For a generic
    /// name they are those of the family that is taken for it; an unknown family has none.
    static QStringList availableFacesOfFamily(const QString &family);

    /// The name by which the font asks for its family.
    static QString familyOf(const QFont &font);
    /// The face that the font names, or the one of its family that has the font's weight, slant and width. If the
    /// family has no such face, or is unknown, it is a description of these, "Regular" for a plain font.
    static QString faceOf(const QFont &font);
    static double sizeOf(const QFont &font);

    /// The same font in another size. A size that is not positive leaves it as it is.
    static QFont convertFontToSize(const QFont &font, double size);
    /// The font of that family that is most like the given one, even if that has its weight and slant from the name of
    /// a face. An empty family leaves the font as it is.
    static QFont convertFontToFamily(const QFont &font, const QString &family);
    /// The font of that family and face, in the size and the unit of another, with its other attributes.
    static QFont convertFontToFace(const QFont &font, const QString &family, const QString &face);

    /// The fonts that a desktop uses for its own purposes.
    enum PlatformFont {
        SystemFont,
        SmallSystemFont,
        MiniSystemFont,
        BoldSystemFont,
        SmallBoldSystemFont,
        MiniBoldSystemFont,
        ControlContentFont,
        LabelFont,
        MenuFont,
        MenuBarFont,
        MessageFont,
        PaletteFont,
        TitleBarFont,
        ToolTipsFont,
        UserFont,
        UserFixedPitchFont
    };
    /// At its default size.
    static QFont platformFont(PlatformFont font);
    static QFont systemFontOfSize(double size) { return convertFontToSize(platformFont(SystemFont), size); }
};
