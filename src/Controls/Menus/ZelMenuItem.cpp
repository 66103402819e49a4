// SPDX-License-Identifier: MIT
#include "Controls/Menus/ZelMenuItem.h"

#include "Controls/private/ZelTitleText.h"

ZelMenuItem::ZelMenuItem(QObject *parent)
    : QAction(parent)
{
}

ZelMenuItem::ZelMenuItem(const QString &title, QObject *parent)
    : QAction(parent)
{
    setTitle(title);
}

ZelMenuItem::ZelMenuItem(const QString &title, const QIcon &image, const QVariant &representedObject, QObject *parent)
    : ZelMenuItem(title, parent)
{
    if (!image.isNull())
        setIcon(image);
    if (representedObject.isValid())
        setData(representedObject);
}

ZelMenuItem *ZelMenuItem::separatorItem(QObject *parent)
{
    auto *item = new ZelMenuItem(parent);
    item->setSeparator(true);
    return item;
}

void ZelMenuItem::setTitle(const QString &title)
{
    m_title = title;
    setText(ZelTitleText::fromTitle(title));
}

QString ZelMenuItem::titleOf(const QAction *action)
{
    if (const auto *item = qobject_cast<const ZelMenuItem *>(action))
        return item->title();
    return action ? ZelTitleText::toTitle(action->text()) : QString();
}

bool ZelMenuItem::isChoosable(const QAction *action)
{
    return action && action->isVisible() && action->isEnabled() && !action->isSeparator();
}
