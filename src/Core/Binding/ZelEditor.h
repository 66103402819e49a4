// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"

#include <QtPlugin>

/// A control that a user may be in the middle of editing. A class adopts it with Q_INTERFACES(ZelEditor).
class ZEL_EXPORT ZelEditor
{
public:
    virtual ~ZelEditor() = default;
    /// Ends the edit and hands the value on. Answers false if what was entered cannot be taken; the edit goes on then.
    virtual bool commitEditing() = 0;
    /// Drops what was entered and shows the value again.
    virtual void discardEditing() = 0;
};
Q_DECLARE_INTERFACE(ZelEditor, "Zel.Editor")
