// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"

#include <QObject>
#include <memory>

/// Values that are filed on any object, each under the address of a static. They die with the object.
class ZEL_EXPORT ZelAssociatedObjects
{
public:
    explicit ZelAssociatedObjects(QObject *object)
        : m_object(object)
    {
    }

    /// Stores the value; null removes it. Does nothing for a null object.
    void setAssociateValue(const std::shared_ptr<void> &value, const void *key);
    /// Null if there is none.
    std::shared_ptr<void> associatedValueForKey(const void *key) const;

private:
    QObject *m_object;
};
