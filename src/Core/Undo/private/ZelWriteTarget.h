// SPDX-License-Identifier: MIT
#pragma once

#include "Core/KeyValue/ZelKeyPath.h"
#include "Core/Selection/private/ZelSelectionProxy.h"

#include <QObject>
#include <QPointer>
#include <QVariant>
#include <vector>

/// Where a write at a path really stores: some objects, the path below them, and their values before.
struct ZelWriteTarget
{
    QList<QPointer<QObject>> objects;
    ZelKeyPath path;
    QVariantList oldValues;
    QList<QPointer<QObject>> objectsOfEachClass; ///< one or more of each
    QPointer<ZelSelectionProxy> selection;       ///< whose objects they are; null if they are not those of one

    /// Finds the targets of a write. Where the path goes on below a selection, each selected object leads to a target
    /// of its own. An absent object on the way is no target, since nothing is stored behind it.
    static std::vector<ZelWriteTarget> resolve(QObject *root, const ZelKeyPath &path);

    /// Takes the values of the living objects that have the path; the others leave the list.
    void readOldValues();
};
