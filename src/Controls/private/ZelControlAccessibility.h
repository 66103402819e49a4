// SPDX-License-Identifier: MIT
#pragma once

/// Lets assistive technology see the controls of this folder for what they are: static text, a slider, a pop-up button
/// with its choice, ... Call it once (see ZelControlSupport::prepare).
void ZelRegisterControlAccessibility();
