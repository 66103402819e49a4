// SPDX-License-Identifier: MIT
#include "Core/Errors/ZelException.h"
#include "Core/Values/ZelValues.h"
#include "Observation/ZelKeyPathObservation.h"
#include "Observation/ZelKeyValueBinding.h"
#include "Observation/ZelObservations.h"
#include "Support/Failures.h"
#include "Support/Person.h"

#include <QRegularExpression>
#include <QTest>

using Change = ZelKeyValueChange;

static const char g_context = 0;
static const char g_otherContext = 0;
static constexpr quint32 g_deferredEqual = ZelKeyValueObservingOptionEqualCheck | ZelKeyValueObservingOptionDeferred;

/// A model that announces its changes itself, those of its list with indexes.
class Club : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QVariantList members MEMBER members WRITE setMembers)
    Q_PROPERTY(QString title MEMBER title WRITE setTitle)
public:
    void setMembers(const QVariantList &list)
    {
        const ZelValueChange change(this, "members");
        members = list;
    }
    void insertMember(qsizetype index, const QVariant &member)
    {
        ZelWillChangeValueForKey(this, ZelKeyValueChangeInsertion, {index}, "members");
        members.insert(index, member);
        ZelDidChangeValueForKey(this, ZelKeyValueChangeInsertion, {index}, "members");
    }
    /// Announces also what is no change.
    void setTitle(const QString &text)
    {
        const ZelValueChange change(this, "title");
        title = text;
    }

    QVariantList members;
    QString title;
};

/// An observer whose methods are invoked by name.
class Watcher : public QObject
{
    Q_OBJECT
public:
    QStringList seen;
    Q_INVOKABLE void changed(ZelDelegateObservation *observation, const ZelKeyValueChange &change)
    {
        seen << observation->keyPath().string() + u' ' + QString::number(change.keyValueChangeKind()) + u' ' +
                    change.keyValueChangeNew().toString();
    }
};

/// What most tests need. Observations of both contexts end with it.
struct World
{
    std::unique_ptr<QObject> owner = std::make_unique<QObject>();
    ZelObservations observations{owner.get()};
    Person person;
    Club club;
    void end(const void *context = &g_context) const { observations.removeAllObservationsForContext(context); }
    ~World()
    {
        if (owner) {
            end();
            end(&g_otherContext);
        }
    }
};

/// Shouts; and takes the shouting back where it is reversible.
template<bool IsReversible> class Louder : public ZelAbstractValueTransformer
{
public:
    QVariant transformedValue(const QVariant &value) const override { return value.toString().toUpper(); }
    bool allowsReverseTransformation() const override { return IsReversible; }
};

class tst_ZelObservations : public QObject
{
    Q_OBJECT

    QStringList m_seen;
    ZelBlockObservation::Block record()
    {
        return [this](ZelBlockObservation *, const Change &change) {
            m_seen << change.keyValueChangeOld().toString() + u'>' + change.keyValueChangeNew().toString();
        };
    }
    QStringList seen() { return std::exchange(m_seen, {}); }
    static void turn() { QCoreApplication::processEvents(); }
    /// Follows a path; notes the keys that change.
    QSharedPointer<ZelKeyPathObservation> follow(QObject *object, const ZelKeyPath &path)
    {
        return ZelKeyPathObservation::observationWithObject(
            object, path, ZelKeyValueObservingOptionNoMutation,
            [this](ZelKeyPathObservation *observation, const Change &change) {
                m_seen << observation->key().string() + (change.isPrior() ? " before" : " after");
            });
    }

private Q_SLOTS:
    void init() { m_seen.clear(); }

    void removingAContextEndsItsObservationsOnly()
    {
        World w;
        w.observations.addObservationWithObject(&w.person, {"name", "flags"}, 1, record(), &g_context);
        w.observations.addObservationWithObject(&w.person, "height", 1, record(), &g_otherContext);
        QCOMPARE(w.observations.observationsForContext(&g_context).size(), 2);
        w.person.setName("Ada");
        w.person.setFlags(3);
        QCOMPARE(seen(), (QStringList{">Ada", ">3"}));
        // The same one may be filed twice.
        const ZelObservationPtr kept = w.observations.observationsForContext(&g_context).first();
        w.observations.addObservation(kept, &g_context);
        QCOMPARE(w.observations.observationsForContext(&g_context).size(), 3);
        w.end();
        w.end();
        QVERIFY(kept->isCancelled() && w.observations.observationsForContext(&g_context).isEmpty());
        w.person.setName("Bea");
        w.person.setHeight(7);
        QCOMPARE(seen(), QStringList{">7"});
        w.end(&g_otherContext);
        QVERIFY(!ZelIsObserved(&w.person, "height"));
    }

