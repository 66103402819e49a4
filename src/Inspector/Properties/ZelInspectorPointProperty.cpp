// SPDX-License-Identifier: MIT
#include "Inspector/Properties/ZelInspectorPointProperty.h"

#include "Platform/Resources/ZelLocalizedString.h"

ZelInspectorPointProperty::ZelInspectorPointProperty(QObject *owner)
    : ZelInspectorPairProperty(owner, {QStringLiteral("x"), QStringLiteral("y")}, QMetaType::fromType<QPointF>())
    , xTitle(ZelLocalizedString(QStringLiteral("X")))
    , yTitle(ZelLocalizedString(QStringLiteral("Y")))
{
}

ZelInspectorPointProperty::~ZelInspectorPointProperty()
{
    uninstall();
}

ZelInspectorPairProperty::Title ZelInspectorPointProperty::titleOfComponent(int index) const
{
    return index == 0 ? Title{xTitle, xTitleKeyPath} : Title{yTitle, yTitleKeyPath};
}

QString ZelInspectorPointProperty::toggleActionName() const
{
    return ZelLocalizedString(QStringLiteral("Change Point"));
}
