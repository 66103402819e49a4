// SPDX-License-Identifier: MIT
#include "TabBar/ZelTabBarItem.h"

#include "Platform/Runtime/ZelValues.h"

void ZelTabBarItem::setImage(const QIcon &image)
{
    if (m_image.cacheKey() == image.cacheKey() && m_image.isMask() == image.isMask())
        return;
    m_image = image;
    Q_EMIT imageChanged();
}

void ZelTabBarItem::setToolTip(const QString &toolTip)
{
    if (m_toolTip == toolTip)
        return;
    m_toolTip = toolTip;
    Q_EMIT toolTipChanged();
}

void ZelTabBarItem::setKeyEquivalent(const QString &keyEquivalent)
{
    if (m_keyEquivalent == keyEquivalent)
        return;
    m_keyEquivalent = keyEquivalent;
    Q_EMIT keyEquivalentChanged();
}

void ZelTabBarItem::setKeyEquivalentModifierMask(Qt::KeyboardModifiers mask)
{
    if (m_keyEquivalentModifierMask == mask)
        return;
    m_keyEquivalentModifierMask = mask;
    Q_EMIT keyEquivalentModifierMaskChanged();
}

void ZelTabBarItem::setTag(qint64 tag)
{
    if (m_tag == tag)
        return;
    m_tag = tag;
    Q_EMIT tagChanged();
}

void ZelTabBarItem::setEnabled(bool enabled)
{
    if (m_enabled == enabled)
        return;
    m_enabled = enabled;
    Q_EMIT enabledChanged();
}

QString ZelTabBarItem::description() const
{
    return ZelObjectDescription(this) + QStringLiteral("{tag=%1}").arg(m_tag);
}
