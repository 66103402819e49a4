// SPDX-License-Identifier: MIT
#pragma once

#include "Inspector/Description/ZelInspectorConfiguration.h"
#include "Inspector/Description/private/ZelDescriptionSchema.h"

#include <functional>

/// Finds mistakes that do not make reading fail: unknown attributes and children, which are ignored, and texts that are
/// no value of their attribute's kind.
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

    /// Checks one element in its role (see ZelDescriptionSchema). The options of a property are checked with it; other
    /// children are not, and included files are not read.
    void check(const ZelInspectorConfiguration &element, QStringView role) const;
    /// Reports the file that the element names if it does not exist.
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
