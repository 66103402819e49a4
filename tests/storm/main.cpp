// SPDX-License-Identifier: MIT
// Random edits, changes, deaths and events over a window with every editor; see README.md.
#include "Run.h"
#include "Storm.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <sys/personality.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>

namespace {

/// What depends on addresses and on the seeds of hashes is to be the same in every run.
void makeRepeatable(char *argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_NO_GLIB", "1");
    if (qgetenv("QT_HASH_SEED") == "0")
        return;
    qputenv("QT_HASH_SEED", "0");
    personality(ADDR_NO_RANDOMIZE);
    execv("/proc/self/exe", argv);
}

void print(const Outcome &outcome, const Steps &steps, bool withOutput)
{
    std::printf("FOUND: %s\n  in step %d: %s\n  %s\n", outcome.what.constData(), outcome.step,
                outcome.step < 0 ? "-" : steps.at(std::min(outcome.step, int(steps.size()) - 1)).toText().constData(),
                outcome.detail.constData());
    if (withOutput)
        std::printf("%s\n", outcome.output.right(12000).constData());
}

struct Options
{
    bool quiet = false;
    bool shrinks = false;
};

/// Answers whether nothing was found.
bool run(const QByteArray &name, const Steps &steps, const Options &options)
{
    const auto begin = std::chrono::steady_clock::now();
    const Outcome outcome = Run::of(steps);
    const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - begin;
    if (!outcome.failed) {
        if (!options.quiet)
            std::printf("%s: %d steps, %d editors compared, %d commands undone and redone, %d faults, %.2f s\n",
                        name.constData(), int(steps.size()), outcome.checks, outcome.roundTrips, outcome.faults,
                        seconds.count());
        if (Storm::traces)
            std::printf("%s", outcome.output.constData());
        std::fflush(stdout);
        return true;
    }
    std::printf("%s: ", name.constData());
    print(outcome, steps, !options.quiet);
    std::fflush(stdout);
    if (options.shrinks) {
        const Steps part = Run::shrink(steps, outcome);
        std::printf("# %s, %d steps are enough:\n", name.constData(), int(part.size()));
        StepLists::write(part, stdout);
        std::fflush(stdout);
    }
    return false;
}

} // namespace

int main(int argc, char *argv[])
{
    makeRepeatable(argv);
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    QCommandLineParser parser;
    parser.addOptions({{"seed", "The first seed", "N", "1"},
                       {"seeds", "How many seeds", "K", "1"},
                       {"steps", "How many steps of each", "M", "5000"},
                       {"steps-file", "Runs the steps of a file instead", "file"},
                       {"without", "Kinds of steps that are left out", "names"},
                       {"patience", "Seconds after which a step hangs", "S", "60"},
                       {"shrink", "Looks for a short list of steps that fails in the same way"},
                       {"trace", "Says what every step does"},
                       {"quiet", "Only says what was found"}});
    if (!parser.parse(arguments)) {
        std::fprintf(stderr, "%s\n%s", qPrintable(parser.errorText()), qPrintable(parser.helpText()));
        return 2;
    }
    const Options options{parser.isSet("quiet"), parser.isSet("shrink")};
    Storm::traces = parser.isSet("trace");
    Run::patience = parser.value("patience").toInt();
    try {
        if (parser.isSet("steps-file"))
            return run("steps", StepLists::read(parser.value("steps-file")), options) ? 0 : 1;
        const QList<QByteArray> left = parser.value("without").toLatin1().split(',');
        const quint64 first = parser.value("seed").toULongLong();
        const quint64 count = parser.value("seeds").toULongLong();
        int failed = 0;
        for (quint64 seed = first; seed < first + count; ++seed) {
            const Steps steps = StepLists::generate(seed, parser.value("steps").toInt(), left);
            failed += !run("seed " + QByteArray::number(seed), steps, options);
        }
        std::printf("%d of %d seeds found something\n", failed, int(count));
        return failed > 0;
    } catch (const std::exception &exception) {
        std::fprintf(stderr, "%s\n", exception.what());
        return 2;
    }
}
