// SPDX-License-Identifier: MIT
#include "Inspector/ZelInspectorContainer.h"

#include "Core/Errors/ZelAssertions.h"

ZelInspectorContainer::ZelInspectorContainer(QObject *owner)
    : m_owner(owner)
{
    ZelRequire(owner, "owner");
}

void ZelInspectorContainer::refresh()
{
    for (const auto &child : childControllers()) {
        const ZelPlaceScope scope(child);
        if (child)
            child->refresh();
    }
}

void ZelInspectorContainer::prepareForReuse()
{
    for (const auto &child : childControllers()) {
        const ZelPlaceScope scope(child);
        if (child)
            child->prepareForReuse();
    }
}

bool ZelInspectorContainer::commitEditing()
{
    const QPointer<ZelInspectorContainer> alive(this); // a committed edit may delete this controller
    for (const auto &child : childControllers()) {
        const ZelPlaceScope scope(child);
        if (child && !child->commitEditing())
            return false;
    }
    return !alive || ZelViewController::commitEditing();
}

void ZelInspectorContainer::discardEditing()
{
    const QPointer<ZelInspectorContainer> alive(this);
    for (const auto &child : childControllers()) {
        const ZelPlaceScope scope(child);
        if (child)
            child->discardEditing();
    }
    if (alive)
        ZelViewController::discardEditing();
}
