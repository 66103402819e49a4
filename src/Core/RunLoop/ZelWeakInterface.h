// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>

/// Remembers who implements an interface, such as a delegate. An implementor that is a QObject is forgotten when it
/// dies; any other must outlive whoever remembers it.
template<typename Interface> class ZelWeakInterface
{
public:
    ZelWeakInterface() = default;
    ZelWeakInterface(Interface *interface)
        : m_interface(interface)
        , m_object(dynamic_cast<QObject *>(interface))
        , m_isObject(m_object)
    {
    }

    /// Null without one, or once it has died.
    operator Interface *() const { return m_isObject && !m_object ? nullptr : m_interface; }
    /// The implementor if it is a QObject, otherwise null.
    QObject *object() const { return m_object; }

private:
    Interface *m_interface = nullptr;
    QPointer<QObject> m_object;
    bool m_isObject = false;
};
