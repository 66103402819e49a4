// SPDX-License-Identifier: MIT
#include "Bench.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QSaveFile>

#include <algorithm>
#include <cstdio>
#include <malloc.h>
#include <stdexcept>
#include <vector>

namespace Bench {
namespace {

struct Function
{
    QString name;
    void (*run)();
};

struct Row
{
    QString name;
    double ours; // milliseconds for a call, or bytes
    double reference;
    double ratio;
    double goal;
    bool isBytes = false;

    bool missed() const { return goal > 0 && ratio > goal; }
};

// Both are filled or used by static objects of other files, so they are made on first use.
std::vector<Function> &functions()
{
    static std::vector<Function> all;
    return all;
}

std::vector<Row> &rows()
{
    static std::vector<Row> all;
    return all;
}

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    const size_t middle = values.size() / 2;
    return values.size() % 2 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

/// Milliseconds for one call of the work's run, over one round of so many calls.
double timeRound(const Work &work, int iterations, bool trim)
{
    if (work.before)
        work.before();
    if (trim)
        malloc_trim(0);
    QElapsedTimer timer;
    timer.start();
    for (int i = 0; i < iterations; ++i)
        work.run();
    if (trim)
        malloc_trim(0);
    const double elapsed = double(timer.nsecsElapsed()) / 1e6;
    if (work.after)
        work.after();
    deleteWhatIsDue();
    return elapsed / iterations;
}

/// Also warms the caches up: every work is run at least once before it counts.
int iterationsFor(const QList<const Work *> &works, const Options &options)
{
    constexpr double shortestRound = 4.0;
    const bool usedUp = std::any_of(works.begin(), works.end(), [](auto *work) { return work->before || work->after; });
    int iterations = options.iterations;
    for (const Work *work : works) {
        double ms = timeRound(*work, 1, options.trim);
        if (options.iterations || usedUp)
            continue;
        int needed = 1;
        while (ms * needed < shortestRound && needed < 1'000'000) {
            needed = std::max(needed * 2, std::min(needed * 20, int(shortestRound / std::max(ms, 1e-6)) + 1));
            ms = timeRound(*work, needed, false);
        }
        iterations = std::max(iterations, needed);
    }
    return usedUp ? 1 : std::max(iterations, 1);
}

/// Runs rounds of all works in turn, every second time in the opposite order: times[work][round].
std::vector<std::vector<double>> timeInTurn(const QList<const Work *> &works, const QList<int> &iterations,
                                            const Options &options)
{
    std::vector<std::vector<double>> times(works.size());
    QElapsedTimer total;
    total.start();
    for (int round = 0; round < 200; ++round) {
        if (round >= options.minimumRounds && double(total.elapsed()) > options.seconds * 1000)
            break;
        for (int i = 0; i < works.size(); ++i) {
            const int which = int(round % 2 ? works.size() - 1 - i : i);
            times[which].push_back(timeRound(*works[which], iterations[which], options.trim));
        }
    }
    return times;
}

double medianRatio(const std::vector<double> &ours, const std::vector<double> &reference)
{
    std::vector<double> ratios;
    for (size_t i = 0; i < ours.size(); ++i)
        ratios.push_back(ours[i] / std::max(reference[i], 1e-9));
    return median(std::move(ratios));
}

QString readableTime(double ms)
{
    if (ms >= 1000)
        return QString::number(ms / 1000, 'f', 2) + u" s";
    if (ms >= 1)
        return QString::number(ms, 'f', 2) + u" ms";
    if (ms >= 1e-3)
        return QString::number(ms * 1e3, 'f', 2) + u" us";
    return QString::number(ms * 1e6, 'f', 1) + u" ns";
}

void print(const QString &name, const QString &ours, const QString &reference, const QString &ratio,
           const QString &goal, const QString &verdict)
{
    std::printf("%-58s %10s %10s %8s %6s  %s\n", qUtf8Printable(name), qUtf8Printable(ours), qUtf8Printable(reference),
                qUtf8Printable(ratio), qUtf8Printable(goal), qUtf8Printable(verdict));
    std::fflush(stdout);
}

void report(const Row &row)
{
    rows().push_back(row);
    const auto readable = [&row](double value) {
        return row.isBytes ? QString::number(value, 'f', 0) + u" B" : readableTime(value);
    };
    print(row.name, readable(row.ours), readable(row.reference), QString::number(row.ratio, 'f', 3),
          row.goal > 0 ? QString::number(row.goal) : QStringLiteral("-"),
          row.goal <= 0 ? QString() : QString::fromLatin1(row.missed() ? "MISSED" : "ok"));
}

bool writeRatios(const QString &path)
{
    if (!QDir().mkpath(QFileInfo(path).absolutePath()))
        return false;
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    file.write("name\tours\treference\tratio\tgoal\n");
    for (const Row &row : rows())
        file.write(QStringList{row.name, QString::number(row.ours, 'g', 6), QString::number(row.reference, 'g', 6),
                               QString::number(row.ratio, 'f', 4), QString::number(row.goal)}
                       .join(u'\t')
                       .toUtf8() +
                   '\n');
    return file.commit();
}

struct Outcome
{
    int run = 0;
    int failed = 0;
};

Outcome runFunctions(const QStringList &parts)
{
    print("", "ours", "reference", "ratio", "goal", "");
    Outcome outcome;
    for (const Function &function : functions()) {
        const bool wanted = parts.isEmpty() || std::any_of(parts.begin(), parts.end(), [&](const QString &part) {
                                return function.name.contains(part, Qt::CaseInsensitive);
                            });
        if (!wanted)
            continue;
        ++outcome.run;
        try {
            function.run();
        } catch (const std::exception &exception) {
            ++outcome.failed;
            std::printf("%s FAILED: %s\n", qUtf8Printable(function.name), exception.what());
        }
    }
    return outcome;
}

/// Everything but what the offscreen platform says of every window that is shown.
void logMessage(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    if (message != u"This plugin does not support propagateSizeHints()")
        std::fprintf(stderr, "%s\n", qUtf8Printable(qFormatLogMessage(type, context, message)));
}

} // namespace

void compare(const QString &name, double goal, const Work &ours, const Work &reference, const Options &options)
{
    const QList<const Work *> works{&ours, &reference};
    const int iterations = iterationsFor(works, options);
    const auto times = timeInTurn(works, {iterations, iterations}, options);
    report({name, median(times[0]), median(times[1]), medianRatio(times[0], times[1]), goal});
}

void scaling(const QString &name, double goal, const QList<int> &sizes, const std::function<Work(int size)> &workOfSize,
             const Options &options)
{
    expect(sizes.size() >= 2, "scaling needs two sizes or more");
    std::vector<Work> made;
    QList<const Work *> works;
    QList<int> iterations;
    for (int size : sizes)
        made.push_back(workOfSize(size));
    for (const Work &work : made) {
        works.append(&work);
        iterations.append(iterationsFor({&work}, options));
    }
    auto times = timeInTurn(works, iterations, options);
    for (size_t i = 0; i < times.size(); ++i)
        for (double &time : times[i])
            time /= sizes[qsizetype(i)];
    for (size_t i = 1; i + 1 < times.size(); ++i)
        print(QStringLiteral("  an item of %1").arg(sizes[qsizetype(i)]), readableTime(median(times[i])),
              readableTime(median(times[0])), QString::number(medianRatio(times[i], times[0]), 'f', 3), "-", "");
    report({name, median(times.back()), median(times.front()), medianRatio(times.back(), times.front()), goal});
}

void absolute(const QString &name, double goalMs, const Work &ours, const Options &options)
{
    const auto times = timeInTurn({&ours}, {iterationsFor({&ours}, options)}, options);
    const double ms = median(times[0]);
    report({name, ms, goalMs, ms / goalMs, 1});
}

void measured(const QString &name, double goalMs, const std::function<double()> &ours)
{
    double ms = ours();
    for (int i = 1; i < 5; ++i)
        ms = std::min(ms, ours());
    report({name, ms, goalMs, ms / goalMs, 1});
}

void memory(const QString &name, double goal, int count, const std::function<std::shared_ptr<void>()> &ours,
            const std::function<std::shared_ptr<void>()> &reference)
{
    const auto bytesOf = [count](const std::function<std::shared_ptr<void>()> &make) {
        make(); // what is made once for all does not count
        const size_t before = mallinfo2().uordblks;
        const std::shared_ptr<void> made = make();
        return double(mallinfo2().uordblks - before) / count;
    };
    const double oursBytes = bytesOf(ours);
    const double referenceBytes = bytesOf(reference);
    report({name, oursBytes, referenceBytes, oursBytes / referenceBytes, goal, true});
}

void deleteWhatIsDue()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void expect(bool condition, const char *text)
{
    if (!condition)
        throw std::runtime_error(text);
}

Registration::Registration(const char *name, void (*function)())
{
    functions().push_back({QString::fromLatin1(name), function});
}

} // namespace Bench

