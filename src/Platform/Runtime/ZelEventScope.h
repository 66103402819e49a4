// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

/// Says that an event is being delivered to a widget of the library. Qt goes on with that widget, and with others such
/// as the one that gets the focus next, when the handler returns: none may be deleted before, whatever an application's
/// action did. Scopes nest; they belong to the main thread, as all widgets.
class ZelEventScope
{
public:
    explicit ZelEventScope(bool isDelivered = true)
        : m_isDelivered(isDelivered)
    {
        s_depth += m_isDelivered;
    }
    ~ZelEventScope() { s_depth -= m_isDelivered; }
    Q_DISABLE_COPY_MOVE(ZelEventScope)

    static bool isActive() { return s_depth > 0; }
    /// Deletes an object that is no longer used: at once, or when no event is being delivered any more. Null is
    /// allowed.
    static void dispose(QObject *object)
    {
        if (!isActive())
            delete object;
        else if (object)
            object->deleteLater();
    }

private:
    inline static int s_depth = 0;
    bool m_isDelivered;
};
