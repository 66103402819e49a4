// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <memory>

/// Values filed on any object under the address of a static; they die with the object.
class ZelAssociatedObjects
{
public:
    explicit ZelAssociatedObjects(QObject *object)
        : m_object(object)
    {
    }

    /// Stores the value; null removes it.
    void setAssociateValue(const std::shared_ptr<void> &value, const void *key);
    /// Null if there is none.
    std::shared_ptr<void> associatedValueForKey(const void *key) const;

private:
    QObject *m_object;
};
