// SPDX-License-Identifier: MIT
#include "Inspector/Description/private/ZelDescriptionCheck.h"

#include "Core/Values/private/ZelNearestName.h"
#include "Core/Values/private/ZelNumberScanner.h"
#include "Inspector/Description/NSColor+ZelInspector.h"
#include "Inspector/Description/private/ZelDescriptionHints.h"
#include "Inspector/Description/private/ZelUselessParts.h"

#include <QColor>
#include <QDateTime>
#include <QFileInfo>
#include <QHash>
#include <QSet>
#include <algorithm>
#include <cmath>
#include <limits>

using Configuration = ZelInspectorConfiguration;
using Schema = ZelDescriptionSchema;
using Kind = ZelDescriptionSchema::Kind;

namespace {

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
    return std::ranges::any_of(words, [&](QStringView word) { return text.compare(word, Qt::CaseInsensitive) == 0; });
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
    default:
        return {};
    }
}

/// Reads the attribute as the library does, and answers what that says of a text which it refuses; null if it does not.
QString refusalOf(const Configuration &element, const QString &name, Kind kind)
{
    try {
        if (kind == Kind::KeyPath)
            (void)element.keyPathValueNamed(name);
        else if (kind == Kind::Bits)
            (void)element.integerValueNamed(name);
        else if (kind == Kind::Color)
            (void)element.colorForValueNamed(name);
    } catch (const ZelInternalInconsistencyException &refusal) {
        return refusal.reason();
    }
    return {};
}

bool isOneOf(QStringView text, const Schema::Words &words)
{
    const Qt::CaseSensitivity sensitivity = words.isAnyCase ? Qt::CaseInsensitive : Qt::CaseSensitive;
    return std::ranges::any_of(words.words, [&](QStringView word) { return text.compare(word, sensitivity) == 0; });
}

QStringList namesOf(const Schema::Element &schema)
{
    QStringList names;
    for (std::span<const Schema::Attribute> group : schema.attributes) {
        for (const Schema::Attribute &attribute : group)
            names.append(attribute.name.toString());
    }
    return names;
}

QStringList textsOf(std::span<const QStringView> words)
{
    QStringList texts;
    for (QStringView word : words) {
        if (!word.isNull())
            texts.append(word.toString());
    }
    return texts;
}

/// What was meant by the name; null if that cannot be told.
QString meantBy(const QString &name, const QStringList &known)
{
    ZelNearestName nearest(name);
    nearest.offerAll(known);
    return nearest.found().isNull() ? ZelDescriptionHints::synonym(name, known) : nearest.found();
}

/// Whether an unknown attribute is probably that one: what is said of it is enough then.
bool hasAttributeMeaning(QStringView wanted, const Configuration &element, const Schema::Element &schema)
{
    const ZelXmlElement &xml = element.element();
    for (qsizetype i = 0; i < xml.attributeCount(); ++i) {
        const QString name = xml.attributeName(i);
        if (!schema.attributeNamed(name) && !isForeign(name) && meantBy(name, namesOf(schema)) == wanted)
            return true;
    }
    return false;
}

} // namespace

void ZelDescriptionCheck::check(const Configuration &element, QStringView role) const
{
    const Schema::Element *schema = Schema::element(role, element.element().attribute(u"type"));
    if (!schema)
        return;
    const bool isOpen = m_options.isOpen || schema->isOpen;
    checkAttributes(element, *schema, isOpen);
    if (schema->failsOnOtherChildren ? m_options.isThorough : !isOpen)
        checkChildren(element, *schema);
    if (m_options.isThorough) {
        checkRequired(element, *schema);
        checkDefault(element, *schema);
    }
    if (schema->type == u"number")
        checkRange(element);
    else if (schema->type == u"enumeration" || schema->type == u"flags")
        checkOptions(element);
    else if (role == u"chooser")
        checkValues({element}, u"choice");
}

QString ZelDescriptionCheck::storedKeyPath(const QString &keyPath)
{
    static const QString selection = QStringLiteral(".selection.");
    const qsizetype start = keyPath.lastIndexOf(selection);
    return start < 0 ? keyPath : keyPath.mid(start + selection.size());
}

QString ZelDescriptionCheck::longKeyPathMessage(const QString &stored)
{
    return QStringLiteral("The editor writes a single key, \"%1\" is longer: it can show the value but not change it. "
                          "Give the object a property for it, or its part a controller of its own, as in "
                          "\"%2Controller.selection.%3\"; enabled=\"no\" says that it is only shown")
        .arg(stored, stored.section(u'.', -2, -2), stored.section(u'.', -1));
}

