// SPDX-License-Identifier: MIT
#pragma once

#include "Inspector/ZelDescriptionSchema.h"
#include "Inspector/ZelInspectorConfiguration.h"

#include <functional>

/// Finds what is read otherwise than its author may have meant, and is no failure: unknown attributes and children,
/// which are ignored, and texts that stand for no value of their attribute's kind.
class ZelDescriptionCheck
{
public:
    using Report = std::function<void(const QString &message, const ZelSourcePlace &place)>;

    /// In an open description an application may have attributes and children of its own in every element.
    ZelDescriptionCheck(Report report, bool isOpen)
        : m_report(std::move(report))
        , m_isOpen(isOpen)
    {
    }

    /// Reports one element in its role, which ZelDescriptionSchema knows; with a property the options in it, but no
    /// other children. Nothing is read from included files.
    void check(const ZelInspectorConfiguration &element, QStringView role) const;
    /// Reports a file that is named and does not exist.
    void checkFile(const ZelInspectorConfiguration &element) const;

private:
    using Schema = ZelDescriptionSchema;
    void checkAttributes(const ZelInspectorConfiguration &element, const Schema::Element &schema, bool isOpen) const;
    void checkChildren(const ZelInspectorConfiguration &element, const Schema::Element &schema) const;
    void checkRange(const ZelInspectorConfiguration &element) const;
    void checkOptions(const ZelInspectorConfiguration &property) const;
    void checkOptionValue(const ZelInspectorConfiguration &option, quint64 bitMask) const;

    Report m_report;
    bool m_isOpen;
};
