// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"

#include <QObject>
#include <QPointer>
#include <QString>

/// A place in a file that was being read; empty where no file is involved.
struct ZEL_EXPORT ZelSourcePlace
{
    QString file;
    qint64 line = 0;   ///< from 1; 0 is unknown
    qint64 column = 0; ///< from 1; 0 is unknown
    QString element;   ///< the name of the element concerned

    bool isEmpty() const { return file.isEmpty(); }
    /// Whether even the line is unknown. A place in a text that was in no file has only a line and a column.
    bool isUnknown() const { return file.isEmpty() && line == 0; }
    /// Answers the message, followed by "(file:line:column, <element>)" unless the place is empty.
    QString appendedTo(const QString &message) const;

    /// Files the place of the element that the object was made from; does nothing for a null object.
    static void setForObject(QObject *object, const ZelSourcePlace &place);
    /// Answers the object's place, which it knows (ZelPlaced) or which was filed. Without one it is the place of the
    /// nearest parent that has one; empty if none has.
    static ZelSourcePlace ofObject(const QObject *object);
};

/// An object that was made from an element and knows its place.
class ZEL_EXPORT ZelPlaced
{
public:
    virtual ~ZelPlaced() = default;
    /// Empty where no file is involved.
    virtual ZelSourcePlace place() const = 0;
};

/// Says on behalf of which object this thread works, so that exceptions and log lines without a place of their own name
/// the element from which the object was made. Scopes nest; the innermost that has a place is used. The object may die
/// meanwhile. A scope costs a weak pointer; a place is looked up only when something is to be reported.
class ZEL_EXPORT ZelPlaceScope
{
public:
    explicit ZelPlaceScope(const QObject *object);
    /// For an element from which nothing has been made yet.
    explicit ZelPlaceScope(const ZelSourcePlace &place);
    ~ZelPlaceScope();
    Q_DISABLE_COPY_MOVE(ZelPlaceScope)

    /// The place of this thread's present work; empty if no scope has one.
    static ZelSourcePlace current();
    /// The object of the innermost scope that was made for an object which still lives; null if there is none.
    static const QObject *currentObject();

private:
    QPointer<const QObject> m_object;
    ZelSourcePlace m_place;
    ZelPlaceScope *m_outer;
};
