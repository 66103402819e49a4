// SPDX-License-Identifier: MIT
#include "Inspector/private/ZelStateTree.h"

#include "Inspector/Properties/ZelInspectorProperty.h"
#include "Inspector/ZelInspectorContainer.h"

#include <QHash>
#include <QJsonDocument>
#include <QMetaProperty>

#include <algorithm>
#include <climits>

namespace {

const QString g_versionKey = QStringLiteral("zelInspectorState");
const QString g_valuesKey = QStringLiteral("state");
const QString g_partsKey = QStringLiteral("parts");
constexpr int g_version = 1;
constexpr qsizetype g_maximumSize = 4 << 20; // of the bytes that are read
constexpr qsizetype g_maximumTextLength = 4096;
constexpr int g_maximumDepth = 16;

QString nameOf(const ZelViewController *controller)
{
    if (const auto *container = qobject_cast<const ZelInspectorContainer *>(controller))
        return container->stateName();
    const auto *editor = qobject_cast<const ZelInspectorProperty *>(controller);
    return editor ? editor->keyPath() : controller->title();
}

/// Only parts with the same name are told apart by their number.
QString uniqueName(const QString &name, QHash<QString, int> &counts)
{
    QString unique = name;
    for (int number = counts[name]; number > 0 && counts.contains(unique); ++number)
        unique = name + u'#' + QString::number(number + 1);
    ++counts[name];
    if (unique != name)
        ++counts[unique];
    return unique;
}

void collect(const ZelViewController *controller, QHash<QString, int> &counts, QList<ZelStateTree::Part> &parts)
{
    const auto *container = qobject_cast<const ZelInspectorContainer *>(controller);
    if (!container)
        return;
    for (const QPointer<ZelViewController> &child : container->allChildControllers()) {
        if (!child)
            continue;
        if (ZelStateTree::propertiesOf(child).isEmpty())
            collect(child, counts, parts);
        else
            parts.append({uniqueName(nameOf(child), counts), child});
    }
}

/// Invalid for a value that the property cannot have.
QVariant valueFor(const QMetaProperty &property, const QJsonValue &value)
{
    switch (property.typeId()) {
    case QMetaType::Bool:
        return value.isBool() ? QVariant(value.toBool()) : QVariant();
    case QMetaType::Int: // toInt answers the default for what is no whole number in its range
        return value.toInt(INT_MIN) != INT_MIN ? QVariant(value.toInt()) : QVariant();
    case QMetaType::QString:
        return value.isString() && value.toString().size() <= g_maximumTextLength ? value.toVariant() : QVariant();
    default:
        return {};
    }
}

bool isState(const QJsonObject &state, int depth)
{
    const QJsonValue values = state.value(g_valuesKey);
    const QJsonValue parts = state.value(g_partsKey);
    if (depth > g_maximumDepth || !(values.isObject() || values.isUndefined()) ||
        !(parts.isObject() || parts.isUndefined()))
        return false;
    const auto isScalar = [](const QJsonValue &value) { return !value.isObject() && !value.isArray(); };
    const auto isPart = [depth](const QJsonValue &part) {
        return part.isObject() && isState(part.toObject(), depth + 1);
    };
    const QJsonObject allValues = values.toObject();
    const QJsonObject allParts = parts.toObject();
    return std::all_of(allValues.begin(), allValues.end(), isScalar) &&
           std::all_of(allParts.begin(), allParts.end(), isPart);
}

void insertUnlessEmpty(QJsonObject &object, const QString &key, const QJsonObject &value)
{
    if (!value.isEmpty())
        object.insert(key, value);
}

} // namespace

const QList<QMetaProperty> &ZelStateTree::propertiesOf(const ZelViewController *controller)
{
    static QHash<const QMetaObject *, QList<QMetaProperty>> ofClass;
    const QMetaObject *metaObject = controller->metaObject();
    const auto known = ofClass.constFind(metaObject);
    if (known != ofClass.constEnd())
        return *known;
    QList<QMetaProperty> properties;
    for (int i = 0; i < metaObject->classInfoCount(); ++i) {
        const QMetaClassInfo info = metaObject->classInfo(i);
        if (qstrcmp(info.name(), "ZelState") != 0)
            continue;
        for (const QByteArray &name : QByteArray(info.value()).simplified().split(' ')) {
            const QMetaProperty property = metaObject->property(metaObject->indexOfProperty(name));
            if (property.isReadable() && property.isWritable() && property.hasNotifySignal())
                properties.append(property);
        }
    }
    return *ofClass.insert(metaObject, properties);
}

QList<ZelStateTree::Part> ZelStateTree::partsOf(const ZelViewController *controller)
{
    QHash<QString, int> counts;
    QList<Part> parts;
    collect(controller, counts, parts);
    return parts;
}

QJsonObject ZelStateTree::read(const ZelViewController *controller, const QJsonObject &kept)
{
    QJsonObject values = kept.value(g_valuesKey).toObject();
    for (const QMetaProperty &property : propertiesOf(controller))
        values.insert(QString::fromLatin1(property.name()), QJsonValue::fromVariant(property.read(controller)));
    QJsonObject parts = kept.value(g_partsKey).toObject();
    for (const Part &part : partsOf(controller))
        parts.insert(part.name, read(part.controller, parts.value(part.name).toObject()));
    QJsonObject state;
    insertUnlessEmpty(state, g_valuesKey, values);
    insertUnlessEmpty(state, g_partsKey, parts);
    return state;
}

void ZelStateTree::restore(ZelViewController *controller, const QJsonObject &state)
{
    const QPointer<ZelViewController> alive(
        controller); // what changes may commit an edit, whose action may do anything
    const QJsonObject values = state.value(g_valuesKey).toObject();
    for (const QMetaProperty &property : propertiesOf(controller)) {
        const QVariant value = valueFor(property, values.value(QLatin1String(property.name())));
        if (alive && value.isValid())
            property.write(alive, value);
    }
}

QJsonObject ZelStateTree::withSearchText(const QJsonObject &state, const ZelViewController *panel)
{
    const QVariant text = panel->property("searchText");
    QJsonObject values = state.value(g_valuesKey).toObject();
    if (text.isValid())
        values.insert(QStringLiteral("searchText"), text.toString());
    QJsonObject result = state;
    insertUnlessEmpty(result, g_valuesKey, values);
    return result;
}

QJsonObject ZelStateTree::stateOfPart(const QJsonObject &state, const QString &name)
{
    return state.value(g_partsKey).toObject().value(name).toObject();
}

QByteArray ZelStateTree::toBytes(const QJsonObject &state)
{
    QJsonObject root = state;
    root.insert(g_versionKey, g_version);
    return QJsonDocument(root).toJson(QJsonDocument::Compact);
}

std::optional<QJsonObject> ZelStateTree::fromBytes(const QByteArray &bytes)
{
    if (bytes.size() > g_maximumSize)
        return std::nullopt;
    QJsonObject root = QJsonDocument::fromJson(bytes).object();
    const QJsonValue version = root.take(g_versionKey);
    if (version.toInt() != g_version || !isState(root, 0))
        return std::nullopt;
    return root;
}
