// SPDX-License-Identifier: MIT
#include "Core/Selection/ZelColumnStore.h"

#include <QHash>

namespace {

/// It is never deleted, since a store may outlive every static.
QHash<const QMetaObject *, ZelColumnStore *> &columnStores()
{
    static auto *stores = new QHash<const QMetaObject *, ZelColumnStore *>;
    return *stores;
}

} // namespace

ZelColumnStore::~ZelColumnStore()
{
    columnStores().removeIf([this](const auto &entry) { return entry.value() == this; });
}

void ZelColumnStore::registerStore(const QMetaObject *metaObject, ZelColumnStore *store)
{
    if (store)
        columnStores().insert(metaObject, store);
    else
        columnStores().remove(metaObject);
}

ZelColumnStore *ZelColumnStore::find(const QMetaObject *metaObject)
{
    for (const QMetaObject *level = metaObject; level; level = level->superClass()) {
        if (ZelColumnStore *store = columnStores().value(level))
            return store;
    }
    return nullptr;
}

bool ZelColumnStore::isAnyRegistered()
{
    return !columnStores().isEmpty();
}
