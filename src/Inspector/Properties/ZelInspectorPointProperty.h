// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"
#include "Inspector/Properties/ZelInspectorPairProperty.h"

/// Edits a point (QPointF or QPoint) by its x and y; a size is edited as if it were one. The undo step of the checkbox
/// is named "Change Point".
class ZEL_EXPORT ZelInspectorPointProperty : public ZelInspectorPairProperty
{
    Q_OBJECT
    Q_PROPERTY(QString xTitle MEMBER xTitle)
    Q_PROPERTY(QString xTitleKeyPath MEMBER xTitleKeyPath)
    Q_PROPERTY(QString yTitle MEMBER yTitle)
    Q_PROPERTY(QString yTitleKeyPath MEMBER yTitleKeyPath)
    Q_PROPERTY(ZelInspectorNumberProperty *xProperty READ xProperty STORED false)
    Q_PROPERTY(ZelInspectorNumberProperty *yProperty READ yProperty STORED false)
    Q_PROPERTY(QVariant x READ x WRITE setX NOTIFY firstChanged)
    Q_PROPERTY(QVariant y READ y WRITE setY NOTIFY secondChanged)
public:
    explicit ZelInspectorPointProperty(QObject *owner);
    void configure(const ZelInspectorConfiguration &configuration) override;

    QString xTitle; ///< the localized "X"
    QString xTitleKeyPath;
    QString yTitle; ///< the localized "Y"
    QString yTitleKeyPath;

    ZelInspectorNumberProperty *xProperty() const { return numberProperty(0); }
    ZelInspectorNumberProperty *yProperty() const { return numberProperty(1); }

    const QVariant &x() const { return component(0); }
    void setX(const QVariant &value) { setComponent(0, value); }
    const QVariant &y() const { return component(1); }
    void setY(const QVariant &value) { setComponent(1, value); }
    void updateX() { updateComponent(0); }
    void updateY() { updateComponent(1); }

protected:
    Title titleOfComponent(int index) const override;
    QString toggleActionName() const override;
};
