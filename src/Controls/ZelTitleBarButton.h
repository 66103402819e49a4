// SPDX-License-Identifier: MIT
#pragma once

#include "Controls/ZelHoverButton.h"

/// A button for a title bar that an application makes itself: that of a dock widget, a panel or a frameless window.
///
/// It works on the dock widget or MDI subwindow that it is in, or else on its window, and is faint while its window is
/// not the active one. A click leaves the focus where it is; the Tab key reaches the button.
class ZelTitleBarButton : public ZelHoverButton
{
    Q_OBJECT
    /// What a click does. Custom, the default, leaves it to whoever hears of the click, and shows the icon.
    Q_PROPERTY(Role role READ role WRITE setRole)
public:
    enum Role : quint8 {
        Custom,
        Close,
        Minimize, ///< in a dock widget: nothing
        Zoom,     ///< full size and back; a dock widget floats and docks
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