    void equalValuesStaySilentForWhoAsksForValues()
    {
        World w;
        const auto calls = [&](quint32 options) {
            w.observations.addObservationWithObject(&w.club, "title", options, record(), &g_context);
            w.club.setTitle("A" + w.club.title);
            w.club.setTitle(w.club.title);
            w.end();
            return seen().size();
        };
        QCOMPARE(calls(ZelKeyValueObservingOptionEqualCheck), 1);
        QCOMPARE(calls(ZelKeyValueObservingOptionNew), 2); // compares with an old value that was not asked for
        QCOMPARE(calls(ZelKeyValueObservingOptionNew | ZelKeyValueObservingOptionOld), 1);
        QCOMPARE(calls(0), 2);
    }

    void mutationsAreAnnouncedOrLeftOut()
    {
        World w;
        Watcher watcher;
        const quint32 noMutation = ZelKeyValueObservingOptionNoMutation | ZelKeyValueObservingOptionNew;
        w.observations.addObservationWithObject(&w.club, "members", noMutation, record(), &g_context);
        w.observations.addObservationWithObject(&w.club, "members", noMutation, &watcher, "changed:", &g_context);
        w.club.insertMember(0, "Ada");
        QCOMPARE(seen().size(), 0);
        QCOMPARE(watcher.seen.size(), 1); // which knows no such option
        w.club.setMembers({"Bea"});
        QCOMPARE(seen().size(), 1);
        w.end();
        w.observations.addObservationWithObject(&w.club, "members", 0, record(), &g_context);
        QTest::ignoreMessage(QtWarningMsg, "WARNING: Mutation of Club.members");
        w.club.insertMember(0, "Cleo");
        QCOMPARE(seen().size(), 1);
        ZelSourcePlace::setForObject(w.owner.get(), {"a.xml", 3, 5, "property"});
        QTest::ignoreMessage(QtWarningMsg, "WARNING: Mutation of Club.members (a.xml:3:5, <property>)");
        w.club.insertMember(0, "Dora");
    }

    void deferredChangesBecomeOne()
    {
        World w;
        w.club.setTitle("0");
        const auto defer = [&](quint32 options, const ZelBlockObservation::Block &block) {
            w.observations.addObservationWithObject(&w.club, "title", options | g_deferredEqual, block, &g_context);
            return w.observations.observationsForContext(&g_context).first().staticCast<ZelBlockObservation>();
        };
        auto observation = defer(0, [&](ZelBlockObservation *observation, const Change &change) {
            record()(observation, change);
            w.club.setTitle("own"); // not delivered
        });
        for (const char *title : {"1", "2", "3"})
            w.club.setTitle(title);
        QVERIFY(m_seen.isEmpty() && observation->lastChange());
        turn();
        turn();
        QCOMPARE(seen(), QStringList{"0>3"});
        QVERIFY(!observation->lastChange());
        w.club.setTitle("4");
        w.end();
        turn();
        QCOMPARE(seen(), QStringList());
        Change prior; // that mark stays on the change that is delivered later
        defer(ZelKeyValueObservingOptionPrior, [&](ZelBlockObservation *, const Change &change) { prior = change; });
        w.club.setTitle("5");
        turn();
        QCOMPARE(prior.keyValueChangeOld(), "4");
        QCOMPARE(prior.keyValueChangeNew(), "5");
        QVERIFY(prior.isPrior());
        auto *dead = new Person; // it is forgotten
        w.person.setFriendOf(dead);
        QList<QVariant> old;
        w.observations.addObservationWithObject(
            &w.person, "friendOf", g_deferredEqual,
            [&](ZelBlockObservation *, const Change &change) { old.append(change.keyValueChangeOld()); }, &g_context);
        w.person.setFriendOf(&w.person);
        delete dead;
        turn();
        QCOMPARE(old, QList<QVariant>{QVariant()});
    }

