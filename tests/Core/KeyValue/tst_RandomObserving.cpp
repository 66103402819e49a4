// SPDX-License-Identifier: MIT
#include "Core/KeyValue/ZelKeyValueCoding.h"
#include "Core/KeyValue/ZelKeyValueObserving.h"
#include "Core/Values/ZelValues.h"
#include "Core/Watch.h"
#include "Support/Person.h"
#include "Support/Random.h"

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

namespace {

const char g_context = 0;
const QStringList g_keys{"name", "height", "silent", "friendOf", "note", "mood", "frame"};
const QStringList g_paths =
    QString("name height silent friendOf mood nameLength frame.width friendOf.name friendOf.note "
            "friendOf.silent friendOf.mood friendOf.nameLength friendOf.friendOf.height "
            "friendOf.friendOf.frame.x")
        .split(' ');

/// Tells of its changes itself, if it is of that kind, or lets its signals do it, where it has them.
struct Somebody : Person
{
    const bool announces;
    explicit Somebody(bool announces)
        : announces(announces)
    {
        setProperty("mood", 0);
    }
};

/// The value of a key, read without the library.
QVariant plainValue(const Person *person, const QString &key)
{
    if (!person)
        return {};
    if (key == "friendOf")
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
            if (key == "x" || key == "width") { // of a frame
                value = value.isNull() ? QVariant() : key == "x" ? value.toRectF().x() : value.toRectF().width();
                break;
            }
            meetings += person && person == changed && (key == "nameLength" ? "name" : key) == changedKey;
            value = plainValue(person, key);
            person = person && key == "friendOf" ? person->friendOf() : nullptr;
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

    bool has(quint32 option) const { return options & option; }
    void stop()
    {
        if (root)
            ZelRemoveObserver(root, this, path, &g_context);
    }
    void observeValueForKeyPath(const ZelKeyPath &heard, QObject *object, const ZelKeyValueChange &change,
                                const void *context) override
    {
        QVERIFY(object == root && heard == ZelKeyPath(path) && context == &g_context);
        QCOMPARE(change.hasOld(), has(ZelKeyValueObservingOptionOld));
        QCOMPARE(change.hasNew(), has(ZelKeyValueObservingOptionNew) && !change.isPrior());
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
            m_people.push_back(std::make_unique<Somebody>(i == 0));
    }
    ~World()
    {
        for (const auto &observer : m_observers)
            observer->stop();
        for (const auto &person : m_people)
            for (const QString &key : g_keys)
                QVERIFY(!ZelIsObserved(person.get(), key));
    }

    void step()
    {
        const quint32 choice = m_random.below(14);
        if (choice == 0)
            addObserver();
        else if (choice == 1)
            removeObserver();
        else if (choice == 2)
            replacePerson();
        else
            change();
        for (const auto &person : m_people)
            for (const QString &key : g_keys)
                QCOMPARE(ZelIsObserved(person.get(), key), isLookedAt(person.get(), key));
    }

private:
    Somebody *somebody() { return m_people[m_random.below(quint32(m_people.size()))].get(); }
    bool isLookedAt(const Person *person, const QString &key)
    {
        const bool isName = key == "name"; // the length of a name is only found
        return std::any_of(m_observers.begin(), m_observers.end(), [&](const auto &o) {
            return Walk(o->root, o->path, person, key).meetings > 0 && !(isName && o->path.endsWith("nameLength"));
        });
    }

    void addObserver()
    {
        if (m_observers.size() > 12)
            return;
        auto observer = std::make_unique<Observer>();
        observer->root = somebody();
        observer->path = g_paths.at(m_random.below(quint32(g_paths.size())));
        const quint32 options = m_random.below(4) ? 3 | (m_random.below(4) << 2) : m_random.below(16);
        observer->options = options & ~ZelKeyValueObservingOptionOld; // what is told at once has none
        observer->known = Walk(observer->root, observer->path).value;
        ZelAddObserver(observer->root, observer.get(), observer->path, options, &g_context);
        observer->options = options;
        const QList<ZelKeyValueChange> changes = std::exchange(observer->changes, {});
        QCOMPARE(changes.size(), observer->has(ZelKeyValueObservingOptionInitial));
        if (!changes.isEmpty() && observer->has(ZelKeyValueObservingOptionNew))
            QVERIFY(ZelEqual(changes.first().keyValueChangeNew(), observer->known));
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
        place = std::make_unique<Somebody>(m_random.below(4) == 0);
        std::erase_if(m_observers, [](const auto &observer) { return !observer->root; });
        for (const auto &observer : m_observers)
            QVERIFY(observer->changes.isEmpty());
    }

    void change()
    {
        const QString key = g_keys.at(m_random.below(3) ? m_random.below(quint32(g_keys.size())) : 3);
        const int number = int(m_random.below(3));
        QVariant value(QString(1 + number / 2, QChar('a' + number)));
        if (key == "friendOf")
            value = QVariant::fromValue<Person *>(number ? somebody() : nullptr);
        else if (key == "height" || key == "mood" || key == "note")
            value = key == "note" && number == 0 ? QVariant() : QVariant(number);
        else if (key == "frame")
            value = QRectF(number / 2, 0, number, 1);
        change(somebody(), key, value);
    }
    /// Everybody hears of a change that concerns them, with the right values, and of nothing else.
    void change(Somebody *person, const QString &key, const QVariant &value)
    {
        std::vector<int> meetings;
        const QVariant former = plainValue(person, key);
        const bool isSame = key == "friendOf" ? person->friendOf() == value.value<Person *>() : ZelEqual(former, value);
        const bool isTold = !isSame || key == "silent" || person->announces;
        for (const auto &observer : m_observers)
            meetings.push_back(Walk(observer->root, observer->path, person, key).meetings);
        write(person, key, value);
        for (size_t i = 0; i < m_observers.size(); ++i)
            check(*m_observers[i], isTold ? meetings[i] : 0);
    }
    void write(Somebody *person, const QString &key, const QVariant &value)
    {
        if (person->announces)
            ZelWillChangeValueForKey(person, key);
        const bool isPlain = m_random.below(2);
        if (isPlain)
            person->setProperty(key.toLatin1().constData(), value);
        else
            ZelSetValueForKey(person, value, key);
        if (person->announces)
            ZelDidChangeValueForKey(person, key);
        if (isPlain || key == "name") // the length of a name is only found
            ZelRereadSilentProperties();
    }

    static void check(Observer &observer, int meetings)
    {
        const Walk now(observer.root, observer.path);
        const QList<ZelKeyValueChange> changes = std::exchange(observer.changes, {});
        const int before = std::exchange(observer.before, 0);
        const QVariant former = std::exchange(observer.known, now.value);
        const bool isSame = ZelEqual(former, now.value);
        const QByteArray what = (observer.path + ", met times: " + QString::number(meetings)).toLatin1();
        QVERIFY2(ZelEqual(ZelValueForKeyPath(observer.root, observer.path), now.value), what);
        // What announces nothing may be found equal and not be told of; a circle of friends is met more than once.
        QVERIFY2(isSame || meetings == 0 || !changes.isEmpty(), what);
        QVERIFY2(changes.size() <= meetings, what);
        if (meetings < 2)
            QCOMPARE(before, observer.has(ZelKeyValueObservingOptionPrior) ? int(changes.size()) : 0);
        if (changes.isEmpty())
            return;
        const ZelKeyValueChange &first = changes.first(), &last = changes.last();
        QVERIFY2(!first.hasOld() || ZelEqual(first.keyValueChangeOld(), former), what);
        QVERIFY2(!last.hasNew() || ZelEqual(last.keyValueChangeNew(), now.value), what);
        if (meetings == 1 && first.hasOld() && first.hasNew())
            QCOMPARE(first.keyValueChanged(), !isSame);
    }

    Random m_random;
    std::vector<std::unique_ptr<Somebody>> m_people;
    std::vector<std::unique_ptr<Observer>> m_observers;
};

} // namespace

class tst_RandomObserving : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    /// Against a model that walks along the paths itself after every step.
    void everybodyHearsWhatConcernsThem() { stepThrough<World>(40, 400); }
};

QTEST_GUILESS_MAIN(tst_RandomObserving)
#include "tst_RandomObserving.moc"
