// SPDX-License-Identifier: MIT
#include "Inspector/Properties/ZelInspectorCustomProperty.h"

void ZelInspectorCustomProperty::loadView()
{
    makeEditorView();
}
