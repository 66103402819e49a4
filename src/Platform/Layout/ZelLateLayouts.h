// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Runtime/ZelGuarded.h"

#include <QObject>
#include <QPointer>
#include <vector>

class ZelConstraintLayout;

/// Layouts whose children announced a change while they were being shown. They are looked at together, once all are
/// visible: nearly always nothing has changed, and a request for each would be searched for in a queue that is full of
/// what showing thousands of widgets puts there.
class ZelLateLayouts : public ZelGuarded<QObject>
{
public:
    static ZelLateLayouts &instance();

    void add(ZelConstraintLayout *layout);
    bool handleEvent(QEvent *event) override;

private:
    std::vector<QPointer<ZelConstraintLayout>> m_layouts;
};