    void delegatesAreInvokedByName()
    {
        World w;
        auto watcher = std::make_unique<Watcher>();
        const QStringList keys{"name", "flags"};
        w.observations.addObservationWithObject(&w.person, keys, 1, watcher.get(), "changed", &g_context);
        w.person.setName("Ada");
        w.person.setFlags(2);
        QCOMPARE(watcher->seen, (QStringList{"name 1 Ada", "flags 1 2"}));
        w.observations.addObservationWithObject(&w.person, "height", 0, watcher.get(), "noSuch", &g_context);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("^ERROR: .*Watcher.* has no .*\"noSuch\""));
        w.person.setHeight(1);
        const auto deferred = ZelDelegateObservation::observationWithObject(
            &w.person, "name", ZelKeyValueObservingOptionDeferred, watcher.get(), "changed");
        w.person.setName("Bea");
        turn();
        QCOMPARE(watcher->seen.mid(2), (QStringList{"name 1 Bea", "name 1 "})); // at once, and deferred without values
        w.person.setName("Cleo");
        watcher.reset(); // dies first
        w.person.setFlags(3);
        turn();
        deferred->cancel();
        w.end();
        QVERIFY(!ZelIsObserved(&w.person, "name"));
    }

    void notificationsComeFromOneSenderOrAny()
    {
        World w;
        auto sender = std::make_unique<QObject>();
        ZelNotificationCenter center;
        int calls = 0;
        const auto count = [&calls](ZelNotificationObservation *, const ZelNotification &) { ++calls; };
        w.observations.addObservationWithCenter(&center, {"A", "B"}, sender.get(), count, &g_context);
        w.observations.addObservationWithCenter(nullptr, "A", nullptr, count, &g_context);
        center.post("A", sender.get());
        center.post("B", sender.get());
        center.post("B");
        QCOMPARE(calls, 2);
        ZelNotificationCenter::defaultCenter()->post("A");
        QCOMPARE(calls, 3);
        sender.reset();
        w.end();
        ZelNotificationCenter::defaultCenter()->post("A");
        QCOMPARE(calls, 3);
    }

    void majorEventsAreSeenButNotTaken()
    {
        World w;
        int events = 0;
        QCheckBox box;
        const auto countTwo = [&](ZelMajorEventObservation *observation, QEvent *) {
            if (++events == 2)
                observation->cancel();
        };
        w.observations.addObservation(ZelMajorEventObservation::observationWithBlock(countTwo), &g_context);
        QTest::mouseMove(&box, {3, 3});
        QCOMPARE(events, 0);
        QTest::mouseClick(&box, Qt::LeftButton, {}, {8, box.height() / 2});
        QVERIFY(events == 2 && box.isChecked());
        QTest::keyClick(&box, Qt::Key_Space);
        QVERIFY(events == 2 && !box.isChecked());
    }

    void anyOfThemMayDieFirst()
    {
        World w;
        const QString text(100, 'x');
        const auto endAll = [&, text](ZelBlockObservation *observation, const Change &) {
            w.end();
            w.owner.reset();
            m_seen << text << (observation->isCancelled() ? "cancelled" : "active"); // both must still be there
        };
        w.observations.addObservationWithObject(&w.person, "name", 0, endAll, &g_context);
        w.observations.addObservationWithObject(&w.person, "name", 0, record(), &g_context);
        w.person.setName("Ada");
        QCOMPARE(seen(), (QStringList{text, "cancelled"}));
        QVERIFY(!ZelIsObserved(&w.person, "name"));
        World second;
        auto *person = new Person;
        second.observations.addObservationWithObject(person, "name", ZelKeyValueObservingOptionDeferred, record(),
                                                     &g_context);
        const auto kill = [&](ZelBlockObservation *, const Change &) { delete std::exchange(person, nullptr); };
        second.observations.addObservationWithObject(person, "flags", 0, kill, &g_context);
        person->setName("Ada");
        person->setFlags(1);
        turn();
        QCOMPARE(seen().size(), 1);
        second.end();
        // An owner that forgets its observations is reported, and nothing stays registered.
        second.observations.addObservationWithObject(&w.person, "name", 0, record(), &g_context);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("^ERROR: Observation is not cancelled: "
                                                              "<ZelBlockObservation: 0x[0-9a-f]+>\\{object=<Person: "
                                                              "0x[0-9a-f]+>, keyPath=name\\}$"));
        second.owner.reset();
        QVERIFY(!ZelIsObserved(&w.person, "name"));
        w.person.setName("Bea");
        QCOMPARE(seen(), QStringList());
    }

    void pathsAreFollowedFromObjectToObject()
    {
        Person root, first("first"), second("second");
        root.setFriendOf(&first);
        first.setFriendOf(&second);
        auto observation = follow(&root, "friendOf.friendOf.name");
        second.setName("2");
        QCOMPARE(seen(), (QStringList{"name before", "name after"}));
        root.setFriendOf(nullptr);
        QCOMPARE(seen(), (QStringList{"friendOf before", "friendOf after"}));
        QVERIFY(observation->observations().isEmpty() && observation->options() == 0);
        QVERIFY(!ZelIsObserved(&first, "friendOf") && !ZelIsObserved(&second, "name"));
        second.setFriendOf(&first);
        root.setFriendOf(&second);
        first.setName("1");
        QCOMPARE(seen().size(), 4);
        observation->cancel();
        for (Person *person : {&root, &first, &second})
            QVERIFY(!ZelIsObserved(person, "friendOf") && !ZelIsObserved(person, "name"));
        // Objects on the way may die, and a block may cancel its path from below.
        auto other = std::make_unique<Person>();
        root.setFriendOf(other.get());
        observation = follow(&root, "friendOf.name");
        const auto leaf = follow(other.get(), "name");
        other.reset();
        root.setFriendOf(nullptr);
        QVERIFY(observation->observations().isEmpty());
        leaf->cancel();
        observation->cancel();
        root.setFriendOf(&first);
        const QString text(100, 'x');
        const auto end = [&observation, text, this](ZelKeyPathObservation *child, const Change &) {
            observation->cancel();
            observation.reset();
            m_seen << text + child->key().string();
        };
        observation = ZelKeyPathObservation::observationWithObject(&root, "friendOf.name", 0, end);
        m_seen.clear();
        first.setName("x");
        root.setFriendOf(nullptr);
        QCOMPARE(seen(), QStringList{text + "name"});
    }

    void pathsFanOutAcrossLists()
    {
        Person a("a"), b("b"), c("c"), d("d");
        const auto value = [](Person &person) { return QVariant::fromValue(&person); };
        Club club;
        club.setMembers({value(a), value(b), value(c)});
        const auto observation = follow(&club, "members.name");
        QCOMPARE(observation->observations().size(), 3);
        club.setMembers({value(c), ZelNull(), value(d)});
        QCOMPARE(observation->observations().size(), 2);
        club.insertMember(0, value(b)); // the options that would leave this out are not used
        QCOMPARE(observation->observations().size(), 3);
        m_seen.clear();
        a.setName("gone");
        d.setName("D");
        QCOMPARE(seen(), (QStringList{"name before", "name after"}));
        QCOMPARE(observation->observations().at(2)->object(), &d);
        observation->cancel();
    }

    void missingParametersAreAsserted()
    {
        World w;
        Failures failures;
        const auto invalid = [&](const QString &place, const char *parameter, const auto &call) {
            call();
            const QString expected = "Observation/Zel" + place + ": Invalid parameter not satisfying: " + parameter;
            QCOMPARE(failures.taken(), QStringList(expected));
        };
        const auto block = [&](QObject *object, const ZelKeyPath &path, const ZelBlockObservation::Block &block) {
            return [=] { QVERIFY(!ZelBlockObservation::observationWithObject(object, path, 0, block)); };
        };
        invalid("BlockObservation", "object", block(nullptr, "name", record()));
        invalid("BlockObservation", "keyPath", block(&w.person, "", record()));
        invalid("BlockObservation", "block", block(&w.person, "name", nullptr));
        invalid("DelegateObservation", "observer",
                [&] { ZelDelegateObservation::observationWithObject(&w.person, "name", 0, nullptr, "changed"); });
        invalid("DelegateObservation", "selector",
                [&] { ZelDelegateObservation::observationWithObject(&w.person, "name", 0, &w.club, {}); });
        invalid("KeyPathObservation", "block",
                [&] { ZelKeyPathObservation::observationWithObject(&w.person, "name", 0, nullptr); });
        invalid("NotificationObservation", "name",
                [] { ZelNotificationObservation::observationWithCenter(nullptr, {}, nullptr, [](auto...) {}); });
        invalid("Observations", "context != NULL",
                [&] { w.observations.addObservationWithObject(&w.person, "name", 0, record(), nullptr); });
        QVERIFY(!ZelIsObserved(&w.person, "name"));
    }

    void aBoundValueIsReadThroughItsTransformerButNotWritten()
    {
        Person control("Eve"), model("Ada");
        const ZelKeyValueBinding values(&control);
        QCOMPARE(values.valueForBinding("name"), "Eve"); // a name that is not bound is a key
        values.setValue("Bea", "name");
        QCOMPARE(control.name(), "Bea");
        QVERIFY(!values.controllerForBinding("name") && values.keyPathForBinding("name").isEmpty());
        QVERIFY_EXCEPTION_THROWN(values.valueForBinding({}), ZelInternalInconsistencyException);
        ZelBind(&control, "name", &model, "name");
        QCOMPARE(values.controllerForBinding("name"), &model);
        QCOMPARE(values.keyPathForBinding("name").string(), "name");
        QCOMPARE(values.valueForBinding("name"), "Ada");
        const auto ignoreNotWritten = [] {
            QTest::ignoreMessage(QtWarningMsg, "ERROR: NSObservedObjectKey was nil for binding \"name\" in "
                                               "-[NSObject(ZelKeyValueBinding) setValue:forBinding:]");
        };
        ignoreNotWritten();
        values.setValue("Bea", "name");
        QCOMPARE(model.name(), "Ada");
        // A transformer is given by name, or as such, which prevails.
        const auto oneWay = ZelValueTransformerPtr(new Louder<false>);
        ZelAbstractValueTransformer::setValueTransformer(ZelValueTransformerPtr(new Louder<true>), "Louder");
        ZelBindingOptions options{{ZelValueTransformerNameBindingOption, "Unknown"}};
        ZelBind(&control, "name", &model, "name", options);
        QVERIFY(!values.valueTransformerForBinding("name"));
        QCOMPARE(values.valueForBinding("name"), "Ada");
        options[ZelValueTransformerNameBindingOption] = "Louder";
        ZelBind(&control, "name", &model, "name", options);
        QCOMPARE(values.valueForBinding("name"), "ADA");
        options.insert(ZelValueTransformerBindingOption, QVariant::fromValue(oneWay));
        ZelBind(&control, "name", &model, "name", options);
        QCOMPARE(values.valueTransformerForBinding("name"), oneWay);
        QTest::ignoreMessage(QtWarningMsg,
                             "WARNING: binding \"name\" has value transformer, but it doesn't allow reverse "
                             "transformations in -[NSObject(ZelKeyValueBinding) setValue:forBinding:]");
        ignoreNotWritten();
        values.setValue("BEA", "name");
        ZelUnbind(&control, "name");
    }

    void cancellingUnbinds()
    {
        const std::pair<QVariant, const char *> rows[] = {{{}, "Ada"}, {false, "Ada"}, {true, ""}};
        for (const auto &[nilOnCancel, left] : rows) {
            Person control, model("Ada");
            ZelBindingOptions options;
            if (nilOnCancel.isValid())
                options.insert(ZelNilOnCancelBindingOption, nilOnCancel);
            const ZelObservations observations(&control);
            const QMap<QString, QString> bindings{{"name", "name"}, {"flags", "flags"}};
            observations.addBindingWithObject(&control, &model, bindings, options, &g_context);
            model.setFlags(5);
            QCOMPARE(control.name(), "Ada");
            QCOMPARE(control.flags(), 5);
            observations.removeAllObservationsForContext(&g_context);
            QCOMPARE(control.name(), left);
            model.setFlags(6);
            QVERIFY(control.flags() != 6);
            QVERIFY(!ZelInfoForBinding(&control, "name"));
        }
    }

    void eitherObjectOrTheBindingMayDieFirst()
    {
        Person owner;
        auto control = std::make_unique<Person>();
        auto model = std::make_unique<Person>("Ada");
        const ZelObservations observations(&owner);
        observations.addBindingWithObject(control.get(), "name", model.get(), "name", {}, &g_context);
        observations.addBindingWithObject(&owner, "name", model.get(), "name", {}, &g_context);
        control.reset();
        model->setName("Bea");
        QCOMPARE(owner.name(), "Bea");
        model.reset();
        observations.removeAllObservationsForContext(&g_context);
        QVERIFY(!ZelInfoForBinding(&owner, "name"));
        Person other("Cleo");
        auto binding = ZelBindingObservation::bindingWithObject(&owner, "name", &other, "name");
        QTest::ignoreMessage(
            QtWarningMsg,
            QRegularExpression("^ERROR: Observation is not cancelled: <ZelBindingObservation: "
                               "0x[0-9a-f]+>\\{object=<Person: 0x[0-9a-f]+>, binding=name target=<Person: "
                               "0x[0-9a-f]+> keyPath=name\\}$"));
        binding.reset();
        other.setName("Dora");
        QCOMPARE(owner.name(), "Cleo");
    }
};

QTEST_MAIN(tst_ZelObservations)
#include "tst_ZelObservations.moc"
