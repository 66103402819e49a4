// SPDX-License-Identifier: MIT
#include "Inspector/Checking/private/ZelTypeCheck.h"

#include "Core/Values/private/ZelNearestName.h"
#include "Core/Values/private/ZelNumberScanner.h"
#include "Inspector/Checking/ZelDescriptionChecker.h"
#include "Inspector/Checking/private/ZelConditionCheck.h"
#include "Inspector/Description/private/ZelDescriptionCheck.h"

#include <QRegularExpression>
#include <algorithm>

using Configuration = ZelInspectorConfiguration;
using Kind = ZelDescriptionSchema::Kind;

namespace {

const QString g_keyPath = QStringLiteral("keyPath");

QString editorOf(const ZelDescriptionWalk::Node &node)
{
    return node.role == u"chooser" ? QStringLiteral("enumeration") : node.element.stringValueNamed(u"type");
}

bool isReadOnly(const Configuration &element)
{
    const QStringView attribute = ZelDescriptionSchema::attributeOfReadOnly(element.stringValueNamed(u"type"));
    return !element.booleanValueNamed(u"enabled", true) || !element.booleanValueNamed(attribute, true);
}

/// Editors of the application's own may only show what they edit.
bool isOwnEditor(const ZelDescriptionWalk::Node &node)
{
    const auto *schema = ZelDescriptionSchema::element(u"property", editorOf(node));
    return node.role == u"property" && (!schema || schema->isOpen);
}

/// Attributes whose values are followed as they change; the others are read when they are needed.
bool isFollowed(QStringView attribute)
{
    static constexpr QStringView names[] = {u"keyPath",          u"visibleKeyPath",    u"enabledKeyPath",
                                            u"titleKeyPath",     u"widthTitleKeyPath", u"heightTitleKeyPath",
                                            u"resourcesKeyPath", u"flippedKeyPath"};
    return std::ranges::find(names, attribute) != std::end(names);
}

/// All choices of an editor or a chooser that stand in the description.
QList<Configuration> choicesOf(const Configuration &element)
{
    QList<Configuration> choices = element.configurationsNamed(u"choice");
    for (const Configuration &group : element.configurationsNamed(u"option-group"))
        choices += group.configurationsNamed(u"option");
    return choices;
}

} // namespace

void ZelTypeCheck::check(const Node &node)
{
    if (node.role == u"property" || node.role == u"chooser")
        checkSingleKey(node);
    checkNames(node);
    const ZelTypeScope scope = scopeOf(node);
    if (!m_hasTypes || !checkScope(node, scope))
        return;
    const auto *schema = Schema::element(node.role, node.element.element().attribute(u"type"));
    for (std::span<const Schema::Attribute> group : schema->attributes) {
        for (const Schema::Attribute &attribute : group) {
            const QString text = node.element.stringValueNamed(attribute.name);
            if (attribute.kind == Kind::KeyPath && !text.isEmpty())
                checkKeyPath(node, attribute.name.toString(), scope);
            else if (attribute.kind == Kind::Selector && !text.isEmpty() && m_types.classNamed(scope.owner))
                checkSelector(node, scope);
        }
    }
}

/// The attributes that say something of classes have a prefix, so that no other check knows them.
void ZelTypeCheck::checkNames(const Node &node)
{
    const QStringList known{ZelTypeAttributes::owner, ZelTypeAttributes::selection, ZelTypeAttributes::keys};
    const ZelXmlElement &xml = node.element.element();
    for (qsizetype i = 0; i < xml.attributeCount(); ++i) {
        const QString name = xml.attributeName(i);
        if (!name.startsWith(u"types:") || known.contains(name))
            continue;
        ZelNearestName nearest(name);
        nearest.offerAll(known);
        report(node, name, QStringLiteral("Unknown attribute \"%1\"").arg(name), nearest.found());
    }
}

/// The nearest element that says something counts.
ZelTypeScope ZelTypeCheck::scopeOf(const Node &node)
{
    QString wrong;
    const ZelTypeScope scope =
        ZelTypeAttributes::scopeWithin(node.parent ? scopeOf(*node.parent) : m_scope, node.element, &wrong);
    if (!wrong.isNull())
        report(node, ZelTypeAttributes::selection,
               QStringLiteral("\"%1\" does not say which classes a controller selects, as path=Class does").arg(wrong));
    return scope;
}

