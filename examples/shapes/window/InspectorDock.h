// SPDX-License-Identifier: MIT
#pragma once

#include <QDockWidget>

class InspectorOwner;

/// The dock with the inspector.
class InspectorDock : public QDockWidget
{
    Q_OBJECT
public:
    explicit InspectorDock(InspectorOwner *owner, QWidget *parent = nullptr);

private:
    InspectorOwner *m_owner;
};
