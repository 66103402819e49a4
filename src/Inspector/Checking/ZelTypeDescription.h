// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"
#include "Inspector/Checking/ZelTypeTable.h"
#include "Inspector/Description/ZelInspectorDescription.h"

/// Describes a class of which only moc's file is at hand, as ZelInspectorDescription::forMetaObject does it for one
/// that the program has. As moc writes no values of enumerations, the options of these are keys.
///
/// The description is a file to begin with: the checker finds nothing in it, since it names its classes, says which
/// editors only show their value, and which keys are announced by no signal.
class ZEL_EXPORT ZelTypeDescription
{
public:
    struct Options
    {
        ZelInspectorDescription::Options::Root root = ZelInspectorDescription::Options::Slice;
        QString keyPath; ///< of the objects below the owner; empty if the owner itself is the object
        QString owner;   ///< the class of the owner, if it is known
    };

    /// Why the class cannot be described is in `error`, which is null otherwise.
    static ZelTypeDescription ofClass(const ZelTypeTable &types, const QString &className, const Options &options);

    QString error;
    QByteArray xml;
    QStringList propertiesWithoutEditor; ///< each as "name (type)"
    /// Those whose editors write a single key, while the key path is longer: it can be edited through a controller.
    QStringList propertiesOnlyShown;
    QStringList silentProperties; ///< those in the description that no NOTIFY signal announces, "Class.name"
    QString unknownBase;          ///< a base that is not among the types; null if all are
};
