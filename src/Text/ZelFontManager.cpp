// SPDX-License-Identifier: MIT
#include "Text/ZelFontManager.h"

#include <QApplication>
#include <QCollator>
#include <QFontDatabase>
#include <QToolTip>

namespace {

/// Whether the face of the family has the font's weight, slant and width.
bool isLike(const QFont &font, const QString &family, const QString &face)
{
    const QFont other = QFontDatabase::font(family, face, 12);
    const bool isSlanted = font.style() != QFont::StyleNormal;
    return other.weight() == font.weight() && (other.style() != QFont::StyleNormal) == isSlanted &&
           (font.stretch() == QFont::AnyStretch || other.stretch() == QFont::AnyStretch ||
            other.stretch() == font.stretch());
}

/// The family that the desktop, or the toolkit, takes for a generic name; any other name is answered as it is.
QString resolvedGeneric(const QString &name)
{
    static const QStringList generic{QString(),
                                     QStringLiteral("sans"),
                                     QStringLiteral("sans serif"),
                                     QStringLiteral("sans-serif"),
                                     QStringLiteral("serif"),
                                     QStringLiteral("mono"),
                                     QStringLiteral("monospace"),
                                     QStringLiteral("cursive"),
                                     QStringLiteral("fantasy"),
                                     QStringLiteral("system-ui")};
    return generic.contains(name.toLower()) ? QFontInfo(QFont(name)).family() : name;
}

/// Gives the font the look of a face of a family; an unknown face leaves it as it is.
void takeLook(QFont &font, const QString &family, const QString &face)
{
    const QString known = resolvedGeneric(family);
    if (!QFontDatabase::styles(known).contains(face))
        return;
    const QFont other = QFontDatabase::font(known, face, 12);
    font.setWeight(QFont::Weight(other.weight()));
    font.setStyle(other.style());
    font.setStretch(other.stretch());
}

QString descriptionOf(const QFont &font)
{
    QFont plain = font;
    plain.setStyleName({});
    const QString name = QFontDatabase::styleString(plain);
    return name == QStringLiteral("Normal") || name.isEmpty() ? QStringLiteral("Regular") : name;
}

QFont systemFont(double share, bool bold)
{
    QFont font = QApplication::font();
    if (share < 1)
        font = ZelFontManager::convertFontToSize(font, ZelFontManager::sizeOf(font) * share);
    if (bold)
        font.setBold(true);
    return font;
}

constexpr double g_small = 11.0 / 13.0;
constexpr double g_mini = 9.0 / 13.0;

} // namespace

QStringList ZelFontManager::availableFontFamilies()
{
    QStringList families = QFontDatabase::families();
    families.removeIf([](const QString &family) { return QFontDatabase::isPrivateFamily(family); });
    return families;
}

QString ZelFontManager::familyAmong(const QStringList &families, const QString &name)
{
    const auto find = [&](const auto &isIt) {
        const auto family = std::find_if(families.begin(), families.end(), isIt);
        return family == families.end() ? QString() : *family;
    };
    const QString same = find([&](const QString &family) { return family.compare(name, Qt::CaseInsensitive) == 0; });
    if (!same.isNull())
        return same;
    const QString prefix = name + QStringLiteral(" [");
    return find(
        [&](const QString &family) { return family.startsWith(prefix, Qt::CaseInsensitive) && family.endsWith(u']'); });
}

QString ZelFontManager::availableFamilyOf(const QFont &font)
{
    const QStringList families = availableFontFamilies();
    const QString name = familyOf(font);
    const QString known = familyAmong(families, name);
    return known.isNull() ? familyAmong(families, resolvedGeneric(name)) : known;
}

QStringList ZelFontManager::availableFacesOfFamily(const QString &family)
{
    QStringList faces = QFontDatabase::styles(family);
    if (faces.isEmpty())
        faces = QFontDatabase::styles(resolvedGeneric(family));
    QCollator collator;
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    std::sort(faces.begin(), faces.end(), collator);
    return faces;
}

QString ZelFontManager::familyOf(const QFont &font)
{
    return font.families().value(0, font.family());
}

QString ZelFontManager::faceOf(const QFont &font)
{
    if (!font.styleName().isEmpty())
        return font.styleName();
    const QString family = familyOf(font);
    const QString description = descriptionOf(font);
    const QStringList faces = availableFacesOfFamily(family);
    if (faces.contains(description))
        return description;
    const auto face =
        std::find_if(faces.begin(), faces.end(), [&](const QString &name) { return isLike(font, family, name); });
    return face == faces.end() ? description : *face;
}

double ZelFontManager::sizeOf(const QFont &font)
{
    return font.pointSizeF() > 0 ? font.pointSizeF() : font.pixelSize();
}

QFont ZelFontManager::convertFontToSize(const QFont &font, double size)
{
    QFont converted = font;
    if (!(size > 0))
        return converted;
    if (font.pointSizeF() > 0)
        converted.setPointSizeF(size);
    else
        converted.setPixelSize(qMax(1, qRound(size)));
    return converted;
}

QFont ZelFontManager::convertFontToFamily(const QFont &font, const QString &family)
{
    QFont converted = font;
    if (family.isEmpty() || family == familyOf(font))
        return converted;
    if (!font.styleName().isEmpty())
        takeLook(converted, familyOf(font), font.styleName());
    converted.setFamilies({family});
    converted.setStyleName({}); // the name of the face belongs to the former family
    return converted;
}

QFont ZelFontManager::convertFontToFace(const QFont &font, const QString &family, const QString &face)
{
    QFont converted = font;
    converted.setFamilies({family});
    converted.setStyleName(face);
    takeLook(converted, family, face);
    return converted;
}

QFont ZelFontManager::platformFont(PlatformFont font)
{
    switch (font) {
    case SystemFont:
    case UserFont:
        return systemFont(1, false);
    case SmallSystemFont:
        return systemFont(g_small, false);
    case MiniSystemFont:
        return systemFont(g_mini, false);
    case BoldSystemFont:
        return systemFont(1, true);
    case SmallBoldSystemFont:
        return systemFont(g_small, true);
    case MiniBoldSystemFont:
        return systemFont(g_mini, true);
    case ControlContentFont:
        return QApplication::font("QLineEdit");
    case LabelFont:
        return QApplication::font("QLabel");
    case MenuFont:
        return QApplication::font("QMenu");
    case MenuBarFont:
        return QApplication::font("QMenuBar");
    case MessageFont:
        return QApplication::font("QMessageBox");
    case PaletteFont:
        return QFontDatabase::systemFont(QFontDatabase::SmallestReadableFont);
    case TitleBarFont:
        return QFontDatabase::systemFont(QFontDatabase::TitleFont);
    case ToolTipsFont:
        return QToolTip::font();
    case UserFixedPitchFont:
        return QFontDatabase::systemFont(QFontDatabase::FixedFont);
    }
    return systemFont(1, false);
}
