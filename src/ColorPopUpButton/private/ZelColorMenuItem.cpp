// SPDX-License-Identifier: MIT
#include "ColorPopUpButton/private/ZelColorMenuItem.h"

#include "ColorPopUpButton/ZelColorMenuItemView.h"

ZelColorMenuItem::ZelColorMenuItem(const QString &title, QObject *parent)
    : QWidgetAction(parent)
{
    setText(title);
}

QWidget *ZelColorMenuItem::createWidget(QWidget *parent)
{
    auto *view = new ZelColorMenuItemView(parent);
    view->setControlSize(m_controlSize);
    connect(view, &ZelColorMenuItemView::action, this, &ZelColorMenuItem::colorChosen);
    return view;
}
