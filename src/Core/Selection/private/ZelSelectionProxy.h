// SPDX-License-Identifier: MIT
#pragma once

#include "Core/KeyValue/ZelKeptValue.h"
#include "Core/KeyValue/ZelKeyValueCoding.h"
#include "Core/RunLoop/ZelGuarded.h"
#include "Core/Selection/ZelValueBlock.h"

#include <QBasicTimer>
#include <QHash>
#include <QObject>
#include <QPointer>
#include <memory>
#include <vector>

class ZelObjectController;
class ZelSelectionRelay;

/// Many objects answering as one.
///
/// Reading a key path folds the objects' values and stops at the first disagreement. The answer is kept until something
/// is heard that may change it. What observers are told of is read when the first of them asks, because most of them
/// ask at the end of the turn, when the values of all keys are read together. Objects are connected for a key path when
/// that is first observed: a few at once, a large selection in slices while the application is idle, so that selecting
/// does not stall the window. What changed in between is noticed when the last slice is connected. Changes of a few
/// objects are announced as they happen. Those of a large selection are announced once, at the end of the event-loop
/// turn: reading all values again after each change would take time by the square of their number.
class ZelSelectionProxy : public ZelGuarded<QObject>, public ZelKeyValueCodingInterface
{
    Q_OBJECT
    Q_INTERFACES(ZelKeyValueCodingInterface)
public:
    explicit ZelSelectionProxy(ZelObjectController &controller);
    ~ZelSelectionProxy() override;

    const QList<QPointer<QObject>> &objects() const { return m_objects; }
    /// One object of each class, so that what depends on the class alone is not looked up for all of them.
    const QList<QPointer<QObject>> &objectsOfEachClass() const;
    /// Answers false if nothing changed, or if an observer deleted the controller.
    bool setObjects(const QList<QPointer<QObject>> &objects);

    void beginBatch() { ++m_batches; }
    void endBatch();

    QVariant valueForKeyPath(const ZelKeyPath &path) const override;
    void setValueForKeyPath(const QVariant &value, const ZelKeyPath &path) override;
    void keyPathWillBeObserved(const ZelKeyPath &path) override;
    void keyPathIsNoLongerObserved(const ZelKeyPath &path) override;
    void rereadKeyPath(const ZelKeyPath &path) override;
    void visitObjects(const ZelKeyPath &path, const ObjectVisitor &visitor) const override;

    /// How often a change at the path was heard of; null unless all of them are.
    std::shared_ptr<const quint64> changesAt(const ZelKeyPath &path) const;
    /// Remembers the values that all objects have just been seen to have, for the next step of a drag: until a change
    /// is heard of, but not for long, since a model may change something while its signals are blocked.
    void noteColumn(const ZelKeyPath &path, ZelValueBlock column);
    /// Those values; null unless the objects still have them, for all that is heard.
    ZelValueBlock *notedColumn(const ZelKeyPath &path) const;

    /// Called by a relay when an object has changed at the path, or is dying.
    void objectChanged(const ZelKeyPath &path);
    /// All objects are written in between; the path counts as changed then, whether they say so or not.
    void willWrite(const ZelKeyPath &path);
    void didWrite(const ZelKeyPath &path);
    /// Whether a change at the path is owed to observers anyway, so that one more needs no work. The objects of a large
    /// selection change one after the other, nearly always at the same key.
    bool isChangeOwed(const ZelKeyPath &path)
    {
        if (!m_lastChanged || !m_lastChanged->isDirty || !(m_batches > 0 || m_isFlushPosted) ||
            !(path == m_lastChangedPath))
            return false;
        m_lastChanged->forget();
        return true;
    }
    void objectDied(const QObject *object);

    bool handleEvent(QEvent *event) override;

    /// Changes of up to this many objects are announced as they happen.
    static constexpr qsizetype immediateLimit = 32;

private:
    struct Path
    {
        std::unique_ptr<ZelSelectionRelay> relay;
        ZelKeptValue value;               // the fold
        ZelKeptValue announced;           // the fold that observers know
        ZelValueBlock column;             // what all objects had
        quint64 changesAtColumn = 0;      // when they were seen to have it
        bool isAnnounced = false;         // announced holds it; otherwise nobody has read since they were told
        bool isReadAtOnce = false;        // an observer reads when it is told of another selection
        bool isKnown = false;             // value was read, and no change has been heard of since
        quint64 changes = 0;              // how often it was forgotten
        quint64 scope = 0;                // the reading scope in which it was read
        quint64 triedIn = 0;              // the reading scope in which it was read together with others
        bool isDirty = false;             // a notice is owed
        bool isSilent = false;            // the fold may change without being heard
        bool answersOld = false;          // set during the notice before a change
        QPointer<const QObject> observer; // the first one, which has a place in a description

        bool hearsAll() const;
        /// Whether the value that was read stands for what reading would answer now.
        bool isFresh(quint64 readingScope) const;
        void forget()
        {
            isKnown = false;
            ++changes;
        }
    };
    void readTogether(quint64 scope) const;
    void readForAnnouncement(Path &path, const ZelKeyPath &keyPath) const;
    /// Reads on behalf of the path's observers, so that what is thrown names the place of one.
    QVariant valueForObservers(const Path &path, const ZelKeyPath &keyPath) const;
    void listen(Path &path);
    void invalidate();
    void noticeBefore(const ZelKeyPath &path);
    void announce(const ZelKeyPath &path);
    bool hasUnannounced(const Path &path, const ZelKeyPath &keyPath) const;
    static void tellOthers(const ZelSelectionProxy *told, const ZelKeyPath &path);
    void connectSlices();
    void goOnConnecting();
    void forgetColumns();
    bool connectSlice();
    void noticeOwed();
    void flush();
    void dropDead();

    ZelObjectController &m_controller;
    QList<QPointer<QObject>> m_objects;
    mutable QList<QPointer<QObject>> m_objectsOfEachClass;    // empty until it is asked for
    mutable QHash<ZelKeyPath, std::shared_ptr<Path>> m_paths; // the observed ones
    Path *m_lastChanged = nullptr;                            // the one of m_paths at m_lastChangedPath
    ZelKeyPath m_lastChangedPath;
    std::unique_ptr<ZelSelectionRelay> m_deaths;
    QBasicTimer m_idle;
    QBasicTimer m_forgetColumns;
    int m_batches = 0;
    bool m_isFlushPosted = false;
    bool m_hasDead = false;
    bool m_isSelecting = false; // observers are being told of another selection
};
