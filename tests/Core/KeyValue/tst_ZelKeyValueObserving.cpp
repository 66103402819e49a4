// SPDX-License-Identifier: MIT
#include "Core/KeyValue/ZelKeyValueObserving.h"

#include "Core/Errors/ZelException.h"
#include "Core/KeyValue/ZelAssociatedObjects.h"
#include "Core/KeyValue/ZelKeyValueCoding.h"
#include "Core/Values/ZelValues.h"
#include "Core/Watch.h"
#include "Support/Person.h"

#include <QSet>
#include <QTest>
#include <QThread>
#include <memory>

/// Announces its changes by itself, before and after.
class Announcer : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QVariantList items MEMBER items NOTIFY itemsChanged)
public:
    QVariantList items;
    void change(ZelKeyValueChangeKind kind, const ZelIndexSet &at, const QVariantList &now)
    {
        ZelWillChangeValueForKey(this, kind, at, "items");
        items = now;
        Q_EMIT itemsChanged();
        ZelDidChangeValueForKey(this, kind, at, "items");
    }
Q_SIGNALS:
    void itemsChanged();
};

/// Refers to an object that belongs to somebody else.
class Keeper : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QObject *kept MEMBER m_kept NOTIFY keptChanged)
public:
    /// Does something else to the former one in the middle of it.
    void set(
        QObject *kept, bool announces = false, const std::function<void()> &meanwhile = [] {})
    {
        if (announces)
            ZelWillChangeValueForKey(this, "kept");
        meanwhile();
        m_kept = kept;
        Q_EMIT keptChanged();
        if (announces)
            ZelDidChangeValueForKey(this, "kept");
    }
Q_SIGNALS:
    void keptChanged();

private:
    QObject *m_kept = nullptr;
};

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
    Mortal() { s_living.insert(this); }
    ~Mortal() override { s_living.remove(this); }
    int value() const
    {
        s_deadReads += !s_living.contains(this);
        return 1;
    }
    static inline QSet<const Mortal *> s_living;
    static inline int s_deadReads = 0;
};

