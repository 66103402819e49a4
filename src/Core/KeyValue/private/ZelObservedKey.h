// SPDX-License-Identifier: MIT
#pragma once

#include "Core/KeyValue/ZelKeptValue.h"
#include "Core/KeyValue/ZelKeyValueObserving.h"

#include <QEvent>
#include <QPointer>
#include <QProperty>
#include <vector>

class ZelKeyValueCodingInterface;
class ZelPropertyAccessor;

/// One observed key of one object: who observes it, and the delivery of its changes.
///
/// It belongs to the object's record. While a change is delivered it is held, so that observers may come and go and the
/// object may die: a removed registration is emptied and swept out later, and a key whose object has died is deleted
/// when its last hold ends. Once a destructor of the object has begun, nothing is read or delivered any more, because
/// the part of the object that has the property may be gone already.
class ZelObservedKey
{
public:
    struct Registration
    {
        ZelKeyValueObserver *observer = nullptr; // null: removed during a delivery
        const void *context = nullptr;
        ZelKeyPath path;
        ZelKeyValueObservingOptions options = 0;
    };

    /// Keeps the key alive and its registrations in place.
    class Hold
    {
    public:
        explicit Hold(ZelObservedKey *key)
            : m_key(key)
        {
            m_key->retain();
        }
        ~Hold() { m_key->release(); }
        Q_DISABLE_COPY_MOVE(Hold)

    private:
        ZelObservedKey *m_key;
    };

    ZelObservedKey(QObject *object, ZelKey key);
    void retain() { ++m_holds; }
    void release()
    {
        if (--m_holds == 0 && (m_isOrphan || m_needsSweep))
            releaseLast();
    }

    ZelKey key() const { return m_key; }
    bool isObserved() const { return m_observers > 0; }
    bool wantsOldValues() const { return m_oldObservers > 0; }
    bool announcesItself() const { return m_announcesItself; }
    /// The signal whose emission is a change of this key, or -1.
    int notifySignalIndex() const;
    /// Whether an emission of that signal with these arguments concerns this key.
    bool isMeantBy(void **arguments) const;
    QList<QEvent::Type> notifyEvents() const;
    /// Whether something tells of changes: a signal, events or a binding.
    bool isHeard() const;
    /// The binding that tells of changes; null where a signal or nothing does.
    QUntypedBindable bindable() const;

    void add(const Registration &registration);
    /// Removes the latest such registration. Answers false if there is none.
    bool remove(ZelKeyValueObserver *observer, const ZelKeyPath &path, const void *context);

    /// A change announced in two steps. `byObject` marks the object's own announcements, after which its signal is
    /// ignored.
    void willChange(ZelKeyValueChangeKind kind, const ZelIndexSet *indexes, bool byObject);
    void didChange(ZelKeyValueChangeKind kind, const ZelIndexSet *indexes, bool byObject);
    /// Begins a change as willChange does if nobody asks for anything before it. Answers false if somebody does.
    bool beginsUnheard(bool byObject)
    {
        if (m_oldObservers > 0 || m_priorObservers > 0 || (byObject && !m_announcesItself))
            return false;
        m_announcements += isObserved() ? 1 : 0; // whether it is readable matters at the end
        return true;
    }
    /// A change that is heard of after it happened.
    void notified();
    /// The same for a property that is heard through its binding.
    void notifiedByBinding();
    /// Delivers a change that was not announced at all, if there was one.
    void reread();

    /// Takes back the beginning of a change whose end will not be announced.
    void abandonChange();
    /// Called when the object dies: nothing is delivered any more. Deletes the key, now or when the last hold ends.
    void orphan();

private:
    class Source;
    ~ZelObservedKey();
    QVariant read() const;
    QVariant elementsAt(const ZelIndexSet &indexes) const;
    const ZelPropertyAccessor *accessor() const;
    bool isSilent() const;
    void deliver(ZelKeyValueChangeKind kind, const Source &source, const ZelIndexSet *indexes, bool isPrior);
    void releaseLast();
    void sweep();
    void rememberValue();
    void beginAnnouncing();
    void startObserving();
    void stopObserving();

    bool isReadable() const;

    QPointer<QObject> m_object;
    mutable const QMetaObject *m_class; // the object's class, as seen last
    ZelKey m_key;
    ZelKeyPath m_path; // the same; registrations move while observers run
    mutable const ZelPropertyAccessor *m_accessor = nullptr;
    ZelKeyValueCodingInterface *m_interface = nullptr;
    std::vector<Registration> m_registrations;
    struct Old
    {
        int announcement; // its number among those begun and not yet ended; the outermost is 1
        ZelKeptValue value;
    };
    std::vector<Old> m_pendingOld; // only for announcements of which somebody wants the old value
    ZelKeptValue m_last;           // the value delivered last, if m_remembers
    int m_announcements = 0;       // begun and not yet ended
    int m_observers = 0;
    int m_oldObservers = 0;
    int m_priorObservers = 0;
    int m_holds = 0;
    bool m_remembers = false;
    bool m_announcesItself = false;
    bool m_isOrphan = false;
    bool m_needsSweep = false;
};
