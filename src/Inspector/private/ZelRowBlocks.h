// SPDX-License-Identifier: MIT
#pragma once

#include "Inspector/private/ZelRowBlock.h"

#include <vector>

class ZelInspectorSection;

/// The rows of a section in a panel of very many rows, divided into blocks.
class ZelRowBlocks
{
public:
    /// Whether the panel is high enough, which is about three screens.
    static bool isWorthwhile(const ZelInspectorSection *section);
    /// Sets another limit for panels that are made from now on, in rows; 0 for the usual one. It is meant for tests.
    static void setMostRowsAtOnce(int rows);

    /// The blocks for these rows. Those whose rows have not changed at the beginning and at the end stay.
    QList<QWidget *> arrange(const ZelRowBlock::Rows &rows);
    /// Deletes blocks that are not used any more, after they were taken out of the section.
    void release();

private:
    std::vector<QPointer<ZelRowBlock>> m_blocks;
};
