// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"
#include "Inspector/Properties/ZelInspectorProperty.h"

/// The base of editors that an application writes itself. Shows nothing.
class ZEL_EXPORT ZelInspectorCustomProperty : public ZelInspectorProperty
{
    Q_OBJECT
public:
    using ZelInspectorProperty::ZelInspectorProperty;

    void loadView() override;
};
