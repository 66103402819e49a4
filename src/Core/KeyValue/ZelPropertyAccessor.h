// SPDX-License-Identifier: MIT
#pragma once

#include "Core/KeyValue/ZelKeyPath.h"
#include "Core/ZelExport.h"

#include <QEvent>
#include <QMetaProperty>
#include <QObject>
#include <QProperty>
#include <QVariant>
#include <functional>
#include <memory>

class ZelKeyValueCodingInterface;

/// The way in which one property of a class is read, written and heard of. It is looked up once for a class and a key,
/// and cached.
class ZEL_EXPORT ZelPropertyAccessor
{
public:
    virtual ~ZelPropertyAccessor() = default;

    virtual QVariant read(const QObject *object) const = 0;
    /// Answers false if the property cannot be written or the value does not fit.
    virtual bool write(QObject *object, const QVariant &value) const = 0;
    virtual bool isWritable() const { return true; }
    /// Whether an absent value that is written makes the object bring back the property's default (RESET of
    /// Q_PROPERTY).
    virtual bool isResettable() const { return false; }

    /// The type of the values; invalid if they may be of any type.
    virtual QMetaType type() const { return {}; }
    /// Reads or writes a value of exactly type() through memory, without a QVariant. Answers false if it cannot.
    virtual bool readTyped(const QObject *, void *) const { return false; }
    virtual bool writeTyped(QObject *, const void *) const { return false; }

    /// The signal that announces a change: its method index, or -1.
    virtual int notifySignalIndex() const { return -1; }
    /// Whether an emission of that signal with these arguments concerns this property. A signal may serve several
    /// properties and say which of them it means.
    virtual bool isMeantBy(void **) const { return true; }
    /// The types of events at the object that say that the property may have changed.
    virtual QList<QEvent::Type> notifyEvents() const { return {}; }
    /// Whether changes are heard through the property's binding (BINDABLE of Q_PROPERTY). False where a signal
    /// announces them.
    virtual bool isBindable() const { return false; }
    virtual QUntypedBindable bindable(QObject *) const { return {}; }
    bool isSilent() const { return notifySignalIndex() < 0 && notifyEvents().isEmpty() && !isBindable(); }
    /// The signal by which a control reports what its user entered: its method index, or -1.
    virtual int editSignalIndex() const { return -1; }
    /// Whether another object of the same class may lack the property.
    virtual bool isOfOneObject() const { return false; }
    /// Whether selection markers may be written as they are.
    virtual bool takesMarkers() const { return false; }

    /// Answers the accessor of the key for this object; null if there is none. The nearest class that has the key
    /// decides; within a class an accessor that was registered for it comes before a Q_PROPERTY. Then the providers are
    /// asked, and last comes a dynamic property. An object's ZelKeyValueCodingInterface is not considered: ask
    /// interfaceOf first.
    static const ZelPropertyAccessor *find(const QObject *object, ZelKey key);
    /// The object as one that answers keys itself, or null.
    static ZelKeyValueCodingInterface *interfaceOf(const QObject *object);

    /// Registers an accessor for a class and those derived from it.
    static void registerAccessor(const QMetaObject *metaObject, ZelKey key,
                                 std::unique_ptr<ZelPropertyAccessor> accessor);
    /// Has the function called once, before the next accessor is looked up. Static initializers may call this: it only
    /// stores the function.
    static void registerLater(void (*registration)());
    /// Answers the accessor of a key for a class whose meta-object does not know the key, or null.
    using Provider = std::function<const ZelPropertyAccessor *(const QMetaObject *, ZelKey)>;
    static void registerProvider(const Provider &provider);
    /// Called by a provider when its answers have changed.
    static void forgetProvidedAccessors();
};

/// An accessor made of functions on one class.
template<typename Class> class ZelFunctionAccessor : public ZelPropertyAccessor
{
public:
    using Read = std::function<QVariant(const Class *)>;
    using Write = std::function<bool(Class *, const QVariant &)>;

    ZelFunctionAccessor(Read read, Write write)
        : m_read(std::move(read))
        , m_write(std::move(write))
    {
    }
    /// The signal that announces changes of the property.
    template<typename Signal> ZelFunctionAccessor &setNotify(Signal signal)
    {
        m_notify = QMetaMethod::fromSignal(signal).methodIndex();
        return *this;
    }
    /// The signal by which a control reports what its user entered.
    template<typename Signal> ZelFunctionAccessor &setEdit(Signal signal)
    {
        m_edit = QMetaMethod::fromSignal(signal).methodIndex();
        return *this;
    }
    ZelFunctionAccessor &setEvents(const QList<QEvent::Type> &events)
    {
        m_events = events;
        return *this;
    }
    ZelFunctionAccessor &setTakesMarkers(bool takes = true)
    {
        m_takesMarkers = takes;
        return *this;
    }

    QVariant read(const QObject *object) const override { return m_read(static_cast<const Class *>(object)); }
    bool write(QObject *object, const QVariant &value) const override
    {
        return m_write && m_write(static_cast<Class *>(object), value);
    }
    bool isWritable() const override { return bool(m_write); }
    int notifySignalIndex() const override { return m_notify; }
    int editSignalIndex() const override { return m_edit; }
    QList<QEvent::Type> notifyEvents() const override { return m_events; }
    bool takesMarkers() const override { return m_takesMarkers; }

private:
    Read m_read;
    Write m_write;
    int m_notify = -1;
    int m_edit = -1;
    QList<QEvent::Type> m_events;
    bool m_takesMarkers = false;
};
