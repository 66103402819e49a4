// SPDX-License-Identifier: MIT
#include "Core/RunLoop/ZelNotificationCenter.h"

#include "Core/Errors/ZelAssertions.h"
#include "Core/Errors/private/ZelFirstException.h"

#include <algorithm>

ZelNotificationCenter::ZelNotificationCenter(QObject *parent)
    : QObject(parent)
{
}

ZelNotificationCenter *ZelNotificationCenter::defaultCenter()
{
    static auto *center = new ZelNotificationCenter; // static objects may still remove themselves
    return center;
}

void ZelNotificationCenter::addObserver(ZelNotificationObserver *observer, const QString &name, const QObject *object)
{
    if (!ZelRequire(observer, "observer"))
        return;
    m_registrations[{name, object}].append(
        std::make_shared<Registration>(Registration{++m_lastNumber, observer, object != nullptr, object}));
}

void ZelNotificationCenter::removeObserver(ZelNotificationObserver *observer, const QString &name,
                                           const QObject *object)
{
    const auto list = m_registrations.find({name, object});
    if (list == m_registrations.end())
        return;
    // The search begins at the front, where members of a group that leave in the order in which they came are found at
    // once.
    const auto found = std::find_if(list->cbegin(), list->cend(), [observer](const auto &registration) {
        return registration->observer == observer;
    });
    if (found == list->cend())
        return;
    (*found)->observer = nullptr;
    list->erase(found);
    if (list->isEmpty())
        m_registrations.erase(list);
}

void ZelNotificationCenter::removeObserver(ZelNotificationObserver *observer)
{
    m_registrations.removeIf([observer](std::pair<const Key &, Registrations &> entry) {
        entry.second.removeIf([observer](const auto &registration) {
            const bool removed = registration->observer == observer;
            if (removed)
                registration->observer = nullptr;
            return removed;
        });
        return entry.second.isEmpty();
    });
}

void ZelNotificationCenter::post(const QString &name, QObject *object, const QVariantMap &userInfo)
{
    if (!ZelRequire(!name.isEmpty(), "name"))
        return;
    const Registrations registrations = registrationsFor(name, object);
    if (registrations.isEmpty())
        return;
    const ZelNotification notification{name, object, userInfo};
    ZelFirstException errors;
    for (const auto &registration : registrations)
        if (registration->observer && (!registration->wantsOneSender || registration->object))
            errors.run([&] { registration->observer->observeNotification(notification); });
    errors.rethrow();
}

/// Answers the registrations that want the notification, in the order in which they were made. The answer is an
/// implicit copy, unless several lists are involved, so that observers may come and go while it is used.
ZelNotificationCenter::Registrations ZelNotificationCenter::registrationsFor(const QString &name,
                                                                             const QObject *object) const
{
    QList<Key> keys{{name, nullptr}, {QString(), nullptr}};
    if (object)
        keys += {{name, object}, {QString(), object}};
    Registrations all;
    for (const Key &key : std::as_const(keys)) {
        const Registrations some = m_registrations.value(key);
        if (all.isEmpty())
            all = some;
        else
            all += some;
    }
    const auto isBefore = [](const auto &a, const auto &b) { return a->number < b->number; };
    if (!std::is_sorted(all.cbegin(), all.cend(), isBefore))
        std::sort(all.begin(), all.end(), isBefore);
    return all;
}
