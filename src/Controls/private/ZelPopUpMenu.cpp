// SPDX-License-Identifier: MIT
#include "Controls/private/ZelPopUpMenu.h"

#include "Controls/Menus/ZelMenuItem.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QStyleOptionMenuItem>
#include <QWidgetAction>
#include <QWindow>

ZelPopUpMenu::ZelPopUpMenu(QWidget *button)
    : m_button(button)
{
    setLayoutDirection(button->layoutDirection());
    setFont(button->font());
    setMinimumWidth(button->width());
    setToolTipsVisible(true);
    setScreen(button->screen());
    // Makes the native window, without which there is no handle.
    winId();
    windowHandle()->setTransientParent(button->window()->windowHandle());
}

void ZelPopUpMenu::open()
{
    if (!m_button)
        return;
    ensurePolished();
    const bool mirrored = layoutDirection() == Qt::RightToLeft;
    const int x = mirrored ? m_button->width() - sizeHint().width() : 0;
    if (!m_marked || !m_marked->isVisible()) {
        popup(m_button->mapToGlobal(QPoint(x, m_button->height())));
        return;
    }
    const int itemHeight = actionGeometry(m_marked).height();
    popup(m_button->mapToGlobal(QPoint(x, (m_button->height() - itemHeight) / 2)), m_marked);
    setActiveAction(m_marked);
}

void ZelPopUpMenu::initStyleOption(QStyleOptionMenuItem *option, const QAction *action) const
{
    QMenu::initStyleOption(option, action);
    if (!m_marked || action->isSeparator())
        return;
    option->menuHasCheckableItems = true;
    option->checkType = QStyleOptionMenuItem::Exclusive;
    option->checked = action == m_marked;
}

void ZelPopUpMenu::keyPressEvent(QKeyEvent *event)
{
    if (event->key() != Qt::Key_Home && event->key() != Qt::Key_End) {
        QMenu::keyPressEvent(event);
        return;
    }
    QList<QAction *> items = actions();
    if (event->key() == Qt::Key_End)
        std::reverse(items.begin(), items.end());
    const auto isPlain = [](const QAction *item) {
        return ZelMenuItem::isChoosable(item) && !qobject_cast<const QWidgetAction *>(item);
    };
    const auto item = std::find_if(items.cbegin(), items.cend(), isPlain);
    if (item != items.cend())
        setActiveAction(*item);
}

void ZelPopUpMenu::mousePressEvent(QMouseEvent *event)
{
    // A press on the button closes the menu. Qt must not replay it to the button, which would open the menu again.
    const QPoint position = event->globalPosition().toPoint();
    if (!rect().contains(event->position().toPoint()) && m_button &&
        m_button->rect().contains(m_button->mapFromGlobal(position)))
        setAttribute(Qt::WA_NoMouseReplay);
    QMenu::mousePressEvent(event);
}