void ZelDescriptionCheck::report(const Configuration &element, const QString &attribute, const QString &message,
                                 const QString &suggestion) const
{
    m_report({ZelDescriptionMistake::Error, message + ZelNearestName::question(suggestion), element.place(), attribute,
              suggestion});
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
            checkValue(element, *known, xml.attributeValue(i));
            continue;
        }
        if (isForeign(name) || (element.name() != schema.role && isOfOtherRole(name)))
            continue;
        const QString meant = meantBy(name, namesOf(schema));
        const QString place = meant.isNull() ? ZelDescriptionHints::placeOfAttribute(name) : QString();
        if (!isOpen || meant.compare(name, Qt::CaseInsensitive) == 0)
            report(element, name, QStringLiteral("Unknown attribute \"%1\" of %2").arg(name, tagOf(element)) + place,
                   meant);
    }
}

void ZelDescriptionCheck::checkValue(const Configuration &element, const Schema::Attribute &known,
                                     QStringView text) const
{
    const QString name = known.name.toString();
    if (known.kind == Kind::File)
        return checkFile(element);
    if (const QString mistake = mistakeIn(text, known.kind); !mistake.isNull())
        return report(element, name, QStringLiteral("%1=\"%2\" %3").arg(name, text, mistake));
    if (!m_options.isThorough)
        return;
    if (const QString refusal = refusalOf(element, name, known.kind); !refusal.isNull())
        return report(element, name, refusal,
                      known.kind == Kind::Color ? ZelDescriptionHints::color(text.toString()) : QString());
    if (known.kind == Kind::KeyPath && text.startsWith(u'!'))
        return report(element, name,
                      QStringLiteral("%1=\"%2\" is no key path; a transformer turns a condition around: "
                                     "ZelNegateBooleanTransformerName")
                          .arg(name, text));
    if (!known.words || isOneOf(text, *known.words))
        return;
    const QStringList words = textsOf(known.words->words);
    const QString meant = meantBy(text.toString(), words);
    const QString all = meant.isNull() ? ZelNearestName::choices(words) : QString();
    report(element, name, known.words->refusal + text + all, meant);
}

void ZelDescriptionCheck::checkFile(const Configuration &element) const
{
    const QString name = element.stringValueNamed(u"file");
    if (name.isEmpty())
        return;
    const QUrl url = m_options.findFile ? m_options.findFile(element) : element.urlValueNamed(u"file");
    if (url.isEmpty())
        report(element, QStringLiteral("file"),
               QStringLiteral("file=\"%1\" is no resource of the application").arg(name), fileMeantBy(name, element));
}

/// A file beside those that are found, be it named with a path, without an ending or with wrong letters.
QString ZelDescriptionCheck::fileMeantBy(const QString &name, const Configuration &element) const
{
    const QStringList known = m_options.fileNames ? m_options.fileNames(element) : QStringList();
    const QString wanted = QFileInfo(name).completeBaseName();
    ZelNearestName nearest(wanted);
    QHash<QString, QString> files;
    for (const QString &file : known) {
        const QFileInfo info(file);
        if (info.suffix() != u"xml" || file == QFileInfo(element.place().file).fileName())
            continue;
        nearest.offer(info.completeBaseName());
        QString &shortest = files[info.completeBaseName()];
        shortest = shortest.isEmpty() || file.size() < shortest.size() ? file : shortest;
    }
    return files.value(nearest.found());
}

void ZelDescriptionCheck::checkChildren(const Configuration &element, const Schema::Element &schema) const
{
    element.element().forEachChild([&](const ZelXmlElement &child) {
        const QString name = child.name();
        if (std::ranges::find(schema.children, name) != schema.children.end() ||
            (isForeign(name) && !schema.failsOnOtherChildren))
            return;
        const QString message = schema.failsOnOtherChildren
                                    ? QString(u"Unsupported element " + name)
                                    : QStringLiteral("Unknown element <%1> in %2").arg(name, tagOf(element));
        report(Configuration(child), {}, message + ZelDescriptionHints::placeOfElement(name),
               meantBy(name, textsOf(schema.children)));
    });
}

