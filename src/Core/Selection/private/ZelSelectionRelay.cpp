// SPDX-License-Identifier: MIT
#include "Core/Selection/private/ZelSelectionRelay.h"

#include "Core/Errors/ZelExceptionReporter.h"
#include "Core/Errors/private/ZelMainThread.h"
#include "Core/KeyValue/ZelPropertyAccessor.h"
#include "Core/KeyValue/private/ZelObjectRecord.h"
#include "Core/KeyValue/private/ZelSignalReceiver.h"
#include "Core/Selection/private/ZelSelectionProxy.h"

#include <QBasicTimer>
#include <QCoreApplication>
#include <QMetaMethod>
#include <QTimerEvent>
#include <QVarLengthArray>
#include <deque>

namespace {
const char g_sliceContext = 0;
}

/// Receives the notices of some of the objects.
class ZelSelectionRelay::Slice : public ZelSignalReceiver, public ZelKeyValueObserver
{
public:
    Slice(ZelSelectionProxy &proxy, const ZelKeyPath &path)
        : m_proxy(&proxy)
        , m_path(path)
    {
    }
    ~Slice() override { stopObserving(); }

    void connectTo(QObject *object)
    {
        static const int destroyed = QMetaMethod::fromSignal(&QObject::destroyed).methodIndex();
        const bool isPlain = m_path.isEmpty() || (m_path.isSingleKey() && !ZelPropertyAccessor::interfaceOf(object));
        const ZelPropertyAccessor *accessor =
            isPlain && !m_path.isEmpty() ? ZelPropertyAccessor::find(object, m_path.first()) : nullptr;
        const int signal = m_path.isEmpty() ? destroyed : accessor ? accessor->notifySignalIndex() : -1;
        if (signal >= 0) {
            listenTo(object, signal, accessor ? numberOf(accessor) : 0);
            ++m_connections;
            if (!m_classes.contains(object->metaObject()))
                m_classes.append(object->metaObject());
            return;
        }
        ZelAddObserver(object, this, m_path, 0, &g_sliceContext);
        m_observed.append(object);
    }

    /// Stops hearing. Connections to signals stay until the slice is deleted, but lead nowhere.
    void silence()
    {
        m_proxy = nullptr;
        stopObserving();
    }

    qsizetype connections() const { return m_connections; }
    void observeValueForKeyPath(const ZelKeyPath &, QObject *, const ZelKeyValueChange &, const void *) override
    {
        tell();
    }

private:
    void heard(int number, void **arguments) override
    {
        if (m_path.isEmpty()) {
            objectDied(*static_cast<QObject **>(arguments[1]));
            return;
        }
        ZelRequireMainThread();
        const bool isOwed = m_proxy && m_proxy->isChangeOwed(m_path);
        if (!isOwed && m_accessors[number]->isMeantBy(arguments) && !isSenderGoing())
            tell();
    }
    /// The place of an accessor among those of the connected objects, which are mostly of one class.
    int numberOf(const ZelPropertyAccessor *accessor)
    {
        if (m_accessors.isEmpty() || m_accessors.last() != accessor) {
            if (const auto known = m_accessors.indexOf(accessor); known >= 0)
                return int(known);
            m_accessors.append(accessor);
        }
        return int(m_accessors.size()) - 1;
    }
    /// Whether the notice comes from a destructor of a base class, so that the object is of none of the known classes
    /// any more. Its death is heard of next. For a large selection this does not matter: notices are handled later.
    bool isSenderGoing() const
    {
        const QObject *object = m_connections <= ZelSelectionProxy::immediateLimit ? sender() : nullptr;
        return object && !m_classes.contains(object->metaObject());
    }
    void tell()
    {
        ZelRequireMainThread();
        const ZelKeyPath path = m_path; // a copy, since this may be deleted meanwhile
        if (m_proxy)
            m_proxy->objectChanged(path);
    }
    /// Called from the object's destructor, from which nothing may be thrown.
    void objectDied(const QObject *object)
    {
        ZelObjectRecord::end(object);
        if (m_proxy)
            ZelExceptionReporter::run(nullptr, [object, proxy = m_proxy] { proxy->objectDied(object); });
    }
    void stopObserving()
    {
        for (const QPointer<QObject> &object : std::exchange(m_observed, {})) {
            if (object)
                ZelRemoveObserver(object, this, m_path, &g_sliceContext);
        }
    }

