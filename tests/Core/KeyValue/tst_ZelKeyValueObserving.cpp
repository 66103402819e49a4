// SPDX-License-Identifier: MIT
#include "Core/Errors/ZelException.h"
#include "Core/KeyValue/ZelAssociatedObjects.h"
#include "Core/KeyValue/ZelKeyValueCoding.h"
#include "Core/Values/ZelValues.h"
#include "Core/Watch.h"
#include "Support/Person.h"
#include "Support/Random.h"
#include <algorithm>

/// Refers to objects that belong to somebody else, in lists of two kinds.
class ListKeeper : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QVariantList values MEMBER values NOTIFY changed)
    Q_PROPERTY(QList<ListKeeper *> objects MEMBER objects NOTIFY changed)
public:
    QVariantList values;
    QList<ListKeeper *> objects;
    void set(ListKeeper *object)
    {
        fill(object);
        Q_EMIT changed();
    }
    void fill(ListKeeper *object)
    {
        objects = {nullptr, object, this};
        values = {1, QVariant::fromValue(object), QVariant::fromValue<QObject *>(this)};
    }
Q_SIGNALS:
    void changed();
};

/// Its volume, and what is computed from it, announce their changes by bindings alone; its level has a signal as well.
class Tank : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int volume READ volume WRITE setVolume BINDABLE bindableVolume)
    Q_PROPERTY(int twice READ twice BINDABLE bindableTwice)
    Q_PROPERTY(int level READ level WRITE setLevel NOTIFY levelChanged BINDABLE bindableLevel)
public:
    Tank()
    {
        m_twice.setBinding([this] { return 2 * m_volume.value(); });
    }
    int volume() const { return m_volume; }
    void setVolume(int volume) { m_volume = volume; }
    QBindable<int> bindableVolume() { return &m_volume; }
    int twice() const { return m_twice; }
    QBindable<int> bindableTwice() { return &m_twice; }
    int level() const { return m_level; }
    void setLevel(int level)
    {
        m_level = level;
        Q_EMIT levelChanged();
    }
    QBindable<int> bindableLevel()
    {
        ++levelAsked;
        return &m_level;
    }
    int levelAsked = 0;

Q_SIGNALS:
    void levelChanged();

private:
    QProperty<int> m_volume{1};
    QProperty<int> m_twice;
    QProperty<int> m_level{1};
};

/// Says of each change whether the old value is still there, and whether it is another. A copy would not know.
class ChangeRecorder : public ZelKeyValueObserver
{
public:
    QStringList log;
    void observeValueForKeyPath(const ZelKeyPath &, QObject *, const ZelKeyValueChange &change, const void *) override
    {
        log.append(change.keyValueChangeOld().value<QObject *>() ? "there" : "gone");
        log.last() += change.keyValueChanged() ? ", changed" : ", same";
        QCOMPARE(ZelKeyValueChange(change).keyValueChanged(), change.keyValueChanged()); // in a copy that is kept
    }
};

/// Emits once more while it goes, when what a derived class has added is gone already.
class Parting : public QObject
{
    Q_OBJECT
public:
    ~Parting() override { Q_EMIT changed(); }
Q_SIGNALS:
    void changed();
};