/// What the library says when it reads the element, or what makes it useless.
void ZelDescriptionCheck::checkRequired(const Configuration &element, const Schema::Element &schema) const
{
    if (!schema.required.isNull() && element.stringValueNamed(schema.required).isEmpty() &&
        !hasAttributeMeaning(schema.required, element, schema))
        report(element, {},
               schema.required == u"type" ? QStringLiteral("Property type not given")
                                          : QStringLiteral("%1 has no %2").arg(tagOf(element), schema.required));
    for (const ZelDescriptionMistake &useless : ZelUselessParts::of(element, schema))
        m_report(useless);
    const bool isInOtherFile = schema.role == u"pane" && element.hasValueNamed(u"file");
    if (!schema.refusalWithoutChildren.isNull() && !isInOtherFile &&
        element.configurationsNamed(schema.children.front()).isEmpty())
        report(element, {}, schema.refusalWithoutChildren.toString());
}

/// The default is a value of the editor's type, or one of the model where a transformer stands between them.
void ZelDescriptionCheck::checkDefault(const Configuration &element, const Schema::Element &schema) const
{
    const QString text = element.stringValueNamed(u"defaultValue").trimmed();
    if (!element.hasValueNamed(u"defaultValue") || element.hasValueNamed(u"valueTransformer"))
        return;
    const char *type = nullptr;
    if (schema.type == u"number" && !numberIn(text) && !isBits(text))
        type = "double";
    else if (schema.type == u"boolean" && !isBoolean(text) && !(element.hasValueNamed(u"bits") && isBits(text)))
        type = "bool";
    else if (schema.type == u"color" && !text.startsWith(u"NS") && !QColor::isValidColor(text))
        type = "QColor";
    else if (schema.type == u"date" && !QDateTime::fromString(text, Qt::ISODate).isValid())
        type = "date as in 2024-05-06";
    if (type)
        report(element, QStringLiteral("defaultValue"),
               QStringLiteral("defaultValue=\"%1\" is no %2")
                   .arg(element.stringValueNamed(u"defaultValue"), QLatin1String(type)));
}

void ZelDescriptionCheck::checkRange(const Configuration &element) const
{
    if (element.hasValueNamed(u"minimumKeyPath") || element.hasValueNamed(u"maximumKeyPath"))
        return;
    const double minimum = element.doubleValueNamed(u"minimum", 0);
    const double maximum = element.doubleValueNamed(u"maximum", double(std::numeric_limits<float>::max()));
    if (minimum > maximum)
        report(element, element.hasValueNamed(u"minimum") ? QStringLiteral("minimum") : QStringLiteral("maximum"),
               QStringLiteral("The minimum %1 is above the maximum %2").arg(minimum).arg(maximum));
}

void ZelDescriptionCheck::checkOptions(const Configuration &property) const
{
    const QString mask = property.stringValueNamed(u"bitMask");
    if (mask.isNull() && m_options.hasFlawlessOptions && m_options.hasFlawlessOptions(property))
        return;
    const bool isMasked = !mask.isNull() && ZelNumberScanner::isInteger(mask) && isBits(mask);
    const quint64 bits = isMasked ? property.unsignedIntegerValueNamed(u"bitMask") : ~quint64(0);
    const QList<Configuration> groups = property.configurationsNamed(u"option-group");
    for (const Configuration &group : groups) {
        check(group, u"option-group");
        for (const Configuration &option : group.configurationsNamed(u"option")) {
            check(option, u"option");
            checkOptionValue(option, bits);
        }
    }
    checkValues(groups, u"option");
}

void ZelDescriptionCheck::checkOptionValue(const Configuration &option, quint64 bitMask) const
{
    const QString name = QStringLiteral("value");
    const QString text = option.stringValueNamed(name);
    if (!ZelNumberScanner::isInteger(text))
        return; // whether the model takes a text depends on its class
    if (!isBits(text))
        report(option, name, QStringLiteral("value=\"%1\" is no integer of 64 bits").arg(text));
    else if ((option.unsignedIntegerValueNamed(name) & ~bitMask) != 0)
        report(option, name,
               QStringLiteral("value=\"%1\" has bits outside of the bitMask 0x%2")
                   .arg(text, QString::number(bitMask, 16)));
}

/// Of several options with the same value, only one can ever be the chosen one. Texts are compared as they stand, since
/// "007" and "7" may be different texts of a model.
void ZelDescriptionCheck::checkValues(const QList<Configuration> &groups, QStringView name) const
{
    QSet<QString> values;
    for (const Configuration &group : groups) {
        for (const Configuration &option : group.configurationsNamed(name)) {
            const QString value = option.stringValueNamed(u"value", QStringLiteral("0"));
            if (values.contains(value))
                report(option, QStringLiteral("value"),
                       QStringLiteral("The value \"%1\" is given to several elements <%2>").arg(value, name));
            values.insert(value);
        }
    }
}
