// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <vector>

/// Makes long lists of numbers, of which each step of a drag needs some. When such a list is freed, its memory goes
/// back to the system, and getting it again page by page takes a tenth of a step; so the last few lists are kept for
/// the next ones.
class ZelSpareNumbers
{
public:
    /// Answers a list of so many numbers, which may be any.
    static std::shared_ptr<std::vector<double>> make(size_t count);
};
