// SPDX-License-Identifier: MIT
#include "Inspector/Description/ZelXmlElement.h"

#include <QHash>

#include <algorithm>

namespace {

/// Nearly all names are of this kind, and most differ in their lengths already.
bool isName(QStringView known, QStringView name)
{
    return known == name;
}

template<typename Text> bool isName(QStringView known, Text name)
{
    return QAnyStringView::equal(known, name);
}

} // namespace

QStringView ZelXmlElement::attribute(QAnyStringView name) const
{
    const ZelXmlTree::Attribute *attribute = findAttribute(name);
    return attribute ? valueOf(*attribute) : QStringView();
}

const ZelXmlTree::Attribute *ZelXmlElement::findAttribute(QAnyStringView name) const
{
    if (isNull())
        return nullptr;
    const auto first = m_tree->attributes.begin() + qsizetype(data().firstAttribute);
    const auto end = first + qsizetype(data().attributeCount);
    return name.visit([&](auto text) {
        const auto found = std::find_if(first, end, [&](const ZelXmlTree::Attribute &attribute) {
            return isName(m_tree->names[attribute.name], text);
        });
        return found == end ? nullptr : &*found;
    });
}

ZelSourcePlace ZelXmlElement::place() const
{
    if (isNull())
        return {};
    return {m_tree->file, data().line, data().column, name()};
}

bool ZelXmlElement::hasSameChildren(const ZelXmlElement &other) const
{
    if (m_tree != other.m_tree || elementCount() != other.elementCount())
        return false;
    for (quint32 i = 1; i < elementCount(); ++i) {
        if (!hasSameTag(m_index + i, other.m_index + i))
            return false;
    }
    return true;
}

/// Whether two elements, by their indexes, have the same name, the same attributes, and as much below them.
bool ZelXmlElement::hasSameTag(quint32 index, quint32 other) const
{
    const ZelXmlTree::Element &a = m_tree->elements[index];
    const ZelXmlTree::Element &b = m_tree->elements[other];
    const auto attributesOf = [this](const ZelXmlTree::Element &element) {
        return m_tree->attributes.begin() + qsizetype(element.firstAttribute);
    };
    return a.name == b.name && a.end - index == b.end - other && a.attributeCount == b.attributeCount &&
           std::equal(attributesOf(a), attributesOf(a) + qsizetype(a.attributeCount), attributesOf(b),
                      [this](const ZelXmlTree::Attribute &x, const ZelXmlTree::Attribute &y) {
                          return x.name == y.name && valueOf(x) == valueOf(y);
                      });
}

size_t ZelXmlElement::hashOfChildren() const
{
    size_t hash = size_t(elementCount());
    for (quint32 i = 1; i < elementCount(); ++i) {
        const ZelXmlTree::Element &element = m_tree->elements[m_index + i];
        for (quint32 j = 0; j < element.attributeCount; ++j)
            hash = qHash(valueOf(m_tree->attributes[element.firstAttribute + j]), hash);
    }
    return hash;
}
