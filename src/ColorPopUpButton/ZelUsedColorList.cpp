// SPDX-License-Identifier: MIT
#include "ColorPopUpButton/ZelUsedColorList.h"

#include "Core/Errors/ZelAssertions.h"

#include <QCoreApplication>
#include <QThread>

ZelUsedColorList::ZelUsedColorList()
{
    m_colors.reserve(ZelUsedColorListMax + 1);
}

ZelUsedColorList *ZelUsedColorList::sharedUsedColorList()
{
    static auto *list = [] {
        auto *made = new ZelUsedColorList; // never deleted, because observers may die late
        if (qApp)
            made->moveToThread(qApp->thread());
        return made;
    }();
    return list;
}

QList<ZelColor> ZelUsedColorList::colors() const
{
    const QMutexLocker lock(&m_mutex);
    return m_colors;
}

void ZelUsedColorList::usedColor(const ZelColor &color)
{
    if (!ZelRequire(color.isValid(), "color"))
        return;
    {
        const QMutexLocker lock(&m_mutex);
        m_colors.removeOne(color);
        m_colors.prepend(color);
        if (m_colors.size() > ZelUsedColorListMax)
            m_colors.removeLast();
    }
    // This is a direct call on the main thread and a queued one on other threads.
    QMetaObject::invokeMethod(this, &ZelUsedColorList::colorsChanged);
}
