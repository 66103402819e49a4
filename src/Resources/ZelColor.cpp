// SPDX-License-Identifier: MIT
#include "Resources/ZelColor.h"

#include "Resources/ZelColorList.h"

#include <algorithm>
#include <cmath>

namespace {

[[maybe_unused]] const bool convertersRegistered =
    QMetaType::registerConverter<ZelColor, QColor>(&ZelColor::toQColor) &&
    QMetaType::registerConverter<QColor, ZelColor>([](const QColor &color) { return ZelColor(color); });

/// How many colour components a space has, without alpha.
int channelCount(ZelColor::Space space)
{
    switch (space) {
    case ZelColor::CalibratedWhite:
    case ZelColor::DeviceWhite:
        return 1;
    case ZelColor::CalibratedRGB:
    case ZelColor::DeviceRGB:
        return 3;
    case ZelColor::DeviceCMYK:
        return 4;
    default:
        return 0;
    }
}

QColor fromComponents(ZelColor::Space space, const QList<double> &components)
{
    const int channels = channelCount(space);
    const auto value = [&](int index) {
        return float(std::clamp(components.value(index, index == channels ? 1.0 : 0.0), 0.0, 1.0));
    };
    switch (channels) {
    case 1:
        return QColor::fromRgbF(value(0), value(0), value(0), value(1));
    case 3:
        return QColor::fromRgbF(value(0), value(1), value(2), value(3));
    case 4:
        return QColor::fromCmykF(value(0), value(1), value(2), value(3), value(4)).toRgb();
    default:
        return {};
    }
}

} // namespace

ZelColor::ZelColor(Space space, const QList<double> &components)
    : m_space(space)
    , m_components(components)
{
    for (double &component : m_components) {
        if (std::isnan(component))
            component = 0; // which is equal to itself
    }
}

ZelColor::ZelColor(const QColor &color)
{
    if (!color.isValid())
        return;
    if (color.spec() == QColor::Cmyk) {
        m_space = DeviceCMYK;
        m_components = {color.cyanF(), color.magentaF(), color.yellowF(), color.blackF(), color.alphaF()};
        return;
    }
    const QColor rgb = color.toRgb();
    m_space = DeviceRGB;
    m_components = {rgb.redF(), rgb.greenF(), rgb.blueF(), rgb.alphaF()};
}

ZelColor ZelColor::named(const QString &listName, const QString &key)
{
    ZelColor color;
    color.m_space = Named;
    color.m_listName = listName;
    color.m_key = key;
    return color;
}

QColor ZelColor::toQColor() const
{
    constexpr int maximumHops = 8; // lists may name colours of other lists, even in a circle
    ZelColor color = *this;
    for (int hop = 0; color.m_space == Named; ++hop) {
        const ZelColorListPtr list = ZelColorList::colorListNamed(color.m_listName);
        if (!list || hop == maximumHops)
            return {};
        if (list->isComputed())
            return list->computedColorWithKey(color.m_key);
        color = list->colorWithKey(color.m_key);
    }
    return fromComponents(color.m_space, color.m_components);
}

ZelColor ZelColor::fromVariant(const QVariant &value)
{
    if (value.metaType() == QMetaType::fromType<ZelColor>())
        return *static_cast<const ZelColor *>(value.constData());
    if (value.typeId() == QMetaType::QColor)
        return ZelColor(*static_cast<const QColor *>(value.constData()));
    return {};
}

bool ZelColor::matches(const QVariant &a, const QVariant &b)
{
    const ZelColor first = fromVariant(a);
    const ZelColor second = fromVariant(b);
    if (!first.isValid() || !second.isValid())
        return false;
    if (first == second)
        return true;
    return (first.m_space != Named || second.m_space != Named) && first.toQColor() == second.toQColor();
}
