// SPDX-License-Identifier: MIT
#include "Support/Person.h"
