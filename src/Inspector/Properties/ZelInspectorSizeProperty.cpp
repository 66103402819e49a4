// SPDX-License-Identifier: MIT
#include "Inspector/Properties/ZelInspectorSizeProperty.h"

#include "Inspector/Description/ZelInspectorConfiguration.h"
#include "Inspector/Properties/private/ZelEditorAttributes.h"
#include "Resources/ZelLocalizedString.h"

ZelInspectorSizeProperty::ZelInspectorSizeProperty(QObject *owner)
    : ZelInspectorPairProperty(owner, {QStringLiteral("width"), QStringLiteral("height")},
                               QMetaType::fromType<QSizeF>())
    , widthTitle(ZelLocalizedString(QStringLiteral("Width")))
    , heightTitle(ZelLocalizedString(QStringLiteral("Height")))
{
}

void ZelInspectorSizeProperty::configure(const ZelInspectorConfiguration &configuration)
{
    ZelInspectorPairProperty::configure(configuration);
    ZelEditorAttributes::storeTitle(widthTitle, widthTitleKeyPath, configuration, QStringLiteral("widthTitle"));
    ZelEditorAttributes::storeTitle(heightTitle, heightTitleKeyPath, configuration, QStringLiteral("heightTitle"));
}

ZelInspectorPairProperty::Title ZelInspectorSizeProperty::titleOfComponent(int index) const
{
    return index == 0 ? Title{widthTitle, widthTitleKeyPath} : Title{heightTitle, heightTitleKeyPath};
}