    ZelSelectionProxy *m_proxy;
    ZelKeyPath m_path;
    QList<QPointer<QObject>> m_observed;                         // those without a signal
    QVarLengthArray<const QMetaObject *, 1> m_classes;           // of those with one
    QVarLengthArray<const ZelPropertyAccessor *, 1> m_accessors; // of those with one, as their connections count them
    qsizetype m_connections = 0;
};

namespace {

/// Deletes retired receivers, with their connections, in batches while the application is idle. If it never is, as in a
/// long loop that selects, each receiver that comes pushes the oldest out, which costs no more than connecting did.
class Graveyard : public QObject
{
public:
    static Graveyard &instance()
    {
        static QPointer<Graveyard> graveyard;
        if (!graveyard)
            graveyard = new Graveyard(QCoreApplication::instance());
        return *graveyard;
    }
    void bury(std::unique_ptr<QObject> receiver, qsizetype connections)
    {
        m_receivers.push_back({std::move(receiver), connections});
        m_connections += connections;
        if (m_receivers.size() > maximumReceivers || m_connections > maximumConnections)
            deleteOldest();
        if (!m_timer.isActive())
            m_timer.start(0, this);
    }

protected:
    void timerEvent(QTimerEvent *) override
    {
        const qsizetype target = m_connections - batch;
        for (int i = 0; i < batch && !m_receivers.empty() && m_connections > target; ++i)
            deleteOldest();
        if (m_receivers.empty())
            m_timer.stop();
    }

private:
    static constexpr size_t maximumReceivers = 4096;
    static constexpr qsizetype maximumConnections = 1000000;
    static constexpr int batch = 1000; // connections, or receivers without any, in a turn of the event loop

    struct Retired
    {
        std::unique_ptr<QObject> receiver;
        qsizetype connections;
    };
    explicit Graveyard(QObject *parent)
        : QObject(parent)
    {
    }
    void deleteOldest()
    {
        const Retired oldest = std::move(m_receivers.front());
        m_receivers.pop_front();
        m_connections -= oldest.connections;
    }

    std::deque<Retired> m_receivers;
    qsizetype m_connections = 0; // of all of them
    QBasicTimer m_timer;
};

} // namespace

ZelSelectionRelay::ZelSelectionRelay(ZelSelectionProxy &proxy, const ZelKeyPath &path)
    : m_proxy(proxy)
    , m_path(path)
{
}

ZelSelectionRelay::~ZelSelectionRelay()
{
    retire();
}

void ZelSelectionRelay::retire()
{
    for (std::unique_ptr<Slice> &slice : m_slices) {
        slice->silence();
        const qsizetype connections = slice->connections();
        if (QCoreApplication::instance() && !QCoreApplication::closingDown())
            Graveyard::instance().bury(std::move(slice), connections);
    }
    m_slices.clear();
}

void ZelSelectionRelay::setObjects(const QList<QPointer<QObject>> &objects)
{
    retire();
    m_objects = objects;
    m_connected = 0;
    if (m_objects.size() <= sliceSize)
        connectSlice();
}

void ZelSelectionRelay::connectSlice()
{
    if (isComplete())
        return;
    auto slice = std::make_unique<Slice>(m_proxy, m_path);
    const qsizetype end = std::min(m_connected + sliceSize, m_objects.size());
    for (; m_connected < end; ++m_connected) {
        if (QObject *object = m_objects.at(m_connected))
            slice->connectTo(object);
    }
    m_slices.push_back(std::move(slice));
}
