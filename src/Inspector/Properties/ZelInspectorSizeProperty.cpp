// SPDX-License-Identifier: MIT
#include "Inspector/Properties/ZelInspectorSizeProperty.h"

#include "Platform/Resources/ZelLocalizedString.h"

ZelInspectorSizeProperty::ZelInspectorSizeProperty(QObject *owner)
    : ZelInspectorPairProperty(owner, {QStringLiteral("width"), QStringLiteral("height")})
    , widthTitle(ZelLocalizedString(QStringLiteral("Width")))
    , heightTitle(ZelLocalizedString(QStringLiteral("Height")))
{
}

ZelInspectorSizeProperty::~ZelInspectorSizeProperty()
{
    uninstall();
}

ZelInspectorCompositeProperty::Components ZelInspectorSizeProperty::componentsOfValue(const QVariant &value) const
{
    if (value.typeId() != QMetaType::QSizeF && value.typeId() != QMetaType::QSize)
        return {};
    const QSizeF size = value.toSizeF();
    return {size.width(), size.height()};
}

QVariant ZelInspectorSizeProperty::valueByReplacing(const QVariant &old, int index, double component) const
{
    QSizeF size = old.isValid() ? old.toSizeF() : QSizeF(0, 0);
    if (index == 0)
        size.setWidth(component);
    else
        size.setHeight(component);
    return size;
}

ZelInspectorPairProperty::Title ZelInspectorSizeProperty::titleOfComponent(int index) const
{
    return index == 0 ? Title{widthTitle, widthTitleKeyPath} : Title{heightTitle, heightTitleKeyPath};
}
