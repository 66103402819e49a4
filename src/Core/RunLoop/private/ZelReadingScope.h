// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

/// Marks a time in which many ask a selection for the same values and hardly anybody writes, such as the refresh of all
/// editors before a window is painted.
///
/// While a scope exists, a selection repeats the answers that it found within it, even if it cannot hear of every
/// change: because objects change silently, or because a large selection is still being connected. Changes of which it
/// does hear count as always. Scopes are used on the stack, and are those of a thread.
class ZelReadingScope
{
public:
    ZelReadingScope()
    {
        if (s_depth++ == 0)
            ++s_serial;
    }
    ~ZelReadingScope() { --s_depth; }
    Q_DISABLE_COPY_MOVE(ZelReadingScope)

    /// The number of the outermost scope; 0 outside of all.
    static quint64 current() { return s_depth > 0 ? s_serial : 0; }

private:
    static inline thread_local quint64 s_serial = 0;
    static inline thread_local int s_depth = 0;
};
