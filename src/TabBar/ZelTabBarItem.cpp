// SPDX-License-Identifier: MIT
#include "TabBar/ZelTabBarItem.h"

#include "Core/Values/ZelValues.h"
#include "Core/Values/private/ZelAssign.h"

void ZelTabBarItem::setImage(const QIcon &image)
{
    if (m_image.cacheKey() == image.cacheKey() && m_image.isMask() == image.isMask())
        return;
    m_image = image;
    Q_EMIT imageChanged();
}

void ZelTabBarItem::setToolTip(const QString &toolTip)
{
    if (ZelAssign(m_toolTip, toolTip))
        Q_EMIT toolTipChanged();
}

void ZelTabBarItem::setKeyEquivalent(const QString &keyEquivalent)
{
    if (ZelAssign(m_keyEquivalent, keyEquivalent))
        Q_EMIT keyEquivalentChanged();
}

void ZelTabBarItem::setKeyEquivalentModifierMask(Qt::KeyboardModifiers mask)
{
    if (ZelAssign(m_keyEquivalentModifierMask, mask))
        Q_EMIT keyEquivalentModifierMaskChanged();
}

void ZelTabBarItem::setTag(qint64 tag)
{
    if (ZelAssign(m_tag, tag))
        Q_EMIT tagChanged();
}

void ZelTabBarItem::setEnabled(bool enabled)
{
    if (ZelAssign(m_enabled, enabled))
        Q_EMIT enabledChanged();
}

void ZelTabBarItem::setCount(int count)
{
    if (ZelAssign(m_count, count))
        Q_EMIT countChanged();
}

QString ZelTabBarItem::description() const
{
    return ZelObjectDescription(this) + QStringLiteral("{tag=%1}").arg(m_tag);
}
