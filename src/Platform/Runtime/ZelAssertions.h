// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Runtime/ZelException.h"

#include <QLoggingCategory>

/// The category of all log lines, named "zel". Lines begin "WARNING:" or "ERROR:".
Q_DECLARE_LOGGING_CATEGORY(zelLog)

/// Logs "WARNING: " with the message and its place, or that of the thread's present work.
void ZelLogWarning(const QString &message, const ZelSourcePlace &place = ZelPlaceScope::current());
/// Logs "ERROR: " in the same way.
void ZelLogError(const QString &message, const ZelSourcePlace &place = ZelPlaceScope::current());

/// What happens when an assertion fails. The default throws ZelInternalInconsistencyException.
///
/// A handler may return: the code after a failed assertion then goes on sanely, leaving the value concerned unset.
class ZelAssertionHandler
{
public:
    virtual ~ZelAssertionHandler() = default;
    virtual void handleFailure(const QString &location, const QString &message, const ZelSourcePlace &place);

    static ZelAssertionHandler *current();
    /// Installs a handler, which stays the caller's; null brings the default back. Answers the former one.
    static ZelAssertionHandler *setCurrent(ZelAssertionHandler *handler);
};

/// Reports a failed assertion at the calling source file.
void ZelFail(const QString &message, const ZelSourcePlace &place = {}, const char *file = __builtin_FILE());

/// Reports that a parameter does not satisfy a condition: "Invalid parameter not satisfying: " and the condition's
/// text.
void ZelFailParameter(const char *text, const char *file);

/// Asserts a parameter, see above. Answers the condition.
inline bool ZelRequire(bool condition, const char *text, const char *file = __builtin_FILE())
{
    if (!condition)
        ZelFailParameter(text, file);
    return condition;
}

/// Asserts with a message of the caller's. Answers the condition.
inline bool ZelCheck(bool condition, const QString &message, const char *file = __builtin_FILE())
{
    if (!condition)
        ZelFail(message, {}, file);
    return condition;
}

/// Reports a failed assertion met during destruction: handed to the handler, and logged if that throws. Never throws.
void ZelReportFailure(const QString &message, const char *file = __builtin_FILE()) noexcept;
