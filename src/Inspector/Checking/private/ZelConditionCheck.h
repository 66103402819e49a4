// SPDX-License-Identifier: MIT
#pragma once

#include "Inspector/Checking/private/ZelDescriptionWalk.h"
#include "Inspector/Checking/private/ZelKeyPathResolver.h"

/// Compares conditions such as ZelEquals(3) with the types of the values that they are asked about.
class ZelConditionCheck
{
public:
    using Node = ZelDescriptionWalk::Node;
    using Report = ZelDescriptionWalk::Report;
    using Result = ZelKeyPathResolver::Result;

    ZelConditionCheck(const ZelTypeTable &types, const Report &report)
        : m_types(types)
        , m_report(report)
    {
    }
    /// The attribute is one with a key path, which leads to the result. Nothing is wrong where no condition belongs to
    /// it.
    void check(const Node &node, const QString &attribute, const Result &result) const;

private:
    void checkKeys(const Node &node, const QString &transformer, const Result &result) const;
    void checkKind(const Node &node, const QString &transformer) const;

    const ZelTypeTable &m_types;
    const Report &m_report;
};
