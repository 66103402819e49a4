// SPDX-License-Identifier: MIT
#pragma once

/// Stores a value, and answers whether it differs from the one that was stored. For setters:
///
///     if (ZelAssign(m_title, title))
///         Q_EMIT titleChanged();
template<typename Stored, typename Value> [[nodiscard]] bool ZelAssign(Stored &stored, const Value &value)
{
    if (stored == value)
        return false;
    stored = value;
    return true;
}
