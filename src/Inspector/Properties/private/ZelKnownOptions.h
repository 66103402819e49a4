// SPDX-License-Identifier: MIT
#pragma once

#include "Inspector/Description/ZelXmlElement.h"
#include "Inspector/Properties/private/ZelDescribedOptions.h"

#include <QMultiHash>

/// The options of the elements that were read so far. An enumeration that stands in many rows is read and checked once.
class ZelKnownOptions
{
public:
    /// The options of an element with the same children; null if none was added.
    ZelDescribedOptions::Ptr find(const ZelXmlElement &element) const;
    /// Options that are not placeless are not remembered.
    void add(const ZelXmlElement &element, const ZelDescribedOptions::Ptr &options);

    /// Whether an element with the same children was checked without a mistake. If not, the element's check follows.
    bool isFlawless(const ZelXmlElement &element);
    void noteMistake() { ++m_mistakes; }

private:
    struct Known
    {
        ZelXmlElement element;
        ZelDescribedOptions::Ptr options;
        bool isFlawless = false;
    };
    const Known *knownLike(const ZelXmlElement &element) const;

    QMultiHash<size_t, Known> m_options;
    ZelXmlElement m_checked;
    int m_mistakes = 0;
    int m_mistakesBefore = 0; // when the check of that element began
};