/// Whether anything can be checked with the classes that are given. What is missing is said once, where it is given.
bool ZelTypeCheck::checkScope(const Node &node, const ZelTypeScope &scope)
{
    const bool isGivenHere = node.element.hasValueNamed(ZelTypeAttributes::owner) ||
                             node.element.hasValueNamed(ZelTypeAttributes::selection);
    const ZelTypeTable::Class *owner = m_types.classNamed(scope.owner);
    if (!node.parent && scope.owner.isEmpty() && scope.selections.isEmpty())
        report(node, {},
               QStringLiteral("No owner is given, key paths are not checked (--owner Class; in CMake OWNER Class)"), {},
               ZelDescriptionMistake::Warning);
    const bool isOfUse = owner || !scope.selections.isEmpty();
    if (node.parent && !isGivenHere)
        return isOfUse;
    QStringList names;
    if (!scope.owner.isEmpty())
        names.append(scope.owner);
    for (const QStringList &classes : scope.selections)
        names += classes;
    for (const QString &name : std::as_const(names)) {
        if (m_types.classNamed(name))
            continue;
        ZelNearestName nearest(name);
        nearest.offerAll(m_types.classNames());
        report(node, name == scope.owner ? ZelTypeAttributes::owner : ZelTypeAttributes::selection,
               QStringLiteral("The class %1 is not among the types").arg(name), nearest.found());
    }
    return isOfUse;
}

void ZelTypeCheck::checkKeyPath(const Node &node, const QString &attribute, const ZelTypeScope &scope)
{
    const QString keyPath = node.element.stringValueNamed(attribute);
    if (keyPath.split(u'.').contains(QString()) || keyPath.startsWith(u'!'))
        return; // reported without types
    const Result result = ZelKeyPathResolver(m_types, scope).resolve(keyPath);
    if (result.state == Result::Missing)
        m_report({ZelDescriptionMistake::Error, result.message, node.element.place(), attribute, result.suggestion});
    else if (result.state == Result::Open && !result.message.isNull())
        report(node, attribute, result.message, {}, ZelDescriptionMistake::Warning);
    else if (result.state == Result::Resolved && attribute == g_keyPath)
        checkEdited(node, result);
    else if (result.state == Result::Resolved)
        ZelConditionCheck(m_types, m_report).check(node, attribute, result);
    if (result.state == Result::Missing || !isFollowed(attribute))
        return;
    for (const QString &silent : result.silent)
        report(node, attribute,
               QStringLiteral("The property \"%2\" of the class %1 has no NOTIFY signal: changes that no inspector "
                              "makes are not seen")
                   .arg(silent.section(u'.', 0, 0), silent.section(u'.', 1)),
               {}, ZelDescriptionMistake::Warning);
}

void ZelTypeCheck::checkEdited(const Node &node, const Result &result)
{
    if (node.role != u"property" && node.role != u"chooser")
        return;
    checkWritable(node, result);
    if (node.element.hasValueNamed(u"valueTransformer"))
        return;
    const QString named = node.element.stringValueNamed(u"class");
    const bool isList = named == u"ZelInspectorArrayProperty";
    const QString type = isList ? named : editorOf(node);
    const bool isRichText = type == u"string" && node.element.booleanValueNamed(u"attributed");
    const bool givesValues = node.element.hasValueNamed(u"enumeratedValuesKeyPath");
    if (!givesValues && !ZelValueKinds::kindsOfEditor(type, isRichText).testFlag(result.kind))
        report(node, g_keyPath,
               QStringLiteral("An editor of the type \"%1\"%2 does not fit %3, the type of \"%4\"")
                   .arg(type, isRichText ? QStringLiteral(" for rich text") : QString(), result.type,
                        node.element.stringValueNamed(g_keyPath)));
    else
        checkFitting(node, type, result);
    checkDefault(node, result);
}

