// SPDX-License-Identifier: MIT
#include "Blocks/ZelValueTransformer.h"
#include "Core/Values/ZelValues.h"
#include "Observation/ZelKeyPathObservation.h"
#include "Observation/ZelKeyValueBinding.h"
#include "Observation/ZelObservations.h"
#include "Support/Failures.h"
#include "Support/Person.h"
#include <QTest>
#include <QtWidgets>

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
    void setMembers(const QVariantList &list) { set("members", members, list); }
    /// Announces also what is no change.
    void setTitle(const QString &text) { set("title", title, text); }
    void insertMember(qsizetype index, const QVariant &member)
    {
        ZelWillChangeValueForKey(this, ZelKeyValueChangeInsertion, {index}, "members");
        members.insert(index, member);
        ZelDidChangeValueForKey(this, ZelKeyValueChangeInsertion, {index}, "members");
    }

    QVariantList members;
    QString title;

private:
    template<typename Type> void set(const char *key, Type &member, const Type &value)
    {
        const ZelValueChange change(this, key);
        member = value;
    }
};

/// What most tests need. Observations of the context end with it.
struct World
{
    std::unique_ptr<QObject> owner = std::make_unique<QObject>();
    ZelObservations observations{owner.get()};
    Person person;
    Club club;
    template<typename... Callback>
    void observe(QObject *object, const auto &path, quint32 options, const Callback &...callback) const
    {
        observations.addObservationWithObject(object, path, options, callback..., &g_context);
    }
    ZelObservationPtr first() const { return observations.observationsForContext(&g_context).first(); }
    void end(const void *context = &g_context) const { observations.removeAllObservationsForContext(context); }
    ~World()
    {
        if (owner)
            end();
    }
};

class tst_ZelObservations : public QObject
{
    Q_OBJECT
    const QString m_long = QString(100, 'x'); // a closure that has it must still be there to tell it
    QStringList m_seen;
    static QString text(const QVariant &value) { return value.isValid() ? value.toString() : "-"; }
    void note(const Change &change)
    {
        m_seen << text(change.keyValueChangeOld()) + '>' + text(change.keyValueChangeNew()) +
                      (change.isPrior() ? "!" : "");
    }
    ZelBlockObservation::Block record()
    {
        return [this](ZelBlockObservation *, const Change &change) { note(change); };
    }
    QString seen() { return std::exchange(m_seen, {}).join(' '); }
    static void turn() { QCoreApplication::processEvents(); }
    QString inTurn() { return turn(), seen(); }
    std::function<void()> log(const QString &text)
    {
        return [this, text] { m_seen << text; };
    }
    static void post(const QString &name) { ZelNotificationCenter::defaultCenter()->post(name); }
    static void checkpoint() { post(ZelDelayedInvocationCheckpointNotification); }
    static void ignoreNotCancelled(const QString &title, QString details)
    {
        details.replace("<Person>", "<Person: 0x[0-9a-f]+>");
        const QString pattern = "^ERROR: Observation is not cancelled: <%1: 0x[0-9a-f]+>\\{%2\\}$";
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(pattern.arg(title, details)));
    }
    /// Follows a path; notes the keys that change.
    QSharedPointer<ZelKeyPathObservation> follow(QObject *object, const ZelKeyPath &path)
    {
        return ZelKeyPathObservation::observationWithObject(
            object, path, ZelKeyValueObservingOptionNoMutation,
            [this](ZelKeyPathObservation *observation, const Change &change) {
                m_seen << observation->key().string() + (change.isPrior() ? "!" : "");
            });
    }

public: // what is invoked by name
    Q_INVOKABLE void run() { m_seen << "run"; }
    Q_INVOKABLE void changed(ZelDelegateObservation *observation, const ZelKeyValueChange &change)
    {
        m_seen << observation->keyPath().string() + QString::number(change.keyValueChangeKind()) + u'>' +
                      change.keyValueChangeNew().toString();
    }

