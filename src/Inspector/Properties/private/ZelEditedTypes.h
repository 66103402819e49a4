// SPDX-License-Identifier: MIT
#pragma once

#include <QMetaType>

/// Which types of properties an editor of values of one type can show and change.
class ZelEditedTypes
{
public:
    /// An editor of an invalid type edits all. Numbers, enumerations and texts are edited by editors of either; points,
    /// sizes and the like by those of as many numbers; any other type if it can be converted there and back.
    static bool contains(QMetaType editorType, QMetaType type);
};
