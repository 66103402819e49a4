// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

/// Says that what is typed is being taken not because the user ended it, but because something else is happening: the
/// control loses the focus, or the selection changes. Whoever does that may be in the midst of something, such as a
/// step of undo. Scopes nest.
class ZelPassiveEdits
{
public:
    explicit ZelPassiveEdits(bool isPassive = true)
        : m_isPassive(isPassive)
    {
        s_depth += m_isPassive;
    }
    ~ZelPassiveEdits() { s_depth -= m_isPassive; }
    Q_DISABLE_COPY_MOVE(ZelPassiveEdits)

    static bool isActive() { return s_depth > 0; }

private:
    inline static int s_depth = 0; // of the main thread, as all editing
    bool m_isPassive;
};
