// SPDX-License-Identifier: MIT
#pragma once

#include "Core/Errors/ZelSourcePlace.h"

#include <QExplicitlySharedDataPointer>
#include <QIcon>
#include <QList>
#include <QSharedData>

class ZelOptionGroup;

/// The options that a description gives to an enumeration, as values. Objects are made of them when somebody asks for
/// the editor's groups, which happens to few rows of a large panel. Editors may share them.
class ZelDescribedOptions : public QSharedData
{
public:
    using Ptr = QExplicitlySharedDataPointer<const ZelDescribedOptions>;
    struct Option
    {
        QString title;
        QIcon image;
        bool hidden = false;
        bool enabled = true;
        qint64 value = 0;
        QString text;
        ZelSourcePlace place;
    };
    struct Group
    {
        QString enumeratedValuesKeyPath;
        QString enumeratedDisplayValuesKeyPath;
        QList<Option> options;
    };

    QList<Group> groups;

    /// New groups, whose parent is the object.
    QList<ZelOptionGroup *> makeGroups(QObject *parent) const;
    QStringList titles() const;
    /// Whether they mean the same wherever they stand: nothing in them may have to be reported with its place.
    bool isPlaceless() const;
};
