// SPDX-License-Identifier: MIT
#include "Core/Selection/private/ZelColumnWatch.h"

#include "Core/Selection/ZelValueBlock.h"
#include "Core/Selection/private/ZelSelectionProxy.h"

ZelColumnWatch::ZelColumnWatch(ZelSelectionProxy &selection, const ZelKeyPath &path)
    : m_selection(&selection)
    , m_path(path)
    , m_changes(selection.changesAt(path))
    , m_expected(m_changes ? *m_changes : 0)
{
}

void ZelColumnWatch::finish(ZelValueBlock &values)
{
    if (m_selection && hasHeardAll() && m_count == values.size())
        m_selection->noteColumn(m_path, values.share());
}
