// SPDX-License-Identifier: MIT
#pragma once

#include "Inspector/Description/ZelDescriptionMistake.h"
#include "Inspector/Description/ZelInspectorConfiguration.h"
#include "Inspector/Description/private/ZelDescriptionSchema.h"

#include <functional>

/// Finds mistakes in one element that need no more than the element to be seen. Those that do not make reading fail
/// are found always: unknown attributes and children, which are ignored, and texts that are no value of their
/// attribute's kind. A thorough check also finds what reading the element would refuse, in the same words.
class ZelDescriptionCheck
{
public:
    using Configuration = ZelInspectorConfiguration;
    /// The place of a mistake is its element's.
    using Report = std::function<void(const ZelDescriptionMistake &mistake)>;
    struct Options
    {
        /// In an open description an application may have attributes and children of its own in every element.
        bool isOpen = false;
        bool isThorough = false;
        /// The file that an element names, in place of the application's resources; empty if it does not exist.
        std::function<QUrl(const Configuration &element)> findFile = {};
        /// Whether the options of a property are known to have no mistake, so that they are not checked again.
        std::function<bool(const Configuration &property)> hasFlawlessOptions = {};
        /// The names of files that might have been meant by one that does not exist.
        std::function<QStringList(const Configuration &element)> fileNames = {};
    };

    ZelDescriptionCheck(Report report, Options options)
        : m_report(std::move(report))
        , m_options(std::move(options))
    {
    }

    /// Checks one element in its role (see ZelDescriptionSchema). The options of a property are checked with it; other
    /// children are not, and included files are not read.
    void check(const Configuration &element, QStringView role) const;
    /// Reports the file that the element names if it does not exist.
    void checkFile(const Configuration &element) const;

    /// What is said of an editor that stores a single key but has a longer path below the selection.
    static QString longKeyPathMessage(const QString &stored);
    /// What of a key path is stored in each selected object, or in the owner: all, or what follows the last selection.
    static QString storedKeyPath(const QString &keyPath);

private:
    using Schema = ZelDescriptionSchema;
    void report(const Configuration &element, const QString &attribute, const QString &message,
                const QString &suggestion = {}) const;
    void checkAttributes(const Configuration &element, const Schema::Element &schema, bool isOpen) const;
    void checkValue(const Configuration &element, const Schema::Attribute &known, QStringView text) const;
    void checkChildren(const Configuration &element, const Schema::Element &schema) const;
    void checkRequired(const Configuration &element, const Schema::Element &schema) const;
    void checkDefault(const Configuration &element, const Schema::Element &schema) const;
    QString fileMeantBy(const QString &name, const Configuration &element) const;
    void checkRange(const Configuration &element) const;
    void checkOptions(const Configuration &property) const;
    void checkOptionValue(const Configuration &option, quint64 bitMask) const;
    void checkValues(const QList<Configuration> &groups, QStringView name) const;

    Report m_report;
    Options m_options;
};
