// SPDX-License-Identifier: MIT
#include "Core/Errors/ZelExceptionReporter.h"

#include "Core/Errors/ZelAssertions.h"

namespace {

ZelExceptionReporter *g_reporter = nullptr;
thread_local int t_reporting = 0;
thread_local int t_passages = 0;

/// The exception that is on its way out of the passages, and the place that the innermost of them gave it.
thread_local std::exception_ptr t_passing;
thread_local ZelSourcePlace t_place;

void forgetPassing()
{
    if (t_passing)
        t_passing = nullptr;
}

ZelSourcePlace placeOfHandled()
{
    return t_passing && t_passing == std::current_exception() ? t_place : ZelPlaceScope::current();
}

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
        return {QString::fromUtf8(exception.what()), placeOfHandled()};
    } catch (...) {
        return {QStringLiteral("Unknown exception"), placeOfHandled()};
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

ZelExceptionReporter::Reporting::Reporting()
{
    ++t_reporting;
}

ZelExceptionReporter::Reporting::~Reporting()
{
    if (--t_reporting == 0)
        forgetPassing();
}

ZelExceptionReporter::Passage::Passage()
{
    ++t_passages;
}

ZelExceptionReporter::Passage::~Passage()
{
    if (--t_passages == 0 && t_reporting == 0)
        forgetPassing();
}

void ZelExceptionReporter::logPassing() noexcept
{
    if (t_passing == std::current_exception())
        return; // an inner passage has given it a more precise place
    try {
        throw;
    } catch (const ZelException &) { // it took its place when it was made
    } catch (...) {
        const Thrown thrown = beingHandled();
        if (thrown.place.isEmpty())
            return;
        t_passing = std::current_exception();
        t_place = thrown.place;
        if (t_reporting == 0)
            ZelLogError(thrown.message, thrown.place);
    }
}

void ZelExceptionReporter::reportCurrent(const QString &title) noexcept
{
    try {
        Thrown thrown = beingHandled();
        if (!title.isEmpty())
            thrown.message = QStringLiteral("%1: %2").arg(title, thrown.message);
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
