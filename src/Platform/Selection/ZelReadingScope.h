// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

/// A stretch of time in which many ask a selection for the same values and hardly anybody writes, such as the refresh
/// of all editors before a window is painted.
///
/// While one exists, a selection answers again what it found out within it, also where it cannot hear of every change:
/// where objects change silently, and while a large selection is still being connected. What it does hear of counts as
/// ever. To be used on the stack, on the main thread.
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
    static inline quint64 s_serial = 0;
    static inline int s_depth = 0;
};
