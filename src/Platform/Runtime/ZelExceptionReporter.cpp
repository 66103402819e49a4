// SPDX-License-Identifier: MIT
#include "Platform/Runtime/ZelExceptionReporter.h"

#include "Platform/Runtime/ZelAssertions.h"

namespace {

ZelExceptionReporter *g_reporter = nullptr;

struct Thrown
{
    QString message;
    ZelSourcePlace place;
};

Thrown beingHandled()
{
    try {
        throw;
    } catch (const ZelException &exception) {
        return {exception.reason(), exception.place()};
    } catch (const std::exception &exception) {
        return {QString::fromUtf8(exception.what()), ZelPlaceScope::current()};
    } catch (...) {
        return {QStringLiteral("Unknown exception"), ZelPlaceScope::current()};
    }
}

} // namespace

void ZelExceptionReporter::reportException(const QString &message, const ZelSourcePlace &place)
{
    qCWarning(zelLog).noquote() << "ERROR:" << place.appendedTo(message);
}

ZelExceptionReporter *ZelExceptionReporter::current()
{
    static ZelExceptionReporter logging;
    return g_reporter ? g_reporter : &logging;
}

ZelExceptionReporter *ZelExceptionReporter::setCurrent(ZelExceptionReporter *reporter)
{
    return std::exchange(g_reporter, reporter);
}

void ZelExceptionReporter::reportCurrent() noexcept
{
    try {
        const Thrown thrown = beingHandled();
        try {
            current()->reportException(thrown.message, thrown.place);
        } catch (...) {
            qCWarning(zelLog).noquote() << "ERROR:" << thrown.place.appendedTo(thrown.message)
                                        << "(the exception reporter threw)";
        }
    } catch (...) { // no memory for a message
        qCCritical(zelLog, "ERROR: An exception could not be reported");
    }
}
