// SPDX-License-Identifier: MIT
#pragma once

#include "Core/Errors/ZelException.h"
#include "Core/ZelExport.h"

#include <QLoggingCategory>

/// The category of all log lines, named "zel". Lines begin "WARNING:" or "ERROR:".
Q_DECLARE_LOGGING_CATEGORY(zelLog)

/// Logs "WARNING: ", the message and a place: by default that of the thread's present work.
ZEL_EXPORT void ZelLogWarning(const QString &message, const ZelSourcePlace &place = ZelPlaceScope::current());
/// Logs "ERROR: " in the same way.
ZEL_EXPORT void ZelLogError(const QString &message, const ZelSourcePlace &place = ZelPlaceScope::current());

/// What happens when an assertion fails. The default throws ZelInternalInconsistencyException.
///
/// A handler may return. The code after a failed assertion copes with that and leaves the value concerned unset.
class ZEL_EXPORT ZelAssertionHandler
{
public:
    virtual ~ZelAssertionHandler() = default;
    virtual void handleFailure(const QString &location, const QString &message, const ZelSourcePlace &place);

    static ZelAssertionHandler *current();
    /// Installs a handler, which stays the caller's; null brings the default back. Answers the former one.
    static ZelAssertionHandler *setCurrent(ZelAssertionHandler *handler);
};

/// Reports a failed assertion at the calling source file.
ZEL_EXPORT void ZelFail(const QString &message, const ZelSourcePlace &place = {}, const char *file = __builtin_FILE());

/// Reports that a parameter does not satisfy a condition: "Invalid parameter not satisfying: " and the condition's
/// text.
ZEL_EXPORT void ZelFailParameter(const char *text, const char *file);

/// Asserts a condition on a parameter (see ZelFailParameter). Answers the condition.
inline bool ZelRequire(bool condition, const char *text, const char *file = __builtin_FILE())
{
    if (!condition)
        ZelFailParameter(text, file);
    return condition;
}

/// Asserts a condition with the caller's message. Answers the condition.
inline bool ZelCheck(bool condition, const QString &message, const char *file = __builtin_FILE())
{
    if (!condition)
        ZelFail(message, {}, file);
    return condition;
}

/// Reports an assertion that failed in a destructor: calls the handler, and logs the message if that throws a
/// std::exception. Never throws.
ZEL_EXPORT void ZelReportFailure(const QString &message, const char *file = __builtin_FILE()) noexcept;
