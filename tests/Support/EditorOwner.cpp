// SPDX-License-Identifier: MIT
#include "Support/EditorOwner.h"
