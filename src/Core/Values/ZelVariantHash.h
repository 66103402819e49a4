// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"

#include <QVariant>

/// A hash that fits ZelEqual: equal values have equal hashes, numbers of different types included. Numbers, texts,
/// bytes, dates, times, URLs, UUIDs and objects are hashed by their value, other values by their type alone.
ZEL_EXPORT size_t ZelVariantHash(const QVariant &value, size_t seed = 0);
