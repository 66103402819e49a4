// SPDX-License-Identifier: MIT
#pragma once

#include "Core/Selection/ZelArrayController.h"

/// What the measured inspectors have as their owner: its key "objects" is a controller of what is selected.
class SelectionOwner : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QObject *objects READ objects CONSTANT)
public:
    QObject *objects() { return &controller; }
    ZelArrayController controller;
};
