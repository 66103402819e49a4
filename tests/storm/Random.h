// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

/// Numbers that are the same for a seed on every machine.
class Random
{
public:
    explicit Random(quint64 seed)
        : m_state(seed * 0x9E3779B97F4A7C15ull + 0x1234567)
    {
    }
    quint32 next()
    {
        quint64 z = (m_state += 0x9E3779B97F4A7C15ull);
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
        return quint32((z ^ (z >> 31)) >> 16);
    }
    /// From 0 to below the limit.
    quint32 below(quint32 limit) { return limit ? next() % limit : 0; }

private:
    quint64 m_state;
};
