// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

class QWidget;
class ZelInspectorContainer;

/// Where the keyboard focus is in a panel, in words that hold for another panel from nearly the same description: which
/// control of which editor, inspector or other part has it, and where the caret is.
class ZelPanelFocus
{
public:
    /// What has the focus in the panel's window, even if the window is not active. Empty if that is not in the panel.
    explicit ZelPanelFocus(const ZelInspectorContainer *panel);
    /// Gives the focus to the same control of the other panel, if there is one.
    void giveTo(const ZelInspectorContainer *panel) const;

private:
    QString m_pane;
    QString m_part;
    int m_number = 0;   // among the parts of the pane that are called the same
    int m_control = -1; // among the controls of the part that take the focus
    int m_caret = -1;
    int m_anchor = -1;
};
