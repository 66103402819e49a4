// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"

#include <QtGlobal>

#include <functional>
#include <memory>

/// The update of a stack, which each of its children may request. It runs at once, unless a change is being delivered.
/// Then it runs once, when the change has reached all its observers, however many children request it.
class ZEL_EXPORT ZelStackUpdate
{
public:
    explicit ZelStackUpdate(const std::function<void()> &update);
    /// An update that is still due does not run.
    ~ZelStackUpdate();
    Q_DISABLE_COPY_MOVE(ZelStackUpdate)

    void request();

private:
    struct State;
    std::shared_ptr<State> m_state; // the update may destroy its owner
};
