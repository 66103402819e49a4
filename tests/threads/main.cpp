// SPDX-License-Identifier: MIT
// The operations on collections that run on several threads, for the thread sanitizer. With the argument "race" a block
// has a race of its own, which the sanitizer must find: else it would find none of the library's either.
#include "Blocks/ZelBlocks.h"

#include <atomic>
#include <cstring>
#include <stdexcept>
#include <thread>

namespace {

constexpr int Count = 2000;

/// Every element is counted in a place of its own, without any lock: only the return of the operation orders these
/// writes before what the caller reads.
class Places
{
public:
    void visit(qsizetype i) { ++m_places[size_t(i)]; }
    bool areAllVisitedOnce() const { return m_places == std::vector<int>(Count, 1); }

private:
    std::vector<int> m_places = std::vector<int>(Count);
};

template<typename Collection> bool applies(const Collection &collection)
{
    Places places;
    ZelBlocks(collection).apply([&](qsizetype i) { places.visit(i); });
    return places.areAllVisitedOnce();
}

bool appliesToEntries(const QHash<int, int> &hash)
{
    Places places;
    ZelBlocks(hash).apply([&](int i, int) { places.visit(i); });
    return places.areAllVisitedOnce();
}

bool selectsEntries(const QHash<int, int> &hash)
{
    Places places;
    const auto selected = ZelBlocks(hash).select([&](int i, int) {
        places.visit(i);
        std::this_thread::sleep_for(std::chrono::microseconds(10));
        return i % 2 == 0;
    });
    return places.areAllVisitedOnce() && selected.size() == Count / 2;
}

bool worksWithinWork(const QList<int> &list)
{
    ZelBlocks(QList<int>(20)).apply([&](int) {
        std::atomic<int> sum = 0;
        ZelBlocks(list.first(100)).apply([&](int i) { sum += i; });
        if (sum != 4950)
            throw std::logic_error("sum");
    });
    return true;
}

bool passesAnExceptionOn(const QList<int> &list)
{
    try {
        ZelBlocks(list).apply([](int i) {
            if (i % 100 == 7)
                throw std::runtime_error("seven");
        });
    } catch (const std::runtime_error &error) {
        return std::strcmp(error.what(), "seven") == 0;
    }
    return false;
}

bool races(const QList<int> &list)
{
    int sum = 0;
    ZelBlocks(list).apply([&](int i) {
        sum += i;
        std::this_thread::sleep_for(std::chrono::microseconds(100)); // the others are to come in time
    });
    return sum > 0;
}

} // namespace

/// With "idle", it only shows that it can run; with "race", there is a race in it.
int main(int argc, char **argv)
{
    const auto isAsked = [=](const char *word) { return argc > 1 && std::strcmp(argv[1], word) == 0; };
    if (isAsked("idle"))
        return 0;
    QList<int> list;
    QHash<int, int> hash;
    for (int i = 0; i < Count; ++i) {
        list.append(i);
        hash.insert(i, i);
    }
    if (isAsked("race"))
        return races(list) ? 0 : 1;
    const QSet<int> set(list.cbegin(), list.cend());
    const ZelIndexSet indexes = ZelIndexSet::withRange(0, Count);
    for (int round = 0; round < 50; ++round) {
        if (!applies(list) || !applies(set) || !applies(indexes) || !appliesToEntries(hash))
            return 1;
        if (round % 10 == 0 && (!selectsEntries(hash) || !worksWithinWork(list) || !passesAnExceptionOn(list)))
            return 1;
    }
    return 0;
}
