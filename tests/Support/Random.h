// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

/// Numbers that are the same for a seed on every machine.
class Random
{
public:
    /// Seeds are mixed: neighbours that begin one step apart would give the same numbers, only shifted.
    explicit Random(quint64 seed)
        : m_state(mixed(seed + g_increment))
    {
    }
    quint32 next() { return quint32(mixed(m_state += g_increment) >> 16); }
    /// From 0 to below the limit.
    quint32 below(quint32 limit) { return limit ? next() % limit : 0; }

private:
    static constexpr quint64 g_increment = 0x9E3779B97F4A7C15ull;
    static quint64 mixed(quint64 z)
    {
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
        return z ^ (z >> 31);
    }

    quint64 m_state;
};
