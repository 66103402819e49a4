// SPDX-License-Identifier: MIT
#include "Core/KeyValue/ZelPropertyAccessor.h"

#include "Core/KeyValue/ZelKeyValueCoding.h"
#include "Core/KeyValue/private/ZelMetaPropertyAccessor.h"
#include "Core/Values/ZelValues.h"

#include <vector>

namespace {

/// A dynamic property. One accessor for each key serves all objects.
class DynamicPropertyAccessor : public ZelPropertyAccessor
{
public:
    explicit DynamicPropertyAccessor(ZelKey key)
        : m_key(key)
    {
    }
    QVariant read(const QObject *object) const override { return object->property(m_key.name().constData()); }
    bool write(QObject *object, const QVariant &value) const override
    {
        // An invalid value would remove the property instead of emptying it.
        const QVariant stored = ZelIsNull(value) ? QVariant::fromValue(nullptr) : value;
        object->setProperty(m_key.name().constData(), stored);
        return true;
    }
    QList<QEvent::Type> notifyEvents() const override { return {QEvent::DynamicPropertyChange}; }
    bool isOfOneObject() const override { return true; }

private:
    ZelKey m_key;
};

/// What is known of one class.
struct ClassInfo
{
    bool hasInterface = false;
    QHash<ZelKey, const ZelPropertyAccessor *> accessors; // null for a key that was not found
};

struct Tables
{
    QHash<const QMetaObject *, ClassInfo *> classes;
    const QMetaObject *lastClass = nullptr;
    ClassInfo *lastInfo = nullptr;
    QHash<std::pair<const QMetaObject *, ZelKey>, const ZelPropertyAccessor *> registered;
    std::vector<std::unique_ptr<ZelPropertyAccessor>> owned; // replaced accessors may still be in use
    QHash<ZelKey, const ZelPropertyAccessor *> dynamic;
    std::vector<ZelPropertyAccessor::Provider> providers;
    std::vector<void (*)()> pendingRegistrations;

    void forgetLookUps()
    {
        for (ClassInfo *info : std::as_const(classes))
            info->accessors.clear();
    }
    void runPendingRegistrations()
    {
        for (const auto registration : std::exchange(pendingRegistrations, {}))
            registration();
    }
};

Tables &tables()
{
    static auto *instance = new Tables;
    return *instance;
}

ClassInfo *infoOf(const QObject *object)
{
    Tables &t = tables();
    const QMetaObject *metaObject = object->metaObject();
    if (metaObject == t.lastClass)
        return t.lastInfo;
    ClassInfo *&info = t.classes[metaObject];
    if (!info) {
        info = new ClassInfo;
        info->hasInterface = const_cast<QObject *>(object)->qt_metacast(ZelKeyValueCodingInterface_iid);
    }
    t.lastClass = metaObject;
    return t.lastInfo = info;
}

/// The nearest class decides; within one class, a registered accessor comes before the property.
const ZelPropertyAccessor *findForClass(const QMetaObject *metaObject, ZelKey key)
{
    Tables &t = tables();
    const int property = metaObject->indexOfProperty(key.name().constData());
    for (const QMetaObject *level = metaObject; level; level = level->superClass()) {
        if (const ZelPropertyAccessor *accessor = t.registered.value({level, key}))
            return accessor;
        if (property >= level->propertyOffset()) {
            t.owned.push_back(std::make_unique<ZelMetaPropertyAccessor>(metaObject->property(property)));
            return t.owned.back().get();
        }
    }
    for (const ZelPropertyAccessor::Provider &provider : t.providers) {
        if (const ZelPropertyAccessor *accessor = provider(metaObject, key))
            return accessor;
    }
    return nullptr;
}

const ZelPropertyAccessor *findDynamic(const QObject *object, ZelKey key)
{
    if (!object->dynamicPropertyNames().contains(key.name()))
        return nullptr;
    Tables &t = tables();
    const ZelPropertyAccessor *&accessor = t.dynamic[key];
    if (!accessor) {
        t.owned.push_back(std::make_unique<DynamicPropertyAccessor>(key));
        accessor = t.owned.back().get();
    }
    return accessor;
}

} // namespace

const ZelPropertyAccessor *ZelPropertyAccessor::find(const QObject *object, ZelKey key)
{
    if (!object || key.isEmpty())
        return nullptr;
    ClassInfo *info = infoOf(object);
    auto known = info->accessors.constFind(key);
    if (known == info->accessors.constEnd()) {
        tables().runPendingRegistrations();
        known = info->accessors.insert(key, findForClass(object->metaObject(), key));
    }
    return *known ? *known : findDynamic(object, key);
}

ZelKeyValueCodingInterface *ZelPropertyAccessor::interfaceOf(const QObject *object)
{
    if (!object || !infoOf(object)->hasInterface)
        return nullptr;
    return qobject_cast<ZelKeyValueCodingInterface *>(const_cast<QObject *>(object));
}

void ZelPropertyAccessor::registerAccessor(const QMetaObject *metaObject, ZelKey key,
                                           std::unique_ptr<ZelPropertyAccessor> accessor)
{
    Tables &t = tables();
    t.registered.insert({metaObject, key}, accessor.get());
    t.owned.push_back(std::move(accessor));
    t.forgetLookUps();
}

void ZelPropertyAccessor::registerLater(void (*registration)())
{
    tables().pendingRegistrations.push_back(registration);
    tables().forgetLookUps();
}

void ZelPropertyAccessor::registerProvider(const Provider &provider)
{
    tables().providers.push_back(provider);
    tables().forgetLookUps();
}

void ZelPropertyAccessor::forgetProvidedAccessors()
{
    tables().forgetLookUps();
}