class tst_ZelKeyValueObserving : public QObject
{
    Q_OBJECT
    QObject m_context;
private Q_SLOTS:
    void anAnnouncingObjectTellsKindsAndIndexesOnce()
    {
        Announcer announcer;
        announcer.items = {"a", "b", "c"};
        Watch watch(&announcer, "items", Watch::oldAndNew | Watch::prior);
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
            watch.changes.clear();
            announcer.change(kind, at, now);
            QCOMPARE(watch.count(), 2); // prior and after; the signal in between is not a third
            for (const ZelKeyValueChange &change : std::as_const(watch.changes)) {
                const bool isPrior = &change == &watch.changes.first();
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
    }

    void noValueIsNoValue()
    {
        Person person;
        const Watch watch(&person, "note");
        person.setNote(ZelNull());
        QCOMPARE(watch.count(), 1);
        QVERIFY(!watch.isLastChanged());
    }

    void aPathForgetsAnObjectThatHasDied()
    {
        Place<Person> place;
        Keeper outer, first, second;
        first.set(place.make());
        outer.set(&first);
        const Watch watch(&outer, "kept.kept");
        place.end();
        second.set(place.make());
        outer.set(&second);
        QVERIFY(!watch.lastOld().isValid() && watch.isLastChanged());
        QCOMPARE(watch.lastNew().value<QObject *>(), place.object);
        place.end();
        QVERIFY(!watch.lastNew().isValid());
    }

    /// Whether it announces its changes or not.
    void anObjectThatTakesADeadOnesPlaceIsAnother()
    {
        for (const bool announces : {false, true}) {
            Place<QObject> place;
            Keeper keeper;
            keeper.set(place.make(), announces);
            ChangeRecorder recorder;
            ZelAddObserver(&keeper, &recorder, "kept", Watch::oldAndNew, this);
            keeper.set(nullptr, announces, [&] { place.end(); });
            QObject *second = place.make();
            keeper.set(second, announces);
            keeper.set(second, announces);
            keeper.set(second, announces, [&] { // and dies at once, within the change
                place.end();
                place.make();
            });
            ZelRemoveObserver(&keeper, &recorder, "kept", this);
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
            QCOMPARE(found.size(), 3);
            QCOMPARE(found.mid(0, 2), old);
            QCOMPARE(found.at(2).value<QObject *>(), &keeper);
            keeper.set(place.object);
            QVERIFY(!watch.isLastChanged());

            auto *object = new ListKeeper;
            keeper.fill(object); // which nobody hears of
            connect(object, &QObject::destroyed, &keeper, [&, key = key] {
                ZelWillChangeValueForKey(&keeper, key);
                keeper.values.clear();
                keeper.objects.clear();
                ZelDidChangeValueForKey(&keeper, key);
            });
            delete object;
            QCOMPARE(watch.lastOld().toList().size(), 3);
            QVERIFY(!watch.lastOld().toList().at(1).value<QObject *>());
        }
    }

    void aDyingObjectIsNotReadAnyMore()
    {
        auto *mortal = new Mortal;
        // Whatever hears of the death first may make everything be read again.
        connect(mortal, &QObject::destroyed, &m_context, [] { ZelRereadSilentProperties(); });
        const Watch shared(mortal, "shared"), silent(mortal, "silent");
        connect(mortal, &Parting::changed, &m_context, [] { ZelRereadSilentProperties(); });
        delete mortal;
        QCOMPARE(Mortal::s_deadReads, 0);
        QCOMPARE(shared.count() + silent.count(), 0);
    }

    void allHearThoughOneThrows()
    {
        Keeper keeper;
        Watch throwing(&keeper, "kept", Watch::prior), quiet(&keeper, "kept", 0);
        throwing.beginThrowing();
        QVERIFY_EXCEPTION_THROWN(keeper.set(this), std::runtime_error);
        QCOMPARE(throwing.count(), 2);
        QCOMPARE(quiet.count(), 1);
        Person first, second;
        Watch one(&first, "silent"), other(&second, "silent");
        one.beginThrowing();
        other.beginThrowing();
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
        bool isAsserted = false;
        const std::unique_ptr<QThread> thread(QThread::create([&] {
            try {
                person.setName("x");
            } catch (const ZelInternalInconsistencyException &) {
                isAsserted = true;
            }
        }));
        thread->start();
        thread->wait();
        QVERIFY(isAsserted);
    }
#endif

    void observersMayComeAndGoDuringDelivery()
    {
        Person person;
        std::vector<std::unique_ptr<Watch>> late;
        Watch first(&person, "name"), second(&person, "name", 0);
        first.react = [&] {
            second.stop();
            first.stop();
            for (int i = 0; i < 20; ++i)
                late.push_back(std::make_unique<Watch>(&person, "name", 0));
        };
        person.setName("Bea");
        QCOMPARE(first.count(), 1);
        QCOMPARE(second.count() + late.front()->count() + late.back()->count(), 0);
        person.setName("Cleo");
        for (const auto &watch : late)
            QCOMPARE(watch->count(), 1);
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
        auto object = std::make_unique<QObject>();
        const ZelAssociatedObjects associated(object.get());
        const auto find = [&](const char &key) {
            return *std::static_pointer_cast<int>(associated.associatedValueForKey(&key));
        };
        std::weak_ptr<int> first;
        for (int value = 1; value < 3; ++value) { // the second replaces the first
            const auto shared = std::make_shared<int>(value);
            ZelAssociatedObjects(object.get()).setAssociateValue(shared, &keys[0]);
            ZelAssociatedObjects(object.get()).setAssociateValue(std::make_shared<int>(7), &keys[1]);
            QVERIFY(find(keys[0]) == value && find(keys[1]) == 7 && first.expired());
            first = shared;
        }
        ZelAssociatedObjects(object.get()).setAssociateValue({}, &keys[1]);
        QVERIFY(!associated.associatedValueForKey(&keys[1]) && !first.expired());
        object.reset();
        QVERIFY(first.expired());
    }

    void aChangeDuringDeliveryIsDeliveredWithItsOwnValues()
    {
        Person person("a");
        Watch watch(&person, "name");
        watch.react = [&] { person.setName("c"); };
        person.setName("b");
        QCOMPARE(watch.count(), 2);
        QCOMPARE(watch.lastOld(), QVariant("b"));
        QCOMPARE(watch.lastNew(), QVariant("c"));
    }
};

QTEST_MAIN(tst_ZelKeyValueObserving)
#include "tst_ZelKeyValueObserving.moc"
