// SPDX-License-Identifier: MIT
#include "Inspector/Checking/private/ZelKeyPathResolver.h"

#include "Core/Errors/ZelException.h"
#include "Core/Values/private/ZelNearestName.h"
#include "Inspector/Checking/ZelDescriptionChecker.h"

#include <QRegularExpression>
#include <algorithm>

using Resolver = ZelKeyPathResolver;
using Result = Resolver::Result;

namespace {

const QString g_selection = QStringLiteral("selection");

bool isController(const ZelTypeTable &types, const ZelTypeTable::Class &type)
{
    return types.inherits(type, QStringLiteral("ZelObjectController"));
}

/// The class of the objects that a value of the type is or holds; null if it is none.
QString elementType(QString type)
{
    if (type.startsWith(u"QList<") && type.endsWith(u'>'))
        type = type.sliced(6, type.size() - 7);
    if (!type.endsWith(u'*'))
        return {};
    type.chop(1);
    return type.trimmed().remove(QStringLiteral("const "));
}

/// The one name that begins with the word, or with which the word begins; null if there is none or another one.
QString nameWithSameBeginning(const QString &word, const QStringList &names)
{
    constexpr qsizetype shortest = 4;
    QString found;
    for (const QString &name : names) {
        const bool isLong = std::min(name.size(), word.size()) >= shortest;
        if (!isLong || !(name.startsWith(word, Qt::CaseInsensitive) || word.startsWith(name, Qt::CaseInsensitive)))
            continue;
        if (!found.isNull() && found != name)
            return {};
        found = name;
    }
    return found;
}

/// What the exception says of such a key, without its full stop.
QString missing(const QString &className, const QString &key)
{
    return ZelUndefinedKeyException(className, key).reason().chopped(1);
}

} // namespace

const QString ZelTypeAttributes::owner = QStringLiteral("types:owner");
const QString ZelTypeAttributes::selection = QStringLiteral("types:selection");
const QString ZelTypeAttributes::keys = QStringLiteral("types:keys");

ZelTypeScope ZelTypeAttributes::scopeWithin(const ZelTypeScope &around, const ZelInspectorConfiguration &element,
                                            QString *wrong)
{
    ZelTypeScope scope = around;
    scope.owner = element.stringValueNamed(owner, scope.owner);
    scope.keys += element.stringValueNamed(keys).simplified().split(u' ', Qt::SkipEmptyParts);
    const QString unread = ZelDescriptionChecker::readSelections(element.stringValueNamed(selection), scope.selections);
    if (wrong)
        *wrong = unread;
    return scope;
}

QString Result::qualifiedType() const
{
    const bool isNamedInClass = enumeration && last.owner && !type.contains(u"::");
    return isNamedInClass ? QString(last.owner->name + u"::" + type) : type;
}

/// How far a path has been followed: the classes that the objects there may have, or else the value.
struct Resolver::Position
{
    QStringList keys;
    qsizetype index = 0;
    Classes classes;
    bool isSelected = false; // the objects are those that a controller selects
    Result result;

    QString passed() const { return keys.first(index).join(u'.'); }
    QString rest() const { return keys.sliced(index + 1).join(u'.'); }
};

Result Resolver::resolve(const QString &keyPath) const
{
    Position position{keyPath.split(u'.')};
    position.classes = classesNamed({m_scope.owner});
    position.result.state = Result::Resolved;
    if (position.classes.isEmpty())
        position.index = controllerLength(position.keys);
    for (const QString &key : position.keys.sliced(position.index)) {
        if (!stepIntoSelection(position, key) && !lacksSelection(position, key))
            step(position, key);
        if (position.result.state != Result::Resolved)
            break;
        ++position.index;
    }
    return position.result;
}

Resolver::Classes Resolver::classesNamed(const QStringList &names) const
{
    Classes classes;
    for (const QString &name : names) {
        if (const ZelTypeTable::Class *type = m_types.classNamed(name))
            classes.append(type);
    }
    return classes;
}

