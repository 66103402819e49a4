// SPDX-License-Identifier: MIT
#include "Core/KeyValue/ZelKeyValueObserving.h"

#include "Core/Errors/ZelException.h"
#include "Core/KeyValue/ZelKeyValueCoding.h"
#include "Core/Values/ZelValues.h"
#include "Support/Person.h"
#include "Support/Recorder.h"

#include <QSet>
#include <QTest>
#include <QThread>
#include <memory>
#include <stdexcept>

namespace {
const char g_context = 0;
constexpr quint32 g_oldAndNew = ZelKeyValueObservingOptionOld | ZelKeyValueObservingOptionNew;
} // namespace

/// Announces its changes by itself, before and after.
class Announcer : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QVariantList items READ items NOTIFY itemsChanged)
public:
    QVariantList items() const { return m_items; }
    void insert(qsizetype index, const QVariant &item)
    {
        const ZelIndexSet at{index};
        ZelWillChangeValueForKey(this, ZelKeyValueChangeInsertion, at, "items");
        m_items.insert(index, item);
        Q_EMIT itemsChanged();
        ZelDidChangeValueForKey(this, ZelKeyValueChangeInsertion, at, "items");
    }
    void remove(qsizetype index)
    {
        const ZelIndexSet at{index};
        ZelWillChangeValueForKey(this, ZelKeyValueChangeRemoval, at, "items");
        m_items.removeAt(index);
        ZelDidChangeValueForKey(this, ZelKeyValueChangeRemoval, at, "items");
    }
Q_SIGNALS:
    void itemsChanged();

private:
    QVariantList m_items;
};

