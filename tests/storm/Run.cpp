// SPDX-License-Identifier: MIT
#include "Run.h"

#include "Progress.h"
#include "Storm.h"

#include <QRegularExpression>

#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>

namespace {

constexpr int g_foundExit = 3;

[[noreturn]] void perform(const Steps &steps, int output)
{
    dup2(output, STDERR_FILENO);
    bool found = false;
    {
        Storm storm;
        found = !storm.run(steps);
    }
    if (found)
        _exit(g_foundExit);
    std::exit(Progress::shared().hasFinding() ? g_foundExit : 0);
}

/// Waits for the process, but no longer than it goes on. Answers its status; -1 where it was stuck.
int waitFor(pid_t process)
{
    const Progress &progress = Progress::shared();
    int last = -2;
    int status = 0;
    for (int idle = 0;; ++idle) {
        if (waitpid(process, &status, WNOHANG) == process)
            return status;
        if (progress.step != last) {
            last = progress.step;
            idle = 0;
        }
        if (idle > Run::patience * 500) {
            kill(process, SIGKILL);
            waitpid(process, &status, 0);
            return -1;
        }
        usleep(2000);
    }
}

QByteArray contents(FILE *file)
{
    QByteArray text;
    char buffer[4096];
    std::rewind(file);
    while (const size_t size = std::fread(buffer, 1, sizeof buffer, file))
        text.append(buffer, qsizetype(size));
    return text;
}

/// The line by which a crash is known again.
QByteArray nameOfCrash(int status, const QByteArray &output)
{
    static const QRegularExpression telling(
        QStringLiteral("^(SUMMARY: .*|.*runtime error: .*|terminate called .*|  what\\(\\): .*)$"),
        QRegularExpression::MultilineOption);
    static const QRegularExpression address(QStringLiteral("0x[0-9a-f]+"));
    QString name = WIFSIGNALED(status) ? QStringLiteral("signal %1").arg(WTERMSIG(status)) : QStringLiteral("exit");
    auto match = telling.globalMatch(QString::fromUtf8(output));
    while (match.hasNext())
        name += u", " + match.next().captured().remove(address);
    return "crash: " + name.toUtf8();
}

} // namespace

Outcome Run::of(const Steps &steps)
{
    Progress &progress = Progress::shared();
    progress.clear();
    std::FILE *output = std::tmpfile();
    std::fflush(nullptr);
    const pid_t process = fork();
    if (process == 0)
        perform(steps, fileno(output));
    const int status = waitFor(process);
    Outcome outcome;
    outcome.output = contents(output);
    std::fclose(output);
    outcome.failed = status != 0;
    outcome.step = progress.step;
    outcome.detail = progress.detail;
    outcome.checks = progress.checks;
    outcome.roundTrips = progress.roundTrips;
    outcome.faults = progress.faults;
    if (status == -1)
        outcome.what = "hang";
    else if (progress.hasFinding())
        outcome.what = progress.finding;
    else if (outcome.failed)
        outcome.what = nameOfCrash(status, outcome.output);
    return outcome;
}

Steps Run::shrink(const Steps &steps, const Outcome &outcome)
{
    Steps shortest = steps.mid(0, outcome.step + 1);
    const auto fails = [&](const Steps &part) { return Run::of(part).what == outcome.what; };
    int runs = 0;
    for (qsizetype size = shortest.size() / 2; size > 0 && runs < 600; size = size == 1 ? 0 : (size + 1) / 2) {
        bool again = true; // single steps are tried until none can be left out
        while (again) {
            again = false;
            for (qsizetype at = 0; at < shortest.size() && runs < 600;) {
                Steps part = shortest;
                part.remove(at, std::min(size, part.size() - at));
                ++runs;
                if (fails(part)) {
                    shortest = part;
                    again = size == 1;
                } else {
                    at += size;
                }
            }
        }
    }
    return shortest;
}
