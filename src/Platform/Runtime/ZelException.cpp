// SPDX-License-Identifier: MIT
#include "Platform/Runtime/ZelException.h"

namespace {

QString withPlace(const QString &reason, const ZelSourcePlace &place)
{
    if (place.file.isEmpty())
        return reason;
    QString where = place.file;
    if (place.line > 0)
        where += QStringLiteral(":%1:%2").arg(place.line).arg(place.column);
    if (!place.element.isEmpty())
        where += QStringLiteral(", <%1>").arg(place.element);
    return QStringLiteral("%1 (%2)").arg(reason, where);
}

} // namespace

ZelException::ZelException(const QString &name, const QString &reason, const ZelSourcePlace &place)
    : m_name(name)
    , m_reason(reason)
    , m_place(place)
    , m_what(withPlace(reason, place).toUtf8())
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

ZelUndefinedKeyException::ZelUndefinedKeyException(const QString &className, const QString &key)
    : ZelException(QStringLiteral("ZelUndefinedKeyException"),
                   QStringLiteral("The class %1 has no accessible property \"%2\".").arg(className, key))
    , m_className(className)
    , m_key(key)
{
}
