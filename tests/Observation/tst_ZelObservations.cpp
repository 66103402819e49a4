// SPDX-License-Identifier: MIT
#include "Observation/ZelObservations.h"

#include "Core/Errors/ZelAssertions.h"
#include "Observation/Club.h"
#include "Support/Person.h"

#include <QRegularExpression>
#include <QTest>

using Change = ZelKeyValueChange;

static const char g_context = 0;
static const char g_otherContext = 0;

/// An observer whose methods are invoked by name.
class Watcher : public QObject
{
    Q_OBJECT
public:
    QStringList seen;
    Q_INVOKABLE void changed(ZelDelegateObservation *observation, const ZelKeyValueChange &change)
    {
        seen << QStringLiteral("%1 %2 %3")
                    .arg(observation->keyPath().string())
                    .arg(change.keyValueChangeKind())
                    .arg(change.keyValueChangeNew().toString());
    }
};

class tst_ZelObservations : public QObject
{
    Q_OBJECT

    QStringList m_seen;
    ZelBlockObservation::Block record()
    {
        return [this](ZelBlockObservation *, const Change &change) {
            m_seen << QStringLiteral("%1>%2").arg(change.keyValueChangeOld().toString(),
                                                  change.keyValueChangeNew().toString());
        };
    }
    static void turn() { QCoreApplication::processEvents(); }

private Q_SLOTS:
    void init() { m_seen.clear(); }

    void removingAContextEndsItsObservationsOnly()
    {
        QObject owner;
        Person person;
        ZelObservations observations(&owner);
        observations.addObservationWithObject(&person, {"name", "flags"}, 1, record(), &g_context);
        observations.addObservationWithObject(&person, "height", 1, record(), &g_otherContext);
        QCOMPARE(observations.observationsForContext(&g_context).size(), 2);
        person.setName("Ada");
        person.setFlags(3);
        QCOMPARE(m_seen, (QStringList{">Ada", ">3"}));

        const ZelObservationPtr kept = observations.observationsForContext(&g_context).first();
        observations.removeAllObservationsForContext(&g_context);
        observations.removeAllObservationsForContext(&g_context);
        QVERIFY(kept->isCancelled());
        QVERIFY(observations.observationsForContext(&g_context).isEmpty());
        person.setName("Bea");
        person.setHeight(7);
        QCOMPARE(m_seen.mid(2), QStringList{">7"});
        observations.removeAllObservationsForContext(&g_otherContext);
        QVERIFY(!ZelIsObserved(&person, "height"));
    }

    void theSameObservationMayBeFiledTwice()
    {
        QObject owner;
        Person person;
        const auto observation = ZelBlockObservation::observationWithObject(&person, "name", 0, record());
        ZelObservations(&owner).addObservation(observation, &g_context);
        ZelObservations(&owner).addObservation(observation, &g_context);
        QCOMPARE(ZelObservations(&owner).observationsForContext(&g_context).size(), 2);
        ZelObservations(&owner).removeAllObservationsForContext(&g_context);
        QVERIFY(observation->isCancelled());
    }

    void equalValuesStaySilentForWhoAsksForValues_data()
    {
        QTest::addColumn<quint32>("options");
        QTest::addColumn<int>("calls");
        QTest::newRow("equality check") << ZelKeyValueObservingOptionEqualCheck << 1;
        QTest::newRow("new value") << 1u << 2; // compares with an old value that was not asked for
        QTest::newRow("new and old value") << 3u << 1;
        QTest::newRow("neither") << 0u << 2;
    }

    void equalValuesStaySilentForWhoAsksForValues()
    {
        QFETCH(quint32, options);
        QObject owner;
        Club club;
        ZelObservations(&owner).addObservationWithObject(&club, "title", options, record(), &g_context);
        club.setTitle("A");
        club.setTitle("A");
        ZelObservations(&owner).removeAllObservationsForContext(&g_context);
        QFETCH(int, calls);
        QCOMPARE(m_seen.size(), calls);
    }

    void mutationsAreAnnouncedOrLeftOut()
    {
        QObject owner;
        Club club;
        Watcher watcher;
        const ZelObservations observations(&owner);
        const quint32 noMutation = ZelKeyValueObservingOptionNoMutation | ZelKeyValueObservingOptionNew;
        observations.addObservationWithObject(&club, "members", noMutation, record(), &g_context);
        observations.addObservationWithObject(&club, "members", noMutation, &watcher, "changed:", &g_context);
        club.insertMember(0, "Ada");
        QCOMPARE(m_seen.size(), 0);
        QCOMPARE(watcher.seen.size(), 1); // which knows no such option
        club.setMembers({"Bea"});
        QCOMPARE(m_seen.size(), 1);
        observations.removeAllObservationsForContext(&g_context);

        observations.addObservationWithObject(&club, "members", 0, record(), &g_context);
        QTest::ignoreMessage(QtWarningMsg, "WARNING: Mutation of Club.members");
        club.insertMember(0, "Cleo");
        QCOMPARE(m_seen.size(), 2);
        ZelSourcePlace::setForObject(&owner, {"a.xml", 3, 5, "property"});
        QTest::ignoreMessage(QtWarningMsg, "WARNING: Mutation of Club.members (a.xml:3:5, <property>)");
        club.insertMember(0, "Dora");
        observations.removeAllObservationsForContext(&g_context);
    }

