// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"
#include "Inspector/Properties/ZelOption.h"

#include <QList>
#include <QPointer>

/// Choices of an enumeration that are shown together: those that two key paths give, then fixed ones. A group owns its
/// options unless they have a parent.
class ZEL_EXPORT ZelOptionGroup : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString enumeratedDisplayValuesKeyPath MEMBER enumeratedDisplayValuesKeyPath)
    Q_PROPERTY(QString enumeratedValuesKeyPath MEMBER enumeratedValuesKeyPath)
    Q_PROPERTY(QList<ZelOption *> options READ options WRITE setOptions)
public:
    using QObject::QObject;

    /// Key path, against the editor's owner, of a list of texts or icons, and of the values in the same order.
    QString enumeratedDisplayValuesKeyPath;
    QString enumeratedValuesKeyPath;

    /// The options that are alive.
    QList<ZelOption *> options() const
    {
        QList<ZelOption *> living(m_options.begin(), m_options.end());
        living.removeAll(nullptr);
        return living;
    }
    void setOptions(const QList<ZelOption *> &options)
    {
        m_options.clear();
        for (ZelOption *option : options) {
            m_options.append(option);
            if (option && !option->parent())
                option->setParent(this);
        }
    }

private:
    QList<QPointer<ZelOption>> m_options;
};
