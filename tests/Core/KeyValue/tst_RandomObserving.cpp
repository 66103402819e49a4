// SPDX-License-Identifier: MIT
#include "Core/KeyValue/ZelKeyValueCoding.h"
#include "Core/KeyValue/ZelKeyValueObserving.h"
#include "Core/Values/ZelValues.h"
#include "Support/Person.h"
#include "Support/Random.h"

#include <QPointer>
#include <QTest>
#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

namespace {

const char g_context = 0;
const QStringList g_paths{"name",          "height",        "silent",          "friendOf",
                          "friendOf.name", "friendOf.note", "friendOf.silent", "friendOf.friendOf.height"};

/// The value of a key, read without the library.
QVariant plainValue(const Person *person, const QString &key)
{
    if (!person)
        return {};
    if (key == QLatin1String("friendOf"))
        return person->friendOf() ? QVariant::fromValue<QObject *>(person->friendOf()) : QVariant();
    return person->property(key.toLatin1().constData());
}

/// What a path leads to, and on how many of the objects along it a key is looked at.
struct Walk
{
    QVariant value;
    int meetings = 0;

    Walk(const Person *root, const QString &path, const Person *changed = nullptr, const QString &changedKey = {})
    {
        const Person *person = root;
        const QStringList keys = path.split(u'.');
        for (const QString &key : keys) {
            meetings += person && person == changed && key == changedKey;
            value = plainValue(person, key);
            person = person && key == QLatin1String("friendOf") ? person->friendOf() : nullptr;
        }
    }
};

/// An observation, and what has been heard since the last step.
struct Observer : ZelKeyValueObserver
{
    QPointer<Person> root;
    QString path;
    quint32 options = 0;
    QVariant known;
    int before = 0;
    QList<ZelKeyValueChange> changes;

    void start() { ZelAddObserver(root, this, path, options, &g_context); }
    void stop()
    {
        if (root)
            ZelRemoveObserver(root, this, path, &g_context);
    }
    void observeValueForKeyPath(const ZelKeyPath &, QObject *, const ZelKeyValueChange &change, const void *) override
    {
        if (change.isPrior())
            ++before;
        else
            changes.append(change);
    }
};

/// Some people who are friends of each other, and those who observe them.
class World
{
public:
    explicit World(unsigned seed)
        : m_random(seed)
    {
        for (int i = 0; i < 5; ++i)
            m_people.push_back(std::make_unique<Person>(QString::number(i)));
    }
    ~World()
    {
        for (const auto &observer : m_observers)
            observer->stop();
    }

    void step()
    {
        switch (m_random.below(12)) {
        case 0:
            return addObserver();
        case 1:
            return removeObserver();
        case 2:
            return replacePerson();
        case 3:
        case 4:
        case 5:
        case 6:
            return change(somebody(), "friendOf", QVariant::fromValue(m_random.below(4) ? somebody() : nullptr));
        case 7:
            return change(somebody(), "height", m_random.below(3));
        case 8:
            return change(somebody(), "silent", QString::number(m_random.below(3)));
        case 9:
            return change(somebody(), "note", m_random.below(3) ? QVariant(m_random.below(2)) : QVariant());
        default:
            return change(somebody(), "name", QString::number(m_random.below(3)));
        }
    }

private:
    Person *somebody() { return m_people[m_random.below(quint32(m_people.size()))].get(); }

