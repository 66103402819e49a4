// SPDX-License-Identifier: MIT
#pragma once

#include "Core/RunLoop/ZelNestedScope.h"

#include <QObject>

/// Says that an event is being delivered to a widget of the library. When the handler returns, Qt goes on with that
/// widget, and with others such as the one that gets the focus next. None of them may be deleted before, whatever an
/// application's action did. Scopes nest; they belong to the main thread, as all widgets do.
class ZEL_EXPORT ZelEventScope : public ZelNestedScope<ZelEventScope>
{
public:
    explicit ZelEventScope(bool isDelivered = true)
        : ZelNestedScope(isDelivered)
    {
    }
    /// Deletes an object that is no longer used: at once, or when no event is being delivered any more. Null is
    /// allowed.
    static void dispose(QObject *object)
    {
        if (!isActive())
            delete object;
        else if (object)
            object->deleteLater();
    }
};
