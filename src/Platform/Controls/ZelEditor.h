// SPDX-License-Identifier: MIT
#pragma once

#include <QtPlugin>

/// A control that a user may be in the middle of editing. Adopted with Q_INTERFACES(ZelEditor).
class ZelEditor
{
public:
    virtual ~ZelEditor() = default;
    /// Ends the edit and hands the value on. False when what was entered cannot be taken; the edit then goes on.
    virtual bool commitEditing() = 0;
    /// Drops what was entered and shows the value again.
    virtual void discardEditing() = 0;
};
Q_DECLARE_INTERFACE(ZelEditor, "Zel.Editor")
