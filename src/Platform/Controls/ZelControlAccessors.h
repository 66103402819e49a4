// SPDX-License-Identifier: MIT
#pragma once

/// Registers the keys that controls answer in key-value coding and bindings ("value", "title", "hidden", "enabled",
/// "minValue", "maxValue", "increment", "image", "selectedIndex", ...), for the controls of this folder and for Qt's
/// own. The first call registers, further ones do nothing. Every control of this folder calls it.
void ZelRegisterControlAccessors();
