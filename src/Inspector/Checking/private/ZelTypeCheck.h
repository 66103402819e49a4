// SPDX-License-Identifier: MIT
#pragma once

#include "Inspector/Checking/private/ZelDescriptionWalk.h"
#include "Inspector/Checking/private/ZelKeyPathResolver.h"
#include "Inspector/Description/private/ZelDescriptionSchema.h"

/// Compares the key paths and selectors of an element with the application's classes.
class ZelTypeCheck
{
public:
    using Node = ZelDescriptionWalk::Node;
    using Report = ZelDescriptionWalk::Report;

    /// Without types, only what needs none is checked.
    ZelTypeCheck(const ZelTypeTable &types, bool hasTypes, const ZelTypeScope &scope, Report report)
        : m_types(types)
        , m_hasTypes(hasTypes)
        , m_scope(scope)
        , m_report(std::move(report))
    {
    }
    void check(const Node &node);

private:
    using Result = ZelKeyPathResolver::Result;
    using Schema = ZelDescriptionSchema;
    ZelTypeScope scopeOf(const Node &node);
    bool checkScope(const Node &node, const ZelTypeScope &scope);
    void checkKeyPath(const Node &node, const QString &attribute, const ZelTypeScope &scope);
    void checkEdited(const Node &node, const Result &result);
    void checkSingleKey(const Node &node);
    void checkWritable(const Node &node, const Result &result);
    void checkChoices(const Node &node, const Result &result);
    void checkFitting(const Node &node, const QString &type, const Result &result);
    void checkKeysLeftOut(const Node &node, const Result &result);
    void checkKeysToOffer(const Node &node, const Result &result);
    void checkDefault(const Node &node, const Result &result);
    void checkNames(const Node &node);
    void checkSelector(const Node &node, const ZelTypeScope &scope);
    void report(const Node &node, const QString &attribute, const QString &message, const QString &suggestion = {},
                ZelDescriptionMistake::Severity severity = ZelDescriptionMistake::Error);

    const ZelTypeTable &m_types;
    bool m_hasTypes;
    ZelTypeScope m_scope;
    Report m_report;
};