class Mortal : public Parting
{
    Q_OBJECT
    Q_PROPERTY(int shared READ value NOTIFY changed)
    Q_PROPERTY(int silent READ value)
public:
    ~Mortal() override { s_isDead = true; }
    int value() const { return s_deadReads += s_isDead; }
    static inline bool s_isDead = false;
    static inline int s_deadReads = 0;
};

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
    ~Observer()
    {
        if (root)
            ZelRemoveObserver(root, this, path, &g_context);
    }
    bool has(quint32 option) const { return options & option; }
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
        m_observers.clear();
        for (const auto &person : m_people)
            for (const QString &key : g_keys)
                QVERIFY(!ZelIsObserved(person.get(), key));
    }

    void step()
    {
        const quint32 choice = m_random.below(14);
        if (choice == 0)
            addObserver();
        else if (choice == 1 && !m_observers.empty())
            m_observers.erase(m_observers.begin() + m_random.below(quint32(m_observers.size())));
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
        for (size_t i = 0; i < m_observers.size(); ++i)
            check(*m_observers[i], isTold ? meetings[i] : 0);
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

class tst_ZelKeyValueObserving : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    /// Against a model that walks along the paths itself after every step.
    void everybodyHearsWhatConcernsThem() { stepThrough<World>(40, 400); }

    void anAnnouncingObjectTellsKindsAndIndexesOnce()
    {
        ListKeeper keeper;
        keeper.values = {"a", "b", "c"};
        Watch watch(&keeper, "values", Watch::oldAndNew | Watch::prior);
        const struct
        {
            ZelKeyValueChangeKind kind;
            ZelIndexSet at;
            QVariantList now;
            QVariant old, fresh; // what is told; the elements at the indexes
        } rows[]{
            {ZelKeyValueChangeInsertion, {1, 4}, {"a", "x", "b", "c", "y"}, {}, QVariantList{"x", "y"}},
            {ZelKeyValueChangeReplacement, {0}, {"z", "x", "b", "c", "y"}, QVariantList{"a"}, QVariantList{"z"}},
            {ZelKeyValueChangeRemoval, {0, 3}, {"x", "b", "y"}, QVariantList{"z", "c"}, {}},
            {ZelKeyValueChangeSetting, {}, {"q"}, QVariantList{"x", "b", "y"}, QVariantList{"q"}},
        };
        for (const auto &[kind, at, now, old, fresh] : rows) {
            ZelWillChangeValueForKey(&keeper, kind, at, "values");
            keeper.values = now;
            Q_EMIT keeper.changed();
            ZelDidChangeValueForKey(&keeper, kind, at, "values");
            const QList<ZelKeyValueChange> changes = std::exchange(watch.changes, {});
            QCOMPARE(changes.size(), 2); // prior and after; the signal in between is not a third
            for (const bool isPrior : {true, false}) {
                const ZelKeyValueChange &change = changes.at(!isPrior);
                QCOMPARE(change.isPrior(), isPrior);
                QCOMPARE(change.keyValueChangeKind(), quint32(kind));
                QCOMPARE(change.keyValueChangeIndexes().value(), at);
                QCOMPARE(change.hasOld(), kind != ZelKeyValueChangeInsertion);
                QCOMPARE(change.hasNew(), !isPrior && kind != ZelKeyValueChangeRemoval);
                QCOMPARE(change.keyValueChangeOld(), old);
                QCOMPARE(change.keyValueChangeNew(), isPrior ? QVariant() : fresh);
            }
        }
    }

    void whatIsAddedAndRemoved()
    {
        const QVariant a = "a", b = "b", c = "c";
        const QVariant self = QVariant::fromValue<QObject *>(this), one = QVariantList{a, self, b};
        const ZelKeyValueChange lists(ZelKeyValueChangeSetting, one, QVariant(QVariantList{c, b, c, self}));
        QCOMPARE(lists.keyValueChangeAddedObjects().value(), QVariantList{c});
        QCOMPARE(lists.keyValueChangeRemovedObjects().value(), QVariantList{a});
        const ZelKeyValueChange fresh(ZelKeyValueChangeSetting, std::nullopt, QVariant(QVariantList{self, a, self}));
        QCOMPARE(fresh.keyValueChangeAddedObjects().value(), QVariantList({self, a}));
        QVERIFY(!fresh.keyValueChangeRemovedObjects());
        const ZelKeyValueChange wrong(ZelKeyValueChangeSetting, std::nullopt, QVariant(7));
        QVERIFY_EXCEPTION_THROWN(wrong.keyValueChangeAddedObjects(), ZelException);
        Person person;
        const Watch watch(&person, "note");
        person.setNote(ZelNull()); // no value, either
        QVERIFY(watch.count() == 1 && !watch.isLastChanged());
    }

    void aPathForgetsAnObjectThatHasDied()
    {
        Place<Person> place;
        Person outer, first, second;
        first.setFriendOf(place.make());
        outer.setFriendOf(&first);
        const Watch watch(&outer, "friendOf.friendOf");
        place.end();
        second.setFriendOf(place.make());
        outer.setFriendOf(&second);
        QVERIFY(!watch.lastOld().isValid() && watch.isLastChanged());
        QCOMPARE(watch.lastNew().value<QObject *>(), place.object);
        place.end();
        QVERIFY(!watch.lastNew().isValid());
    }

    /// Whether its keeper announces its changes or not.
    void anObjectThatTakesADeadOnesPlaceIsAnother()
    {
        for (const bool announces : {false, true}) {
            Place<Person> place;
            Person keeper;
            const auto keep = [&](
                                  Person *kept, const std::function<void()> &meanwhile = [] {}) {
                if (announces)
                    ZelWillChangeValueForKey(&keeper, "friendOf");
                meanwhile();
                if (keeper.friendOf() == kept)
                    Q_EMIT keeper.friendOfChanged();
                keeper.setFriendOf(kept);
                if (announces)
                    ZelDidChangeValueForKey(&keeper, "friendOf");
            };
            keep(place.make());
            ChangeRecorder recorder;
            ZelAddObserver(&keeper, &recorder, "friendOf", Watch::oldAndNew, this);
            keep(nullptr, [&] { place.end(); });
            Person *second = place.make();
            keep(second);
            keep(second);
            keep(second, [&] { // and dies at once, within the change
                place.end();
                place.make();
            });
            ZelRemoveObserver(&keeper, &recorder, "friendOf", this);
            QCOMPARE(recorder.log, QStringList({"gone, changed", "gone, changed", "there, same", "gone, changed"}));
        }
    }

    /// Also where a model takes an object out of its lists while that goes.
    void listsForgetTheirDead()
    {
        const QVariant none = QVariant::fromValue<ListKeeper *>(nullptr);
        for (const auto &[key, old] : {std::pair("values", QVariantList{1, QVariant()}), {"objects", {none, none}}}) {
            Place<ListKeeper> place;
            ListKeeper keeper;
            keeper.set(place.make());
            const Watch watch(&keeper, key);
            keeper.set(place.object);
            QVERIFY(!watch.isLastChanged());
            place.end();
            keeper.set(place.make());
            QVERIFY(watch.isLastChanged());
            const QVariantList found = watch.lastOld().toList();
            QCOMPARE(found.mid(0, 2), old);
            QCOMPARE(found.value(2).value<QObject *>(), &keeper);
            keeper.set(place.object);
            QVERIFY(!watch.isLastChanged());
            auto *object = new ListKeeper;
            keeper.fill(object); // which nobody hears of
            connect(object, &QObject::destroyed, &keeper, [&, key = key] {
                const ZelValueChange change(&keeper, key);
                keeper.values.clear();
                keeper.objects.clear();
            });
            delete object;
            QCOMPARE(watch.lastOld().toList().size(), 3);
            QVERIFY(!watch.lastOld().toList().at(1).value<QObject *>());
        }
    }

    void aDyingObjectIsNotReadAnyMore()
    {
        auto *mortal = new Mortal;
        const QObject context;
        // Whatever hears of the death first may make everything be read again.
        connect(mortal, &QObject::destroyed, &context, [] { ZelRereadSilentProperties(); });
        const Watch shared(mortal, "shared"), silent(mortal, "silent");
        connect(mortal, &Parting::changed, &context, [] { ZelRereadSilentProperties(); });
        delete mortal;
        QCOMPARE(Mortal::s_deadReads, 0);
        QCOMPARE(shared.count() + silent.count(), 0);
    }

    void propertiesWithoutASignalAreHeardThroughTheirBindings()
    {
        Tank tank;
        Watch volume(&tank, "volume"), twice(&tank, "twice"), level(&tank, "level");
        tank.setVolume(5);
        tank.setVolume(5);
        QCOMPARE(std::pair(volume.count(), twice.count()), std::pair(1, 1));
        QCOMPARE(std::pair(twice.lastOld(), twice.lastNew()), std::pair(QVariant(2), QVariant(10)));
        ZelSetValueForKey(&tank, 6, "volume");
        QCOMPARE(std::pair(volume.count(), volume.lastNew()), std::pair(2, QVariant(6)));
        QProperty<int> source(7);
        tank.bindableVolume().setBinding([&source] { return source.value(); });
        source = 8;
        QCOMPARE(std::pair(volume.count(), volume.lastNew()), std::pair(4, QVariant(8)));
        QCOMPARE(std::pair(twice.count(), twice.lastNew()), std::pair(4, QVariant(16)));
        tank.setLevel(2);
        QCOMPARE(std::pair(level.count(), tank.levelAsked), std::pair(1, 0));
        volume.stop();
        source = 9;
        QCOMPARE(std::pair(volume.count(), twice.count()), std::pair(4, 5));
    }

    void observersOfABindingMayDoAnything()
    {
        auto *tank = new Tank;
        Watch limiting(tank, "volume"), other(tank, "volume");
        limiting.react = [&] { tank->setVolume(std::min(tank->volume(), 3)); };
        tank->setVolume(10);
        QCOMPARE(std::pair(tank->volume(), other.lastNew()), std::pair(3, QVariant(3)));
        limiting.beginThrowing(); // Qt's bindings must not be left by it
        QTest::ignoreMessage(QtWarningMsg, "ERROR: refused");
        tank->setVolume(2);
        QCOMPARE(other.lastNew(), 2);
        limiting.react = [&] { delete std::exchange(tank, nullptr); };
        const int heard = other.count();
        tank->setVolume(1);
        QCOMPARE(std::pair(tank, other.count()), std::pair(static_cast<Tank *>(nullptr), heard));
    }

    void allHearThoughOneThrows()
    {
        Person first, second;
        Watch throwing(&first, "name", Watch::prior), quiet(&first, "name", 0);
        Watch one(&first, "silent"), other(&second, "silent");
        for (Watch *watch : {&throwing, &one, &other})
            watch->beginThrowing();
        QVERIFY_EXCEPTION_THROWN(first.setName("x"), std::runtime_error);
        QCOMPARE(throwing.count(), 2);
        QCOMPARE(quiet.count(), 1);
        first.silent = second.silent = "x";
        QVERIFY_EXCEPTION_THROWN(ZelRereadSilentProperties(), std::runtime_error);
        QCOMPARE(one.count() + other.count(), 2);
    }

    void whatAnObserverThrowsReachesWhoWrites()
    {
        Person person;
        Watch watch(&person, "silent", 0);
        watch.beginThrowing();
        QVERIFY_EXCEPTION_THROWN(ZelSetValueForKey(&person, "x", "silent"), std::runtime_error);
        QCOMPARE(person.silent, "x");
        const auto setter = [&](bool fails) {
            const ZelValueChange change(&person, "silent");
            if (fails)
                throw std::logic_error("failed");
        };
        QVERIFY_EXCEPTION_THROWN(setter(false), std::runtime_error);
        // The one that is on its way already goes on, the other is reported.
        QTest::ignoreMessage(QtWarningMsg, "ERROR: refused");
        QVERIFY_EXCEPTION_THROWN(setter(true), std::logic_error);
        Watch prior(&person, "silent", Watch::prior | Watch::oldAndNew);
        prior.beginThrowing();
        QVERIFY_EXCEPTION_THROWN(setter(false), std::runtime_error); // before, so that nothing follows
        QCOMPARE(prior.count(), 1);
        prior.react = watch.react = {};
        setter(false);
        QCOMPARE(watch.count(), 4);
        QCOMPARE(prior.count(), 3);
    }

#ifndef QT_NO_DEBUG
    void aChangeOnAnotherThreadIsAsserted()
    {
        Person person;
        const Watch watch(&person, "name");
        const std::unique_ptr<QThread> thread(
            QThread::create([&] { QVERIFY_EXCEPTION_THROWN(person.setName("x"), ZelInternalInconsistencyException); }));
        thread->start();
        thread->wait();
        QCOMPARE(person.name(), "x");
    }
#endif

    void observersMayComeAndGoDuringDelivery()
    {
        Person person("Ada");
        std::vector<std::unique_ptr<Watch>> late;
        Watch first(&person, "name"), second(&person, "name", 0);
        first.react = [&] {
            second.stop();
            first.stop();
            for (int i = 0; i < 20; ++i)
                late.push_back(std::make_unique<Watch>(&person, "name"));
        };
        person.setName("Bea");
        QCOMPARE(first.count(), 1);
        QCOMPARE(second.count() + late.front()->count() + late.back()->count(), 0);
        late.back()->react = [&] { person.setName("Dan"); }; // each change is told with its own values
        person.setName("Cleo");
        for (const auto &watch : late)
            QCOMPARE(watch->count(), 2);
        QVERIFY(late.back()->lastOld() == "Cleo" && late.back()->lastNew() == "Dan");
        late.clear();
        QVERIFY(!ZelIsObserved(&person, "name"));
    }

    void theObservedObjectMayDieDuringDelivery()
    {
        for (const char *path : {"name", "friendOf.name"}) {
            auto person = std::make_unique<Person>();
            Person other;
            person->setFriendOf(&other);
            Watch killer(person.get(), path), later(person.get(), path);
            killer.react = [&] { person.reset(); };
            (path == QString("name") ? person.get() : &other)->setName("x");
            QVERIFY(!person);
            other.setName("y");
            QCOMPARE(killer.count(), 1);
            QCOMPARE(later.count(), 0);
            QVERIFY(!ZelIsObserved(&other, "name"));
        }
    }

    void associatedValuesEndWithTheirObject()
    {
        const char keys[2]{};
        const auto first = std::make_shared<int>(1), second = std::make_shared<int>(2),
                   other = std::make_shared<int>(3);
        auto object = std::make_unique<QObject>();
        ZelAssociatedObjects associated(object.get());
        associated.setAssociateValue(first, &keys[0]);
        associated.setAssociateValue(other, &keys[1]);
        associated.setAssociateValue(second, &keys[0]);
        QCOMPARE(first.use_count(), 1);
        QCOMPARE(associated.associatedValueForKey(&keys[0]), second);
        QCOMPARE(associated.associatedValueForKey(&keys[1]), other);
        associated.setAssociateValue({}, &keys[1]);
        QVERIFY(!associated.associatedValueForKey(&keys[1]));
        object.reset();
        QVERIFY(second.use_count() == 1 && other.use_count() == 1);
    }
};
QTEST_MAIN(tst_ZelKeyValueObserving)
#include "tst_ZelKeyValueObserving.moc"
