// SPDX-License-Identifier: MIT
#include "Support/Figure.h"
