// SPDX-License-Identifier: MIT
#include "Inspector/Checking/ZelTypeTable.h"

#include "Core/KeyValue/ZelClassRegistry.h"
#include "Core/Selection/ZelArrayController.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QDockWidget>
#include <QFile>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QGraphicsWidget>
#include <QGroupBox>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QListView>
#include <QMainWindow>
#include <QMetaEnum>
#include <QMetaMethod>
#include <QMetaProperty>
#include <QSortFilterProxyModel>
#include <QSplitter>
#include <QStackedWidget>
#include <QStandardItemModel>
#include <QTableView>
#include <QTreeView>
#include <QUndoStack>
#include <algorithm>

using Table = ZelTypeTable;

namespace {

QString afterLastColon(const QString &name)
{
    return name.mid(name.lastIndexOf(u':') + 1);
}

bool has(const QJsonObject &object, const char *name)
{
    return !object[QLatin1String(name)].toString().isEmpty();
}

QStringList argumentTypesOf(const QJsonObject &method)
{
    QStringList types;
    for (const auto &argument : method[QLatin1String("arguments")].toArray())
        types.append(argument[QLatin1String("type")].toString().remove(u' '));
    return types;
}

void add(Table::Class &type, const QString &name, const Table::Property &property)
{
    type.properties.insert(name, property);
    type.propertyNames.append(name);
}

/// The enumeration whose keys are those of flags has another name than these.
void add(Table::Class &type, const QString &name, const QString &enumName, Table::Enumeration enumeration)
{
    type.enumerations.insert(name, enumeration);
    if (enumName.isEmpty() || enumName == name)
        return;
    enumeration.isFlags = false;
    type.enumerations.insert(enumName, enumeration);
}

void readMethods(Table::Class &type, const QJsonObject &object)
{
    const std::pair<const char *, Table::Method::Kind> lists[] = {
        {"slots", Table::Method::Callable}, {"methods", Table::Method::Callable}, {"signals", Table::Method::Signal}};
    for (const auto &[list, kind] : lists) {
        for (const auto &value : object[QLatin1String(list)].toArray()) {
            const QJsonObject method = value.toObject();
            type.methods.append({method[QLatin1String("name")].toString(), kind,
                                 method[QLatin1String("access")].toString() == u"public", argumentTypesOf(method)});
        }
    }
}

void readClass(Table::Class &type, const QJsonObject &object)
{
    for (const auto &base : object[QLatin1String("superClasses")].toArray())
        type.superClasses.append(base[QLatin1String("name")].toString());
    for (const auto &value : object[QLatin1String("properties")].toArray()) {
        const QJsonObject property = value.toObject();
        const bool isConstant = property[QLatin1String("constant")].toBool();
        const bool isOpen = has(property, "member") || has(property, "bindable");
        add(type, property[QLatin1String("name")].toString(),
            {.type = property[QLatin1String("type")].toString(),
             .isWritable = has(property, "write") || (isOpen && !isConstant),
             .isAnnounced = isConstant || has(property, "notify") || has(property, "bindable"),
             .isReadable = isOpen || has(property, "read"),
             .isDesignable = property[QLatin1String("designable")].toBool(true)});
    }
    for (const auto &value : object[QLatin1String("enums")].toArray()) {
        QStringList keys;
        for (const auto &key : value[QLatin1String("values")].toArray())
            keys.append(key.toString());
        add(type, value[QLatin1String("name")].toString(), value[QLatin1String("alias")].toString(),
            {keys, {}, value[QLatin1String("isFlag")].toBool()});
    }
    for (const auto &info : object[QLatin1String("classInfos")].toArray())
        type.information.append({info[QLatin1String("name")].toString(), info[QLatin1String("value")].toString()});
    readMethods(type, object);
}

void readMembers(Table::Class &type, const QMetaObject *metaObject)
{
    for (int i = metaObject->propertyOffset(); i < metaObject->propertyCount(); ++i) {
        const QMetaProperty property = metaObject->property(i);
        add(type, QString::fromLatin1(property.name()),
            {.type = QString::fromLatin1(property.typeName()),
             .isWritable = property.isWritable(),
             .isAnnounced = property.hasNotifySignal() || property.isConstant() || property.isBindable(),
             .isReadable = property.isReadable(),
             .isDesignable = property.isDesignable()});
    }
    for (int i = metaObject->methodOffset(); i < metaObject->methodCount(); ++i) {
        const QMetaMethod method = metaObject->method(i);
        QStringList arguments;
        for (const QByteArray &argument : method.parameterTypes())
            arguments.append(QString::fromLatin1(argument));
        const bool isSignal = method.methodType() == QMetaMethod::Signal;
        type.methods.append({QString::fromLatin1(method.name()),
                             isSignal ? Table::Method::Signal : Table::Method::Callable,
                             method.access() == QMetaMethod::Public, arguments});
    }
    for (int i = metaObject->enumeratorOffset(); i < metaObject->enumeratorCount(); ++i) {
        const QMetaEnum enumeration = metaObject->enumerator(i);
        Table::Enumeration known;
        for (int k = 0; k < enumeration.keyCount(); ++k) {
            known.keys.append(QString::fromLatin1(enumeration.key(k)));
            known.values.append(enumeration.value(k));
        }
        known.isFlags = enumeration.isFlag();
        add(type, QString::fromLatin1(enumeration.name()), QString::fromLatin1(enumeration.enumName()), known);
    }
}

} // namespace

