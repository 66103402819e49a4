// SPDX-License-Identifier: MIT
#pragma once

#include "Inspector/Checking/ZelDescriptionChecker.h"
#include "Inspector/Checking/ZelTypeTable.h"
#include "Inspector/Checking/private/ZelDescriptionWalk.h"
#include "Inspector/Description/private/ZelDescriptionSchema.h"

/// Looks for what an element names: classes, transformers, images, colour lists, and the types of properties. What the
/// library would say of a missing one is said here.
class ZelReferenceCheck
{
public:
    using Node = ZelDescriptionWalk::Node;

    ZelReferenceCheck(const ZelDescriptionChecker::Options &options, const ZelTypeTable &types,
                      const ZelDescriptionWalk &walk, ZelDescriptionWalk::Report report)
        : m_options(options)
        , m_types(types)
        , m_walk(walk)
        , m_report(std::move(report))
    {
    }
    void check(const Node &node) const;

private:
    using Schema = ZelDescriptionSchema;
    void checkClass(const Node &node, const QString &name) const;
    void checkTransformer(const Node &node, const QString &attribute, const QString &name) const;
    void checkImage(const Node &node, const QString &name) const;
    void checkColorList(const Node &node, const QString &name) const;
    void checkType(const Node &node) const;
    static QString transformerMeantBy(const QString &name, const QStringList &known);
    QString imageMeantBy(const QString &name, const Node &node) const;
    /// Asks whether that was meant. If there is no such thing, says how the application names its own, if it may.
    void reportMeant(const Node &node, const QString &attribute, const QString &message, const QString &meant,
                     bool mayBeOfApplication = true) const;

    const ZelDescriptionChecker::Options &m_options;
    const ZelTypeTable &m_types;
    const ZelDescriptionWalk &m_walk;
    ZelDescriptionWalk::Report m_report;
};
