// SPDX-License-Identifier: MIT
#include "Observation/ZelKeyPathObservation.h"

#include "Core/Values/ZelValues.h"
#include "Observation/Club.h"
#include "Observation/ZelKeyValueObservation.h"

#include <QTest>

using Change = ZelKeyValueChange;

class tst_ZelKeyPathObservation : public QObject
{
    Q_OBJECT

    QStringList m_seen;
    ZelKeyPathObservation::Block record()
    {
        return [this](ZelKeyPathObservation *observation, const Change &change) {
            m_seen << observation->key().string() + (change.isPrior() ? " before" : " after");
        };
    }
    QSharedPointer<ZelKeyPathObservation> observe(QObject *object, const ZelKeyPath &path)
    {
        return ZelKeyPathObservation::observationWithObject(object, path, ZelKeyValueObservingOptionNoMutation,
                                                            record());
    }

private Q_SLOTS:
    void init() { m_seen.clear(); }

    void aLeafIsToldBeforeAndAfter()
    {
        Person person;
        const auto observation = observe(&person, "name");
        person.setName("Ada");
        QCOMPARE(m_seen, (QStringList{"name before", "name after"}));
        QVERIFY(observation->observations().isEmpty());
        QCOMPARE(observation->options(), 0u);
        observation->cancel();
        QVERIFY(!ZelIsObserved(&person, "name"));
    }

    void followsTheObjectsAlongThePath()
    {
        Person root, first("first"), second("second");
        root.setFriendOf(&first);
        first.setFriendOf(&second);
        const auto observation = observe(&root, "friendOf.friendOf.name");
        second.setName("2");
        QCOMPARE(m_seen.size(), 2);
        root.setFriendOf(nullptr);
        QCOMPARE(m_seen.size(), 4);
        QVERIFY(observation->observations().isEmpty());
        QVERIFY(!ZelIsObserved(&first, "friendOf") && !ZelIsObserved(&second, "name"));
        second.setFriendOf(&first);
        root.setFriendOf(&second);
        first.setName("1");
        QCOMPARE(m_seen.size(), 8);
        observation->cancel();
        for (Person *person : {&root, &first, &second})
            QVERIFY(!ZelIsObserved(person, "friendOf") && !ZelIsObserved(person, "name"));
    }

    void fansOutAcrossLists()
    {
        Person a("a"), b("b"), c("c"), d("d");
        const auto value = [](Person *person) { return QVariant::fromValue(person); };
        Club club;
        club.setMembers({value(&a), value(&b), value(&c)});
        const auto observation = observe(&club, "members.name");
        QCOMPARE(observation->observations().size(), 3);
        club.setMembers({value(&c), ZelNull(), value(&d)});
        QCOMPARE(observation->observations().size(), 2);
        club.insertMember(0, value(&b)); // the options that would leave this out are not used
        QCOMPARE(observation->observations().size(), 3);

        m_seen.clear();
        a.setName("gone");
        QCOMPARE(m_seen.size(), 0);
        d.setName("D");
        QCOMPARE(m_seen, (QStringList{"name before", "name after"}));
        QCOMPARE(observation->observations().at(2)->object(), &d);
        observation->cancel();
    }

    void mayBeCancelledFromBelowDuringDelivery()
    {
        Person root, other;
        root.setFriendOf(&other);
        QSharedPointer<ZelKeyPathObservation> observation;
        const QString text(100, 'x');
        observation = ZelKeyPathObservation::observationWithObject(
            &root, "friendOf.name", 0, [&observation, text, this](ZelKeyPathObservation *child, const Change &) {
                observation->cancel();
                observation.reset();
                m_seen << text + child->key().string();
            });
        other.setName("x");
        QCOMPARE(m_seen, QStringList{text + "name"});
        root.setFriendOf(nullptr);
        QCOMPARE(m_seen.size(), 1);
    }

    void objectsOnTheWayMayDie()
    {
        Person root;
        auto other = std::make_unique<Person>();
        root.setFriendOf(other.get());
        const auto observation = observe(&root, "friendOf.name");
        other.reset();
        root.setFriendOf(nullptr);
        QVERIFY(observation->observations().isEmpty());
        auto owned = std::make_unique<Person>();
        const auto second = observe(owned.get(), "name");
        owned.reset();
        second->cancel();
        observation->cancel();
    }
};

QTEST_MAIN(tst_ZelKeyPathObservation)
#include "tst_ZelKeyPathObservation.moc"