bool Table::Enumeration::hasKeys(const QString &text) const
{
    const QStringList parts = text.split(u'|');
    return std::ranges::all_of(parts,
                               [&](const QString &key) { return keys.contains(key.section(u':', -1).trimmed()); });
}

void Table::addKnownClasses()
{
    const QMetaObject *classes[] = {
        &Qt::staticMetaObject, &QAction::staticMetaObject, &ZelArrayController::staticMetaObject,
        // Of which applications derive owners and models
        &QApplication::staticMetaObject, &QMainWindow::staticMetaObject, &QDialog::staticMetaObject,
        &QDockWidget::staticMetaObject, &QGroupBox::staticMetaObject, &QSplitter::staticMetaObject,
        &QStackedWidget::staticMetaObject, &QTabWidget::staticMetaObject, &QTreeView::staticMetaObject,
        &QTableView::staticMetaObject, &QListView::staticMetaObject, &QGraphicsView::staticMetaObject,
        &QGraphicsScene::staticMetaObject, &QGraphicsWidget::staticMetaObject, &QStandardItemModel::staticMetaObject,
        &QSortFilterProxyModel::staticMetaObject, &QUndoStack::staticMetaObject};
    for (const QMetaObject *known : classes)
        add(known);
    for (const QString &name : ZelClassRegistry::classNames())
        add(ZelClassRegistry::metaObject(name));
}

QString Table::read(const QString &file)
{
    QFile opened(file);
    if (!opened.open(QIODevice::ReadOnly))
        return opened.errorString();
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(opened.readAll(), &error);
    if (document.isNull())
        return error.errorString();
    const QJsonArray sources = document.isArray() ? document.array() : QJsonArray{document.object()};
    bool hasClasses = false;
    for (const auto &source : sources) {
        hasClasses = hasClasses || source[QLatin1String("classes")].isArray();
        for (const auto &value : source[QLatin1String("classes")].toArray())
            readClass(insert(value[QLatin1String("qualifiedClassName")].toString()), value.toObject());
    }
    return hasClasses || sources.isEmpty() ? QString() : QStringLiteral("The file is none that moc writes.");
}

void Table::add(const QMetaObject *metaObject)
{
    for (; metaObject && !m_classes.contains(QString::fromLatin1(metaObject->className()));
         metaObject = metaObject->superClass()) {
        Class &type = insert(QString::fromLatin1(metaObject->className()));
        if (metaObject->superClass())
            type.superClasses.append(QString::fromLatin1(metaObject->superClass()->className()));
        readMembers(type, metaObject);
    }
}

void Table::addKey(const QString &className, const QString &key)
{
    const Class *known = classNamed(className);
    Property &property = insert(known ? known->name : className).properties[key];
    property.isWritable = property.isWritable || property.type.isNull();
    property.isAnnounced = true;
}

Table::Class &Table::insert(const QString &name)
{
    m_shortNames.insert(afterLastColon(name), name);
    Class &type = m_classes[name];
    type.name = name;
    return type;
}

const Table::Class *Table::classNamed(const QString &name) const
{
    auto found = m_classes.constFind(name);
    if (found == m_classes.constEnd())
        found = m_classes.constFind(m_shortNames.value(afterLastColon(name)));
    return found == m_classes.constEnd() ? nullptr : &*found;
}

/// Calls the function for the class and its bases until it answers true. The depth keeps a file with a circle of bases
/// from being followed for ever.
bool Table::visitBases(const Class &type, const Visit &visit, int depth) const
{
    if (visit(type))
        return true;
    for (const QString &name : type.superClasses) {
        const Class *base = classNamed(name);
        if (base && depth < 64 && visitBases(*base, visit, depth + 1))
            return true;
    }
    return false;
}

Table::Found Table::property(const Class &type, const QString &key) const
{
    Found found;
    visitBases(type, [&](const Class &candidate) {
        const auto property = candidate.properties.constFind(key);
        if (property == candidate.properties.constEnd())
            return false;
        found = {&candidate, &*property};
        return true;
    });
    return found;
}

QStringList Table::keys(const Class &type) const
{
    QStringList keys;
    visitBases(type, [&](const Class &base) {
        keys += base.properties.keys();
        return false;
    });
    keys.sort();
    return keys;
}

QList<Table::Method> Table::methods(const Class &type) const
{
    QList<Method> methods;
    visitBases(type, [&](const Class &base) {
        if (base.name != u"QObject") // what every object has is out of reach of descriptions
            methods += base.methods;
        return false;
    });
    return methods;
}

const Table::Enumeration *Table::enumeration(const Class &type, const QString &name) const
{
    const qsizetype colon = name.lastIndexOf(QStringLiteral("::"));
    const Class *named = colon < 0 ? &type : classNamed(name.first(colon));
    const Enumeration *known = nullptr;
    if (named) {
        visitBases(*named, [&](const Class &base) {
            const auto found = base.enumerations.constFind(afterLastColon(name));
            known = found == base.enumerations.constEnd() ? nullptr : &*found;
            return known != nullptr;
        });
    }
    return known;
}

bool Table::inherits(const Class &type, const QString &base) const
{
    return visitBases(type, [&](const Class &candidate) { return candidate.name == base; });
}

QString Table::unknownBase(const Class &type) const
{
    QString unknown;
    visitBases(type, [&](const Class &base) {
        // Qt's classes come first; the others are interfaces, which have no properties of their own.
        if (!base.superClasses.isEmpty() && !classNamed(base.superClasses.first()))
            unknown = base.superClasses.first();
        return !unknown.isNull();
    });
    return unknown;
}