    void deferredChangesBecomeOne()
    {
        QObject owner;
        Club club;
        club.setTitle("0");
        ZelObservations(&owner).addObservationWithObject(
            &club, "title", ZelKeyValueObservingOptionEqualCheck | ZelKeyValueObservingOptionDeferred,
            [&](ZelBlockObservation *observation, const Change &change) {
                record()(observation, change);
                club.setTitle("own"); // not delivered
            },
            &g_context);
        const auto observation =
            ZelObservations(&owner).observationsForContext(&g_context).first().staticCast<ZelBlockObservation>();
        for (const char *title : {"1", "2", "3"})
            club.setTitle(title);
        QCOMPARE(m_seen.size(), 0);
        QVERIFY(observation->lastChange());
        turn();
        turn();
        QCOMPARE(m_seen, QStringList{"0>3"});
        QVERIFY(!observation->lastChange());

        club.setTitle("4");
        ZelObservations(&owner).removeAllObservationsForContext(&g_context);
        turn();
        QCOMPARE(m_seen.size(), 1);
    }

    void aDeferredChangeForgetsAnObjectThatHasDied()
    {
        QObject owner;
        Person person;
        auto *dead = new Person;
        person.setFriendOf(dead);
        QList<QVariant> old;
        ZelObservations(&owner).addObservationWithObject(
            &person, "friendOf", ZelKeyValueObservingOptionEqualCheck | ZelKeyValueObservingOptionDeferred,
            [&](ZelBlockObservation *, const Change &change) { old.append(change.keyValueChangeOld()); }, &g_context);
        person.setFriendOf(&person);
        delete dead;
        turn();
        QCOMPARE(old, QList<QVariant>{QVariant()});
        ZelObservations(&owner).removeAllObservationsForContext(&g_context);
    }

    void aPriorMarkStaysOnTheChangeThatIsDeliveredLater()
    {
        QObject owner;
        Club club;
        club.setTitle("0");
        Change seen;
        ZelObservations(&owner).addObservationWithObject(
            &club, "title",
            ZelKeyValueObservingOptionEqualCheck | ZelKeyValueObservingOptionDeferred | ZelKeyValueObservingOptionPrior,
            [&](ZelBlockObservation *, const Change &change) { seen = change; }, &g_context);
        club.setTitle("1");
        turn();
        QCOMPARE(seen.keyValueChangeOld(), QVariant("0"));
        QCOMPARE(seen.keyValueChangeNew(), QVariant("1"));
        QVERIFY(seen.isPrior());
        ZelObservations(&owner).removeAllObservationsForContext(&g_context);
    }