int main(int argc, char **argv)
{
    // Painting in memory: a display's own speed is not what is compared.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);

    QCommandLineParser parser;
    parser.addHelpOption();
    parser.addPositionalArgument("parts", "Run only the functions whose names contain one of these.", "[parts...]");
    parser.addOptions({{"list", "Print the functions' names."},
                       {"output", "Write the ratios to this file; without it only a full run writes them.", "file"}});
    parser.process(application);

    auto &functions = Bench::functions();
    std::sort(functions.begin(), functions.end(), [](auto &a, auto &b) { return a.name < b.name; });
    if (parser.isSet("list")) {
        for (const auto &function : functions)
            std::printf("%s\n", qUtf8Printable(function.name));
        return 0;
    }

    qInstallMessageHandler(&Bench::logMessage);
    const QStringList parts = parser.positionalArguments();
    const Bench::Outcome outcome = Bench::runFunctions(parts);
    QString output = parser.value("output");
    if (output.isEmpty() && parts.isEmpty())
        output = QStringLiteral(ZEL_BENCH_OUTPUT);
    const bool isWritten = output.isEmpty() || Bench::writeRatios(output);

    const auto &rows = Bench::rows();
    const auto goals = std::count_if(rows.begin(), rows.end(), [](auto &row) { return row.goal > 0; });
    const auto missed = std::count_if(rows.begin(), rows.end(), [](auto &row) { return row.missed(); });
    std::printf("%d of %d goals missed, %d of %d functions failed\n", int(missed), int(goals), outcome.failed,
                outcome.run);
    if (!isWritten)
        std::fprintf(stderr, "cannot write %s\n", qUtf8Printable(output));
    return missed || outcome.failed || !outcome.run || !isWritten ? 1 : 0;
}
