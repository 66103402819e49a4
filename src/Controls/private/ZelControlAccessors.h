// SPDX-License-Identifier: MIT
#pragma once

/// Registers the keys that controls answer in key-value coding and bindings ("value", "title", "hidden", "enabled",
/// "minValue", "maxValue", "increment", "image", "selectedIndex", ...), for the controls of this folder and for Qt's
/// own. It is called when any property is looked up for the first time.
void ZelRegisterControlAccessors();