private Q_SLOTS:
    void aCheckpointRunsByPriorityWithWhatTheWorkSchedules()
    {
        ZelDelayedInvocation early(log("c")), usual(log("b")), delayed(log("-"));
        ZelDelayedInvocation second([&, back = &early] {
            m_seen << "2";
            back->schedule(); // has run
        });
        ZelDelayedInvocation first([&] {
            m_seen << "1";
            second.schedule();
        });
        early.setPriority(2);
        first.setPriority(1);
        second.setPriority(800000);
        delayed.setDelay(30.0);
        for (auto *invocation : {&usual, &early, &first, &delayed})
            invocation->schedule();
        checkpoint();
        QCOMPARE(seen(), "1 c b 2");
        QVERIFY(delayed.isPending() && early.isPending() && !usual.isPending());
        QCOMPARE(inTurn(), "c");
        // Work that schedules new work forever does not hold the checkpoint.
        int runs = 0;
        const std::function<void()> again = [&] {
            if (++runs < 20)
                ZelDelayedInvocation::scheduleDelayedInvocationWithBlock(again);
        };
        again();
        checkpoint();
        QCOMPARE(runs, 2);
        for (int i = 0; runs < 20 && i < 50; ++i)
            turn();
        QCOMPARE(runs, 20);
        // A checkpoint during the work does not run it again.
        ZelDelayedInvocation nested([&] {
            if (++runs < 25)
                checkpoint();
        });
        nested.schedule();
        checkpoint();
        turn();
        QCOMPARE(runs, 21);
    }

    void schedulesAreLimitedByDelayModesAndCancelling()
    {
        ZelDelayedInvocation invocation(log("a")), onlyDefault(log("b")), none(log("-"));
        onlyDefault.setRunLoopModes(QStringList{ZelDefaultRunLoopMode});
        none.setRunLoopModes(QStringList());
        QVERIFY_EXCEPTION_THROWN(none.schedule(), ZelInternalInconsistencyException);
        QVERIFY(!none.isPending() && !invocation.isPending());
        {
            const ZelRunLoopModeScope tracking(ZelEventTrackingRunLoopMode);
            for (auto *scheduled : {&invocation, &invocation, &onlyDefault})
                scheduled->schedule();
            QCOMPARE(inTurn(), "a");
        }
        QVERIFY(invocation.isFinished() && !invocation.isScheduled() && onlyDefault.isPending());
        QCOMPARE(inTurn(), "b");
        for (const double delay : {0.0, 0.02}) {
            if (delay > 0)
                invocation.setDelay(delay);
            invocation.schedule();
            invocation.cancel();
            QVERIFY(invocation.isCancelled() && !invocation.isPending());
            invocation.invoke(); // is not pending
            QTest::qWait(50);
            QCOMPARE(seen(), "");
            invocation.schedule();
            QVERIFY(!invocation.isCancelled());
            QCOMPARE(inTurn(), delay > 0 ? "" : "a");
        }
        QTRY_COMPARE(m_seen.size(), 1);
        m_seen.clear();
        QVERIFY_EXCEPTION_THROWN(invocation.setDelay(qQNaN()), ZelInternalInconsistencyException); // never would be
    }

    void anInvocationEndsWithItsTargetItsWorkOrItself()
    {
        std::unique_ptr<ZelDelayedInvocation> invocation;
        invocation = std::make_unique<ZelDelayedInvocation>([this, text = m_long, &invocation] {
            invocation.reset();
            m_seen << text;
        });
        invocation->schedule();
        QCOMPARE(inTurn(), m_long);
        invocation = std::make_unique<ZelDelayedInvocation>(log("-"));
        invocation->schedule();
        invocation.reset();
        auto target = std::make_unique<tst_ZelObservations>();
        ZelDelayedInvocation toTarget(target.get(), "run:");
        toTarget.schedule();
        QCOMPARE(inTurn(), "");
        QCOMPARE(target->seen(), "run");
        toTarget.schedule();
        target.reset();
        ZelDelayedInvocation throwing([&] {
            run();
            if (m_seen.size() == 1)
                throw ZelGenericException("work");
        });
        throwing.schedule();
        QVERIFY_EXCEPTION_THROWN(throwing.invoke(), ZelGenericException);
        throwing.schedule(); // it was finished
        QCOMPARE(inTurn(), "run run");
    }

    void removingAContextEndsItsObservationsOnly()
    {
        World w;
        w.observe(&w.person, QStringList{"name", "flags"}, 1, record());
        w.observations.addObservationWithObject(&w.person, "height", 1, record(), &g_otherContext);
        const ZelObservationPtr kept = w.first();
        w.observations.addObservation(kept, &g_context); // the same one may be filed twice
        QCOMPARE(w.observations.observationsForContext(&g_context).size(), 3);
        w.person.setName("Ada");
        w.person.setFlags(3);
        QCOMPARE(seen(), "->Ada ->3");
        w.end();
        QVERIFY(kept->isCancelled() && w.observations.observationsForContext(&g_context).isEmpty());
        w.person.setName("Bea");
        w.person.setHeight(7);
        QCOMPARE(seen(), "->7");
        w.end(&g_otherContext);
        QVERIFY(!ZelIsObserved(&w.person, "height"));
    }

    void equalValuesAndMutationsMayBeLeftOut()
    {
        World w;
        const auto check = [&](quint32 options, const char *expected) {
            w.club.title = "A";
            w.observe(&w.club, "title", options, record());
            w.club.setTitle("B");
            w.club.setTitle("B");
            w.end();
            QCOMPARE(seen(), expected);
        };
        check(ZelKeyValueObservingOptionEqualCheck, "A>B");
        check(ZelKeyValueObservingOptionNew, "->B ->B"); // compares with an old value that was not asked for
        check(ZelKeyValueObservingOptionNew | ZelKeyValueObservingOptionOld, "A>B");
        check(0, "->- ->-");
        tst_ZelObservations watcher;
        const quint32 noMutation = ZelKeyValueObservingOptionNoMutation | ZelKeyValueObservingOptionNew;
        w.observe(&w.club, "members", noMutation, record());
        w.observe(&w.club, "members", noMutation, &watcher, "changed:");
        w.club.insertMember(0, "Ada");
        QVERIFY(m_seen.isEmpty() && watcher.m_seen.size() == 1); // which knows no such option
        w.club.setMembers({"Bea"});
        w.end();
        QCOMPARE(m_seen.size(), 1);
        w.observe(&w.club, "members", 0, record());
        ZelSourcePlace::setForObject(w.owner.get(), {"a.xml", 3, 5, "property"});
        QTest::ignoreMessage(QtWarningMsg, "WARNING: Mutation of Club.members (a.xml:3:5, <property>)");
        w.club.insertMember(0, "Cleo");
        QCOMPARE(seen(), "-> ->-");
    }

    void deferredChangesBecomeOne()
    {
        World w;
        const auto defer = [&](quint32 options, const ZelBlockObservation::Block &block) {
            w.observe(&w.club, "title", options | g_deferredEqual, block);
            return w.first().staticCast<ZelBlockObservation>();
        };
        w.club.setTitle("0");
        const auto observation = defer(0, [&](ZelBlockObservation *, const Change &change) {
            note(change);
            w.club.setTitle("own"); // not delivered
        });
        for (const char *title : {"1", "2", "3"})
            w.club.setTitle(title);
        QVERIFY(m_seen.isEmpty() && observation->lastChange());
        turn();
        QCOMPARE(inTurn(), "0>3");
        QVERIFY(!observation->lastChange());
        w.club.setTitle("4");
        w.end();
        QCOMPARE(inTurn(), "");
        defer(ZelKeyValueObservingOptionPrior, record());
        w.club.setTitle("5");
        QCOMPARE(inTurn(), "4>5!"); // that mark stays on the change that is delivered later
        auto *dead = new Person;    // it is forgotten
        w.person.setFriendOf(dead);
        w.observe(&w.person, "friendOf", g_deferredEqual, record());
        w.person.setFriendOf(&w.person);
        delete dead;
        QCOMPARE(inTurn(), "->");
    }

    void delegatesAreInvokedByName()
    {
        World w;
        auto watcher = std::make_unique<tst_ZelObservations>();
        w.observe(&w.person, QStringList{"name", "flags"}, 1, watcher.get(), "changed");
        w.person.setName("Ada");
        w.person.setFlags(2);
        QCOMPARE(watcher->seen(), "name1>Ada flags1>2");
        w.observe(&w.person, "height", 0, watcher.get(), "noSuch");
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("^ERROR: .*Observations.* has no .*\"noSuch\""));
        w.person.setHeight(1);
        w.observe(&w.person, "name", ZelKeyValueObservingOptionDeferred, watcher.get(), "changed");
        w.person.setName("Bea");
        QCOMPARE(watcher->inTurn(), "name1>Bea name1>"); // at once, and deferred without values
        w.person.setName("Cleo");
        watcher.reset(); // dies first
        w.person.setFlags(3);
        turn();
        w.end();
        QVERIFY(!ZelIsObserved(&w.person, "name"));
    }

    void notificationsAndMajorEventsAreSeen()
    {
        World w;
        auto sender = std::make_unique<QObject>();
        ZelNotificationCenter center;
        int calls = 0, events = 0;
        const auto count = [&calls](ZelNotificationObservation *, const ZelNotification &) { ++calls; };
        w.observations.addObservationWithCenter(&center, {"A", "B"}, sender.get(), count, &g_context);
        w.observations.addObservationWithCenter(nullptr, "A", nullptr, count, &g_context);
        for (const char *name : {"A", "B"})
            center.post(name, sender.get());
        center.post("B");
        post("A");
        QCOMPARE(calls, 3);
        sender.reset();
        w.end();
        post("A");
        QCOMPARE(calls, 3);
        QCheckBox box;
        const auto countEvent = [&](ZelMajorEventObservation *, QEvent *) { ++events; };
        w.observations.addObservation(ZelMajorEventObservation::observationWithBlock(countEvent), &g_context);
        QTest::mouseMove(&box, {3, 3});
        QCOMPARE(events, 0);
        QTest::mouseClick(&box, Qt::LeftButton, {}, {8, box.height() / 2});
        QVERIFY(events == 2 && box.isChecked()); // and not taken
        w.end();
        QTest::keyClick(&box, Qt::Key_Space);
        QCOMPARE(events, 2);
    }

    void anyOfThemMayDieFirst()
    {
        World w, second;
        w.observe(&w.person, "name", 0, [&, text = m_long](ZelBlockObservation *observation, const Change &) {
            w.end();
            w.owner.reset();
            m_seen << text << (observation->isCancelled() ? "cancelled" : "active");
        });
        w.observe(&w.person, "name", 0, record());
        w.person.setName("Ada");
        QCOMPARE(seen(), m_long + " cancelled");
        QVERIFY(!ZelIsObserved(&w.person, "name"));
        auto *person = new Person;
        second.observe(person, "name", ZelKeyValueObservingOptionDeferred, record());
        second.observe(person, "flags", 0,
                       [&](ZelBlockObservation *, const Change &) { delete std::exchange(person, nullptr); });
        person->setName("Ada");
        person->setFlags(1);
        QCOMPARE(inTurn(), "->-");
        second.end();
        // An owner that forgets its observations is reported, and nothing stays registered.
        second.observe(&w.person, "name", 0, record());
        ignoreNotCancelled("ZelBlockObservation", "object=<Person>, keyPath=name");
        second.owner.reset();
        QVERIFY(!ZelIsObserved(&w.person, "name"));
    }

    void pathsAreFollowedFromObjectToObject()
    {
        Person root, first("first"), second("second");
        root.setFriendOf(&first);
        first.setFriendOf(&second);
        auto observation = follow(&root, "friendOf.friendOf.name");
        second.setName("2");
        root.setFriendOf(nullptr);
        QCOMPARE(seen(), "name! name friendOf! friendOf");
        QVERIFY(observation->observations().isEmpty() && observation->options() == 0);
        QVERIFY(!ZelIsObserved(&first, "friendOf") && !ZelIsObserved(&second, "name"));
        second.setFriendOf(&first);
        root.setFriendOf(&second);
        first.setName("1");
        QCOMPARE(seen(), "friendOf! friendOf name! name");
        observation->cancel();
        for (Person *person : {&root, &first, &second})
            QVERIFY(!ZelIsObserved(person, "friendOf") && !ZelIsObserved(person, "name"));
        // Objects on the way may die, and a block may cancel its path from below.
        auto other = std::make_unique<Person>();
        root.setFriendOf(other.get());
        observation = follow(&root, "friendOf.name");
        const auto leaf = follow(other.get(), "name");
        other.reset();
        root.setFriendOf(&first);
        QCOMPARE(observation->observations().size(), 1);
        leaf->cancel();
        observation->cancel();
        const auto end = [&observation, text = m_long, this](ZelKeyPathObservation *child, const Change &) {
            observation->cancel();
            observation.reset();
            m_seen << text + child->key().string();
        };
        observation = ZelKeyPathObservation::observationWithObject(&root, "friendOf.name", 0, end);
        m_seen.clear();
        first.setName("x");
        root.setFriendOf(nullptr);
        QCOMPARE(seen(), m_long + "name");
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
        QCOMPARE(seen(), "name! name");
        QCOMPARE(observation->observations().at(2)->object(), &d);
        observation->cancel();
    }

    void missingParametersAreAsserted()
    {
        World w;
        Failures failures;
        const auto observe = &ZelBlockObservation::observationWithObject;
        QVERIFY(!observe(nullptr, "name", 0, record()) && !observe(&w.person, "", 0, record()));
        QVERIFY(!observe(&w.person, "name", 0, nullptr));
        ZelDelegateObservation::observationWithObject(&w.person, "name", 0, nullptr, "changed");
        ZelDelegateObservation::observationWithObject(&w.person, "name", 0, &w.club, {});
        ZelKeyPathObservation::observationWithObject(&w.person, "name", 0, nullptr);
        ZelNotificationObservation::observationWithCenter(nullptr, {}, nullptr, [](auto...) {});
        w.observations.addObservationWithObject(&w.person, "name", 0, record(), nullptr);
        const QRegularExpression beginning("Observation/Zel[A-Za-z]*: Invalid parameter not satisfying: ");
        QCOMPARE(failures.taken().replaceInStrings(beginning, "").join(", "),
                 "object, keyPath, block, observer, selector, block, name, context != NULL");
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
        const auto louder = [](const QVariant &value) { return value.toString().toUpper(); };
        const ZelValueTransformerPtr oneWay = ZelValueTransformer::transformerWithBlock(louder);
        ZelAbstractValueTransformer::setValueTransformer(ZelValueTransformer::reversibleTransformerWithBlock(louder),
                                                         "Louder");
        // A transformer is given by name, or as such, which prevails.
        const auto check = [&](const ZelBindingOptions &options, const char *value) {
            ZelBind(&control, "name", &model, "name", options);
            QCOMPARE(values.controllerForBinding("name"), &model);
            QCOMPARE(values.keyPathForBinding("name").string(), "name");
            QCOMPARE(values.valueForBinding("name"), value);
            QTest::ignoreMessage(QtWarningMsg, "ERROR: NSObservedObjectKey was nil for binding \"name\" in "
                                               "-[NSObject(ZelKeyValueBinding) setValue:forBinding:]");
            values.setValue("Bea", "name");
            QCOMPARE(model.name(), "Ada");
        };
        check({}, "Ada");
        check({{ZelValueTransformerNameBindingOption, "Unknown"}}, "Ada");
        QVERIFY(!values.valueTransformerForBinding("name"));
        check({{ZelValueTransformerNameBindingOption, "Louder"}}, "ADA");
        QTest::ignoreMessage(QtWarningMsg,
                             "WARNING: binding \"name\" has value transformer, but it doesn't allow reverse "
                             "transformations in -[NSObject(ZelKeyValueBinding) setValue:forBinding:]");
        check({{ZelValueTransformerNameBindingOption, "Unknown"},
               {ZelValueTransformerBindingOption, QVariant::fromValue(oneWay)}},
              "ADA");
        QCOMPARE(values.valueTransformerForBinding("name"), oneWay);
        ZelUnbind(&control, "name");
    }

    void cancellingUnbinds()
    {
        const std::pair<QVariant, const char *> rows[] = {{{}, "Ada"}, {false, "Ada"}, {true, ""}};
        for (const auto &[nilOnCancel, left] : rows) {
            Person control, model("Ada");
            const ZelObservations observations(&control);
            observations.addBindingWithObject(&control, &model, {{"name", "name"}, {"flags", "flags"}},
                                              {{ZelNilOnCancelBindingOption, nilOnCancel}}, &g_context);
            model.setFlags(5);
            QCOMPARE(control.name(), "Ada");
            QCOMPARE(control.flags(), 5);
            observations.removeAllObservationsForContext(&g_context);
            QCOMPARE(control.name(), left);
            model.setFlags(6);
            QVERIFY(control.flags() != 6 && !ZelInfoForBinding(&control, "name"));
        }
    }

    void eitherObjectOrTheBindingMayDieFirst()
    {
        Person owner, other("Cleo");
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
        auto binding = ZelBindingObservation::bindingWithObject(&owner, "name", &other, "name");
        ignoreNotCancelled("ZelBindingObservation", "object=<Person>, binding=name target=<Person> keyPath=name");
        binding.reset();
        other.setName("Dora");
        QCOMPARE(owner.name(), "Cleo");
    }
};
QTEST_MAIN(tst_ZelObservations)
#include "tst_ZelObservations.moc"
