// SPDX-License-Identifier: MIT
#pragma once

#include "Core/KeyValue/ZelKeyPath.h"

#include <QPointer>
#include <memory>

class ZelSelectionProxy;
class ZelValueBlock;

/// Watches how values of one type are written to all objects of a selection, each of which is read again right after it
/// was written, while it is at hand. If they have kept the values, and nothing else was heard of meanwhile, the
/// selection knows in the end what all of its objects have, and nobody has to read them all again.
class ZelColumnWatch
{
public:
    ZelColumnWatch(ZelSelectionProxy &selection, const ZelKeyPath &path);

    /// Whether the objects that are still to be written have the values that they had at the beginning, for all that
    /// was heard.
    bool hasHeardAll() const { return m_changes && *m_changes == m_expected; }
    /// An object was written that everything had been heard of, and has the value.
    void didWrite()
    {
        ++m_expected;
        ++m_count;
    }
    /// It has another value, which may be its former one.
    void didWriteOther(bool isChanged) { m_expected += isChanged ? 1 : 0; }
    /// All of the values have been written.
    void finish(ZelValueBlock &values);

private:
    QPointer<ZelSelectionProxy> m_selection;
    ZelKeyPath m_path;
    std::shared_ptr<const quint64> m_changes; // that the selection has heard of at the path; null if it does not listen
    quint64 m_expected = 0;                   // of them, one for each object that was changed
    qsizetype m_count = 0;                    // of the objects whose values are known
};
