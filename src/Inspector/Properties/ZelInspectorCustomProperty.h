// SPDX-License-Identifier: MIT
#pragma once

#include "Inspector/Properties/ZelInspectorProperty.h"

/// The base of editors that an application writes itself. Shows nothing.
class ZelInspectorCustomProperty : public ZelInspectorProperty
{
    Q_OBJECT
public:
    using ZelInspectorProperty::ZelInspectorProperty;

    void loadView() override;
};
