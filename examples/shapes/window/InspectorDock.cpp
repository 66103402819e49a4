// SPDX-License-Identifier: MIT
#include "window/InspectorDock.h"

#include "window/InspectorOwner.h"

InspectorDock::InspectorDock(InspectorOwner *owner, QWidget *parent)
    : QDockWidget(parent)
    , m_owner(owner)
{
    setObjectName(QStringLiteral("inspector"));
    setWidget(new QWidget);
}