/// Whether the key is one of a controller, which is not followed as other keys are: the classes of what it selects are
/// known from elsewhere.
bool Resolver::stepIntoSelection(Position &position, const QString &key) const
{
    static const QStringList objectKeys{g_selection, QStringLiteral("selectedObjects"), QStringLiteral("content"),
                                        QStringLiteral("arrangedObjects")};
    const auto selected = m_scope.selections.constFind(position.passed());
    const bool isKnown = selected != m_scope.selections.constEnd();
    const bool isControlled =
        std::ranges::any_of(position.classes, [&](const auto *type) { return isController(m_types, *type); });
    if (position.index == 0 || !objectKeys.contains(key) || !(isKnown || isControlled || position.classes.isEmpty()))
        return false;
    position.isSelected = key == g_selection;
    position.result.last = {};
    position.result.enumeration = nullptr;
    position.result.kind = key == g_selection ? ZelValueKinds::Object : ZelValueKinds::List;
    position.result.type.clear();
    position.classes = isKnown ? classesNamed(*selected) : Classes();
    if (position.classes.isEmpty() && position.index + 1 < position.keys.size()) {
        position.result.state = Result::Open;
        position.result.message =
            QStringLiteral("The class of the objects that \"%1\" selects is not known: keys below "
                           "its selection are not checked (--selection %1=Class; in CMake SELECTIONS %1=Class)")
                .arg(position.passed());
    }
    return true;
}

/// Whether the key is one of the selected objects that is looked for in their controller.
bool Resolver::lacksSelection(Position &position, const QString &key) const
{
    const auto selected = m_scope.selections.constFind(position.passed());
    if (position.index == 0 || selected == m_scope.selections.constEnd())
        return false;
    const auto has = [&](const ZelTypeTable::Class *type) { return m_types.property(*type, key).property != nullptr; };
    Classes controllers = position.classes;
    if (controllers.isEmpty())
        controllers = classesNamed({QStringLiteral("ZelArrayController")});
    if (std::ranges::any_of(controllers, has) || std::ranges::none_of(classesNamed(*selected), has))
        return false;
    QStringList meant = position.keys;
    meant.insert(position.index, g_selection);
    position.result.state = Result::Missing;
    position.result.suggestion = meant.join(u'.');
    position.result.message = QStringLiteral("\"%1\" is a controller, it is its selection that has the property \"%2\"")
                                  .arg(position.passed(), key) +
                              ZelNearestName::question(position.result.suggestion);
    return true;
}

void Resolver::step(Position &position, const QString &key) const
{
    if (position.classes.isEmpty())
        return stepIntoValue(position, key);
    QStringList known;
    QStringList names;
    for (const ZelTypeTable::Class *type : std::as_const(position.classes)) {
        if (const ZelTypeTable::Found found = m_types.property(*type, key); found.property)
            return setValue(position, found);
        if (isKeyOf(*type, key)) {
            position.result.state = Result::Open;
            return;
        }
        if (const QString base = m_types.unknownBase(*type); !base.isNull()) {
            position.result.state = Result::Open;
            position.result.message =
                QStringLiteral(
                    "The class %1 derives from %2, which is not among the types: its key \"%3\" is not checked")
                    .arg(type->name, base, key);
            return;
        }
        known += m_types.keys(*type);
        names.append(type->name);
    }
    const QString who = names.join(QStringLiteral(", "));
    fail(position, key,
         position.isSelected ? QStringLiteral("No selected object has the property \"%1\" (%2)").arg(key, who)
                             : missing(who, key),
         known);
}

