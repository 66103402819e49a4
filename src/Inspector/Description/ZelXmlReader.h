// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"
#include "Inspector/Description/ZelReadError.h"
#include "Inspector/Description/ZelXmlElement.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QUrl>

/// Reads small XML documents that may come from anybody.
///
/// A document is UTF-8, within the limits below, and has neither a document type declaration nor entities other than
/// the five predefined ones. Whatever is wrong with it is an error with its place, found in time proportional to its
/// size.
class ZEL_EXPORT ZelXmlReader
{
    Q_DECLARE_TR_FUNCTIONS(ZelXmlReader)

public:
    struct Limits
    {
        qint64 size = 256 * 1024; ///< bytes; at most 1 GiB
        int depth = 64;           ///< elements within each other, the root counting as one
        int attributes = 256;     ///< of one element
        int elements = 100'000;   ///< of the document, and of all that together describe an inspector
    };

    ZelXmlReader() = default;
    explicit ZelXmlReader(const Limits &limits)
        : m_limits(limits)
    {
    }

    /// The path of a local file or Qt resource; null for anything else.
    static QString pathOf(const QUrl &url);
    /// The root element of a file (a local file or a Qt resource); null on an error.
    ZelXmlElement readUrl(const QUrl &url, ZelReadError *error = nullptr) const;
    /// The root element of a document in memory; `file` is the name that places carry.
    ZelXmlElement readData(const QByteArray &data, const QString &file = {}, ZelReadError *error = nullptr) const;

private:
    Limits m_limits;
};
