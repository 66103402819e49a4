// SPDX-License-Identifier: MIT
#include "Inspector/Description/NSColor+ZelInspector.h"

#include "Core/Errors/ZelAssertions.h"
#include "Core/Values/private/ZelNumberScanner.h"
#include "Resources/ZelColorList.h"

#include <algorithm>
#include <new>

namespace {

struct SpaceName
{
    QStringView name;
    ZelColor::Space space;
    int components = 0;
};

constexpr SpaceName g_spaceNames[] = {
    {u"NSCalibratedWhiteColorSpace", ZelColor::CalibratedWhite, 2},
    {u"NSCalibratedRGBColorSpace", ZelColor::CalibratedRGB, 4},
    {u"NSDeviceWhiteColorSpace", ZelColor::DeviceWhite, 2},
    {u"NSDeviceRGBColorSpace", ZelColor::DeviceRGB, 4},
    {u"NSDeviceCMYKColorSpace", ZelColor::DeviceCMYK, 5},
    {u"NSNamedColorSpace", ZelColor::Named},
};

const SpaceName *spaceNamed(QStringView name)
{
    const auto *found = std::ranges::find(g_spaceNames, name, &SpaceName::name);
    return found == std::end(g_spaceNames) ? nullptr : found;
}

QList<QStringView> splitAtBlanks(QStringView text)
{
    QList<QStringView> pieces;
    qsizetype start = 0;
    for (qsizetype i = 0; i <= text.size(); ++i) {
        if (i < text.size() && !text[i].isSpace())
            continue;
        pieces.append(text.sliced(start, i - start));
        start = i + 1;
    }
    return pieces;
}

ZelColor colorWithComponents(ZelColor::Space space, const QList<QStringView> &texts, const ZelSourcePlace &place)
{
    try {
        QList<double> components;
        components.reserve(texts.size());
        for (QStringView text : texts)
            components.append(ZelNumberScanner::real(text));
        return ZelColor(space, components);
    } catch (const std::bad_alloc &) {
        ZelFail(QStringLiteral("Unable to allocate memory"), place);
        return {};
    }
}

ZelColor namedColor(const QList<QStringView> &names, const ZelSourcePlace &place)
{
    if (names.size() != 2) {
        ZelFail(QStringLiteral("Unexpected count of color components"), place);
        return {};
    }
    const ZelColorListPtr list = ZelColorList::colorListNamed(names[0].toString());
    const ZelColor color = list ? list->colorWithKey(names[1].toString()) : ZelColor();
    if (!color.isValid())
        ZelFail(u"No color found in color list " + names[0] + u" with name " + names[1], place);
    return color;
}

} // namespace

ZelColor ZelInspectorColor::colorFromString(const QString &text, const ZelSourcePlace &place)
{
    QList<QStringView> pieces = splitAtBlanks(text);
    if (std::all_of(pieces.cbegin(), pieces.cend(), [](QStringView piece) { return piece.isEmpty(); })) {
        ZelFail(u"Incorrect color format: " + text, place);
        return {};
    }
    const QStringView spaceName = pieces.takeFirst();
    const SpaceName *found = spaceNamed(spaceName);
    if (!found) {
        ZelFail(u"Unsupported color space " + spaceName, place);
        return {};
    }
    return found->space == ZelColor::Named ? namedColor(pieces, place)
                                           : colorWithComponents(found->space, pieces, place);
}

QString ZelInspectorColor::mistakeInComponents(QStringView text)
{
    QList<QStringView> pieces = splitAtBlanks(text);
    const SpaceName *space = spaceNamed(pieces.takeFirst());
    if (!space || space->space == ZelColor::Named)
        return {};
    if (pieces.size() != space->components)
        return QStringLiteral("has %1 components instead of %2").arg(pieces.size()).arg(space->components);
    const auto isComponent = [](QStringView piece) {
        bool isRead = false;
        const double number = piece.toDouble(&isRead);
        return isRead && number >= 0 && number <= 1;
    };
    return std::ranges::all_of(pieces, isComponent) ? QString()
                                                    : QStringLiteral("has components that are no numbers from 0 to 1");
}
