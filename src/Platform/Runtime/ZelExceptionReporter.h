// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Runtime/ZelSourcePlace.h"

#include <utility>

/// Hears of exceptions that nobody is there to catch: those thrown while Qt's event loop, or a destructor, calls into
/// the library. An exception that went on into Qt would end the application.
///
/// What an application calls itself raises as ever. Only the outermost call from the event loop ends an exception: an
/// event, a timer, posted work, the report of a control's edit, a step of undo or redo.
class ZelExceptionReporter
{
public:
    virtual ~ZelExceptionReporter() = default;
    /// Called while the exception is being handled, so that `throw;` within a try block brings it back. The message is
    /// the exception's text, behind the name of the undo step that threw it, if one did, and without the place, which
    /// is the one of the element that it concerns where there is one.
    /// The default logs "ERROR: " with the message and the place. What a reporter throws itself is logged.
    virtual void reportException(const QString &message, const ZelSourcePlace &place);

    static ZelExceptionReporter *current();
    /// Installs a reporter, which stays the caller's; null brings the default back. Answers the former one.
    static ZelExceptionReporter *setCurrent(ZelExceptionReporter *reporter);

    /// Does the work on behalf of the object, which may be null and may die meanwhile. What is thrown is reported, with
    /// the place of the object's element unless the exception knows its own. Answers whether the work came to its end.
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
    /// The same for work that was begun elsewhere, such as a step of undo: on behalf of the element at the place, if
    /// there is one, and with the title before the message, unless it is empty.
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
    /// The same for work that answers whether an event was handled; one that threw was.
    template<typename Work> static bool runHandler(const QObject *object, Work &&work) noexcept
    {
        bool handled = true;
        run(object, [&] { handled = work(); });
        return handled;
    }
    /// Reports the exception that is being handled, with the title before its message, unless it is empty.
    static void reportCurrent(const QString &title = {}) noexcept;

    /// Does the work for a caller who gets what is thrown. An exception that cannot say for whom the work was done, as
    /// one of an application's transformer, is logged once with the place of the object's element (or with the place,
    /// if that is what is given), unless it is going to be reported.
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
    /// This thread's calls of run and of passOn.
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
