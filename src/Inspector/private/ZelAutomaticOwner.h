// SPDX-License-Identifier: MIT
#pragma once

#include "Core/Selection/ZelObjectController.h"

/// What the key paths of a ZelAutomaticPane begin at. Its controller gets the selected objects when the boxes for them
/// are there, so that no editor meets an object that lacks its property.
class ZelAutomaticOwner : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QObject *selectionController READ selectionController CONSTANT)
public:
    QObject *selectionController() { return &controller; }

    ZelObjectController controller;
};
