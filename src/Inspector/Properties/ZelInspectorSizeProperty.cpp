// SPDX-License-Identifier: MIT
#include "Inspector/Properties/ZelInspectorSizeProperty.h"

#include "Platform/Resources/ZelLocalizedString.h"

ZelInspectorSizeProperty::ZelInspectorSizeProperty(QObject *owner)
    : ZelInspectorPairProperty(owner, {QStringLiteral("width"), QStringLiteral("height")},
                               QMetaType::fromType<QSizeF>())
    , widthTitle(ZelLocalizedString(QStringLiteral("Width")))
    , heightTitle(ZelLocalizedString(QStringLiteral("Height")))
{
}

ZelInspectorSizeProperty::~ZelInspectorSizeProperty()
{
    uninstall();
}

ZelInspectorPairProperty::Title ZelInspectorSizeProperty::titleOfComponent(int index) const
{
    return index == 0 ? Title{widthTitle, widthTitleKeyPath} : Title{heightTitle, heightTitleKeyPath};
}
