// SPDX-License-Identifier: MIT
#include "Platform/Selection/ZelSelectionRelay.h"

#include "Platform/Runtime/ZelPropertyAccessor.h"
#include "Platform/Selection/ZelSelectionProxy.h"

#include <QBasicTimer>
#include <QCoreApplication>
#include <QMetaMethod>
#include <QTimerEvent>

namespace {
const char g_sliceContext = 0;
}

/// The receiver of some of the objects' notices.
class ZelSelectionRelay::Slice : public QObject, public ZelKeyValueObserver
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
            QMetaObject::connect(object, signal, this, QObject::staticMetaObject.methodCount(), Qt::DirectConnection);
            return;
        }
        ZelAddObserver(object, this, m_path, 0, &g_sliceContext);
        m_observed.append(object);
    }

    /// Nothing is heard from here on.
    void silence()
    {
        m_proxy = nullptr;
        stopObserving();
    }

    int qt_metacall(QMetaObject::Call call, int id, void **arguments) override
    {
        static const int first = QObject::staticMetaObject.methodCount();
        if (call != QMetaObject::InvokeMetaMethod || id < first)
            return QObject::qt_metacall(call, id, arguments);
        tell();
        return -1;
    }
    void observeValueForKeyPath(const ZelKeyPath &, QObject *, const ZelKeyValueChange &, const void *) override
    {
        tell();
    }

private:
    void tell()
    {
        if (!m_proxy)
            return;
        if (m_path.isEmpty())
            m_proxy->objectDied();
        else
            m_proxy->objectChanged(m_path);
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
    QList<QPointer<QObject>> m_observed; // those without a signal
};

namespace {

/// Deletes retired receivers one at a time: each has a thousand connections to take down.
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
    void bury(std::unique_ptr<QObject> receiver)
    {
        m_receivers.push_back(std::move(receiver));
        if (!m_timer.isActive())
            m_timer.start(0, this);
    }

protected:
    void timerEvent(QTimerEvent *) override
    {
        m_receivers.pop_back();
        if (m_receivers.empty())
            m_timer.stop();
    }

private:
    explicit Graveyard(QObject *parent)
        : QObject(parent)
    {
    }
    std::vector<std::unique_ptr<QObject>> m_receivers;
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
        if (QCoreApplication::instance() && !QCoreApplication::closingDown())
            Graveyard::instance().bury(std::move(slice));
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
