// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QString>

#include <functional>
#include <memory>
#include <type_traits>

/// Measures this library against plain Qt code that does the same by hand, and reports ratios.
///
/// Absolute times differ from machine to machine and from minute to minute; a ratio of two cases whose rounds alternate
/// within one run does not. Google Benchmark times each case to its end before it starts the next one, and has no ratio
/// of cases, so these few lines are used in its place.
///
/// A file of cases holds functions that call compare(), scaling() and absolute(), and registers each in one line:
///
///     static void readOneKey()
///     {
///         Bench::compare("read one key", 0.25, [&] { ... }, [&] { ... });
///     }
///     ZEL_BENCHMARK(readOneKey)
///
/// `zel_bench read` runs the functions whose names contain "read"; `zel_bench --list` prints the names.
namespace Bench {

/// What a round does: `run` is timed; `before` and `after` (making and deleting what a round uses up) are not.
/// A lambda alone is a run. One that takes less than a microsecond should loop inside.
struct Work
{
    std::function<void()> run;
    std::function<void()> before = {};
    std::function<void()> after = {};

    template<typename Function>
    requires std::is_invocable_v<Function &> Work(Function function)
        : run(std::move(function))
    {
    }
    Work(std::function<void()> before, std::function<void()> run, std::function<void()> after = {})
        : run(std::move(run))
        , before(std::move(before))
        , after(std::move(after))
    {
    }
};

struct Options
{
    /// Return the heap's free pages to the system within the timed part, so that no case pays for another's frees.
    /// Off for work that allocates next to nothing, where trimming would be most of the time.
    bool trim = true;
    /// Calls of `run` in a timed round; 0 takes as many as make a round of the faster side last 4 ms or more.
    /// With `before` or `after` it is always 1.
    int iterations = 0;
    /// Rounds are repeated until both are reached; never more than 200.
    int minimumRounds = 9;
    double seconds = 2.0;
};

/// For work of microseconds that allocates little.
inline constexpr Options small{.trim = false};

/// The median of the rounds' ratios ours/reference must be at most `goal`; a goal of 0 reports the ratio alone.
void compare(const QString &name, double goal, const Work &ours, const Work &reference, const Options &options = {});

/// Time for each item at the last of `sizes` against that at the first: 1 is linear growth. `workOfSize(n)` makes the
/// work for n items, once for the first and the last size; sizes between them are printed, too.
void scaling(const QString &name, double goal, const QList<int> &sizes, const std::function<Work(int size)> &workOfSize,
             const Options &options = {});

/// The median time must be at most `goalMs` milliseconds. It is reported as a ratio to that limit.
void absolute(const QString &name, double goalMs, const Work &ours, const Options &options = {});

/// The same for a time, in milliseconds, that `ours` measures itself. The lowest of five counts.
void measured(const QString &name, double goalMs, const std::function<double()> &ours);

/// What `ours` keeps on the heap must be at most `goal` of what `reference` keeps. Both make something, which is
/// deleted with the answer. The bytes are reported for one of `count` items.
void memory(const QString &name, double goal, int count, const std::function<std::shared_ptr<void>()> &ours,
            const std::function<std::shared_ptr<void>()> &reference);

/// Throws if the condition does not hold, which ends the function that was registered, and is reported as its failure:
/// a case that computes nonsense measures nothing.
void expect(bool condition, const char *text);

/// Deletes what is to be deleted later. Without an event loop around the rounds nobody else does, and Qt looks through
/// all that waits for each object that ends.
void deleteWhatIsDue();

/// Keeps the compiler from leaving out the computation of a value that nothing else uses.
template<typename Value> inline void keep(const Value &value)
{
    asm volatile("" : : "g"(&value) : "memory");
}

struct Registration
{
    Registration(const char *name, void (*function)());
};

} // namespace Bench

#define ZEL_BENCHMARK(function) static const Bench::Registration zelBenchmark_##function(#function, &function);
