// SPDX-License-Identifier: MIT
#include "Inspector/NSColor+ZelInspector.h"

#include "Platform/Resources/ZelColorList.h"
#include "Platform/Resources/ZelNumberScanner.h"
#include "Platform/Runtime/ZelAssertions.h"

#include <algorithm>
#include <new>

namespace {

struct SpaceName
{
    QStringView name;
    ZelColor::Space space;
};

constexpr SpaceName spaceNames[] = {
    {u"NSCalibratedWhiteColorSpace", ZelColor::CalibratedWhite},
    {u"NSCalibratedRGBColorSpace", ZelColor::CalibratedRGB},
    {u"NSDeviceWhiteColorSpace", ZelColor::DeviceWhite},
    {u"NSDeviceRGBColorSpace", ZelColor::DeviceRGB},
    {u"NSDeviceCMYKColorSpace", ZelColor::DeviceCMYK},
    {u"NSNamedColorSpace", ZelColor::Named},
};

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
    const auto found = std::find_if(std::begin(spaceNames), std::end(spaceNames),
                                    [&](const SpaceName &candidate) { return candidate.name == spaceName; });
    if (found == std::end(spaceNames)) {
        ZelFail(u"Unsupported color space " + spaceName, place);
        return {};
    }
    return found->space == ZelColor::Named ? namedColor(pieces, place)
                                           : colorWithComponents(found->space, pieces, place);
}
