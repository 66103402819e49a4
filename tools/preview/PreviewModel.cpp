// SPDX-License-Identifier: MIT
#include "PreviewModel.h"

#include "Core/Selection/ZelArrayController.h"
#include "PreviewEnumeration.h"
#include "PreviewValues.h"

#include <QJsonArray>
#include <algorithm>
#include <list>
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

/// An object, or the objects that a controller selects.
struct PreviewModel::Node
{
    /// One class of the objects, and the objects of it.
    struct Part
    {
        Part(const QByteArray &className, const ZelTypeTable::Class *ofTypes)
            : name(className)
            , type(className)
            , known(ofTypes)
        {
        }
        QByteArray name;
        PreviewClass type;
        const ZelTypeTable::Class *known; // null without types
        QList<PreviewObject *> objects;
    };

    /// How many objects of the class there are to be: of a selection as many as there are data, which are of the first
    /// class, or some of each.
    qsizetype count(const Part &part) const
    {
        if (!isSelection)
            return 1;
        return !hasDataOfAll ? objectCount : &part == &parts.front() ? data.size() : 0;
    }
    /// Of the classes that are in use.
    QList<PreviewObject *> objects() const
    {
        QList<PreviewObject *> all;
        qsizetype left = usedParts;
        for (auto part = parts.begin(); left > 0; ++part, --left)
            all += part->objects.first(count(*part));
        return all;
    }
    QObject *answer() const { return controller ? static_cast<QObject *>(controller) : objects().first(); }
    bool hasTypes() const { return parts.front().known; }
    bool has(const QByteArray &property) const
    {
        return std::ranges::any_of(parts, [&](const Part &part) { return part.type.propertyNamed(property); });
    }

    QString path; // at which conditions tell classes apart
    bool isSelection = false;
    std::list<Part> parts;     // one or more
    qsizetype usedParts = 0;   // the first ones
    QJsonArray data;           // of each object
    bool hasDataOfAll = false; // the data say how many objects there are
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
    return m_owner ? m_owner->objects().first() : nullptr;
}

/// Those above the class and below QObject, in the order of moc's: Qt's come first among several bases.
QByteArrayList PreviewModel::basesOf(const ZelTypeTable::Class &type) const
{
    QByteArrayList names;
    const ZelTypeTable::Class *base = m_settings.types.classNamed(type.superClasses.value(0));
    while (base && base->name != u"QObject" && !names.contains(base->name.toUtf8())) {
        names.append(base->name.toUtf8());
        base = m_settings.types.classNamed(base->superClasses.value(0));
    }
    return names;
}

/// Without any, the description names the classes.
void PreviewModel::useTypes(Node &node, const Classes &known)
{
    for (const ZelTypeTable::Class *type : known)
        addPart(node, type->name.toUtf8(), type);
    node.usedParts = qsizetype(node.parts.size());
}

void PreviewModel::addPart(Node &node, const QByteArray &name, const ZelTypeTable::Class *known)
{
    PreviewClass &type = node.parts.emplace_back(name, known).type;
    if (known)
        type.setBases(basesOf(*known));
    type.setSlotCalled([this](const QByteArray &called) { Q_EMIT methodCalled(QString::fromUtf8(called)); });
}

/// Brings the classes that the description names to the front, and gives them objects. Those below may have others,
/// too.
void PreviewModel::takeClasses(Node &node)
{
    if (node.parts.empty() || !node.hasTypes()) {
        QStringList names = m_needs.classes.value(node.path);
        if (names.isEmpty() || !node.isSelection)
            names = {names.value(0, node.isSelection      ? QStringLiteral("Object")
                                    : node.path.isEmpty() ? QStringLiteral("Owner")
                                                          : QStringLiteral("Part"))};
        auto place = node.parts.begin();
        for (const QString &name : std::as_const(names)) {
            if (std::ranges::find(node.parts, name.toUtf8(), &Node::Part::name) == node.parts.end())
                addPart(node, name.toUtf8(), nullptr);
            const auto part = std::ranges::find(node.parts, name.toUtf8(), &Node::Part::name);
            if (part == place)
                ++place;
            else
                node.parts.splice(place, node.parts, part);
        }
        node.usedParts = names.size();
    }
    makeObjects(node);
    for (const auto &[key, child] : node.children) {
        takeClasses(*child);
        attach(node, key, *child);
    }
}

void PreviewModel::makeObjects(Node &node)
{
    for (Node::Part &part : node.parts) {
        while (part.objects.size() < node.count(part))
            part.objects.append(new PreviewObject(&part.type, node.parent.get()));
    }
    const QList<PreviewObject *> all = node.objects();
    if (node.controller && node.controller->content() != QList<QObject *>(all.begin(), all.end()))
        node.controller->setContent({all.begin(), all.end()});
}

/// Makes what stands at the key known to the objects.
void PreviewModel::attach(Node &node, const QString &key, const Node &child) const
{
    for (Node::Part &part : node.parts) {
        if (!hasKey(part.known, key))
            continue;
        part.type.addProperty({key.toUtf8(), QMetaType(QMetaType::QObjectStar), false});
        for (PreviewObject *object : std::as_const(part.objects))
            object->setValue(key.toUtf8(), QVariant::fromValue(child.answer()));
    }
}

