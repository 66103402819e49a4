// SPDX-License-Identifier: MIT
#pragma once

#include "Inspector/Properties/ZelInspectorProperty.h"

/// What few elements say of their editor.
struct ZelInspectorProperty::Rare
{
    QString titleKeyPath;
    QString enabledKeyPath;
    QString disabledReason;
    QString actionName;
    ZelSelector actionSelector;
    ZelValueTransformerPtr valueTransformer;
    ZelValueTransformerPtr enabledValueTransformer;
};
