// SPDX-License-Identifier: MIT
#include "Inspector/Description/private/ZelDescriptionCheck.h"

#include "Core/Values/private/ZelNearestName.h"
#include "Core/Values/private/ZelNumberScanner.h"
#include "Inspector/Description/NSColor+ZelInspector.h"

#include <algorithm>
#include <cmath>
#include <limits>

using Configuration = ZelInspectorConfiguration;
using Kind = ZelDescriptionSchema::Kind;

namespace {

bool isOtherCase(QStringView name, QStringView known)
{
    return name.compare(known, Qt::CaseInsensitive) == 0;
}

/// Names with a prefix belong to XML itself or to other programs.
bool isForeign(QStringView name)
{
    return name.contains(u':') || name == u"xmlns";
}

/// Whether another role of an included file has the attribute. A file may be included in several roles, and what is of
/// no use in one of them may be read in another.
bool isOfOtherRole(QStringView name)
{
    static constexpr QStringView roles[] = {u"slice", u"section", u"chooser", u"sliver"};
    return std::ranges::any_of(
        roles, [&](QStringView role) { return ZelDescriptionSchema::element(role)->attributeNamed(name) != nullptr; });
}

QString tagOf(const Configuration &element)
{
    const QString type = element.stringValueNamed(u"type");
    return type.isNull() ? u'<' + element.name() + u'>' : QStringLiteral("<%1 type=\"%2\">").arg(element.name(), type);
}

bool isBoolean(QStringView text)
{
    static constexpr QStringView words[] = {u"yes", u"no", u"true", u"false", u"1", u"0"};
    return std::ranges::any_of(words, [&](QStringView word) { return isOtherCase(text, word); });
}

bool isBits(QStringView text)
{
    if (ZelNumberScanner::isHexadecimal(text) && !ZelNumberScanner::hexadecimal(text))
        return true; // reading it is an assertion, which needs no warning
    bool isRead = false;
    [[maybe_unused]] const quint64 bits =
        ZelNumberScanner::isHexadecimal(text) ? text.toULongLong(&isRead, 16) : quint64(text.toLongLong(&isRead));
    return isRead;
}

std::optional<double> numberIn(QStringView text)
{
    bool isRead = false;
    const double number = text.toDouble(&isRead);
    return isRead && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

bool hasEmptyName(QStringView keyPath)
{
    return keyPath.startsWith(u'.') || keyPath.endsWith(u'.') || keyPath.contains(u"..");
}

/// Says what is wrong with the text as a value of that kind; null if nothing is wrong.
QString mistakeIn(QStringView text, Kind kind)
{
    switch (kind) {
    case Kind::Text:
    case Kind::File:
        return {};
    case Kind::KeyPath:
        return hasEmptyName(text) ? QStringLiteral("has an empty name in its path") : QString();
    case Kind::Boolean:
        return isBoolean(text) ? QString() : QStringLiteral("is neither yes nor no");
    case Kind::Bits:
        return isBits(text) ? QString() : QStringLiteral("is no integer of 64 bits");
    case Kind::Increment:
    case Kind::Number:
        if (const std::optional<double> number = numberIn(text); !number)
            return QStringLiteral("is no number");
        else if (kind == Kind::Increment && *number <= 0)
            return QStringLiteral("is not above 0");
        return {};
    case Kind::Color:
        return ZelInspectorColor::mistakeInComponents(text);
    }
    return {};
}

} // namespace

void ZelDescriptionCheck::check(const Configuration &element, QStringView role) const
{
    const Schema::Element *schema = Schema::element(role, element.element().attribute(u"type"));
    if (!schema)
        return;
    const bool isOpen = m_isOpen || schema->isOpen;
    checkAttributes(element, *schema, isOpen);
    if (!isOpen && !schema->failsOnOtherChildren)
        checkChildren(element, *schema);
    if (schema->type == u"number")
        checkRange(element);
    else if (schema->type == u"enumeration")
        checkOptions(element);
}

void ZelDescriptionCheck::checkAttributes(const Configuration &element, const Schema::Element &schema,
                                          bool isOpen) const
{
    const ZelXmlElement &xml = element.element();
    for (qsizetype i = 0; i < xml.attributeCount(); ++i) {
        const QString name = xml.attributeName(i);
        const Schema::Attribute *known = schema.attributeNamed(name);
        if (!known && xml.isRoot())
            known = Schema::attributeOfFileNamed(name);
        if (known) {
            if (known->kind == Kind::File)
                checkFile(element);
            else if (const QString mistake = mistakeIn(xml.attributeValue(i), known->kind); !mistake.isNull())
                m_report(QStringLiteral("%1=\"%2\" %3").arg(name, xml.attributeValue(i), mistake), element.place());
            continue;
        }
        if (isForeign(name) || (element.name() != schema.role && isOfOtherRole(name)))
            continue;
        ZelNearestName nearest(name);
        for (std::span<const Schema::Attribute> group : schema.attributes) {
            for (const Schema::Attribute &attribute : group)
                nearest.offer(attribute.name);
        }
        if (!isOpen || nearest.differsInCaseOnly())
            m_report(QStringLiteral("Unknown attribute \"%1\" of %2%3").arg(name, tagOf(element), nearest.question()),
                     element.place());
    }
}

void ZelDescriptionCheck::checkFile(const Configuration &element) const
{
    const QString name = element.stringValueNamed(u"file");
    if (!name.isEmpty() && element.urlValueNamed(u"file").isEmpty())
        m_report(QStringLiteral("file=\"%1\" is no resource of the application").arg(name), element.place());
}

void ZelDescriptionCheck::checkChildren(const Configuration &element, const Schema::Element &schema) const
{
    element.element().forEachChild([&](const ZelXmlElement &child) {
        const QString name = child.name();
        if (isForeign(name) || std::ranges::find(schema.children, name) != schema.children.end())
            return;
        ZelNearestName nearest(name);
        for (QStringView known : schema.children)
            nearest.offer(known);
        m_report(QStringLiteral("Unknown element <%1> in %2%3").arg(name, tagOf(element), nearest.question()),
                 child.place());
    });
}

void ZelDescriptionCheck::checkRange(const Configuration &element) const
{
    if (element.hasValueNamed(u"minimumKeyPath") || element.hasValueNamed(u"maximumKeyPath"))
        return;
    const double minimum = element.doubleValueNamed(u"minimum", 0);
    const double maximum = element.doubleValueNamed(u"maximum", double(std::numeric_limits<float>::max()));
    if (minimum > maximum)
        m_report(QStringLiteral("The minimum %1 is above the maximum %2").arg(minimum).arg(maximum), element.place());
}

void ZelDescriptionCheck::checkOptions(const Configuration &property) const
{
    const QString mask = property.stringValueNamed(u"bitMask");
    const bool isMasked = !mask.isNull() && ZelNumberScanner::isInteger(mask) && isBits(mask);
    const quint64 bits = isMasked ? property.unsignedIntegerValueNamed(u"bitMask") : ~quint64(0);
    for (const Configuration &group : property.configurationsNamed(u"option-group")) {
        check(group, u"option-group");
        for (const Configuration &option : group.configurationsNamed(u"option")) {
            check(option, u"option");
            checkOptionValue(option, bits);
        }
    }
}

void ZelDescriptionCheck::checkOptionValue(const Configuration &option, quint64 bitMask) const
{
    const QString text = option.stringValueNamed(u"value");
    if (!ZelNumberScanner::isInteger(text))
        return; // whether the model takes a text depends on its class
    if (!isBits(text))
        m_report(QStringLiteral("value=\"%1\" is no integer of 64 bits").arg(text), option.place());
    else if ((option.unsignedIntegerValueNamed(u"value") & ~bitMask) != 0)
        m_report(
            QStringLiteral("value=\"%1\" has bits outside of the bitMask 0x%2").arg(text, QString::number(bitMask, 16)),
            option.place());
}
