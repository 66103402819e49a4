// SPDX-License-Identifier: MIT
#include "Core/KeyValue/ZelClassRegistry.h"

#include <QHash>

namespace {

struct Entry
{
    const QMetaObject *metaObject = nullptr;
    ZelClassRegistry::Factory factory;
};

QHash<QString, Entry> &classes()
{
    static auto *table = new QHash<QString, Entry>;
    return *table;
}

} // namespace

void ZelClassRegistry::registerClass(const QString &name, const QMetaObject *metaObject, const Factory &factory)
{
    classes().insert(name, {metaObject, factory});
}

bool ZelClassRegistry::hasClass(const QString &name, const QMetaObject *base)
{
    const auto entry = classes().constFind(name);
    return entry != classes().constEnd() && (!base || entry->metaObject->inherits(base));
}

QStringList ZelClassRegistry::classNames()
{
    return classes().keys();
}

const QMetaObject *ZelClassRegistry::metaObject(const QString &name)
{
    return classes().value(name).metaObject;
}

QObject *ZelClassRegistry::create(const QString &name, QObject *owner)
{
    const auto entry = classes().constFind(name);
    return entry == classes().constEnd() ? nullptr : entry->factory(owner);
}