void Resolver::stepIntoValue(Position &position, const QString &key) const
{
    const ZelValueKinds::ValueKind kind = position.result.kind;
    const QStringList known = ZelValueKinds::keysOf(kind);
    if (known.contains(key)) {
        position.result.enumeration = nullptr;
        position.result.kind = ZelValueKinds::Real;
        position.result.type = QStringLiteral("double");
    } else if (!known.isEmpty() || ZelValueKinds::isPlain(kind)) {
        fail(position, key, missing(position.result.type, key), known);
    } else {
        position.result.state = Result::Open;
    }
}

void Resolver::fail(Position &position, const QString &key, const QString &message, const QStringList &known) const
{
    ZelNearestName nearest(key);
    nearest.offerAll(known);
    static const QRegularExpression getter(QStringLiteral("^(is|has|get)(?=[A-Z])"));
    const QString property = QString(key).remove(getter);
    ZelNearestName nearestOfGetter(property);
    if (property != key && nearest.found().isNull())
        nearestOfGetter.offerAll(known);
    QString found = nearest.found().isNull() ? nearestOfGetter.found() : nearest.found();
    if (found.isNull())
        found = nameWithSameBeginning(property, known);
    QStringList meant = position.keys;
    if (!found.isNull())
        meant[position.index] = found;
    const QString selected = position.index == 0 ? pathThroughSelection(position.keys.join(u'.')) : QString();
    position.result.state = Result::Missing;
    if (!selected.isNull())
        position.result.suggestion = selected;
    else if (!found.isNull())
        position.result.suggestion = meant.join(u'.');
    position.result.message =
        message + ZelNearestName::question(selected.isNull() && !found.isNull() ? found : selected);
}

void Resolver::setValue(Position &position, const ZelTypeTable::Found &found) const
{
    Result &result = position.result;
    result.last = found;
    result.type = found.property->type;
    result.kind = ZelValueKinds::kindOf(result.type);
    result.enumeration =
        result.kind == ZelValueKinds::Unknown ? m_types.enumeration(*found.owner, result.type) : nullptr;
    if (result.enumeration)
        result.kind = ZelValueKinds::Enumeration;
    if (!found.property->isAnnounced && !isKeyOf(*found.owner, position.keys.at(position.index)))
        result.silent.append(found.owner->name + u'.' + position.keys.at(position.index));
    const QString element = elementType(result.type);
    const ZelTypeTable::Class *gadget =
        element.isNull() && result.kind == ZelValueKinds::Unknown ? m_types.classNamed(result.type) : nullptr;
    // Of a QObject, nothing is known but that it is one.
    position.classes = gadget ? Classes{gadget} : element == u"QObject" ? Classes() : classesNamed({element});
    position.isSelected = false;
}

/// Whether the description says that the class has the key, and that no signal is to be asked for.
bool Resolver::isKeyOf(const ZelTypeTable::Class &type, const QString &key) const
{
    return std::ranges::any_of(m_scope.keys, [&](const QString &said) {
        const ZelTypeTable::Class *named = m_types.classNamed(said.section(u'.', 0, -2));
        return named && m_types.inherits(type, named->name) && said.section(u'.', -1) == key;
    });
}

/// How many keys at the beginning lead to a controller whose objects' classes are known, whatever the owner is.
qsizetype Resolver::controllerLength(const QStringList &keys) const
{
    for (qsizetype length = keys.size() - 1; length > 0; --length) {
        if (m_scope.selections.contains(keys.first(length).join(u'.')))
            return length;
    }
    return 0;
}

/// The path with a selection controller before it, if the key was one of what that selects.
QString Resolver::pathThroughSelection(const QString &rest) const
{
    const QString key = rest.section(u'.', 0, 0);
    QStringList controllers = m_scope.selections.keys();
    controllers.sort();
    for (const QString &controller : std::as_const(controllers)) {
        for (const ZelTypeTable::Class *type : classesNamed(m_scope.selections.value(controller))) {
            if (m_types.property(*type, key).property)
                return controller + u'.' + g_selection + u'.' + rest;
        }
    }
    return {};
}
