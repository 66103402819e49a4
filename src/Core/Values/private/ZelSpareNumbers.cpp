// SPDX-License-Identifier: MIT
#include "Core/Values/private/ZelSpareNumbers.h"

#include <utility>

namespace {

constexpr size_t g_shortest = 4096;   // below which malloc keeps the memory
constexpr size_t g_longest = 1000000; // above which it is not kept, so that it is not missing elsewhere
constexpr size_t g_largestNumber = 2; // of kept lists: those of before and after a change

std::vector<std::vector<double>> &spares()
{
    thread_local auto *const lists = new std::vector<std::vector<double>>; // some lists outlive every static
    return *lists;
}

void giveBack(std::vector<double> *list)
{
    if (list->capacity() <= g_longest && spares().size() < g_largestNumber)
        spares().push_back(std::move(*list));
    delete list;
}

} // namespace

std::shared_ptr<std::vector<double>> ZelSpareNumbers::make(size_t count)
{
    if (count < g_shortest || count > g_longest)
        return std::make_shared<std::vector<double>>(count);
    std::vector<double> list;
    if (!spares().empty()) {
        list = std::move(spares().back());
        spares().pop_back();
    }
    list.resize(count);
    return {new std::vector<double>(std::move(list)), giveBack};
}
