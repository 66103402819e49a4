// SPDX-License-Identifier: MIT
#include "Core/Undo/ZelUndoBurst.h"

#include <utility>

namespace {
quint64 g_lastBurst = 0;
quint64 g_currentBurst = 0;
} // namespace

ZelUndoBurst::Edit::Edit(ZelUndoBurst &burst, bool continues)
{
    if (burst.m_number == 0 || (!continues && burst.m_sinceEdit.elapsed() > pause))
        burst.m_number = ++g_lastBurst;
    burst.m_sinceEdit.start();
    m_outer = std::exchange(g_currentBurst, burst.m_number);
}

ZelUndoBurst::Edit::~Edit()
{
    g_currentBurst = m_outer;
}

quint64 ZelUndoBurst::current()
{
    return g_currentBurst;
}
