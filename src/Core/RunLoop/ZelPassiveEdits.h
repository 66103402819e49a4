// SPDX-License-Identifier: MIT
#pragma once

#include "Core/RunLoop/ZelNestedScope.h"

/// Says that what is typed is being taken not because the user ended the edit, but because something else is happening:
/// the control loses the focus, or the selection changes. Whoever causes that may be in the midst of something, such as
/// a step of undo. Scopes nest.
class ZEL_EXPORT ZelPassiveEdits : public ZelNestedScope<ZelPassiveEdits>
{
public:
    explicit ZelPassiveEdits(bool isPassive = true)
        : ZelNestedScope(isPassive)
    {
    }
};