/// Refers to an object that belongs to somebody else.
class Keeper : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QObject *kept READ kept NOTIFY keptChanged)
public:
    QObject *kept() const { return m_kept; }
    /// Does something else to the former one in the middle of it.
    void set(QObject *kept, bool announces, const std::function<void()> &meanwhile = {})
    {
        if (announces)
            ZelWillChangeValueForKey(this, "kept");
        if (meanwhile)
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

/// Says of each change whether the old value is still there, and whether it is another.
class ChangeRecorder : public ZelKeyValueObserver
{
public:
    QStringList log;
    void observeValueForKeyPath(const ZelKeyPath &, QObject *, const ZelKeyValueChange &change, const void *) override
    {
        const bool isThere = change.keyValueChangeOld().value<QObject *>();
        log.append(QString::fromLatin1(isThere ? "there, " : "gone, ") +
                   QString::fromLatin1(change.keyValueChanged() ? "changed" : "same"));
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
    void aNotifySignalIsAChange()
    {
        Person person(QStringLiteral("Ada"));
        Recorder recorder;
        ZelAddObserver(&person, &recorder, "name", g_oldAndNew, &g_context);
        person.setName(QStringLiteral("Bea"));
        person.setName(QStringLiteral("Cleo"));
        QCOMPARE(recorder.count(), 2);
        QCOMPARE(recorder.changes.last().keyValueChangeOld(), QVariant(QStringLiteral("Bea")));
        QCOMPARE(recorder.changes.last().keyValueChangeNew(), QVariant(QStringLiteral("Cleo")));
        ZelRemoveObserver(&person, &recorder, "name", &g_context);
        person.setName(QStringLiteral("Dora"));
        QCOMPARE(recorder.count(), 2);
        QVERIFY(!ZelIsObserved(&person, "name"));
    }

    void priorAndAfterArriveTogetherForAPlainObject()
    {
        Person person(QStringLiteral("Ada"));
        Recorder recorder;
        ZelAddObserver(&person, &recorder, "name", g_oldAndNew | ZelKeyValueObservingOptionPrior, &g_context);
        person.setName(QStringLiteral("Bea"));
        QCOMPARE(recorder.count(), 2);
        QVERIFY(recorder.changes[0].isPrior());
        QVERIFY(!recorder.changes[0].hasNew());
        QCOMPARE(recorder.changes[0].keyValueChangeOld(), QVariant(QStringLiteral("Ada")));
        QVERIFY(!recorder.changes[1].isPrior());
        ZelRemoveObserver(&person, &recorder, "name", &g_context);
    }

    void anAnnouncingObjectTellsKindsAndIndexesOnce()
    {
        Announcer announcer;
        Recorder recorder;
        ZelAddObserver(&announcer, &recorder, "items", g_oldAndNew | ZelKeyValueObservingOptionPrior, &g_context);
        announcer.insert(0, QStringLiteral("a"));
        QCOMPARE(recorder.count(), 2); // prior and after; the signal in between is not a third
        QVERIFY(recorder.changes[0].isPrior());
        QCOMPARE(recorder.changes[1].keyValueChangeKind(), quint32(ZelKeyValueChangeInsertion));
        QCOMPARE(recorder.changes[1].keyValueChangeNew(), QVariant(QVariantList{QStringLiteral("a")}));
        QVERIFY(!recorder.changes[1].hasOld());
        announcer.remove(0);
        QCOMPARE(recorder.changes.last().keyValueChangeOld(), QVariant(QVariantList{QStringLiteral("a")}));
        QCOMPARE(recorder.changes.last().keyValueChangeIndexes().value(), ZelIndexSet({0}));
        ZelRemoveObserver(&announcer, &recorder, "items", &g_context);
    }

    void aPathFollowsEveryObjectAlongIt()
    {
        Person ada(QStringLiteral("Ada"));
        Person ben(QStringLiteral("Ben"));
        auto *cleo = new Person(QStringLiteral("Cleo"));
        Recorder recorder;
        ZelAddObserver(&ada, &recorder, "friendOf.name", g_oldAndNew, &g_context);
        ada.setFriendOf(&ben);
        QCOMPARE(recorder.changes.last().keyValueChangeNew(), QVariant(QStringLiteral("Ben")));
        ben.setName(QStringLiteral("Bert"));
        QCOMPARE(recorder.changes.last().keyValueChangeOld(), QVariant(QStringLiteral("Ben")));
        ada.setFriendOf(cleo);
        QCOMPARE(recorder.count(), 3);
        QCOMPARE(recorder.changes.last().keyValueChangeOld(), QVariant(QStringLiteral("Bert")));
        ben.setName(QStringLiteral("unheard"));
        QCOMPARE(recorder.count(), 3);
        QVERIFY(!ZelIsObserved(&ben, "name"));
        delete cleo;
        ada.setFriendOf(nullptr);
        QCOMPARE(recorder.count(), 4);
        QVERIFY(!recorder.changes.last().keyValueChangeNew().isValid());
        ZelRemoveObserver(&ada, &recorder, "friendOf.name", &g_context);
        QVERIFY(!ZelIsObserved(&ada, "friendOf"));
    }

    void aPathFollowsWhatIsAnnouncedOnlyFurtherUp()
    {
        Person person;
        Keeper keeper;
        keeper.set(&person, false);
        Recorder recorder, both;
        ZelAddObserver(&keeper, &recorder, "kept.silent", g_oldAndNew, &g_context);
        ZelAddObserver(&keeper, &both, "kept.name", ZelKeyValueObservingOptionPrior, &g_context);
        person.silent = QStringLiteral("x");
        keeper.set(&person, true);
        QCOMPARE(recorder.count(), 1);
        QCOMPARE(recorder.changes.last().keyValueChangeNew(), QVariant(QStringLiteral("x")));
        QCOMPARE(both.count(), 2); // one before, and one after
        ZelRemoveObserver(&keeper, &recorder, "kept.silent", &g_context);
        ZelRemoveObserver(&keeper, &both, "kept.name", &g_context);
    }

    void aPathForgetsAnObjectThatHasDied()
    {
        alignas(Person) char place[sizeof(Person)];
        Keeper outer, first, second;
        first.set(new (place) Person, false);
        outer.set(&first, false);
        Recorder recorder;
        ZelAddObserver(&outer, &recorder, "kept.kept", g_oldAndNew, &g_context);
        std::destroy_at(reinterpret_cast<Person *>(place));
        second.set(new (place) Person, false);
        outer.set(&second, false);
        QVERIFY(!recorder.changes.last().keyValueChangeOld().isValid());
        QVERIFY(recorder.changes.last().keyValueChanged());
        ZelRemoveObserver(&outer, &recorder, "kept.kept", &g_context);
        std::destroy_at(reinterpret_cast<Person *>(place));
        QVERIFY(!recorder.changes.last().keyValueChangeNew().isValid());
    }

    void noValueIsNoValue()
    {
        Person person;
        Recorder recorder;
        ZelAddObserver(&person, &recorder, "note", g_oldAndNew, &g_context);
        person.setNote(ZelNull());
        QCOMPARE(recorder.count(), 1);
        QVERIFY(!recorder.changes.last().keyValueChanged());
        ZelRemoveObserver(&person, &recorder, "note", &g_context);
    }

    void aDyingObjectIsNotReadAnyMore()
    {
        auto *mortal = new Mortal;
        Recorder recorder;
        // Whatever hears of the death first may make everything be read again.
        connect(mortal, &QObject::destroyed, &m_context, [] { ZelRereadSilentProperties(); });
        for (const char *key : {"shared", "silent"})
            ZelAddObserver(mortal, &recorder, key, g_oldAndNew, &g_context);
        connect(mortal, &Parting::changed, &m_context, [] { ZelRereadSilentProperties(); });
        delete mortal;
        QCOMPARE(Mortal::s_deadReads, 0);
        QCOMPARE(recorder.count(), 0);
    }

    void allHearThoughOneThrows()
    {
        Keeper keeper;
        Recorder throwing, quiet;
        throwing.react = [] { throw std::runtime_error("refused"); };
        ZelAddObserver(&keeper, &throwing, "kept", ZelKeyValueObservingOptionPrior, &g_context);
        ZelAddObserver(&keeper, &quiet, "kept", 0, &g_context);
        QVERIFY_EXCEPTION_THROWN(keeper.set(this, false), std::runtime_error);
        QCOMPARE(throwing.count(), 2);
        QCOMPARE(quiet.count(), 1);
        ZelRemoveObserver(&keeper, &throwing, "kept", &g_context);
        ZelRemoveObserver(&keeper, &quiet, "kept", &g_context);
    }

#ifndef QT_NO_DEBUG
    void aChangeOnAnotherThreadIsAsserted()
    {
        Person person;
        Recorder recorder;
        ZelAddObserver(&person, &recorder, "name", 0, &g_context);
        bool isAsserted = false;
        const std::unique_ptr<QThread> thread(QThread::create([&] {
            try {
                person.setName(QStringLiteral("x"));
            } catch (const ZelInternalInconsistencyException &) {
                isAsserted = true;
            }
        }));
        thread->start();
        thread->wait();
        QVERIFY(isAsserted);
        ZelRemoveObserver(&person, &recorder, "name", &g_context);
    }
#endif

    void aPathIntoAValueFollowsTheProperty()
    {
        Person person;
        Recorder recorder;
        ZelAddObserver(&person, &recorder, "frame.width", g_oldAndNew, &g_context);
        person.setFrame({0, 0, 5, 5});
        QCOMPARE(recorder.count(), 1);
        ZelRemoveObserver(&person, &recorder, "frame.width", &g_context);
    }

    void observersMayComeAndGoDuringDelivery()
    {
        Person person;
        Recorder first, second, late;
        first.react = [&] {
            ZelRemoveObserver(&person, &second, "name", &g_context);
            ZelRemoveObserver(&person, &first, "name", &g_context);
            for (int i = 0; i < 20; ++i)
                ZelAddObserver(&person, &late, "name", 0, &g_context);
        };
        ZelAddObserver(&person, &first, "name", 0, &g_context);
        ZelAddObserver(&person, &second, "name", 0, &g_context);
        person.setName(QStringLiteral("Bea"));
        QCOMPARE(first.count(), 1);
        QCOMPARE(second.count(), 0);
        QCOMPARE(late.count(), 0);
        person.setName(QStringLiteral("Cleo"));
        QCOMPARE(late.count(), 20);
        for (int i = 0; i < 20; ++i)
            ZelRemoveObserver(&person, &late, "name", &g_context);
        QVERIFY(!ZelIsObserved(&person, "name"));
    }

    void theObservedObjectMayDieDuringDelivery_data()
    {
        QTest::addColumn<QString>("path");
        QTest::newRow("key") << "name";
        QTest::newRow("path") << "friendOf.name";
    }
    void theObservedObjectMayDieDuringDelivery()
    {
        QFETCH(QString, path);
        auto *person = new Person;
        auto *other = new Person;
        person->setFriendOf(other);
        Recorder killer, later;
        killer.react = [&] {
            delete person;
            person = nullptr;
        };
        ZelAddObserver(person, &killer, path, g_oldAndNew, &g_context);
        ZelAddObserver(person, &later, path, g_oldAndNew, &g_context);
        (path == QLatin1String("name") ? person : other)->setName(QStringLiteral("x"));
        QVERIFY(!person);
        QCOMPARE(killer.count(), 1);
        other->setName(QStringLiteral("y"));
        QCOMPARE(killer.count(), 1);
        delete other;
    }

    void aChangeDuringDeliveryIsDeliveredWithItsOwnValues()
    {
        Person person(QStringLiteral("a"));
        Recorder first;
        first.react = [&] { person.setName(QStringLiteral("c")); };
        ZelAddObserver(&person, &first, "name", g_oldAndNew, &g_context);
        person.setName(QStringLiteral("b"));
        QCOMPARE(first.count(), 2);
        QCOMPARE(first.changes[1].keyValueChangeOld(), QVariant(QStringLiteral("b")));
        QCOMPARE(first.changes[1].keyValueChangeNew(), QVariant(QStringLiteral("c")));
        ZelRemoveObserver(&person, &first, "name", &g_context);
    }

    void whatCannotAnnounceIsAnnouncedByWritesAndFoundByRereading()
    {
        Person person(QStringLiteral("Ada"));
        Recorder silent, computed;
        ZelAddObserver(&person, &silent, "silent", g_oldAndNew, &g_context);
        ZelAddObserver(&person, &computed, "nameLength", g_oldAndNew, &g_context);
        ZelSetValueForKey(&person, QStringLiteral("x"), "silent");
        QCOMPARE(silent.count(), 1);
        person.silent = QStringLiteral("y");
        person.setName(QStringLiteral("Alexandra"));
        ZelRereadSilentProperties();
        QCOMPARE(silent.count(), 2);
        QCOMPARE(computed.changes.last().keyValueChangeOld(), QVariant(3));
        QCOMPARE(computed.changes.last().keyValueChangeNew(), QVariant(9));
        ZelRereadSilentProperties();
        QCOMPARE(silent.count() + computed.count(), 3);
        ZelRemoveObserver(&person, &silent, "silent", &g_context);
        ZelRemoveObserver(&person, &computed, "nameLength", &g_context);
    }

    void whatAnObserverThrowsReachesWhoWrites()
    {
        Person person;
        Recorder recorder;
        ZelAddObserver(&person, &recorder, "silent", 0, &g_context);
        recorder.react = [] { throw std::runtime_error("refused"); };
        QVERIFY_EXCEPTION_THROWN(ZelSetValueForKey(&person, QStringLiteral("x"), "silent"), std::runtime_error);
        QCOMPARE(person.silent, QStringLiteral("x"));
        const auto setter = [&](bool fails) {
            const ZelValueChange change(&person, "silent");
            if (fails)
                throw std::logic_error("failed");
        };
        QVERIFY_EXCEPTION_THROWN(setter(false), std::runtime_error);
        // The one that is on its way already goes on, the other is reported.
        QTest::ignoreMessage(QtWarningMsg, "ERROR: refused");
        QVERIFY_EXCEPTION_THROWN(setter(true), std::logic_error);
        recorder.react = {};
        setter(false);
        QCOMPARE(recorder.count(), 4);
        ZelRemoveObserver(&person, &recorder, "silent", &g_context);
    }

    void dynamicPropertiesAndTheInitialOption()
    {
        Person person;
        person.setProperty("mood", 1);
        Recorder recorder;
        ZelAddObserver(&person, &recorder, "mood", ZelKeyValueObservingOptionNew | ZelKeyValueObservingOptionInitial,
                       &g_context);
        QCOMPARE(recorder.count(), 1);
        person.setProperty("mood", 2);
        person.setProperty("other", 2);
        QCOMPARE(recorder.count(), 2);
        QCOMPARE(recorder.changes.last().keyValueChangeNew(), QVariant(2));
        ZelRemoveObserver(&person, &recorder, "mood", &g_context);
    }

    void anObjectThatTakesADeadOnesPlaceIsAnother_data()
    {
        QTest::addColumn<bool>("announces");
        QTest::newRow("a plain object") << false;
        QTest::newRow("one that announces its changes") << true;
    }

    void anObjectThatTakesADeadOnesPlaceIsAnother()
    {
        QFETCH(bool, announces);
        alignas(QObject) char place[sizeof(QObject)];
        Keeper keeper;
        QObject *first = new (place) QObject;
        keeper.set(first, announces);
        ChangeRecorder recorder;
        ZelAddObserver(&keeper, &recorder, "kept", g_oldAndNew, &g_context);
        keeper.set(nullptr, announces, [first] { first->~QObject(); });
        QObject *second = new (place) QObject;
        QCOMPARE(second, first);
        keeper.set(second, announces);
        keeper.set(second, announces);
        keeper.set(second, announces, [=, &place] { // and dies at once, within the change
            second->~QObject();
            new (place) QObject;
        });
        QCOMPARE(recorder.log, (QStringList{"gone, changed", "gone, changed", "there, same", "gone, changed"}));
        ZelRemoveObserver(&keeper, &recorder, "kept", &g_context);
        second->~QObject();
    }

    void listsForgetTheirDead_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QVariantList>("old"); // after the death
        QTest::newRow("any values") << "values" << QVariantList{1, QVariant()};
        QTest::newRow("objects of a class")
            << "objects"
            << QVariantList{QVariant::fromValue<ListKeeper *>(nullptr), QVariant::fromValue<ListKeeper *>(nullptr)};
    }

    void listsForgetTheirDead()
    {
        QFETCH(QString, key);
        QFETCH(QVariantList, old);
        alignas(ListKeeper) char place[sizeof(ListKeeper)];
        ListKeeper keeper;
        auto *first = new (place) ListKeeper;
        keeper.set(first);
        Recorder recorder;
        ZelAddObserver(&keeper, &recorder, key, g_oldAndNew, &g_context);
        keeper.set(first);
        QVERIFY(!recorder.changes.last().keyValueChanged());
        first->~ListKeeper();
        auto *second = new (place) ListKeeper;
        keeper.set(second);
        QVERIFY(recorder.changes.last().keyValueChanged());
        const QVariantList found = recorder.changes.last().keyValueChangeOld().toList();
        QCOMPARE(found.size(), 3);
        QCOMPARE(found.mid(0, 2), old);
        QCOMPARE(found.at(2).value<QObject *>(), &keeper);
        keeper.set(second);
        QVERIFY(!recorder.changes.last().keyValueChanged());
        ZelRemoveObserver(&keeper, &recorder, key, &g_context);
        second->~ListKeeper();
    }

    /// Which is when many models take an object out of their lists.
    void changesMayBeAnnouncedWhileAnObjectGoes_data()
    {
        QTest::addColumn<QString>("key");
        QTest::newRow("any values") << "values";
        QTest::newRow("objects of a class") << "objects";
    }

    void changesMayBeAnnouncedWhileAnObjectGoes()
    {
        QFETCH(QString, key);
        ListKeeper keeper;
        auto *object = new ListKeeper;
        Recorder recorder;
        ZelAddObserver(&keeper, &recorder, key, g_oldAndNew, &g_context);
        keeper.fill(object); // which nobody hears of
        connect(object, &QObject::destroyed, &keeper, [&] {
            ZelWillChangeValueForKey(&keeper, key);
            keeper.values.clear();
            keeper.objects.clear();
            ZelDidChangeValueForKey(&keeper, key);
        });
        delete object;
        const QVariantList old = recorder.changes.last().keyValueChangeOld().toList();
        QCOMPARE(old.size(), 3);
        QVERIFY(!old.at(1).value<QObject *>());
        ZelRemoveObserver(&keeper, &recorder, key, &g_context);
    }

    void addedAndRemovedObjects()
    {
        const QVariant a = QStringLiteral("a"), b = QStringLiteral("b"), c = QStringLiteral("c");
        const ZelKeyValueChange change(ZelKeyValueChangeSetting, QVariant(QVariantList{a, b}),
                                       QVariant(QVariantList{a, b, c, c}));
        QCOMPARE(change.keyValueChangeAddedObjects().value(), QVariantList{c});
        QCOMPARE(change.keyValueChangeRemovedObjects().value(), QVariantList());
        const ZelKeyValueChange fresh(ZelKeyValueChangeSetting, std::nullopt, QVariant(QVariantList{a}));
        QCOMPARE(fresh.keyValueChangeAddedObjects().value(), QVariantList{a});
        QVERIFY(!fresh.keyValueChangeRemovedObjects());
        const ZelKeyValueChange wrong(ZelKeyValueChangeSetting, std::nullopt, QVariant(7));
        QVERIFY_EXCEPTION_THROWN(wrong.keyValueChangeAddedObjects(), ZelException);
    }
};

QTEST_MAIN(tst_ZelKeyValueObserving)
#include "tst_ZelKeyValueObserving.moc"
