// SPDX-License-Identifier: MIT
#pragma once

#include "Core/Errors/ZelException.h"
#include "Core/ZelExport.h"

#include <QAnyStringView>
#include <QString>
#include <memory>
#include <vector>

/// The elements of one XML document in document order, in flat arrays. Text, comments and instructions are not kept.
/// Made by ZelXmlReader and never changed afterwards.
struct ZEL_EXPORT ZelXmlTree
{
    struct Attribute
    {
        quint32 name; ///< index into names
        quint32 valueStart;
        quint32 valueLength;
    };
    struct Element
    {
        quint32 name; ///< index into names
        quint32 firstAttribute;
        quint32 attributeCount;
        quint32 end; ///< index behind the last element below this one
        quint32 line;
        quint32 column;
    };
    std::vector<Element> elements;
    std::vector<Attribute> attributes;
    std::vector<QString> names;
    QString values; ///< all attribute values, one after the other
    QString file;   ///< canonical path of the file; empty where none was read
};

/// One element of a document: a shared tree and a position, cheap to copy. The tree lives as long as its last element.
class ZEL_EXPORT ZelXmlElement
{
public:
    ZelXmlElement() = default;
    explicit ZelXmlElement(std::shared_ptr<const ZelXmlTree> tree, quint32 index = 0)
        : m_tree(std::move(tree))
        , m_index(index)
    {
    }

    /// Whether both are the same element of one document.
    friend bool operator==(const ZelXmlElement &, const ZelXmlElement &) = default;

    /// A null element has no name, attributes or children.
    bool isNull() const { return !m_tree; }
    /// Whether the element is the outermost one of its document.
    bool isRoot() const { return !isNull() && m_index == 0; }
    /// The outermost element of the document; null for a null one.
    ZelXmlElement root() const { return ZelXmlElement(m_tree); }
    /// The name as written, with its prefix if it has one.
    QString name() const { return isNull() ? QString() : m_tree->names[data().name]; }

    bool hasAttribute(QAnyStringView name) const { return findAttribute(name) != nullptr; }
    /// The attribute's value, which is valid as long as the tree lives. Null if there is no such attribute; an empty
    /// value is not null.
    QStringView attribute(QAnyStringView name) const;

    /// The number of elements from this one down, itself included; 0 for a null one.
    qsizetype elementCount() const { return isNull() ? 0 : data().end - m_index; }

    qsizetype attributeCount() const { return isNull() ? 0 : data().attributeCount; }
    QString attributeName(qsizetype index) const { return m_tree->names[attributeAt(index).name]; }
    QStringView attributeValue(qsizetype index) const { return valueOf(attributeAt(index)); }

    /// Calls the function with every child, in document order.
    template<typename Function> void forEachChild(Function function) const
    {
        if (isNull())
            return;
        for (quint32 i = m_index + 1; i < data().end; i = m_tree->elements[i].end)
            function(ZelXmlElement(m_tree, i));
    }

    /// Whether both are of one document, and all that is below them is the same.
    bool hasSameChildren(const ZelXmlElement &other) const;
    size_t hashOfChildren() const;

    /// The canonical path of the file; empty where none was read.
    QString file() const { return isNull() ? QString() : m_tree->file; }
    /// Where the element's tag begins.
    ZelSourcePlace place() const;

private:
    const ZelXmlTree::Element &data() const { return m_tree->elements[m_index]; }
    const ZelXmlTree::Attribute &attributeAt(qsizetype index) const
    {
        return m_tree->attributes[data().firstAttribute + size_t(index)];
    }
    bool hasSameTag(quint32 index, quint32 other) const;
    const ZelXmlTree::Attribute *findAttribute(QAnyStringView name) const;
    QStringView valueOf(const ZelXmlTree::Attribute &attribute) const
    {
        return QStringView(m_tree->values).sliced(attribute.valueStart, attribute.valueLength);
    }

    std::shared_ptr<const ZelXmlTree> m_tree;
    quint32 m_index = 0;
};
