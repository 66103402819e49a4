// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Runtime/ZelGuarded.h"

#include <QMenu>
#include <QPointer>

/// The open menu of a pop-up button. It has no parent, so that it outlives a button that dies because of a choice.
class ZelPopUpMenu : public ZelGuarded<QMenu>
{
    Q_OBJECT
public:
    explicit ZelPopUpMenu(QWidget *button);

    /// The item drawn with a check mark, without touching the item itself.
    void setMarkedItem(QAction *item) { m_marked = item; }
    /// Opens over the button with the marked item in its place, or below the button where nothing is marked.
    void open();

protected:
    /// Home and End go to the first and the last item that can be chosen.
    void keyPressEvent(QKeyEvent *event) override;
    void initStyleOption(QStyleOptionMenuItem *option, const QAction *action) const override;
    void mousePressEvent(QMouseEvent *event) override;

private:
    QPointer<QWidget> m_button;
    QPointer<QAction> m_marked;
};