/// What is suspicious about an editor that can edit values of that kind.
void ZelTypeCheck::checkFitting(const Node &node, const QString &type, const Result &result)
{
    using namespace ZelValueKinds;
    const QString key = node.element.stringValueNamed(g_keyPath).section(u'.', -1);
    const bool isOfBits = node.element.hasValueNamed(u"bits") || node.element.hasValueNamed(u"bitMask");
    if (type == u"enumeration" || type == u"flags") {
        checkChoices(node, result);
        checkKeysToOffer(node, result);
        checkKeysLeftOut(node, result);
    }
    if (result.enumeration && !result.enumeration->isFlags && (type == u"flags" || isOfBits))
        report(node, g_keyPath,
               QStringLiteral("%1 has one key at a time, several together are none (Q_ENUM): type=\"enumeration\" "
                              "chooses it. Flags are declared with Q_FLAG")
                   .arg(result.qualifiedType()),
               {}, type == u"flags" ? ZelDescriptionMistake::Error : ZelDescriptionMistake::Warning);
    else if (type == u"boolean" && result.kind == Integer && !isOfBits)
        report(node, g_keyPath,
               QStringLiteral("The checkbox writes 1 and 0 into \"%1\", which is of the type %2; with bits=\"0x1\", "
                              "it changes a single bit")
                   .arg(key, result.type),
               {}, ZelDescriptionMistake::Warning);
    else if (type == u"number" && result.kind == Text)
        report(node, g_keyPath,
               QStringLiteral("The numbers are written as texts into \"%1\", which is of the type %2")
                   .arg(key, result.type),
               {}, ZelDescriptionMistake::Warning);
}

/// A value that is none of the choices is shown as if nothing was selected. Numbers may stand for any keys.
void ZelTypeCheck::checkKeysLeftOut(const Node &node, const Result &result)
{
    const ZelTypeTable::Enumeration *known = result.enumeration;
    const QList<Configuration> choices = choicesOf(node.element);
    if (!known || known->isFlags || choices.isEmpty() || node.element.hasValueNamed(u"bitMask") ||
        node.element.hasValueNamed(u"enumeratedValuesKeyPath"))
        return;
    for (const Configuration &group : node.element.configurationsNamed(u"option-group")) {
        if (group.hasValueNamed(u"enumeratedValuesKeyPath"))
            return;
    }
    QStringList left = known->keys;
    for (const Configuration &choice : choices) {
        const QString text = choice.stringValueNamed(u"value").section(u':', -1).trimmed();
        if (!known->keys.contains(text))
            return; // a number, or reported
        left.removeAll(text);
    }
    if (!left.isEmpty())
        report(node, g_keyPath,
               QStringLiteral("No choice for %1 of %2: such a value looks like no selection; a choice with "
                              "hidden=\"yes\" shows it")
                   .arg(left.join(QStringLiteral(", ")), result.qualifiedType()),
               {}, ZelDescriptionMistake::Warning);
}

/// Without options, the editor offers the keys of the property's type.
void ZelTypeCheck::checkKeysToOffer(const Node &node, const Result &result)
{
    using namespace ZelValueKinds;
    const bool hasOptions = !node.element.configurationsNamed(u"option-group").isEmpty() ||
                            node.element.hasValueNamed(u"enumeratedValuesKeyPath") ||
                            node.element.hasValueNamed(u"enumeratedDisplayValuesKeyPath");
    const Kinds mayHaveKeys = Kinds(Unknown) | Enumeration;
    if (node.role == u"property" && !hasOptions && !mayHaveKeys.testFlag(result.kind))
        report(node, g_keyPath,
               QStringLiteral("The editor has no options, and %1, the type of \"%2\", has no keys (Q_ENUM)")
                   .arg(result.type, node.element.stringValueNamed(g_keyPath)));
}

void ZelTypeCheck::checkDefault(const Node &node, const Result &result)
{
    const QString attribute = QStringLiteral("defaultValue");
    const QString text = node.element.stringValueNamed(attribute).trimmed();
    const ZelTypeTable::Enumeration *known = result.enumeration;
    if (!known || text.isEmpty() || ZelNumberScanner::isInteger(text) || known->hasKeys(text))
        return;
    ZelNearestName nearest(text);
    nearest.offerAll(known->keys);
    m_report({ZelDescriptionMistake::Error,
              QStringLiteral("defaultValue=\"%1\" is no key of %2").arg(text, result.qualifiedType()) +
                  nearest.questionOr(known->keys),
              node.element.place(), attribute, nearest.found()});
}

