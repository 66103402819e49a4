// SPDX-License-Identifier: MIT
#pragma once

#include <QVariant>

/// A hash that fits ZelEqual: equal values have equal hashes, numbers across their types included. Values other than
/// numbers, texts, dates, times and objects only differ by their types.
size_t ZelVariantHash(const QVariant &value, size_t seed = 0);
