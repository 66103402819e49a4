// SPDX-License-Identifier: MIT
#include "Controls/private/ZelPopUpMenuAccessible.h"

#include "Controls/Menus/ZelMenuItem.h"
#include "Controls/private/ZelPopUpMenu.h"
#include "Core/Errors/ZelExceptionReporter.h"

namespace {

/// The interface of one item. It may live longer than the item and the menu, and checks both.
class ItemAccessible : public QAccessibleInterface, public QAccessibleActionInterface
{
public:
    ItemAccessible(ZelPopUpMenu *menu, QAction *item)
        : m_menu(menu)
        , m_item(item)
    {
    }

    QAction *item() const { return m_item; }

    bool isValid() const override { return m_menu && m_item; }
    QObject *object() const override { return nullptr; }
    QWindow *window() const override { return m_menu ? m_menu->windowHandle() : nullptr; }
    QAccessibleInterface *parent() const override { return QAccessible::queryAccessibleInterface(m_menu); }
    QAccessibleInterface *child(int index) const override
    {
        return index == 0 && submenu() ? QAccessible::queryAccessibleInterface(submenu()) : nullptr;
    }
    QAccessibleInterface *childAt(int, int) const override { return nullptr; }
    int childCount() const override { return submenu() ? 1 : 0; }
    int indexOfChild(const QAccessibleInterface *child) const override
    {
        return submenu() && child && child->object() == submenu() ? 0 : -1;
    }
    QAccessible::Role role() const override
    {
        return isValid() && m_item->isSeparator() ? QAccessible::Separator : QAccessible::MenuItem;
    }

    QString text(QAccessible::Text kind) const override
    {
        return isValid() && kind == QAccessible::Name ? ZelMenuItem::titleOf(m_item) : QString();
    }
    void setText(QAccessible::Text, const QString &) override {}
    QRect rect() const override
    {
        if (!isValid())
            return {};
        const QRect local = m_menu->actionGeometry(m_item);
        return QRect(m_menu->mapToGlobal(local.topLeft()), local.size());
    }
    QAccessible::State state() const override
    {
        QAccessible::State state;
        state.invalid = !isValid();
        if (state.invalid)
            return state;
        const Qt::CheckState mark = m_menu->markOf(m_item);
        state.checkable = (m_menu->hasMarks() && !m_item->isSeparator()) || m_item->isCheckable();
        state.checked = mark == Qt::Checked || m_item->isChecked();
        state.checkStateMixed = mark == Qt::PartiallyChecked;
        state.disabled = !m_item->isEnabled();
        state.invisible = !m_menu->isVisible() || !m_item->isVisible();
        state.hasPopup = submenu() != nullptr;
        state.focusable = ZelMenuItem::isChoosable(m_item);
        state.focused = m_menu->activeAction() == m_item;
        return state;
    }

    void *interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface *>(this) : nullptr;
    }
    QStringList actionNames() const override
    {
        if (!isValid() || !ZelMenuItem::isChoosable(m_item))
            return {};
        return {submenu() ? showMenuAction() : pressAction()};
    }
    /// As a click does, the choice closes the menu.
    void doAction(const QString &name) override
    {
        if (!actionNames().contains(name))
            return;
        if (submenu()) {
            m_menu->setActiveAction(m_item);
            return;
        }
        const QPointer<ZelPopUpMenu> menu = m_menu;
        ZelExceptionReporter::run(m_menu.data(), [item = m_item.data()] { item->trigger(); });
        if (menu)
            menu->hide();
    }
    QStringList keyBindingsForAction(const QString &) const override { return {}; }

private:
    QMenu *submenu() const { return m_item ? m_item->menu<QMenu *>() : nullptr; }

    QPointer<ZelPopUpMenu> m_menu;
    QPointer<QAction> m_item;
};

} // namespace

QAccessibleInterface *ZelPopUpMenuAccessible::make(QObject *object)
{
    auto *menu = qobject_cast<ZelPopUpMenu *>(object);
    return menu ? new ZelPopUpMenuAccessible(menu) : nullptr;
}

ZelPopUpMenuAccessible::ZelPopUpMenuAccessible(ZelPopUpMenu *menu)
    : QAccessibleWidget(menu, QAccessible::PopupMenu)
{
}

ZelPopUpMenuAccessible::~ZelPopUpMenuAccessible()
{
    for (QAccessible::Id id : std::as_const(m_children))
        QAccessible::deleteAccessibleInterface(id);
}

ZelPopUpMenu *ZelPopUpMenuAccessible::menu() const
{
    return static_cast<ZelPopUpMenu *>(widget());
}

int ZelPopUpMenuAccessible::childCount() const
{
    return int(menu()->actions().size());
}

QAccessibleInterface *ZelPopUpMenuAccessible::childFor(QAction *item) const
{
    if (!item)
        return nullptr;
    const auto known = m_children.constFind(item);
    QAccessibleInterface *interface = known == m_children.cend() ? nullptr : QAccessible::accessibleInterface(*known);
    if (interface && interface->isValid())
        return interface;
    if (interface) // of an item that has died, at the same address
        QAccessible::deleteAccessibleInterface(*known);
    interface = new ItemAccessible(menu(), item);
    m_children.insert(item, QAccessible::registerAccessibleInterface(interface));
    return interface;
}

QAccessibleInterface *ZelPopUpMenuAccessible::child(int index) const
{
    return childFor(menu()->actions().value(index));
}

int ZelPopUpMenuAccessible::indexOfChild(const QAccessibleInterface *child) const
{
    const auto *item = dynamic_cast<const ItemAccessible *>(child);
    return item ? int(menu()->actions().indexOf(item->item())) : -1;
}

QAccessibleInterface *ZelPopUpMenuAccessible::childAt(int x, int y) const
{
    return childFor(menu()->actionAt(menu()->mapFromGlobal(QPoint(x, y))));
}

QAccessibleInterface *ZelPopUpMenuAccessible::focusChild() const
{
    return childFor(menu()->activeAction());
}
