// SPDX-License-Identifier: MIT
#include "Inspector/Properties/private/ZelKeptValueCheck.h"

#include "Core/Values/ZelValues.h"
#include "Core/Values/private/ZelValueConversion.h"
#include "Resources/ZelColor.h"
#include "Text/ZelAttributedString.h"
#include "Text/ZelFontManager.h"

namespace {

bool isNothing(const QVariant &value)
{
    return ZelIsNull(value) || (value.typeId() == QMetaType::QString && value.toString().isEmpty()) ||
           (value.metaType() == QMetaType::fromType<ZelAttributedString>() &&
            value.value<ZelAttributedString>().isEmpty());
}

bool isSameFont(const QFont &a, const QFont &b)
{
    return ZelFontManager::familyOf(a) == ZelFontManager::familyOf(b) &&
           ZelFontManager::faceOf(a) == ZelFontManager::faceOf(b) &&
           qFuzzyCompare(ZelFontManager::sizeOf(a), ZelFontManager::sizeOf(b));
}

} // namespace

bool ZelKeptValueCheck::isKept(const QVariant &written, const QVariant &kept)
{
    if (ZelIsControllerMarker(kept))
        return !ZelIsMarker(kept, ZelMultipleValuesMarker);
    if (isNothing(kept) || isNothing(written))
        return isNothing(written) && (isNothing(kept) || ZelEqual(QVariant(kept.metaType()), kept));
    if (ZelColor::isColor(written) && ZelColor::isColor(kept))
        return ZelColor::fromVariant(written).toQColor().rgba() == ZelColor::fromVariant(kept).toQColor().rgba();
    QVariant expected = written;
    if (ZelValueConversion::convert(expected, kept.metaType()) != ZelValueConversion::Fits)
        return true; // the write was refused, and reported
    if (kept.typeId() == QMetaType::QFont && expected.typeId() == QMetaType::QFont)
        return isSameFont(expected.value<QFont>(), kept.value<QFont>());
    return ZelEqual(expected, kept);
}
