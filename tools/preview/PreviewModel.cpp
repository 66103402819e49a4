// SPDX-License-Identifier: MIT
#include "PreviewModel.h"

#include "Core/Selection/ZelArrayController.h"
#include "PreviewEnumeration.h"
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
    Classes known; // none without types
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
        Classes known = classesNamed({m_settings.owner});
        if (known.isEmpty())
            known = classWith(keysBelow({}));
        m_owner = std::make_unique<Node>(known.isEmpty() ? QByteArray("Owner") : known.first()->name.toUtf8());
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

PreviewModel::Classes PreviewModel::classesNamed(const QStringList &names) const
{
    Classes found;
    for (const QString &name : names) {
        if (const ZelTypeTable::Class *named = m_settings.types.classNamed(name))
            found.append(named);
    }
    return found;
}

/// The class that has most of the keys; none if no class has any.
PreviewModel::Classes PreviewModel::classWith(const QStringList &keys) const
{
    const ZelTypeTable &types = m_settings.types;
    Classes best;
    qsizetype most = 0;
    QStringList names = types.classNames();
    names.sort();
    for (const QString &name : std::as_const(names)) {
        const ZelTypeTable::Class *named = types.classNamed(name);
        const auto has = [&](const QString &key) { return types.property(*named, key).property != nullptr; };
        const qsizetype count = std::count_if(keys.begin(), keys.end(), has);
        if (count > most) {
            best = {named};
            most = count;
        }
    }
    return best;
}

ZelTypeTable::Found PreviewModel::property(const Node &node, const QString &key) const
{
    for (const ZelTypeTable::Class *known : node.known) {
        if (const ZelTypeTable::Found found = m_settings.types.property(*known, key); found.property)
            return found;
    }
    return {};
}

/// Of a type that only the application has, anything can be stored.
QMetaType PreviewModel::typeOf(const ZelTypeTable::Found &property) const
{
    const QString &name = property.property->type;
    if (const ZelTypeTable::Enumeration *known = m_settings.types.enumeration(*property.owner, name)) {
        const qsizetype colons = name.lastIndexOf(QStringLiteral("::"));
        const QString scope = colons < 0 ? property.owner->name : name.left(colons);
        return PreviewEnumeration::type(scope.toUtf8(), name.mid(colons < 0 ? 0 : colons + 2).toUtf8(), known->keys);
    }
    const QMetaType named = QMetaType::fromName(name.toUtf8());
    const bool isObject = named.flags().testFlag(QMetaType::PointerToQObject);
    return named.isValid() && !isObject ? named : QMetaType::fromType<QVariant>();
}

PreviewModel::Classes PreviewModel::classesFor(const Node &node, const QString &key, const QString &path,
                                               bool isSelection) const
{
    if (isSelection) {
        const Classes named = classesNamed(m_settings.selections.value(path));
        return named.isEmpty() ? classWith(keysBelow(path + QStringLiteral(".selection"))) : named;
    }
    const ZelTypeTable::Found found = property(node, key);
    QString type = found.property ? found.property->type : QString();
    const Classes named = classesNamed({type.remove(u'*').remove(QStringLiteral("const")).trimmed()});
    return named.isEmpty() ? classWith(keysBelow(path)) : named; // QObject * says nothing of the class
}

/// The object or the selected objects at the key; null if there is a value instead, or no such property.
PreviewModel::Node *PreviewModel::childOf(Node &node, const QString &key, const QString &path, bool isSelection)
{
    const auto there = node.children.find(key);
    if (there != node.children.end())
        return there->second.get();
    const QByteArray name = key.toUtf8();
    if (node.type.propertyNamed(name) || (!node.known.isEmpty() && !property(node, key).property))
        return nullptr;
    const Classes known = classesFor(node, key, path, isSelection);
    const QByteArray anyName = isSelection ? "Object" : "Part";
    auto child = std::make_unique<Node>(known.isEmpty() ? anyName : known.first()->name.toUtf8());
    child->known = known;
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
    const ZelTypeTable::Found found = property(node, key);
    if (node.children.contains(key) || (!node.known.isEmpty() && !found.property))
        return;
    const QMetaType type = found.property ? typeOf(found) : QMetaType::fromType<QVariant>();
    const bool isWritable = !found.property || found.property->isWritable;
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
    const ZelArrayController *main = nullptr;
    int most = 0;
    for (const ZelArrayController *controller : m_controllers) {
        if (const int count = controller->content().first()->metaObject()->propertyCount(); count > most) {
            main = controller;
            most = count;
        }
    }
    const QList<QObject *> objects = main ? main->content() : QList<QObject *>();
    const bool isInvented = main && !m_settings.data.contains(main->objectName());
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
