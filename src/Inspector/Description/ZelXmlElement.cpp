// SPDX-License-Identifier: MIT
#include "Inspector/Description/ZelXmlElement.h"

QStringView ZelXmlElement::attribute(QAnyStringView name) const
{
    const ZelXmlTree::Attribute *attribute = findAttribute(name);
    return attribute ? valueOf(*attribute) : QStringView();
}

const ZelXmlTree::Attribute *ZelXmlElement::findAttribute(QAnyStringView name) const
{
    if (isNull())
        return nullptr;
    const ZelXmlTree::Attribute *attribute = m_tree->attributes.data() + data().firstAttribute;
    const ZelXmlTree::Attribute *end = attribute + data().attributeCount;
    for (; attribute != end; ++attribute) {
        const QString &candidate = m_tree->names[attribute->name];
        if (QAnyStringView::equal(candidate, name))
            return attribute;
    }
    return nullptr;
}

ZelSourcePlace ZelXmlElement::place() const
{
    if (isNull())
        return {};
    return {m_tree->file, data().line, data().column, name()};
}
