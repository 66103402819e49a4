// SPDX-License-Identifier: MIT
#include "PreviewModel.h"

#include "Core/Selection/ZelArrayController.h"
#include "PreviewValues.h"

#include <QJsonArray>
#include <map>

using Kind = PreviewNeeds::Kind;

namespace {

constexpr int g_equalIndex = 2;  // of the object that equals the first
constexpr int g_absentIndex = 3; // of the one without values

/// The keys of a selection controller that are asked for in descriptions.
bool isControllerKey(const QString &key)
{
    static const QSet<QString> keys = {"selection", "selectedObjects", "content", "arrangedObjects",
                                       "selectionIndexes"};
    return keys.contains(key);
}

QString joined(const QString &path, const QString &key)
{
    return path.isEmpty() ? key : path + u'.' + key;
}

} // namespace

/// An object, or the objects that a controller selects, which are all of one class.
struct PreviewModel::Node
{
    explicit Node(const QByteArray &className)
        : type(className)
    {
    }

    PreviewClass type;
    const PreviewTypes::Class *known = nullptr; // null without types
    QList<PreviewObject *> objects;
    QJsonArray data; // of each object
    std::map<QString, std::unique_ptr<Node>> children;
    QHash<QByteArray, Kind> kinds; // of the values
    ZelArrayController *controller = nullptr;
    std::unique_ptr<QObject> parent = std::make_unique<QObject>(); // of the objects, which die before their class
};

PreviewModel::PreviewModel(Settings settings)
    : m_settings(std::move(settings))
{
}

PreviewModel::~PreviewModel()
{
    m_owner.reset();
}

QObject *PreviewModel::owner() const
{
    return m_owner ? m_owner->objects.first() : nullptr;
}

void PreviewModel::makeObjects(Node &node, int count, QObject *parent)
{
    for (int i = 0; i < count; ++i)
        node.objects.append(new PreviewObject(&node.type, parent));
    node.type.setSlotCalled([this](const QByteArray &name) { Q_EMIT methodCalled(QString::fromUtf8(name)); });
}

void PreviewModel::grow(const PreviewNeeds &needs)
{
    m_needs = needs;
    if (!m_owner) {
        const PreviewTypes::Class *known = m_settings.types.classNamed(m_settings.owner);
        if (!known)
            known = m_settings.types.classWith(keysBelow({}));
        m_owner = std::make_unique<Node>(known ? known->name.toUtf8() : QByteArray("Owner"));
        m_owner->known = known;
        m_owner->data = {m_settings.data};
        makeObjects(*m_owner, 1, m_owner->parent.get());
    }
    for (auto [path, needed] : needs.keyPaths.asKeyValueRange())
        add(*m_owner, path.split(u'.'), {}, needed);
    for (const QString &method : needs.methods) {
        QString name = method;
        while (name.endsWith(u':'))
            name.chop(1);
        m_owner->type.addSlot(name.toUtf8());
    }
    select(m_selectedRows);
}

/// The keys that the description asks for directly below the path.
QStringList PreviewModel::keysBelow(const QString &path) const
{
    const QString start = path.isEmpty() ? path : QString(path + u'.');
    QStringList keys;
    for (auto it = m_needs.keyPaths.begin(); it != m_needs.keyPaths.end(); ++it) {
        if (it.key().startsWith(start))
            keys.append(it.key().mid(start.size()).section(u'.', 0, 0));
    }
    keys.removeDuplicates();
    return keys;
}

void PreviewModel::add(Node &node, const QStringList &keys, const QString &path, const PreviewNeeds::Value &needed)
{
    const QString &key = keys.first();
    if (keys.size() == 1) {
        addValue(node, key, needed);
        return;
    }
    const bool isSelection = isControllerKey(keys.at(1));
    Node *child = childOf(node, key, joined(path, key), isSelection);
    if (!child)
        return;
    if (!isSelection)
        add(*child, keys.mid(1), joined(path, key), needed);
    else if (keys.at(1) == u"selection" && keys.size() > 2)
        add(*child, keys.mid(2), joined(path, key) + QStringLiteral(".selection"), needed);
}

const PreviewTypes::Class *PreviewModel::classFor(const Node &node, const QString &key, const QString &path,
                                                  bool isSelection) const
{
    const PreviewTypes &types = m_settings.types;
    if (isSelection) {
        const PreviewTypes::Class *known = types.classNamed(m_settings.selections.value(path).value(0));
        return known ? known : types.classWith(keysBelow(path + QStringLiteral(".selection")));
    }
    QString type = node.known ? node.known->properties.value(key).type : QString();
    const PreviewTypes::Class *known = types.classNamed(type.remove(u'*').remove(QStringLiteral("const")).trimmed());
    return known ? known : types.classWith(keysBelow(path)); // QObject * says nothing of the class
}

