// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

/// What the process of a run tells the one that started it, in memory that both share: it is there after a crash.
class Progress
{
public:
    static Progress &shared();
    void clear();

    /// What the step that is under way does, for who reads of a failure.
    void setDetail(const QByteArray &text);
    /// Something is wrong: the run ends after the step. Only the first one counts.
    void find(const QByteArray &text);
    bool hasFinding() const { return finding[0] != 0; }

    int step = -1;
    int checks = 0;     ///< editors compared with the model
    int roundTrips = 0; ///< commands undone and redone
    int faults = 0;     ///< exceptions of the storm's own
    char detail[512] = {};
    char finding[2048] = {};
};
