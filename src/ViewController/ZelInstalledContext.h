// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"

/// The address of this is a context for observations and bindings of a view or a view controller. What the view or
/// controller files on itself for this context ends when it is uninstalled, at the latest before it dies. So what
/// viewDidInstall makes needs no viewWillUninstall and no destructor.
///
///     ZelObservations(this).addObservationWithObject(model, "title", 0, block, &ZelInstalledContext);
extern ZEL_EXPORT const char ZelInstalledContext;
