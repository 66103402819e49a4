// SPDX-License-Identifier: MIT
#pragma once

#include "Core/Errors/ZelSourcePlace.h"
#include "Core/ZelExport.h"

#include <exception>

/// The base of every exception that the library throws.
class ZEL_EXPORT ZelException : public std::exception
{
public:
    /// An unknown place is replaced by that of the thread's present work (ZelPlaceScope).
    ZelException(const QString &name, const QString &reason, const ZelSourcePlace &place = {});

    /// The kind of the exception, such as "ZelInternalInconsistencyException".
    const QString &name() const { return m_name; }
    /// The message, without the place.
    const QString &reason() const { return m_reason; }
    const ZelSourcePlace &place() const { return m_place; }
    /// The reason, followed by the place if there is one, as UTF-8.
    const char *what() const noexcept override { return m_what.constData(); }

private:
    QString m_name;
    QString m_reason;
    ZelSourcePlace m_place;
    QByteArray m_what;
};

/// A failed assertion, and a value of the wrong class given to a transformer.
class ZEL_EXPORT ZelInternalInconsistencyException : public ZelException
{
public:
    explicit ZelInternalInconsistencyException(const QString &reason, const QString &location = {},
                                               const ZelSourcePlace &place = {});

    /// The source that asserted: its path below src/ without its ending.
    const QString &location() const { return m_location; }

private:
    QString m_location;
};

/// A failure that is not a programming error, such as a file that cannot be read.
class ZEL_EXPORT ZelGenericException : public ZelException
{
public:
    explicit ZelGenericException(const QString &reason, const ZelSourcePlace &place = {});
};

/// A key that the object does not have, or that cannot be written.
class ZEL_EXPORT ZelUndefinedKeyException : public ZelException
{
public:
    enum class Failure : quint8 { Missing, ReadOnly };
    ZelUndefinedKeyException(const QString &className, const QString &key, Failure failure = Failure::Missing);

    const QString &className() const { return m_className; }
    const QString &key() const { return m_key; }
    Failure failure() const { return m_failure; }

private:
    QString m_className;
    QString m_key;
    Failure m_failure;
};
