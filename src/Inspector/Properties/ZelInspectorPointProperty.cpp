// SPDX-License-Identifier: MIT
#include "Inspector/Properties/ZelInspectorPointProperty.h"

#include "Platform/Resources/ZelLocalizedString.h"

ZelInspectorPointProperty::ZelInspectorPointProperty(QObject *owner)
    : ZelInspectorPairProperty(owner, {QStringLiteral("x"), QStringLiteral("y")})
    , xTitle(ZelLocalizedString(QStringLiteral("X")))
    , yTitle(ZelLocalizedString(QStringLiteral("Y")))
{
}

ZelInspectorPointProperty::~ZelInspectorPointProperty()
{
    uninstall();
}

ZelInspectorCompositeProperty::Components ZelInspectorPointProperty::componentsOfValue(const QVariant &value) const
{
    if (value.typeId() != QMetaType::QPointF && value.typeId() != QMetaType::QPoint)
        return {};
    const QPointF point = value.toPointF();
    return {point.x(), point.y()};
}

QVariant ZelInspectorPointProperty::valueByReplacing(const QVariant &old, int index, double component) const
{
    QPointF point = old.isValid() ? old.toPointF() : QPointF(0, 0);
    if (index == 0)
        point.setX(component);
    else
        point.setY(component);
    return point;
}

ZelInspectorPairProperty::Title ZelInspectorPointProperty::titleOfComponent(int index) const
{
    return index == 0 ? Title{xTitle, xTitleKeyPath} : Title{yTitle, yTitleKeyPath};
}

QString ZelInspectorPointProperty::toggleActionName() const
{
    return ZelLocalizedString(QStringLiteral("Change Point"));
}