void PreviewModel::grow(const PreviewNeeds &needs)
{
    m_needs = needs;
    if (!m_owner) {
        Classes known = classesNamed({m_settings.owner});
        if (known.isEmpty())
            known = classWith(keysBelow({}));
        m_owner = std::make_unique<Node>();
        useTypes(*m_owner, known);
        m_owner->data = {m_settings.data};
    }
    takeClasses(*m_owner);
    for (auto [path, needed] : needs.keyPaths.asKeyValueRange())
        add(*m_owner, path.split(u'.'), {}, needed);
    for (const QString &method : needs.methods) {
        QString name = method;
        while (name.endsWith(u':'))
            name.chop(1);
        m_owner->parts.front().type.addSlot(name.toUtf8());
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
    for (const Node::Part &part : node.parts) {
        const ZelTypeTable::Found found =
            part.known ? m_settings.types.property(*part.known, key) : ZelTypeTable::Found();
        if (found.property)
            return found;
    }
    return {};
}

bool PreviewModel::hasKey(const ZelTypeTable::Class *type, const QString &key) const
{
    return !type || m_settings.types.property(*type, key).property;
}

/// Of a type that only the application has, anything can be stored.
QMetaType PreviewModel::typeOf(const ZelTypeTable::Found &property) const
{
    const QString &name = property.property->type;
    if (const ZelTypeTable::Enumeration *known = m_settings.types.enumeration(*property.owner, name)) {
        const qsizetype colons = name.lastIndexOf(QStringLiteral("::"));
        const QString scope = colons < 0 ? property.owner->name : name.left(colons);
        return PreviewEnumeration::type(scope.toUtf8(), name.mid(colons < 0 ? 0 : colons + 2).toUtf8(), known->keys,
                                        known->isFlags);
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
    if (node.has(name) || (node.hasTypes() && !property(node, key).property))
        return nullptr;
    auto child = std::make_unique<Node>();
    child->path = isSelection ? path + QStringLiteral(".selection") : path;
    child->isSelection = isSelection;
    const Classes known = classesFor(node, key, path, isSelection);
    useTypes(*child, isSelection ? known : known.first(std::min<qsizetype>(1, known.size())));
    const QJsonValue data = node.data.at(0).toObject().value(key);
    const QJsonValue selected = isSelection && !data.isArray() ? m_settings.data.value(path) : data;
    child->data = selected.isArray() ? selected.toArray() : QJsonArray{selected};
    child->hasDataOfAll = isSelection && selected.isArray() && !child->data.isEmpty();
    if (isSelection) {
        child->controller = new ZelArrayController(child->parent.get());
        child->controller->setObjectName(path);
        m_controllers.append(child->controller);
    }
    takeClasses(*child);
    attach(node, key, *child);
    return (node.children[key] = std::move(child)).get();
}

void PreviewModel::addValue(Node &node, const QString &key, const PreviewNeeds::Value &needed)
{
    const QByteArray name = key.toUtf8();
    if (node.children.contains(key))
        return;
    const auto kind = node.kinds.constFind(name);
    const bool hasValues = kind != node.kinds.constEnd() && *kind == needed.kind; // which may have been edited
    qsizetype row = 0;
    for (Node::Part &part : node.parts) {
        const qsizetype first = std::exchange(row, row + part.objects.size());
        if (!hasKey(part.known, key))
            continue;
        const ZelTypeTable::Found found =
            part.known ? m_settings.types.property(*part.known, key) : ZelTypeTable::Found();
        const QMetaType type = found.property ? typeOf(found) : QMetaType::fromType<QVariant>();
        part.type.addProperty({name, type, !found.property || found.property->isWritable});
        node.kinds.insert(name, needed.kind);
        for (int i = 0; i < part.objects.size(); ++i) {
            PreviewObject *object = part.objects.at(i);
            if (!hasValues || !object->hasValue(name))
                object->setValue(name, valueFor(*object, key, needed, type, node.data.at(first + i).toObject(), i));
        }
    }
}

/// The value of the object at that place among those of its class.
QVariant PreviewModel::valueFor(PreviewObject &object, const QString &key, const PreviewNeeds::Value &needed,
                                QMetaType type, const QJsonObject &data, int place)
{
    const int index = place == g_equalIndex ? 0 : place;
    QVariant value;
    if (data.contains(key))
        value = PreviewValues::fromJson(data.value(key), needed);
    else if (type.flags().testFlag(QMetaType::IsEnumeration) && needed.choices.isEmpty())
        value = PreviewValues::invented(key, type, index);
    else if (needed.kind == Kind::Actions)
        value = PreviewValues::actions(&object);
    else if (!needed.mayBeAbsent || place != g_absentIndex)
        value = PreviewValues::invented(key, needed, index);
    if (type != QMetaType::fromType<QVariant>() && !QVariant(value).convert(type))
        value = PreviewValues::invented(key, type, index);
    return value;
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
    QHash<QString, int> counts;
    for (const QObject *object : objects) {
        const QString className = QString::fromUtf8(object->metaObject()->className());
        const int place = counts[className]++;
        QString title = QStringLiteral("%1 %2").arg(className).arg(place + 1);
        if (isInvented && place == g_equalIndex)
            title += QStringLiteral(", equal to 1");
        else if (isInvented && place == g_absentIndex)
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