    void addObserver()
    {
        if (m_observers.size() > 12)
            return;
        auto observer = std::make_unique<Observer>();
        observer->root = somebody();
        observer->path = g_paths.at(m_random.below(quint32(g_paths.size())));
        observer->options = ZelKeyValueObservingOptionNew | ZelKeyValueObservingOptionOld;
        if (m_random.below(2))
            observer->options |= ZelKeyValueObservingOptionPrior;
        observer->known = Walk(observer->root, observer->path).value;
        observer->start();
        m_observers.push_back(std::move(observer));
    }
    void removeObserver()
    {
        if (m_observers.empty())
            return;
        const auto observer = m_observers.begin() + m_random.below(quint32(m_observers.size()));
        (*observer)->stop();
        m_observers.erase(observer);
    }
    /// Friends leave before somebody dies, as in any sound model. Nobody hears of the death itself.
    void replacePerson()
    {
        auto &place = m_people[m_random.below(quint32(m_people.size()))];
        for (const auto &person : m_people)
            if (person->friendOf() == place.get())
                change(person.get(), "friendOf", QVariant::fromValue<Person *>(nullptr));
        Person *former = place.release();
        place = std::make_unique<Person>(QStringLiteral("new"));
        delete former;
        std::erase_if(m_observers, [](const auto &observer) { return !observer->root; });
        for (const auto &observer : m_observers)
            QVERIFY(observer->changes.isEmpty());
    }

    /// Everybody hears of a change that concerns them, with the right values, and of nothing else.
    void change(Person *person, const QString &key, const QVariant &value)
    {
        std::vector<int> meetings;
        const bool isTold = key == QLatin1String("silent") || plainValue(person, key).toString() != value.toString() ||
                            (key == QLatin1String("friendOf") && person->friendOf() != value.value<Person *>()) ||
                            plainValue(person, key).isNull() != value.isNull();
        for (const auto &observer : m_observers)
            meetings.push_back(Walk(observer->root, observer->path, person, key).meetings);
        write(person, key, value);
        for (size_t i = 0; i < m_observers.size(); ++i)
            check(*m_observers[i], isTold ? meetings[i] : 0);
    }
    void write(Person *person, const QString &key, const QVariant &value)
    {
        if (m_random.below(2)) {
            ZelSetValueForKey(person, value, key);
            return;
        }
        person->setProperty(key.toLatin1().constData(), value);
        ZelRereadSilentProperties();
    }

    static void check(Observer &observer, int meetings)
    {
        const Walk now(observer.root, observer.path);
        const QList<ZelKeyValueChange> changes = std::exchange(observer.changes, {});
        const int before = std::exchange(observer.before, 0);
        const QVariant former = std::exchange(observer.known, now.value);
        const QString what =
            QStringLiteral("%1: %2 changes, met %3 times").arg(observer.path).arg(changes.size()).arg(meetings);
        QVERIFY2(ZelEqual(ZelValueForKeyPath(observer.root, observer.path), now.value), qPrintable(what));
        // What announces nothing may be found equal and not be told of; a circle of friends is met more than once.
        if (!ZelEqual(former, now.value) || meetings == 0)
            QVERIFY2(meetings == 0 ? changes.isEmpty() : !changes.isEmpty(), qPrintable(what));
        QVERIFY2(changes.size() <= std::max(meetings, 0), qPrintable(what));
        if (meetings < 2)
            QCOMPARE(before, observer.options & ZelKeyValueObservingOptionPrior ? int(changes.size()) : 0);
        if (changes.isEmpty())
            return;
        const QString values = what + u' ' + changes.first().keyValueChangeOld().toString() + u" to " +
                               changes.last().keyValueChangeNew().toString();
        QVERIFY2(ZelEqual(changes.first().keyValueChangeOld(), former), qPrintable(values));
        QVERIFY2(ZelEqual(changes.last().keyValueChangeNew(), now.value), qPrintable(values));
    }

    Random m_random;
    std::vector<std::unique_ptr<Person>> m_people;
    std::vector<std::unique_ptr<Observer>> m_observers;
};

} // namespace

class tst_RandomObserving : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    /// Against a model that walks along the paths itself after every step.
    void everybodyHearsWhatConcernsThem()
    {
        for (unsigned seed = 1; seed <= 40; ++seed) {
            World world(seed);
            for (int step = 0; step < 400; ++step) {
                world.step();
                if (QTest::currentTestFailed()) {
                    qWarning() << "seed" << seed << "step" << step;
                    return;
                }
            }
        }
    }
};

QTEST_GUILESS_MAIN(tst_RandomObserving)
#include "tst_RandomObserving.moc"
