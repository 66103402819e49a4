// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Runtime/ZelGuarded.h"
#include "Platform/Runtime/ZelKeptValue.h"
#include "Platform/Runtime/ZelKeyValueCoding.h"

#include <QBasicTimer>
#include <QHash>
#include <QObject>
#include <QPointer>
#include <memory>

class ZelObjectController;
class ZelSelectionRelay;

/// Many objects answering as one.
///
/// Reading a key path folds the objects' values and stops at the first disagreement; the answer is kept until something
/// is heard that may change it. Hearing is arranged by key, when a key is first observed: a few objects are connected
/// at once, a large selection in slices while the application is idle, so that selecting does not stall the window;
/// what changed in between is noticed when the last slice is connected. A few objects' changes are announced as they
/// happen; those of a large selection once, at the end of the event-loop turn, for reading every answer again with
/// every change would cost the square of their number.
class ZelSelectionProxy : public ZelGuarded<QObject>, public ZelKeyValueCodingInterface
{
    Q_OBJECT
    Q_INTERFACES(ZelKeyValueCodingInterface)
public:
    explicit ZelSelectionProxy(ZelObjectController &controller);
    ~ZelSelectionProxy() override;

    const QList<QPointer<QObject>> &objects() const { return m_objects; }
    /// False where nothing changed, or where an observer ended the controller.
    bool setObjects(const QList<QPointer<QObject>> &objects);

    void beginBatch() { ++m_batches; }
    void endBatch();

    QVariant valueForKeyPath(const ZelKeyPath &path) const override;
    void setValueForKeyPath(const QVariant &value, const ZelKeyPath &path) override;
    void keyPathWillBeObserved(const ZelKeyPath &path) override;
    void keyPathIsNoLongerObserved(const ZelKeyPath &path) override;
    void rereadKeyPath(const ZelKeyPath &path) override;
    void visitObjects(const ZelKeyPath &path, const ObjectVisitor &visitor) const override;

    /// Heard from a relay.
    void objectChanged(const ZelKeyPath &path);
    void objectDied();

    bool handleEvent(QEvent *event) override;

    /// Up to this many objects, changes are announced as they happen.
    static constexpr qsizetype immediateLimit = 32;

private:
    struct Path
    {
        std::unique_ptr<ZelSelectionRelay> relay;
        ZelKeptValue value;               // the fold
        ZelKeptValue announced;           // the fold that observers know
        bool isKnown = false;             // nothing was heard since value was read
        quint64 scope = 0;                // the reading scope in which it was read
        bool isDirty = false;             // a notice is owed
        bool isSilent = false;            // the fold may change unheard
        bool answersOld = false;          // during the notice before
        QPointer<const QObject> observer; // the first one, which has a place in a description
    };
    const QList<QPointer<QObject>> &objectsOfEachClass() const;
    /// Reads on behalf of those who observe.
    QVariant valueForObservers(const Path &path, const ZelKeyPath &keyPath) const;
    void listen(Path &path);
    void invalidate();
    void announce(const ZelKeyPath &path);
    bool hasUnannounced(const Path &path, const ZelKeyPath &keyPath) const;
    static void tellOthers(const ZelSelectionProxy *told, const ZelKeyPath &path);
    void connectSlices();
    void noticeOwed();
    void flush();
    void dropDead();

    ZelObjectController &m_controller;
    QList<QPointer<QObject>> m_objects;
    mutable QList<QPointer<QObject>> m_objectsOfEachClass;    // empty before it is asked for
    mutable QHash<ZelKeyPath, std::shared_ptr<Path>> m_paths; // of the observed ones
    Path *m_lastChanged = nullptr;                            // one of m_paths, that of:
    ZelKeyPath m_lastChangedPath;
    std::unique_ptr<ZelSelectionRelay> m_deaths;
    QBasicTimer m_idle;
    int m_batches = 0;
    bool m_isFlushPosted = false;
    bool m_hasDead = false;
};