    void delegatesAreInvokedByName()
    {
        QObject owner;
        Person person;
        auto watcher = std::make_unique<Watcher>();
        ZelObservations observations(&owner);
        observations.addObservationWithObject(&person, QStringList{"name", "flags"}, 1, watcher.get(), "changed",
                                              &g_context);
        person.setName("Ada");
        person.setFlags(2);
        QCOMPARE(watcher->seen, (QStringList{"name 1 Ada", "flags 1 2"}));
        observations.addObservationWithObject(&person, "height", 0, watcher.get(), "noSuch", &g_context);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("^ERROR: .*Watcher.* has no .*\"noSuch\""));
        person.setHeight(1);
        const auto deferred = ZelDelegateObservation::observationWithObject(
            &person, "name", ZelKeyValueObservingOptionDeferred, watcher.get(), "changed");
        person.setName("Bea");
        watcher.reset(); // dies first
        person.setFlags(3);
        turn();
        deferred->cancel();
        observations.removeAllObservationsForContext(&g_context);
        QVERIFY(!ZelIsObserved(&person, "name"));
    }

    void notificationsComeFromOneSenderOrAny()
    {
        QObject owner;
        auto sender = std::make_unique<QObject>();
        ZelNotificationCenter center;
        int calls = 0;
        const auto count = [&calls](ZelNotificationObservation *, const ZelNotification &) { ++calls; };
        const ZelObservations observations(&owner);
        observations.addObservationWithCenter(&center, {"A", "B"}, sender.get(), count, &g_context);
        observations.addObservationWithCenter(nullptr, "A", nullptr, count, &g_context);
        center.post("A", sender.get());
        center.post("B", sender.get());
        center.post("B");
        QCOMPARE(calls, 2);
        ZelNotificationCenter::defaultCenter()->post("A");
        QCOMPARE(calls, 3);
        sender.reset();
        observations.removeAllObservationsForContext(&g_context);
        ZelNotificationCenter::defaultCenter()->post("A");
        QCOMPARE(calls, 3);
    }

    void majorEventsAreSeenButNotTaken()
    {
        QObject owner;
        int events = 0;
        QCheckBox box;
        ZelObservations(&owner).addObservation(
            ZelMajorEventObservation::observationWithBlock([&](ZelMajorEventObservation *observation, QEvent *) {
                if (++events == 2)
                    observation->cancel();
            }),
            &g_context);
        QTest::mouseMove(&box, {3, 3});
        QCOMPARE(events, 0);
        QTest::mouseClick(&box, Qt::LeftButton, {}, {8, box.height() / 2});
        QCOMPARE(events, 2);
        QVERIFY(box.isChecked());
        QTest::keyClick(&box, Qt::Key_Space);
        QCOMPARE(events, 2);
        QVERIFY(!box.isChecked());
        ZelObservations(&owner).removeAllObservationsForContext(&g_context);
    }

    void aBlockMayEndItsOwnObservation()
    {
        auto owner = std::make_unique<QObject>();
        Person person;
        const QString text(100, 'x');
        const ZelBlockObservation::Block block = [&owner, text, this](ZelBlockObservation *observation,
                                                                      const Change &) {
            ZelObservations(owner.get()).removeAllObservationsForContext(&g_context);
            owner.reset();
            m_seen << text << (observation->isCancelled() ? "cancelled" : "active"); // both must still be there
        };
        const ZelObservations observations(owner.get());
        observations.addObservationWithObject(&person, "name", 0, block, &g_context);
        observations.addObservationWithObject(&person, "name", 0, record(), &g_context);
        person.setName("Ada");
        QCOMPARE(m_seen, (QStringList{text, "cancelled"}));
        QVERIFY(!ZelIsObserved(&person, "name"));
    }

    void theObservedObjectMayDieFirst()
    {
        QObject owner;
        auto *person = new Person;
        ZelObservations(&owner).addObservationWithObject(person, "name", ZelKeyValueObservingOptionDeferred, record(),
                                                         &g_context);
        ZelObservations(&owner).addObservationWithObject(
            person, "flags", 0, [&](ZelBlockObservation *, const Change &) { delete std::exchange(person, nullptr); },
            &g_context);
        person->setName("Ada");
        person->setFlags(1);
        turn();
        QCOMPARE(m_seen.size(), 1);
        ZelObservations(&owner).removeAllObservationsForContext(&g_context);
    }

    void anOwnerThatForgetsIsReportedAndNothingStaysRegistered()
    {
        Person person;
        auto owner = std::make_unique<QObject>();
        ZelObservations(owner.get()).addObservationWithObject(&person, "name", 0, record(), &g_context);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("^ERROR: Observation is not cancelled: "
                                                              "<ZelBlockObservation: 0x[0-9a-f]+>\\{object=<Person: "
                                                              "0x[0-9a-f]+>, keyPath=name\\}$"));
        owner.reset();
        QVERIFY(!ZelIsObserved(&person, "name"));
        person.setName("Ada");
        QCOMPARE(m_seen.size(), 0);
    }

    void missingParametersAreAsserted()
    {
        struct Failures : ZelAssertionHandler
        {
            QStringList messages;
            void handleFailure(const QString &, const QString &message, const ZelSourcePlace &) override
            {
                messages << message;
            }
        } failures;
        ZelAssertionHandler *former = ZelAssertionHandler::setCurrent(&failures);
        QObject owner;
        Person person;
        ZelBlockObservation::observationWithObject(nullptr, "name", 0, record());
        ZelBlockObservation::observationWithObject(&person, "", 0, record());
        ZelBlockObservation::observationWithObject(&person, "name", 0, nullptr);
        ZelDelegateObservation::observationWithObject(&person, "name", 0, nullptr, "changed");
        ZelNotificationObservation::observationWithCenter(nullptr, {}, nullptr, [](auto...) {});
        ZelObservations(&owner).addObservationWithObject(&person, "name", 0, record(), nullptr);
        ZelAssertionHandler::setCurrent(former);
        const QString invalid = "Invalid parameter not satisfying: ";
        QCOMPARE(failures.messages, (QStringList{invalid + "object", invalid + "keyPath", invalid + "block",
                                                 invalid + "observer", invalid + "name", invalid + "context != NULL"}));
        QVERIFY(!ZelIsObserved(&person, "name"));
    }
};

QTEST_MAIN(tst_ZelObservations)
#include "tst_ZelObservations.moc"
