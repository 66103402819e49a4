// SPDX-License-Identifier: MIT
#pragma once

#include "Controls/ZelHoverButton.h"
#include "Core/ZelExport.h"

/// A button for a title bar that an application makes itself, such as that of a dock widget, a panel or a frameless
/// window.
///
/// It acts on the dock widget or MDI subwindow that it is in, or else on its window. It is faint while its window is
/// not the active one. A click does not take the focus; Tab does.
class ZEL_EXPORT ZelTitleBarButton : public ZelHoverButton
{
    Q_OBJECT
    /// What a click does. With Custom, the default, the click is only reported, and the button shows its icon.
    Q_PROPERTY(Role role READ role WRITE setRole)
public:
    enum Role : quint8 {
        Custom,
        Close,
        Minimize, ///< does nothing in a dock widget
        Zoom,     ///< maximizes and restores a window; makes a dock widget float and dock again
    };
    Q_ENUM(Role)

    explicit ZelTitleBarButton(Role role = Custom, QWidget *parent = nullptr);

    Role role() const { return m_role; }
    /// Other roles than Custom also set the tool tip and the accessible name.
    void setRole(Role role);

    QSize sizeHint() const override;

protected:
    void drawContent(QPainter &painter) override;
    bool handleEvent(QEvent *event) override;

private:
    QWidget *titledWidget() const;
    void perform();
    void zoom(QWidget *widget);

    Role m_role = Custom;
};
