// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

/// One thing that is done to the window, and numbers that choose its objects and values. Any part of a list of steps is
/// a list of steps: one that makes no sense at its place does nothing.
struct Step
{
    int kind = 0; ///< index into Storm::kinds()
    quint32 a = 0;
    quint32 b = 0;
    quint32 c = 0;

    QByteArray toText() const;
};
using Steps = QList<Step>;

class StepLists
{
public:
    /// The steps of a seed, without those kinds.
    static Steps generate(quint64 seed, int count, const QList<QByteArray> &left);
    /// One step a line: its name and its numbers. Lines that begin with # say nothing. Throws a std::runtime_error.
    static Steps read(const QString &file);
    static void write(const Steps &steps, FILE *file);
};
