// SPDX-License-Identifier: MIT
#include "Bench.h"

#include "Observation/ZelObservations.h"

#include <QCoreApplication>
#include <QEvent>

#include <functional>
#include <vector>

namespace {

/// Announces its changes itself.
class Announcing : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString text READ text WRITE setText)
public:
    QString text() const { return m_text; }
    void setText(const QString &text)
    {
        if (text == m_text)
            return;
        static const ZelKey key("text");
        const ZelValueChange change(this, key);
        m_text = text;
    }

private:
    QString m_text;
};

/// The same by hand.
class Calling : public QObject
{
public:
    std::vector<std::function<void()>> functions;
    void setText(const QString &text)
    {
        if (text == m_text)
            return;
        m_text = text;
        for (const auto &function : functions)
            function();
    }

private:
    QString m_text;
};

/// A model as any application has it.
class Notifying : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged)
public:
    QString text() const { return m_text; }
    void setText(const QString &text)
    {
        if (text == m_text)
            return;
        m_text = text;
        Q_EMIT textChanged();
    }
Q_SIGNALS:
    void textChanged();

private:
    QString m_text;
};

const char g_context = 0;
int g_calls = 0;

/// Sets texts that are made for each change, as those that a user enters are.
template<typename Object> std::function<void()> newTexts(Object &object)
{
    return [&object] {
        for (int i = 0; i < 100; ++i)
            object.setText(QString::number(i));
    };
}

/// Sets texts that are there already: the setter itself costs next to nothing.
template<typename Object> std::function<void()> sharedTexts(Object &object)
{
    return [&object,
            texts = QStringList{QString::fromLatin1("The quick brown fox"), QString::fromLatin1("The lazy dog")}] {
        for (int i = 0; i < 100; ++i)
            object.setText(texts.at(i % 2));
    };
}

void observe(QObject *object, int observers, quint32 options, const ZelBlockObservation::Block &block)
{
    for (int i = 0; i < observers; ++i)
        ZelObservations(object).addObservationWithObject(object, "text", options, block, &g_context);
}

} // namespace

struct Goals
{
    double one = 0;
    double ten = 0; ///< observers
};

static void compareAnnounced(const QString &name, Goals goals, quint32 options, bool shared)
{
    for (const auto [observers, goal] : {std::pair(1, goals.one), std::pair(10, goals.ten)}) {
        Announcing announcing;
        Calling calling;
        observe(&announcing, observers, options, [](ZelBlockObservation *, const ZelKeyValueChange &) { ++g_calls; });
        for (int i = 0; i < observers; ++i)
            calling.functions.push_back([] { ++g_calls; });
        Bench::compare(name.arg(observers), goal, shared ? sharedTexts(announcing) : newTexts(announcing),
                       shared ? sharedTexts(calling) : newTexts(calling), Bench::small);
        ZelObservations(&announcing).removeAllObservationsForContext(&g_context);
    }
}

static void deliverAnnouncedChange()
{
    const quint32 equalityCheck = ZelKeyValueObservingOptionEqualCheck;
    compareAnnounced("B announced change to %1 observers", {1.3, 2.0}, 0, false);
    compareAnnounced("B announced change to %1 observers, shared text", {}, 0, true);
    compareAnnounced("B announced change to %1 observers, equality check", {3, 3}, equalityCheck, false);
}
ZEL_BENCHMARK(deliverAnnouncedChange)

static void deliverNotifiedChange()
{
    for (const int observers : {1, 10}) {
        Notifying observed, connected;
        observe(&observed, observers, ZelKeyValueObservingOptionOld | ZelKeyValueObservingOptionNew,
                [](ZelBlockObservation *, const ZelKeyValueChange &change) {
                    g_calls += change.keyValueChanged();
                    Bench::keep(change);
                });
        for (int i = 0; i < observers; ++i)
            QObject::connect(&connected, &Notifying::textChanged, &connected, [&connected] {
                const QVariant value = connected.property("text");
                Bench::keep(value);
            });
        Bench::compare(QStringLiteral("B2 NOTIFY change to %1 observers").arg(observers), observers == 1 ? 1.0 : 0.2,
                       newTexts(observed), newTexts(connected), Bench::small);
        ZelObservations(&observed).removeAllObservationsForContext(&g_context);
    }
}
ZEL_BENCHMARK(deliverNotifiedChange)

namespace {

/// Delayed calls by hand: a flag each, one queue, one event.
class Queue : public QObject
{
public:
    struct Item
    {
        std::function<void()> work;
        bool scheduled = false;
    };

    void schedule(Item &item)
    {
        if (item.scheduled)
            return;
        item.scheduled = true;
        m_items.push_back(&item);
        if (!std::exchange(m_posted, true))
            QCoreApplication::postEvent(this, new QEvent(QEvent::User));
    }
    bool event(QEvent *event) override
    {
        if (event->type() != QEvent::User)
            return QObject::event(event);
        m_posted = false;
        for (Item *item : std::exchange(m_items, {})) {
            item->scheduled = false;
            item->work();
        }
        return true;
    }

private:
    std::vector<Item *> m_items;
    bool m_posted = false;
};

struct Row
{
    ZelDelayedInvocation updateInvocation{[] { ++g_calls; }};
};

} // namespace

static void coalesceSchedules()
{
    constexpr int count = 500;
    constexpr int rounds = 200;
    std::vector<Row> rows(count);
    std::vector<Queue::Item> items(count);
    Queue queue;
    for (int i = 0; i < count; ++i) {
        items[size_t(i)].work = [] { ++g_calls; };
    }
    const auto runsAll = [](const std::function<void()> &schedule) {
        g_calls = 0;
        schedule();
        QCoreApplication::processEvents();
        Bench::expect(g_calls == count, "each is run once");
    };
    Bench::compare(
        "D 100,000 schedules of 500 invocations until run", 1.5,
        [&] {
            runsAll([&] {
                for (int round = 0; round < rounds; ++round)
                    for (Row &row : rows)
                        row.updateInvocation.schedule();
            });
        },
        [&] {
            runsAll([&] {
                for (int round = 0; round < rounds; ++round)
                    for (Queue::Item &item : items)
                        queue.schedule(item);
            });
        },
        Bench::small);
}
ZEL_BENCHMARK(coalesceSchedules)

#include "observation.moc"
