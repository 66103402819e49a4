// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"
#include "Inspector/Properties/ZelInspectorPairProperty.h"

/// Edits a size (QSizeF or QSize) by its width and height; a point is edited as if it were one.
class ZEL_EXPORT ZelInspectorSizeProperty : public ZelInspectorPairProperty
{
    Q_OBJECT
    Q_PROPERTY(QString widthTitle MEMBER widthTitle)
    Q_PROPERTY(QString widthTitleKeyPath MEMBER widthTitleKeyPath)
    Q_PROPERTY(QString heightTitle MEMBER heightTitle)
    Q_PROPERTY(QString heightTitleKeyPath MEMBER heightTitleKeyPath)
    Q_PROPERTY(ZelInspectorNumberProperty *widthProperty READ widthProperty STORED false)
    Q_PROPERTY(ZelInspectorNumberProperty *heightProperty READ heightProperty STORED false)
    Q_PROPERTY(QVariant width READ width WRITE setWidth NOTIFY firstChanged)
    Q_PROPERTY(QVariant height READ height WRITE setHeight NOTIFY secondChanged)
public:
    explicit ZelInspectorSizeProperty(QObject *owner);
    void configure(const ZelInspectorConfiguration &configuration) override;

    QString widthTitle; ///< the localized "Width"
    QString widthTitleKeyPath;
    QString heightTitle; ///< the localized "Height"
    QString heightTitleKeyPath;

    ZelInspectorNumberProperty *widthProperty() const { return numberProperty(0); }
    ZelInspectorNumberProperty *heightProperty() const { return numberProperty(1); }

    const QVariant &width() const { return component(0); }
    void setWidth(const QVariant &value) { setComponent(0, value); }
    const QVariant &height() const { return component(1); }
    void setHeight(const QVariant &value) { setComponent(1, value); }
    void updateWidth() { updateComponent(0); }
    void updateHeight() { updateComponent(1); }

protected:
    Title titleOfComponent(int index) const override;
};
