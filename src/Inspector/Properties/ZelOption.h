// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"

#include <QIcon>
#include <QObject>
#include <QVariant>

/// One fixed choice of an enumeration.
class ZEL_EXPORT ZelOption : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool hidden MEMBER hidden)
    Q_PROPERTY(bool enabled MEMBER enabled)
    Q_PROPERTY(QIcon image READ imageIcon WRITE setImage)
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(QString toolTip MEMBER toolTip)
    Q_PROPERTY(QString whatsThis MEMBER whatsThis)
    Q_PROPERTY(QVariant value MEMBER value)
    Q_PROPERTY(QString text MEMBER text)
public:
    using QObject::QObject;

    const QIcon &imageIcon() const { return image; }
    void setImage(const QIcon &icon) { image = icon; }

    bool hidden = false; ///< its menu item is hidden; segments are never hidden
    bool enabled = true;
    QIcon image;
    QString title;
    QString toolTip;   ///< of its menu item; a segment's tool tip is its title
    QString whatsThis; ///< likewise
    QVariant value;    ///< what the model holds for this choice
    QString text;      ///< stands for this choice in a model of texts, or names a key; null for the value itself
};
