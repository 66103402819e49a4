// SPDX-License-Identifier: MIT
#include "Core/Errors/ZelException.h"

ZelException::ZelException(const QString &name, const QString &reason, const ZelSourcePlace &place)
    : m_name(name)
    , m_reason(reason)
    , m_place(place.isUnknown() ? ZelPlaceScope::current() : place)
    , m_what(m_place.appendedTo(reason).toUtf8())
{
}

ZelInternalInconsistencyException::ZelInternalInconsistencyException(const QString &reason, const QString &location,
                                                                     const ZelSourcePlace &place)
    : ZelException(QStringLiteral("ZelInternalInconsistencyException"), reason, place)
    , m_location(location)
{
}

ZelGenericException::ZelGenericException(const QString &reason, const ZelSourcePlace &place)
    : ZelException(QStringLiteral("ZelGenericException"), reason, place)
{
}

ZelUndefinedKeyException::ZelUndefinedKeyException(const QString &className, const QString &key, Failure failure)
    : ZelException(QStringLiteral("ZelUndefinedKeyException"),
                   (failure == Failure::ReadOnly
                        ? QStringLiteral("The property \"%2\" of the class %1 cannot be written: it is read-only.")
                        : QStringLiteral("The class %1 has no property \"%2\"."))
                       .arg(className, key))
    , m_className(className)
    , m_key(key)
    , m_failure(failure)
{
}
