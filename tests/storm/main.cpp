// SPDX-License-Identifier: MIT
// Random edits, changes, deaths and events over a window with every editor; see README.md.
#include "Storm.h"
#include "Support/Random.h"
#include <chrono>
#include <csignal>
#include <cstdio>
#include <sys/personality.h>
#include <sys/wait.h>
#include <unistd.h>

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

/// The steps of a seed, without those kinds.
Steps generate(const Storm &storm, quint64 seed, int count, const QList<QByteArray> &left)
{
    Random random(seed);
    Steps steps;
    const auto add = [&](const QByteArray &kind) { steps.append({kind, random.next(), random.next(), random.next()}); };
    while (steps.size() < count) {
        // A phase leaves out some kinds altogether, so that the others meet more often.
        const bool editsOnly = random.below(3) == 0;
        QList<QByteArray> kinds;
        for (const Storm::Kind &kind : storm.kinds()) {
            if (random.below(4) != 0 && (!editsOnly || kind.effect == Storm::Edit) && !left.contains(kind.name))
                kinds += QList<QByteArray>(kind.weight, kind.name);
        }
        const qsizetype end = steps.size() + 50 + random.below(250);
        add("baseline");
        while (!kinds.empty() && steps.size() < end)
            add(kinds[random.below(quint32(kinds.size()))]);
        add("check");
        add("roundTrip");
    }
    steps.resize(count);
    return steps;
}

/// How the steps of a run ended.
struct Outcome : Progress
{
    QByteArray what;   ///< what was found, if anything
    QByteArray output; ///< what the process wrote
};

constexpr int g_patience = 60; // seconds without any progress after which a run counts as hanging

/// Waits for the process, but no longer than it goes on. Answers its status; -1 where it was stuck.
int waitFor(pid_t process)
{
    int last = -2;
    int status = 0;
    for (int idle = 0; waitpid(process, &status, WNOHANG) != process; ++idle) {
        if (last != Progress::shared().step)
            idle = 0;
        last = Progress::shared().step;
        if (idle > g_patience * 500) {
            kill(process, SIGKILL);
            waitpid(process, &status, 0);
            return -1;
        }
        usleep(2000);
    }
    return status;
}

/// Performs the steps in a process of its own.
Outcome perform(Storm &storm, const Steps &steps)
{
    Progress::shared() = {};
    const std::unique_ptr<std::FILE, int (*)(std::FILE *)> output(std::tmpfile(), std::fclose);
    std::fflush(nullptr);
    const pid_t process = fork();
    if (process == 0) {
        dup2(fileno(output.get()), STDERR_FILENO);
        storm.run(steps);
        if (Progress::shared().finding[0])
            _exit(1);
        std::exit(0);
    }
    const int status = waitFor(process);
    Outcome outcome{Progress::shared(), {}, {}};
    QFile written;
    if (written.open(output.get(), QIODevice::ReadOnly) && written.seek(0))
        outcome.output = written.readAll();
    if (status == -1)
        outcome.what = "hang";
    else if (outcome.finding[0])
        outcome.what = outcome.finding;
    else if (status != 0)
        outcome.what =
            WIFSIGNALED(status) ? QByteArray("signal ").append(QByteArray::number(WTERMSIG(status))) : "exit";
    return outcome;
}

/// Answers whether nothing was found.
bool run(Storm &storm, const QByteArray &name, const Steps &steps)
{
    const auto begin = std::chrono::steady_clock::now();
    const Outcome outcome = perform(storm, steps);
    const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - begin;
    if (outcome.what.isEmpty())
        std::printf("%s: %d steps, %d editors compared, %d commands undone and redone, %d faults, %.2f s\n%s",
                    name.constData(), int(steps.size()), outcome.checks, outcome.roundTrips, outcome.faults,
                    seconds.count(), storm.traces ? outcome.output.constData() : "");
    else
        std::printf("%s: FOUND: %s\n  in step %d: %s\n  %s\n%s\n", name.constData(), outcome.what.constData(),
                    outcome.step, steps.value(outcome.step, {"none"}).toText().constData(), outcome.detail,
                    outcome.output.right(12000).constData());
    std::fflush(stdout);
    return outcome.what.isEmpty();
}
} // namespace

int main(int argc, char *argv[])
{
    makeRepeatable(argv);
    QCommandLineParser parser;
    parser.addOptions({{"seed", "The first seed", "N", "1"},
                       {"seeds", "How many seeds", "K", "1"},
                       {"steps", "How many steps of each", "M", "5000"},
                       {"without", "Kinds of steps that are left out", "names"},
                       {"trace", "Says what every step does"}});
    if (!parser.parse({argv, argv + argc})) {
        std::fprintf(stderr, "%s\n%s", qPrintable(parser.errorText()), qPrintable(parser.helpText()));
        return 2;
    }
    Storm storm;
    storm.traces = parser.isSet("trace");
    try {
        const QList<QByteArray> left = parser.value("without").toLatin1().split(',');
        const quint64 first = parser.value("seed").toULongLong();
        const quint64 count = parser.value("seeds").toULongLong();
        int failed = 0;
        for (quint64 seed = first; seed < first + count; ++seed) {
            const Steps steps = generate(storm, seed, parser.value("steps").toInt(), left);
            failed += !run(storm, "seed " + QByteArray::number(seed), steps);
        }
        std::printf("%d of %d seeds found something\n", failed, int(count));
        return failed > 0;
    } catch (const std::exception &exception) {
        std::fprintf(stderr, "%s\n", exception.what());
        return 2;
    }
}
