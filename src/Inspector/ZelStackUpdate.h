// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <functional>
#include <memory>

/// The update of a stack that is asked for by each of its children. At once, unless a change is being delivered: then
/// once, when the change has reached all its observers, however many children it concerns.
class ZelStackUpdate
{
public:
    explicit ZelStackUpdate(const std::function<void()> &update);
    /// What is still due is not done.
    ~ZelStackUpdate();
    Q_DISABLE_COPY_MOVE(ZelStackUpdate)

    void request();

private:
    struct State;
    std::shared_ptr<State> m_state; // the update may destroy its owner
};
