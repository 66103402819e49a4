// SPDX-License-Identifier: MIT
#include "Core/Selection/ZelArrayController.h"

#include "Core/Errors/ZelException.h"
#include "Core/Errors/ZelExceptionReporter.h"
#include "Core/KeyValue/ZelKeyValueCoding.h"
#include "Core/KeyValue/private/ZelPropertyDomain.h"
#include "Core/Selection/private/ZelReadingScope.h"
#include "Core/Values/ZelValues.h"
#include "Support/Person.h"
#include "Support/Recorder.h"

#include <QTest>
#include <malloc.h>
#include <memory>
#include <stdexcept>

namespace {

const char g_context = 0;
constexpr quint32 g_oldAndNew = ZelKeyValueObservingOptionOld | ZelKeyValueObservingOptionNew;

QVariant multiple()
{
    return QVariant::fromValue(ZelMultipleValuesMarker);
}
QVariant none()
{
    return QVariant::fromValue(ZelNoSelectionMarker);
}

struct People
{
    std::vector<std::unique_ptr<Person>> people;
    explicit People(int count, double height = 0)
    {
        for (int i = 0; i < count; ++i) {
            people.push_back(std::make_unique<Person>(QString::number(i)));
            people.back()->setHeight(height);
        }
    }
    QList<QObject *> objects() const
    {
        QList<QObject *> list;
        for (const auto &person : people)
            list.append(person.get());
        return list;
    }
};

} // namespace

/// A model whose writes select something else.
class Restless : public Person
{
    Q_OBJECT
public:
    std::function<void()> react;
    Restless()
    {
        connect(this, &Person::heightChanged, this, [this] { react ? react() : void(); });
    }
};

/// Its destructor announces a change, when a subclass's part is gone already.
class Announcing : public Person
{
    Q_OBJECT
public:
    ~Announcing() override { Q_EMIT heightChanged(); }
};
class Guest : public Announcing
{
    Q_OBJECT
};

