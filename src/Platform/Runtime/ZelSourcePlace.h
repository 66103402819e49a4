// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPointer>
#include <QString>

/// A place in a file that was being read; empty where no file is involved.
struct ZelSourcePlace
{
    QString file;
    qint64 line = 0;   ///< from 1; 0 is unknown
    qint64 column = 0; ///< from 1; 0 is unknown
    QString element;   ///< the name of the element concerned

    bool isEmpty() const { return file.isEmpty(); }
    /// Whether it is not even a place in a text that was in no file.
    bool isUnknown() const { return file.isEmpty() && line == 0; }
    /// The message, followed by "(file:line:column, <element>)" where there is a place.
    QString appendedTo(const QString &message) const;

    /// Files the place of the element that the object was made from.
    static void setForObject(QObject *object, const ZelSourcePlace &place);
    /// The place that the object has (ZelPlaced, or filed) or, where it has none, the nearest of its parents; empty if
    /// no one has.
    static ZelSourcePlace ofObject(const QObject *object);
};

/// An object that was made from an element and knows its place.
class ZelPlaced
{
public:
    virtual ~ZelPlaced() = default;
    /// Empty where no file is involved.
    virtual ZelSourcePlace place() const = 0;
};

/// Says on whose behalf this thread works, so that exceptions and log lines which have no place of their own name the
/// place of the element that it was made from. Scopes nest, the innermost that has a place is used. The object may die
/// meanwhile. A scope costs a weak pointer; a place is looked up only when something is to be reported.
class ZelPlaceScope
{
public:
    explicit ZelPlaceScope(const QObject *object);
    /// For an element from which nothing has been made yet.
    explicit ZelPlaceScope(const ZelSourcePlace &place);
    ~ZelPlaceScope();
    Q_DISABLE_COPY_MOVE(ZelPlaceScope)

    /// The place of this thread's present work; empty if nobody said.
    static ZelSourcePlace current();
    /// The object of the innermost scope that is for one; null without any.
    static const QObject *currentObject();

private:
    QPointer<const QObject> m_object;
    ZelSourcePlace m_place;
    ZelPlaceScope *m_outer;
};
