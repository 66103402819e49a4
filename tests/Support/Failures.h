// SPDX-License-Identifier: MIT
#pragma once

#include "Core/Errors/ZelAssertions.h"
#include <QStringList>

/// Takes the assertions that fail during its life, each as "location: message", and lets the code go on.
class Failures : public ZelAssertionHandler
{
public:
    Failures()
        : m_former(setCurrent(this))
    {
    }
    ~Failures() override { setCurrent(m_former); }
    Q_DISABLE_COPY_MOVE(Failures)

    void handleFailure(const QString &location, const QString &message, const ZelSourcePlace &place) override
    {
        seen.append(location + u": " + message);
        places.append(place);
    }
    /// What has failed since the last call.
    QStringList taken() { return std::exchange(seen, {}); }

    QStringList seen;
    QList<ZelSourcePlace> places;

private:
    ZelAssertionHandler *m_former;
};