class tst_ZelArrayController : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void folding()
    {
        ZelArrayController controller;
        People three(3, 1.5);
        QCOMPARE(ZelValueForKeyPath(&controller, "selection.height"), none());
        controller.setSelectedObjects(three.objects());
        QCOMPARE(ZelValueForKeyPath(&controller, "selection.height"), QVariant(1.5));
        QCOMPARE(ZelValueForKeyPath(&controller, "selection.name"), multiple());
        QVERIFY(!ZelValueForKeyPath(&controller, "selection.note").isValid());
        QVERIFY(!ZelValueForKeyPath(&controller, "selection.friendOf.name").isValid());
        QVERIFY(ZelIsMarker(ZelValueForKeyPath(&controller, "selection.wingspan"), ZelNotApplicableMarker));
        three.people[2]->setHeight(2);
        QCOMPARE(ZelValueForKeyPath(&controller, "selection.height"), multiple());
        three.people[1]->setName(QString());
        three.people[0]->setName(QStringLiteral(""));
        three.people[2]->setName(QStringLiteral(""));
        QCOMPARE(ZelValueForKeyPath(&controller, "selection.name"), QVariant(QStringLiteral(""))); // unset looks empty
        QObject loose; // a dynamic property may have nothing, which is no text
        loose.setProperty("name", QVariant::fromValue(nullptr));
        controller.setSelectedObjects({three.people[0].get(), &loose});
        QCOMPARE(ZelValueForKeyPath(&controller, "selection.name"), multiple());
        controller.setSelectedObjects({&loose, three.people[0].get()});
        QCOMPARE(ZelValueForKeyPath(&controller, "selection.name"), multiple());
        controller.setSelectedObjects(three.objects());
        for (const auto &person : three.people)
            person->setFriendOf(person.get());
        QCOMPARE(ZelValueForKeyPath(&controller, "selection.friendOf.name"), QVariant(QStringLiteral("")));
        three.people[0]->setNote(QStringLiteral(""));
        QCOMPARE(ZelValueForKeyPath(&controller, "selection.note"), multiple()); // of any type, and one is none
        three.people[0]->setProperty("wings", 2);                                // of this one alone, not of the class
        QVERIFY(ZelIsMarker(ZelValueForKeyPath(&controller, "selection.wings"), ZelNotApplicableMarker));
    }

    void writingReachesEverySelectedObject()
    {
        ZelArrayController controller;
        People three(3);
        Person friendly;
        for (const auto &person : three.people)
            person->setFriendOf(&friendly);
        controller.setSelectedObjects(three.objects());
        ZelSetValueForKeyPath(&controller, 4, "selection.height");
        ZelSetValueForKeyPath(&controller, QStringLiteral("Bea"), "selection.friendOf.name");
        ZelSetValueForKeyPath(&controller, QStringLiteral("s"), "selection.silent");
        for (const auto &person : three.people) {
            QCOMPARE(person->height(), 4.0);
            QCOMPARE(person->silent, QStringLiteral("s"));
        }
        QCOMPARE(friendly.name(), QStringLiteral("Bea"));
    }

    void theDomainOfASelectionIsThatOfItsObjects()
    {
        ZelArrayController controller;
        People two(2);
        two.people[0]->setFriendOf(two.people[1].get());
        controller.setSelectedObjects(two.objects());
        const auto domain = [&](const char *path) { return ZelPropertyDomain::ofKeyPath(&controller, path); };
        QCOMPARE(domain("selection.flags").bounded(1e10), 2147483647.0);
        QCOMPARE(domain("selection.friendOf.flags").bounded(-1e10), -2147483648.0);
        QVERIFY(domain("selection.flags").isWritable() && !domain("selection.nameLength").isWritable());
        QVERIFY_EXCEPTION_THROWN(ZelSetValueForKeyPath(&controller, 1e10, "selection.flags"), ZelGenericException);
        QCOMPARE(two.people[1]->flags(), 0);
    }

    void observersHearOfSelectionAndOfObjects()
    {
        ZelArrayController controller;
        People three(3, 1);
        Recorder recorder;
        ZelAddObserver(&controller, &recorder, "selection.height", g_oldAndNew, &g_context);
        controller.setSelectedObjects(three.objects());
        QCOMPARE(recorder.count(), 1);
        QCOMPARE(recorder.changes.last().keyValueChangeOld(), none());
        QCOMPARE(recorder.changes.last().keyValueChangeNew(), QVariant(1.0));
        three.people[1]->setHeight(2);
        QCOMPARE(recorder.count(), 2);
        QCOMPARE(recorder.changes.last().keyValueChangeOld(), QVariant(1.0));
        QCOMPARE(recorder.changes.last().keyValueChangeNew(), multiple());
        ZelSetValueForKeyPath(&controller, 3, "selection.height");
        QCOMPARE(recorder.count(), 3); // one notice for three objects
        QCOMPARE(recorder.changes.last().keyValueChangeNew(), QVariant(3.0));
        controller.setSelectedObjects({});
        three.people[0]->setHeight(9);
        QCOMPARE(recorder.count(), 4);
        ZelRemoveObserver(&controller, &recorder, "selection.height", &g_context);
    }

    void aLargeSelectionIsHeardInSlicesAndOnceATurn()
    {
        ZelArrayController controller;
        People many(5000, 1);
        Recorder recorder;
        ZelAddObserver(&controller, &recorder, "selection.height", g_oldAndNew, &g_context);
        controller.setSelectedObjects(many.objects());
        recorder.changes.clear();
        many.people[4999]->setHeight(2); // not connected yet
        QCOMPARE(ZelValueForKeyPath(&controller, "selection.height"), multiple());
        QTRY_COMPARE(recorder.count(), 1);
        QCOMPARE(recorder.changes.last().keyValueChangeNew(), multiple());
        for (const auto &person : many.people)
            person->setHeight(7);
        QCOMPARE(recorder.count(), 1);
        QCOMPARE(ZelValueForKeyPath(&controller, "selection.height"), QVariant(7.0));
        QTRY_COMPARE(recorder.count(), 2);
        QCOMPARE(recorder.changes.last().keyValueChangeOld(), multiple());
        ZelRemoveObserver(&controller, &recorder, "selection.height", &g_context);
    }

    /// What is not connected yet is read once in a scope; what is heard is read anew.
    void withinAReadingScopeAnswersStay()
    {
        ZelArrayController controller;
        People many(5000, 1);
        People few(3, 1);
        Recorder recorder;
        ZelAddObserver(&controller, &recorder, "selection.height", 0, &g_context);
        const auto height = [&] { return ZelValueForKeyPath(&controller, "selection.height"); };
        controller.setSelectedObjects(many.objects());
        {
            const ZelReadingScope scope;
            QCOMPARE(height(), QVariant(1.0));
            many.people[4999]->setHeight(2);
            QCOMPARE(height(), QVariant(1.0));
            ZelSetValueForKeyPath(&controller, 3, "selection.height");
            QCOMPARE(height(), QVariant(3.0));
            many.people[4999]->setHeight(4);
        }
        QCOMPARE(height(), multiple());
        controller.setSelectedObjects(few.objects());
        const ZelReadingScope scope;
        QCOMPARE(height(), QVariant(1.0));
        few.people[0]->setHeight(2);
        QCOMPARE(height(), multiple());
        ZelRemoveObserver(&controller, &recorder, "selection.height", &g_context);
    }

    void objectsMayDieWhileSelected_data()
    {
        QTest::addColumn<int>("count");
        QTest::newRow("few") << 3;
        QTest::newRow("many") << 3000;
    }
    void objectsMayDieWhileSelected()
    {
        QFETCH(int, count);
        ZelArrayController controller;
        People people(count, 1);
        people.people[0]->setHeight(2);
        Recorder recorder;
        ZelAddObserver(&controller, &recorder, "selection.height", g_oldAndNew, &g_context);
        controller.setContent(people.objects());
        controller.setSelectedObjects(people.objects());
        QCOMPARE(ZelValueForKeyPath(&controller, "selection.height"), multiple());
        recorder.changes.clear();
        people.people.erase(people.people.begin());
        QCOMPARE(controller.selectedObjects().size(), count - 1);
        QTRY_COMPARE(recorder.changes.isEmpty() ? QVariant() : recorder.changes.last().keyValueChangeNew(),
                     QVariant(1.0));
        people.people.clear();
        QTRY_COMPARE(recorder.changes.last().keyValueChangeNew(), none());
        ZelRemoveObserver(&controller, &recorder, "selection.height", &g_context);
    }

    void theControllerMayDieWhileObservedAndDuringDelivery()
    {
        auto *controller = new ZelArrayController;
        People three(3, 1);
        controller->setSelectedObjects(three.objects());
        Recorder recorder;
        recorder.react = [&] {
            delete controller;
            controller = nullptr;
        };
        ZelAddObserver(controller, &recorder, "selection.height", g_oldAndNew, &g_context);
        ZelAddObserver(controller, &recorder, "selection.name", g_oldAndNew, &g_context);
        three.people[0]->setHeight(2);
        QVERIFY(!controller);
        three.people[0]->setHeight(3);
        QCOMPARE(recorder.count(), 1);
    }

    void theControllerMayDieDuringAChangeOfTheSelection()
    {
        auto *controller = new ZelArrayController;
        People two(2, 1);
        Recorder recorder;
        for (const char *path : {"selection.height", "selection.name", "selection.flags"})
            ZelAddObserver(controller, &recorder, path, 0, &g_context);
        recorder.react = [&] {
            delete controller;
            controller = nullptr;
        };
        controller->setSelectedObjects(two.objects());
        QVERIFY(!controller);
        QCOMPARE(recorder.count(), 1);
    }

    void whatAnObserverThrowsReachesWhoWrites()
    {
        ZelArrayController controller;
        People two(2, 1);
        controller.setSelectedObjects(two.objects());
        Recorder recorder;
        ZelAddObserver(&controller, &recorder, "selection.height", 0, &g_context);
        recorder.react = [] { throw std::runtime_error("refused"); };
        QVERIFY_EXCEPTION_THROWN(ZelSetValueForKeyPath(&controller, 4, "selection.height"), std::runtime_error);
        QCOMPARE(two.people[1]->height(), 4.0);
        recorder.react = {};
        ZelSetValueForKeyPath(&controller, 5, "selection.height");
        QCOMPARE(recorder.count(), 2);
        ZelRemoveObserver(&controller, &recorder, "selection.height", &g_context);
    }

    void allHearThoughOneThrows()
    {
        ZelArrayController controller;
        People two(2, 1);
        Recorder throwing, quiet;
        throwing.react = [] { throw std::runtime_error("refused"); };
        const QStringList paths{"selection.height", "selection.name", "selection.flags"};
        for (const QString &path : paths) {
            ZelAddObserver(&controller, &throwing, path, 0, &g_context);
            ZelAddObserver(&controller, &quiet, path, 0, &g_context);
        }
        int selections = 0;
        connect(&controller, &ZelObjectController::selectionChanged, this, [&] { ++selections; });
        QVERIFY_EXCEPTION_THROWN(controller.setSelectedObjects(two.objects()), std::runtime_error);
        QCOMPARE(quiet.count(), 3);
        QCOMPARE(throwing.count(), 3);
        QCOMPARE(selections, 1);
        ZelArrayController other; // the exception ends the signal that its selection hears
        other.setSelectedObjects(two.objects());
        Recorder elsewhere;
        ZelAddObserver(&other, &elsewhere, "selection.height", 0, &g_context);
        QVERIFY_EXCEPTION_THROWN(two.people[0]->setHeight(3), std::runtime_error);
        QCOMPARE(elsewhere.count(), 1);
        ZelRemoveObserver(&other, &elsewhere, "selection.height", &g_context);
        QCOMPARE(quiet.count(), 4);
        QCOMPARE(quiet.changes.last().keyValueChangeKind(), quint32(ZelKeyValueChangeSetting));
        for (const QString &path : paths) {
            ZelRemoveObserver(&controller, &throwing, path, &g_context);
            ZelRemoveObserver(&controller, &quiet, path, &g_context);
        }
    }

    /// The destructor would end the process.
    void whatIsThrownWhenAnObjectDiesIsReported()
    {
        struct Reporter : ZelExceptionReporter
        {
            QStringList messages;
            Reporter() { setCurrent(this); }
            ~Reporter() override { setCurrent(nullptr); }
            void reportException(const QString &message, const ZelSourcePlace &) override { messages.append(message); }
        } reporter;
        ZelArrayController controller;
        People two(2, 1);
        controller.setSelectedObjects(two.objects());
        Recorder recorder;
        ZelAddObserver(&controller, &recorder, "selection.height", 0, &g_context);
        recorder.react = [] { throw std::runtime_error("refused"); };
        two.people.pop_back();
        QCOMPARE(reporter.messages, QStringList{"refused"});
        QCOMPARE(controller.selectedCount(), 1);
        auto guest = std::make_unique<Guest>();
        recorder.react = {};
        controller.setSelectedObjects({guest.get(), two.people[0].get()});
        recorder.react = [] { throw std::runtime_error("refused"); };
        guest.reset(); // what it announces meanwhile is not heard
        QCOMPARE(reporter.messages, QStringList({"refused", "refused"}));
        ZelRemoveObserver(&controller, &recorder, "selection.height", &g_context);
    }

    void aSelectionForgetsAnObjectThatHasDied()
    {
        alignas(Person) char place[sizeof(Person)];
        ZelArrayController controller;
        Person ada;
        ada.setFriendOf(new (place) Person);
        controller.setSelectedObjects({&ada});
        Recorder recorder;
        ZelAddObserver(&controller, &recorder, "selection.friendOf", g_oldAndNew, &g_context);
        std::destroy_at(reinterpret_cast<Person *>(place));
        auto *second = new (place) Person;
        Q_EMIT ada.friendOfChanged(); // it is at the same place, and another
        QVERIFY(!recorder.changes.last().keyValueChangeOld().isValid());
        QVERIFY(recorder.changes.last().keyValueChanged());
        ZelRemoveObserver(&controller, &recorder, "selection.friendOf", &g_context);
        std::destroy_at(second);
    }

    void selectingWithoutIdlingKeepsMemoryBounded()
    {
        ZelArrayController controller;
        People two(2);
        Recorder recorder;
        ZelAddObserver(&controller, &recorder, "selection.height", 0, &g_context);
        const auto select = [&](int times) {
            for (int i = 0; i < times; ++i)
                controller.setSelectedObjects({two.people[size_t(i % 2)].get()});
            recorder.changes.clear();
        };
        select(10000);
        const size_t before = mallinfo2().uordblks;
        select(10000);
        QVERIFY2(mallinfo2().uordblks < before + 500000, qPrintable(QString::number(mallinfo2().uordblks - before)));
        ZelRemoveObserver(&controller, &recorder, "selection.height", &g_context);
    }

    void theSelectionMayChangeWhileItIsWritten()
    {
        ZelArrayController controller;
        Restless restless;
        People two(2);
        QList<QObject *> all = two.objects();
        all.prepend(&restless);
        controller.setSelectedObjects(all);
        restless.react = [&] { controller.setSelectedObjects({}); };
        ZelSetValueForKeyPath(&controller, 4, "selection.height");
        QCOMPARE(two.people[1]->height(), 4.0); // the write goes to those that were selected when it began
        QVERIFY(controller.selectedObjects().isEmpty());
    }

    void contentAndIndexes()
    {
        ZelArrayController controller;
        People four(4);
        controller.setContent(four.objects());
        QVERIFY(controller.setSelectionIndexes({1, 3}));
        for (const ZelIndexSet &beyond : {ZelIndexSet({0, 17}), ZelIndexSet({4}), ZelIndexSet::withRange(-5, 6),
                                          ZelIndexSet::withRange(0, 4'000'000'000)}) {
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression("^WARNING: The selection indexes"));
            QVERIFY(!controller.setSelectionIndexes(beyond));
        }
        QCOMPARE(controller.selectedObjects(), QList<QObject *>({four.people[1].get(), four.people[3].get()}));
        controller.removeObject(four.people[1].get());
        QCOMPARE(controller.selectionIndexes(), ZelIndexSet({2}));
        controller.setContent({});
        QVERIFY(controller.selectedObjects().isEmpty());
    }
};

QTEST_MAIN(tst_ZelArrayController)
#include "tst_ZelArrayController.moc"
