// SPDX-License-Identifier: MIT
#pragma once

#include "ActionBar/ZelActionBarButton.h"
#include "Core/ZelExport.h"

#include <QMenu>
#include <QPointer>

/// A button that opens a menu above itself when it is pressed. It shows its own image, never one of the menu.
///
/// A chosen action is triggered; then the button emits clicked(). A separate menu opens, which shows the actions of the
/// menu that was set. That menu may change or die while the other one is open.
class ZEL_EXPORT ZelActionBarPopupButton : public ZelActionBarButton
{
    Q_OBJECT
public:
    explicit ZelActionBarPopupButton(QWidget *parent = nullptr);
    ~ZelActionBarPopupButton() override;

    /// The button does not own the menu.
    QMenu *menu() const { return m_menu; }
    void setMenu(QMenu *menu);
    /// Opens the menu. Does nothing without one.
    void showMenu();
    bool isMenuOpen() const { return m_open && m_open->isVisible(); }

protected:
    bool isLit() const override { return isMenuOpen(); }
    bool handleEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    QPoint menuPosition(const QSize &size) const;

    QPointer<QMenu> m_menu;
    QPointer<QMenu> m_open;
};
