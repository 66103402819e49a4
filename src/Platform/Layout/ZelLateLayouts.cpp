// SPDX-License-Identifier: MIT
#include "Platform/Layout/ZelLateLayouts.h"

#include "Platform/Layout/ZelConstraintLayout.h"

#include <QCoreApplication>
#include <QEvent>

ZelLateLayouts &ZelLateLayouts::instance()
{
    static auto *instance = new ZelLateLayouts; // layouts may outlive every static
    return *instance;
}

void ZelLateLayouts::add(ZelConstraintLayout *layout)
{
    if (m_layouts.empty())
        QCoreApplication::postEvent(this, new QEvent(QEvent::User));
    m_layouts.emplace_back(layout);
}

bool ZelLateLayouts::handleEvent(QEvent *event)
{
    if (event->type() != QEvent::User)
        return QObject::event(event);
    for (const QPointer<ZelConstraintLayout> &layout : std::exchange(m_layouts, {})) {
        if (layout)
            layout->checkChildren();
    }
    return true;
}