void ZelTypeCheck::checkSingleKey(const Node &node)
{
    const QString stored = ZelDescriptionCheck::storedKeyPath(node.element.stringValueNamed(g_keyPath));
    if (Schema::writesSingleKey(editorOf(node)) && stored.contains(u'.') && !isReadOnly(node.element))
        report(node, g_keyPath, ZelDescriptionCheck::longKeyPathMessage(stored));
}

void ZelTypeCheck::checkWritable(const Node &node, const Result &result)
{
    if (!result.last.property || result.last.property->isWritable || isReadOnly(node.element) || isOwnEditor(node) ||
        editorOf(node) == u"action")
        return;
    const QString key = node.element.stringValueNamed(g_keyPath).section(u'.', -1);
    const QString reason =
        ZelUndefinedKeyException(result.last.owner->name, key, ZelUndefinedKeyException::Failure::ReadOnly).reason();
    if (node.role == u"chooser") // the rows below it may be all that is wanted
        report(node, g_keyPath, reason.chopped(1), {}, ZelDescriptionMistake::Warning);
    else
        report(node, g_keyPath,
               QStringLiteral("%1; %2=\"no\" says that it is only shown")
                   .arg(reason.chopped(1), ZelDescriptionSchema::attributeOfReadOnly(editorOf(node))));
}

/// Texts as values have to be keys of the enumeration, and are of no use for numbers.
void ZelTypeCheck::checkChoices(const Node &node, const Result &result)
{
    using namespace ZelValueKinds;
    if (!Kinds(Integer | Real | Enumeration).testFlag(result.kind))
        return;
    const ZelTypeTable::Enumeration *known = result.enumeration;
    const auto checkChoice = [&](const Configuration &choice) {
        const QString text = choice.stringValueNamed(u"value");
        if (text.isNull() || ZelNumberScanner::isInteger(text))
            return;
        QString message = QStringLiteral("The value \"%1\" of an option is no integer").arg(text);
        ZelNearestName nearest(text);
        if (known) {
            if (known->hasKeys(text))
                return;
            nearest.offerAll(known->keys);
            message += u" and no key of " + result.qualifiedType() + nearest.questionOr(known->keys);
        }
        m_report({ZelDescriptionMistake::Error, message, choice.place(), QStringLiteral("value"), nearest.found()});
    };
    for (const Configuration &choice : choicesOf(node.element))
        checkChoice(choice);
}

void ZelTypeCheck::checkSelector(const Node &node, const ZelTypeScope &scope)
{
    const QString attribute = QStringLiteral("actionSelector");
    const ZelTypeTable::Class &owner = *m_types.classNamed(scope.owner);
    QString name = node.element.stringValueNamed(attribute);
    while (name.endsWith(u':'))
        name.chop(1);
    QString reason;
    QStringList names;
    for (const ZelTypeTable::Method &method : m_types.methods(owner)) {
        const bool isSignal = method.kind == ZelTypeTable::Method::Signal;
        const bool takesArguments = method.argumentTypes.size() > 1 ||
                                    (method.argumentTypes.size() == 1 && method.argumentTypes[0] != u"QObject*");
        if (!isSignal && method.isPublic && !takesArguments)
            names.append(method.name);
        if (method.name == name)
            reason = isSignal           ? QStringLiteral(": it is a signal")
                     : !method.isPublic ? QStringLiteral(": it is not public")
                                        : QStringLiteral(": it takes more than the sender, a QObject *");
    }
    if (names.contains(name) || !m_types.unknownBase(owner).isNull())
        return;
    static const QRegularExpression signature(QStringLiteral("^[12]|\\(.*$"));
    const QString bare = QString(name).remove(signature); // as other calls of Qt's take them
    ZelNearestName nearest(bare);
    nearest.offerAll(names);
    report(node, attribute, QStringLiteral("%1 has no slot or invokable method \"%2\"%3").arg(owner.name, name, reason),
           nearest.found());
}

void ZelTypeCheck::report(const Node &node, const QString &attribute, const QString &message, const QString &suggestion,
                          ZelDescriptionMistake::Severity severity)
{
    m_report({severity, message + ZelNearestName::question(suggestion), node.element.place(), attribute, suggestion});
}
