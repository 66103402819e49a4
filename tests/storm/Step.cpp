// SPDX-License-Identifier: MIT
#include "Step.h"

#include "Storm.h"
#include "Support/Random.h"

#include <QFile>

#include <stdexcept>

QByteArray Step::toText() const
{
    return Storm::kinds().at(size_t(kind)).name + (" " + QByteArray::number(a) + " " + QByteArray::number(b)) + " " +
           QByteArray::number(c);
}

namespace {

int kindNamed(const QByteArray &name)
{
    const auto &kinds = Storm::kinds();
    for (size_t i = 0; i < kinds.size(); ++i) {
        if (name == kinds[i].name)
            return int(i);
    }
    throw std::runtime_error("no such step: " + name.toStdString());
}

/// A phase leaves out some kinds altogether, so that the others meet more often.
std::vector<int> kindsOfPhase(Random &random, bool editsOnly, const QList<QByteArray> &left)
{
    std::vector<int> result;
    const auto &kinds = Storm::kinds();
    for (size_t i = 0; i < kinds.size(); ++i) {
        const Storm::Kind &kind = kinds[i];
        if (random.below(4) == 0 || (editsOnly && !kind.isEdit) || left.contains(kind.name))
            continue;
        for (int n = 0; n < kind.weight; ++n)
            result.push_back(int(i));
    }
    return result;
}

} // namespace

Steps StepLists::generate(quint64 seed, int count, const QList<QByteArray> &left)
{
    Random random(seed);
    Steps steps;
    const auto add = [&](const char *name) {
        steps.append({kindNamed(name), random.next(), random.next(), random.next()});
    };
    while (steps.size() < count) {
        const bool editsOnly = random.below(3) == 0;
        const std::vector<int> kinds = kindsOfPhase(random, editsOnly, left);
        const qsizetype end = steps.size() + 50 + random.below(250);
        add("baseline");
        while (!kinds.empty() && steps.size() < end)
            steps.append({kinds[random.below(quint32(kinds.size()))], random.next(), random.next(), random.next()});
        add("check");
        add("roundTrip");
    }
    steps.resize(count);
    return steps;
}

Steps StepLists::read(const QString &file)
{
    QFile input(file);
    if (!input.open(QIODevice::ReadOnly))
        throw std::runtime_error("cannot read " + file.toStdString());
    Steps steps;
    while (!input.atEnd()) {
        const QList<QByteArray> words = input.readLine().simplified().split(' ');
        if (words.size() < 4 || words.first().startsWith('#'))
            continue;
        steps.append({kindNamed(words[0]), words[1].toUInt(), words[2].toUInt(), words[3].toUInt()});
    }
    return steps;
}

void StepLists::write(const Steps &steps, FILE *file)
{
    for (const Step &step : steps)
        std::fprintf(file, "%s\n", step.toText().constData());
}
