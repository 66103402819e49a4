// SPDX-License-Identifier: MIT
#pragma once

#include "ActionBar/ZelActionBarButton.h"

#include <QMenu>
#include <QPointer>

/// A button that opens a menu above itself when it is pressed. Its face is its own image, never one of the menu.
///
/// A chosen action is triggered as anywhere; then the button is clicked. The menu that opens has the actions of the
/// item's menu, which stay in that one, too: they may change, and the menu may die, while it is open.
class ZelActionBarPopupButton : public ZelActionBarButton
{
    Q_OBJECT
public:
    explicit ZelActionBarPopupButton(QWidget *parent = nullptr);
    ~ZelActionBarPopupButton() override;

    /// Not owned.
    QMenu *menu() const { return m_menu; }
    void setMenu(QMenu *menu);
    /// Does nothing without a menu.
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
