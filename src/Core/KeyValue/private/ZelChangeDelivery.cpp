// SPDX-License-Identifier: MIT
#include "Core/KeyValue/private/ZelChangeDelivery.h"

void ZelChangeDelivery::performWaiting()
{
    ZelFirstException failure;
    for (const std::function<void()> &work : std::exchange(s_waiting, {}))
        failure.run(work);
    failure.rethrow();
}
