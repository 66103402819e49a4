// SPDX-License-Identifier: MIT
#include "ActionBar/ZelActionBarPopupButton.h"

#include "Controls/private/ZelPopUpMenu.h"

#include <QKeyEvent>
#include <QScreen>

ZelActionBarPopupButton::ZelActionBarPopupButton(QWidget *parent)
    : ZelActionBarButton(parent)
{
}

ZelActionBarPopupButton::~ZelActionBarPopupButton()
{
    if (m_open)
        m_open->deleteLater();
}

void ZelActionBarPopupButton::setMenu(QMenu *menu)
{
    m_menu = menu;
}

/// Opens a separate menu with the same actions, because the menu that was set may be open elsewhere and may die.
void ZelActionBarPopupButton::showMenu()
{
    if (!m_menu || m_open)
        return;
    const QPointer<ZelActionBarPopupButton> guard(this);
    Q_EMIT m_menu->aboutToShow(); // applications fill or delete their menus here
    if (!guard || !m_menu || m_open)
        return;
    auto *menu = new ZelPopUpMenu(this);
    m_open = menu;
    menu->setMinimumWidth(0);
    menu->setToolTipsVisible(m_menu->toolTipsVisible());
    menu->addActions(m_menu->actions());
    connect(menu, &QMenu::aboutToHide, this, [this, menu] {
        m_open = nullptr;
        menu->deleteLater();
        update();
    });
    // Queued, because the chosen action must be handled first and may delete the button.
    connect(
        menu, &QMenu::triggered, this, [this] { Q_EMIT clicked(); }, Qt::QueuedConnection);
    menu->popup(menuPosition(menu->sizeHint()));
    update();
}

/// The menu opens above the button, or below if there is no room above.
QPoint ZelActionBarPopupButton::menuPosition(const QSize &size) const
{
    const int x = layoutDirection() == Qt::RightToLeft ? width() - size.width() : 0;
    const QPoint above = mapToGlobal(QPoint(x, -size.height()));
    return above.y() < screen()->availableGeometry().top() ? mapToGlobal(QPoint(x, height())) : above;
}

bool ZelActionBarPopupButton::handleEvent(QEvent *event)
{
    if (event->type() != QEvent::Shortcut)
        return ZelActionBarButton::handleEvent(event);
    showMenu();
    return true;
}

void ZelActionBarPopupButton::keyPressEvent(QKeyEvent *event)
{
    const int key = event->key();
    if (key == Qt::Key_Space || key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_Return ||
        key == Qt::Key_Enter)
        showMenu();
    else
        ZelActionBarButton::keyPressEvent(event);
}

void ZelActionBarPopupButton::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        showMenu();
}

void ZelActionBarPopupButton::mouseReleaseEvent(QMouseEvent *event)
{
    event->accept(); // the choice in the menu emits clicked(), not the release
}
