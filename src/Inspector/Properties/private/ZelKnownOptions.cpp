// SPDX-License-Identifier: MIT
#include "Inspector/Properties/private/ZelKnownOptions.h"

const ZelKnownOptions::Known *ZelKnownOptions::knownLike(const ZelXmlElement &element) const
{
    const auto [begin, end] = m_options.equal_range(element.hashOfChildren());
    for (auto known = begin; known != end; ++known) {
        if (known->element.hasSameChildren(element))
            return &*known;
    }
    return nullptr;
}

ZelDescribedOptions::Ptr ZelKnownOptions::find(const ZelXmlElement &element) const
{
    const Known *known = knownLike(element);
    return known ? known->options : ZelDescribedOptions::Ptr();
}

void ZelKnownOptions::add(const ZelXmlElement &element, const ZelDescribedOptions::Ptr &options)
{
    const bool isFlawless = m_checked == element && m_mistakes == m_mistakesBefore;
    if (options->isPlaceless())
        m_options.insert(element.hashOfChildren(), {element, options, isFlawless});
}

bool ZelKnownOptions::isFlawless(const ZelXmlElement &element)
{
    const Known *known = knownLike(element);
    if (known && known->isFlawless)
        return true;
    m_checked = element;
    m_mistakesBefore = m_mistakes;
    return false;
}