/// The object or the selected objects at the key; null if there is a value instead, or no such property.
PreviewModel::Node *PreviewModel::childOf(Node &node, const QString &key, const QString &path, bool isSelection)
{
    const auto known = node.children.find(key);
    if (known != node.children.end())
        return known->second.get();
    const QByteArray name = key.toUtf8();
    if (node.type.propertyNamed(name) || (node.known && !node.known->properties.contains(key)))
        return nullptr;
    const PreviewTypes::Class *type = classFor(node, key, path, isSelection);
    auto child = std::make_unique<Node>(type ? type->name.toUtf8() : QByteArray(isSelection ? "Object" : "Part"));
    child->known = type;
    node.type.addProperty({name, QMetaType(QMetaType::QObjectStar), false});
    const QJsonValue data = node.data.at(0).toObject().value(key);
    const QJsonValue selected = isSelection && !data.isArray() ? m_settings.data.value(path) : data;
    child->data = selected.isArray() ? selected.toArray() : QJsonArray{selected};
    const bool hasObjects = isSelection && selected.isArray() && !child->data.isEmpty();
    makeObjects(*child, hasObjects ? int(child->data.size()) : isSelection ? objectCount : 1, child->parent.get());
    QObject *answer = child->objects.first();
    if (isSelection) {
        child->controller = new ZelArrayController(child->parent.get());
        child->controller->setObjectName(path);
        child->controller->setContent({child->objects.begin(), child->objects.end()});
        m_controllers.append(child->controller);
        answer = child->controller;
    }
    for (PreviewObject *object : std::as_const(node.objects))
        object->setValue(name, QVariant::fromValue(answer));
    return (node.children[key] = std::move(child)).get();
}

void PreviewModel::addValue(Node &node, const QString &key, const PreviewNeeds::Value &needed)
{
    const QByteArray name = key.toUtf8();
    if (node.children.contains(key) || (node.known && !node.known->properties.contains(key)))
        return;
    QMetaType type = QMetaType::fromType<QVariant>();
    bool isWritable = true;
    if (node.known) {
        const PreviewTypes::Property &property = *node.known->properties.constFind(key);
        isWritable = property.isWritable;
        const QMetaType named = m_settings.types.isEnumeration(*node.known, property.type)
                                    ? QMetaType::fromType<int>()
                                    : QMetaType::fromName(property.type.toUtf8());
        if (named.isValid() && !(named.flags() & QMetaType::PointerToQObject))
            type = named;
    }
    node.type.addProperty({name, type, isWritable});
    if (const auto kind = node.kinds.constFind(name); kind != node.kinds.constEnd() && *kind == needed.kind)
        return; // it has its value, which may have been edited
    node.kinds.insert(name, needed.kind);
    for (int i = 0; i < node.objects.size(); ++i) {
        PreviewObject *object = node.objects.at(i);
        const QJsonObject data = node.data.at(i).toObject();
        const int index = i == g_equalIndex ? 0 : i;
        QVariant value;
        if (data.contains(key))
            value = PreviewValues::fromJson(data.value(key), needed);
        else if (needed.kind == Kind::Actions)
            value = PreviewValues::actions(object);
        else if (!needed.mayBeAbsent || i != g_absentIndex)
            value = PreviewValues::invented(key, needed, index);
        if (type != QMetaType::fromType<QVariant>() && !QVariant(value).convert(type))
            value = PreviewValues::invented(key, type, index);
        object->setValue(name, value);
    }
}

QStringList PreviewModel::titles() const
{
    QStringList result;
    if (m_controllers.isEmpty())
        return result;
    const QList<QObject *> objects = m_controllers.first()->content();
    const bool isInvented = !m_settings.data.contains(m_controllers.first()->objectName());
    for (int i = 0; i < objects.size(); ++i) {
        QString title =
            QStringLiteral("%1 %2").arg(QString::fromUtf8(objects.at(i)->metaObject()->className())).arg(i + 1);
        if (isInvented && i == g_equalIndex)
            title += QStringLiteral(", equal to 1");
        else if (isInvented && i == g_absentIndex)
            title += QStringLiteral(", without some values");
        result.append(title);
    }
    return result;
}

void PreviewModel::select(const QList<int> &rows)
{
    m_selectedRows = rows;
    for (ZelArrayController *controller : std::as_const(m_controllers)) {
        QList<QObject *> objects;
        for (const int row : rows) {
            if (row < controller->content().size())
                objects.append(controller->content().at(row));
        }
        controller->setSelectedObjects(objects);
    }
}
