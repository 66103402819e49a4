// SPDX-License-Identifier: MIT
#pragma once

#include "Core/Errors/ZelExceptionReporter.h"
#include "Progress.h"
#include "Storm.h"

/// What leaves the handler of an event is found here; an event loop that something else runs is ended.
class Storm::Application
{
public:
    Application();
    ~Application();

private:
    class Guard;
    std::unique_ptr<Guard> m_guard;
};

/// Finds whatever nobody was told to throw.
class Storm::Reporter : public ZelExceptionReporter
{
public:
    Reporter();
    ~Reporter() override;
    void reportException(const QString &message, const ZelSourcePlace &place) override;

    /// Tells of the exception that is being handled, unless it is to be expected.
    static void judge(const QByteArray &where);

private:
    static bool isExpected();
};

template<typename Work> void Storm::asApplication(Work &&work)
{
    try {
        work();
    } catch (...) {
        Reporter::judge("a call raised");
    }
}
