// SPDX-License-Identifier: MIT
#include "Inspector/Properties/ZelInspectorPointProperty.h"

#include "Inspector/Description/ZelInspectorConfiguration.h"
#include "Inspector/Properties/private/ZelEditorAttributes.h"
#include "Resources/ZelLocalizedString.h"

ZelInspectorPointProperty::ZelInspectorPointProperty(QObject *owner)
    : ZelInspectorPairProperty(owner, {QStringLiteral("x"), QStringLiteral("y")}, QMetaType::fromType<QPointF>())
    , xTitle(ZelLocalizedString(QStringLiteral("X")))
    , yTitle(ZelLocalizedString(QStringLiteral("Y")))
{
}

void ZelInspectorPointProperty::configure(const ZelInspectorConfiguration &configuration)
{
    ZelInspectorPairProperty::configure(configuration);
    ZelEditorAttributes::storeTitle(xTitle, xTitleKeyPath, configuration, QStringLiteral("xTitle"));
    ZelEditorAttributes::storeTitle(yTitle, yTitleKeyPath, configuration, QStringLiteral("yTitle"));
}

ZelInspectorPairProperty::Title ZelInspectorPointProperty::titleOfComponent(int index) const
{
    return index == 0 ? Title{xTitle, xTitleKeyPath} : Title{yTitle, yTitleKeyPath};
}

QString ZelInspectorPointProperty::toggleActionName() const
{
    return ZelLocalizedString(QStringLiteral("Change Point"));
}
