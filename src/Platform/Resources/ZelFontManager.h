// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>
#include <QStringList>

/// Looks fonts up by what people call them: a family, a face and a size.
///
/// A size is in the unit in which the font has it: points, or pixels for one that was made with a pixel size.
class ZelFontManager
{
public:
    /// In alphabetical order.
    static QStringList availableFontFamilies();
    /// The one of these families for which a name stands: that of the name, whatever its case; the first of several
    /// foundries', which have theirs in brackets after the name; null where there is none.
    static QString familyAmong(const QStringList &families, const QString &name);
    /// The available family for which the font's name stands. A generic name, such as "sans-serif", stands for the
    /// family that is taken for it.
    static QString availableFamilyOf(const QFont &font);
    /// The faces of a family, such as "Regular" and "Bold Italic", sorted by the rules of the language; for a generic
    /// name those of the family that is taken for it; none for an unknown family.
    static QStringList availableFacesOfFamily(const QString &family);

    /// The name by which the font asks for its family.
    static QString familyOf(const QFont &font);
    /// The face that the font names, or the one of its family that has the font's weight, slant and width; where the
    /// family has none of that kind, or is unknown, its description, "Regular" for a plain font.
    static QString faceOf(const QFont &font);
    static double sizeOf(const QFont &font);

    /// The same font in another size. A size that is not positive leaves it as it is.
    static QFont convertFontToSize(const QFont &font, double size);
    /// The font of that family that is most like it, also where its weight and slant come from a face's name; an empty
    /// family leaves it as it is.
    static QFont convertFontToFamily(const QFont &font, const QString &family);
    /// The font of that family and face, in the size and the unit of another, with its other attributes.
    static QFont convertFontToFace(const QFont &font, const QString &family, const QString &face);

    /// Fonts that a desktop has for its own purposes.
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
