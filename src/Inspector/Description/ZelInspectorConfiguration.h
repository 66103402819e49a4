// SPDX-License-Identifier: MIT
#pragma once

#include "Core/KeyValue/ZelSelector.h"
#include "Core/Values/ZelAbstractValueTransformer.h"
#include "Core/ZelExport.h"
#include "Inspector/Description/ZelXmlElement.h"
#include "Inspector/Description/ZelXmlReader.h"
#include "Resources/ZelColor.h"

#include <QList>
#include <QUrl>
#include <optional>

/// One element of an inspector description, with its attributes read as typed values. Cheap to copy.
///
/// Every reading operation takes the attribute's name (case matters) and the value that is answered when the element
/// has no such attribute. A text that cannot be read is an assertion that carries the element's place.
class ZEL_EXPORT ZelInspectorConfiguration
{
public:
    /// Wraps an element. A null element has no name, values or children.
    explicit ZelInspectorConfiguration(const ZelXmlElement &element = {})
        : m_element(element)
    {
    }
    /// Reads a description and wraps its root. If that is not possible, answers nothing and fills in the error. Asserts
    /// "url".
    static std::optional<ZelInspectorConfiguration> initWIthURL(const QUrl &url, ZelReadError *error = nullptr);

    /// The limits of descriptions that are read from now on.
    static ZelXmlReader::Limits limits();
    static void setLimits(const ZelXmlReader::Limits &limits);

    const ZelXmlElement &element() const { return m_element; }
    QString name() const { return m_element.name(); }
    /// Where the element's tag begins; its file is the canonical path.
    ZelSourcePlace place() const { return m_element.place(); }

    /// The child elements, or those of that name, in document order.
    QList<ZelInspectorConfiguration> configurations() const;
    QList<ZelInspectorConfiguration> configurationsNamed(QAnyStringView name) const;

    bool hasValueNamed(QAnyStringView name) const { return m_element.hasAttribute(name); }
    /// The text as it stands; an empty one is not null.
    QString stringValueNamed(QAnyStringView name, const QString &defaultValue = {}) const;
    /// The text as a key path: dot-separated names. At most maximumKeyPathLength characters and maximumKeys names; a
    /// longer one is an assertion, and gives the default.
    QString keyPathValueNamed(QAnyStringView name, const QString &defaultValue = {}) const;
    static constexpr qsizetype maximumKeyPathLength = 4096;
    static constexpr qsizetype maximumKeys = 64;
    /// The text as a key into the application's translations; the default is looked up the same way.
    QString localizedStringValueNamed(QAnyStringView name, const QString &defaultValue = {}) const;
    QString localizedStringForKey(const QString &key) const;
    /// "yes", "true" and "1" in any case are true, every other text is false.
    bool booleanValueNamed(QAnyStringView name, bool defaultValue = false) const;
    /// The same for an attribute that may also be written at the root of the file, where it holds for all of the file.
    bool booleanValueOfFileNamed(QAnyStringView name, bool defaultValue = false) const;
    /// A decimal number, read up to the first other character (none gives 0; what is too large gives the nearest
    /// number), or a hexadecimal one after "0x". Hexadecimal digits are the number's 64 bits, whatever its sign; a text
    /// that has none is an assertion, and gives the default.
    qint64 integerValueNamed(QAnyStringView name, qint64 defaultValue = 0) const;
    /// Reads the same way; a negative number gives its two's complement.
    quint64 unsignedIntegerValueNamed(QAnyStringView name, quint64 defaultValue = 0) const;
    /// A decimal number with an optional fraction and exponent; no number gives 0. Always finite.
    double doubleValueNamed(QAnyStringView name, double defaultValue = 0) const;
    ZelSelector selectorValueNamed(QAnyStringView name, const ZelSelector &defaultValue = {}) const;
    /// The registered transformer of that name; null, and an assertion, if there is none.
    ZelValueTransformerPtr valueTransformerForAttributeNamed(QAnyStringView name,
                                                             const ZelValueTransformerPtr &defaultValue = {}) const;
    /// A resource of the application's bundle; one that does not exist counts as an absent attribute.
    QUrl urlValueNamed(QAnyStringView name, const QUrl &defaultValue = {}) const;
    /// See ZelInspectorColor::colorFromString; invalid, and an assertion, for a text that is no colour.
    ZelColor colorForValueNamed(QAnyStringView name, const ZelColor &defaultValue = {}) const;

private:
    ZelXmlElement m_element;
};
