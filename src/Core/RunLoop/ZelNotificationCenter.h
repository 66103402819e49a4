// SPDX-License-Identifier: MIT
#pragma once

#include "Core/RunLoop/ZelNotification.h"
#include "Core/ZelExport.h"

#include <QHash>
#include <QList>
#include <memory>

/// Receives notifications. It must remove itself from the center before it dies.
class ZEL_EXPORT ZelNotificationObserver
{
public:
    virtual void observeNotification(const ZelNotification &notification) = 0;

protected:
    ~ZelNotificationObserver() = default;
};

/// Delivers notifications to observers that know a name, not a sender.
///
/// Delivery is synchronous, in the order of registration. Observers may come and go, and senders may die, while a
/// notification is delivered: observers that are added or removed meanwhile do not get it. If an observer throws, the
/// others get the notification all the same, and the first exception leaves post(). A center is used on one thread.
class ZEL_EXPORT ZelNotificationCenter : public QObject
{
    Q_OBJECT
public:
    explicit ZelNotificationCenter(QObject *parent = nullptr);

    /// The center that the library posts to. It outlives the application.
    static ZelNotificationCenter *defaultCenter();

    /// Registers for notifications of one name (empty: of any name) from one sender (null: from any sender or none). A
    /// sender that dies is never taken for another object at its address. A null observer is an assertion.
    void addObserver(ZelNotificationObserver *observer, const QString &name = {}, const QObject *object = nullptr);
    /// Removes the registration with exactly that name and sender, the first if there are several. The sender may have
    /// died, since only its address is used.
    void removeObserver(ZelNotificationObserver *observer, const QString &name, const QObject *object);
    /// Removes all registrations of the observer.
    void removeObserver(ZelNotificationObserver *observer);

    void post(const QString &name, QObject *object = nullptr, const QVariantMap &userInfo = {});

private:
    struct Key
    {
        QString name;
        const QObject *object;
        friend bool operator==(const Key &, const Key &) = default;
        friend size_t qHash(const Key &key, size_t seed = 0) { return qHashMulti(seed, key.name, key.object); }
    };
    struct Registration
    {
        quint64 number;
        ZelNotificationObserver *observer; // null once removed
        bool wantsOneSender;
        QPointer<const QObject> object;
    };
    using Registrations = QList<std::shared_ptr<Registration>>;

    Registrations registrationsFor(const QString &name, const QObject *object) const;

    QHash<Key, Registrations> m_registrations;
    quint64 m_lastNumber = 0;
};
