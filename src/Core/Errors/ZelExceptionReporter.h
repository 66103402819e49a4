// SPDX-License-Identifier: MIT
#pragma once

#include "Core/Errors/ZelSourcePlace.h"
#include "Core/ZelExport.h"

#include <utility>

/// Hears of exceptions that nobody could catch: those thrown while Qt's event loop, or a destructor, calls into the
/// library. An exception that went on into Qt would end the application.
///
/// A function that the application calls itself throws to its caller as usual. Exceptions end where the event loop
/// calls in: at an event, a timer, posted work, the report of a control's edit, a step of undo or redo.
class ZEL_EXPORT ZelExceptionReporter
{
public:
    virtual ~ZelExceptionReporter() = default;
    /// Called while the exception is being handled, so that `throw;` within a try block brings it back. The message is
    /// the exception's text without its place; for a step of undo the step's name comes before it. The place is that of
    /// the element concerned, if there is one. The default logs "ERROR: ", the message and the place. If a reporter
    /// throws itself, the message is logged.
    virtual void reportException(const QString &message, const ZelSourcePlace &place);

    static ZelExceptionReporter *current();
    /// Installs a reporter, which stays the caller's; null brings the default back. Answers the former one.
    static ZelExceptionReporter *setCurrent(ZelExceptionReporter *reporter);

    /// Does the work on behalf of the object, which may be null and may die meanwhile. Reports what is thrown, with the
    /// place of the object's element unless the exception knows its own. Answers whether the work came to its end.
    template<typename Work> static bool run(const QObject *object, Work &&work) noexcept
    {
        const ZelPlaceScope scope(object);
        const Reporting reporting;
        try {
            std::forward<Work>(work)();
            return true;
        } catch (...) {
            reportCurrent();
            return false;
        }
    }
    /// Does the same for work without an object, such as a step of undo, on behalf of the element at the place. The
    /// title, unless it is empty, is put before the message.
    template<typename Work> static bool run(const QString &title, const ZelSourcePlace &place, Work &&work) noexcept
    {
        const ZelPlaceScope scope(place);
        const Reporting reporting;
        try {
            std::forward<Work>(work)();
            return true;
        } catch (...) {
            reportCurrent(title);
            return false;
        }
    }
    /// Does the same for work that answers whether an event was handled. An event counts as handled if its work threw.
    template<typename Work> static bool runHandler(const QObject *object, Work &&work) noexcept
    {
        bool handled = true;
        run(object, [&] { handled = work(); });
        return handled;
    }
    /// Reports the exception that is being handled, with the title before its message, unless it is empty.
    static void reportCurrent(const QString &title = {}) noexcept;

    /// Does the work and throws on what it throws. An exception that is not a ZelException, such as one of an
    /// application's transformer, cannot say for whom the work was done. It is therefore logged once with the place (of
    /// the object's element, if an object is given), unless it is going to be reported anyway.
    template<typename Place, typename Work> static void passOn(const Place &place, Work &&work)
    {
        const ZelPlaceScope scope(place);
        const Passage passage;
        try {
            std::forward<Work>(work)();
        } catch (...) {
            logPassing();
            throw;
        }
    }

private:
    /// They count this thread's calls of run and of passOn that are under way.
    struct Reporting
    {
        Reporting();
        ~Reporting();
        Q_DISABLE_COPY_MOVE(Reporting)
    };
    struct Passage
    {
        Passage();
        ~Passage();
        Q_DISABLE_COPY_MOVE(Passage)
    };
    static void logPassing() noexcept;
};
