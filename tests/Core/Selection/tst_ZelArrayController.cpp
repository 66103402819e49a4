// SPDX-License-Identifier: MIT
#include "Core/Selection/ZelArrayController.h"

#include "Core/Errors/ZelException.h"
#include "Core/KeyValue/ZelKeyValueCoding.h"
#include "Core/KeyValue/private/ZelPropertyDomain.h"
#include "Core/Selection/private/ZelReadingScope.h"
#include "Core/Values/ZelValues.h"
#include "Core/Watch.h"
#include "Support/Person.h"
#include "Support/Reports.h"

#include <QTest>
#include <malloc.h>

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

/// Has a key in common with people, of another type.
class Shelf : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QSize tags MEMBER tags)
public:
    QSize tags{1, 2};
};

namespace {

/// Some people of one height, who are selected.
struct People
{
    std::vector<std::unique_ptr<Person>> people;
    std::unique_ptr<ZelArrayController> controller = std::make_unique<ZelArrayController>();

    explicit People(int count, double height = 1)
    {
        for (int i = 0; i < count; ++i) {
            people.push_back(std::make_unique<Person>(QString::number(i)));
            people.back()->setHeight(height);
        }
        controller->setSelectedObjects(objects());
    }
    Person &operator[](size_t i) const { return *people[i]; }
    QList<QObject *> objects() const
    {
        QList<QObject *> list;
        for (const auto &person : people)
            list.append(person.get());
        return list;
    }
    void select(const QList<QObject *> &objects) const { controller->setSelectedObjects(objects); }
    QVariant value(const QString &key) const
    {
        return ZelValueForKeyPath(controller.get(), ZelKeyPath("selection." + key));
    }
    bool isMultiple(const QString &key) const { return ZelIsMarker(value(key), ZelMultipleValuesMarker); }
    void write(const QVariant &value, const QString &key) const
    {
        ZelSetValueForKeyPath(controller.get(), value, ZelKeyPath("selection." + key));
    }
};

} // namespace

class tst_ZelArrayController : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    /// To people an unset text looks empty; where a value is of any type, it does not.
    void emptyTextsAndNoneAreOneWhereAllAreTexts()
    {
        const People three(3);
        three[0].setName("");
        three[1].setName(QString());
        three[2].setName("");
        QCOMPARE(three.value("name"), QVariant(""));
        QVERIFY(!three.value("note").isValid() && !three.value("friendOf.name").isValid());
        for (const auto &person : three.people)
            person->setFriendOf(person.get());
        QCOMPARE(three.value("friendOf.name"), QVariant(""));
        three[0].setNote("");
        QVERIFY(three.isMultiple("note") && three.isMultiple("friendOf.note"));
        three[0].setProperty("wings", 2); // of this one alone, not of the class
        QVERIFY(ZelIsMarker(three.value("wings"), ZelNotApplicableMarker));
        QObject loose; // a dynamic property may have nothing, which is no text
        loose.setProperty("name", QVariant::fromValue(nullptr));
        three.select({&three[0], &loose});
        QVERIFY(three.isMultiple("name"));
        three.select({&loose, &three[0]});
        QVERIFY(three.isMultiple("name"));
        Shelf shelf;
        three.select({&three[0], &three[1], &shelf, &shelf, &three[2]});
        QVERIFY(three.isMultiple("tags"));
    }

    void theDomainOfASelectionIsThatOfItsObjects()
    {
        const People two(2);
        two[0].setFriendOf(&two[1]);
        const auto domain = [&](const char *path) { return ZelPropertyDomain::ofKeyPath(two.controller.get(), path); };
        QCOMPARE(domain("selection.flags").bounded(1e10), 2147483647.0);
        QCOMPARE(domain("selection.friendOf.flags").bounded(-1e10), -2147483648.0);
        QVERIFY(domain("selection.flags").isWritable() && !domain("selection.nameLength").isWritable());
        QVERIFY_EXCEPTION_THROWN(two.write(1e10, "flags"), ZelGenericException);
        QCOMPARE(two[1].flags(), 0);
    }

    /// What is not connected yet is read once in a scope; what is heard is read anew.
    void withinAReadingScopeAnswersStay()
    {
        const People many(5000), few(3);
        Watch watch(many.controller.get(), "selection.height"), other(few.controller.get(), "selection.height");
        {
            const ZelReadingScope scope;
            QCOMPARE(many.value("height"), QVariant(1.0));
            many[4999].setHeight(2);
            QCOMPARE(many.value("height"), QVariant(1.0));
            many.write(3, "height");
            QCOMPARE(many.value("height"), QVariant(3.0));
            many[4999].setHeight(4);
            QCOMPARE(few.value("height"), QVariant(1.0));
            few[0].setHeight(2);
            QVERIFY(few.isMultiple("height"));
        }
        QVERIFY(many.isMultiple("height"));
        QTRY_COMPARE(watch.count(), 2);
        QVERIFY(ZelIsMarker(watch.lastNew(), ZelMultipleValuesMarker));
        for (const auto &person : many.people)
            person->setHeight(7); // heard at the end of the turn
        QCOMPARE(watch.count(), 2);
        QCOMPARE(many.value("height"), QVariant(7.0));
        QTRY_COMPARE(watch.count(), 3);
        QCOMPARE(watch.lastNew(), QVariant(7.0));
    }

    void theControllerMayDieInAnyDelivery()
    {
        for (const bool selects : {false, true}) {
            People three(3);
            if (selects)
                three.select({});
            Watch height(three.controller.get(), "selection.height", 0),
                name(three.controller.get(), "selection.name", 0);
            height.react = name.react = [&] { three.controller.reset(); };
            if (selects)
                three.select(three.objects());
            else
                three[0].setHeight(2);
            QVERIFY(!three.controller);
            three[0].setHeight(3);
            QCOMPARE(height.count() + name.count(), 1);
        }
    }

    void allHearThoughOneThrows()
    {
        const People two(2);
        two.select({});
        std::vector<std::unique_ptr<Watch>> throwing, quiet;
        for (const char *path : {"selection.height", "selection.name", "selection.flags"}) {
            throwing.push_back(std::make_unique<Watch>(two.controller.get(), path, 0));
            throwing.back()->beginThrowing();
            quiet.push_back(std::make_unique<Watch>(two.controller.get(), path, 0));
        }
        int selections = 0;
        connect(two.controller.get(), &ZelObjectController::selectionChanged, this, [&] { ++selections; });
        QVERIFY_EXCEPTION_THROWN(two.select(two.objects()), std::runtime_error);
        QCOMPARE(selections, 1);
        for (size_t i = 0; i < 3; ++i)
            QVERIFY(throwing[i]->count() == 1 && quiet[i]->count() == 1);
        ZelArrayController other; // the exception ends the signal that its selection hears
        other.setSelectedObjects(two.objects());
        const Watch elsewhere(&other, "selection.height", 0);
        QVERIFY_EXCEPTION_THROWN(two[0].setHeight(3), std::runtime_error);
        QCOMPARE(elsewhere.count(), 1);
        QCOMPARE(quiet[0]->count(), 2);
        QCOMPARE(quiet[0]->changes.last().keyValueChangeKind(), quint32(ZelKeyValueChangeSetting));
        QVERIFY_EXCEPTION_THROWN(two.write(4, "height"), std::runtime_error);
        QCOMPARE(two[1].height(), 4.0);
        QCOMPARE(quiet[0]->count(), 3);
        throwing.clear();
        two.write(5, "height");
        QCOMPARE(quiet[0]->count(), 4);
        const auto batch = [&](bool throws) {
            ZelObjectController::batchChanges([&] {
                two[0].setHeight(6);
                two[1].setHeight(7);
                if (throws)
                    throw std::logic_error("work");
            });
        };
        batch(false);
        QCOMPARE(quiet[0]->count() * 10 + elsewhere.count(), 5 * 10 + 6); // which was told of each object before
        two.write(8, "height");
        QVERIFY_EXCEPTION_THROWN(batch(true), std::logic_error);
        QCOMPARE(quiet[0]->count() * 10 + elsewhere.count(), 7 * 10 + 9);
    }

    /// The destructor would end the process.
    void whatIsThrownWhenAnObjectDiesIsReported()
    {
        const Reports reports;
        People two(2);
        Watch watch(two.controller.get(), "selection.height", 0);
        watch.beginThrowing();
        two.people.pop_back();
        QCOMPARE(reports.messages, QStringList{"refused"});
        QCOMPARE(two.controller->selectedCount(), 1);
        auto guest = std::make_unique<Guest>();
        watch.react = {};
        two.select({guest.get(), &two[0]});
        watch.beginThrowing();
        guest.reset(); // what it announces meanwhile is not heard
        QCOMPARE(reports.messages, QStringList({"refused", "refused"}));
    }

    void aSelectionForgetsAnObjectThatHasDied()
    {
        const People one(1);
        Place<Person> place;
        one[0].setFriendOf(place.make());
        const Watch watch(one.controller.get(), "selection.friendOf");
        place.end();
        place.make();
        Q_EMIT one[0].friendOfChanged(); // it is at the same place, and another
        QVERIFY(!watch.lastOld().isValid() && watch.isLastChanged());
    }

    void selectingWithoutIdlingKeepsMemoryBounded()
    {
        const People two(2);
        Watch watch(two.controller.get(), "selection.height", 0);
        const auto select = [&](int times) {
            for (int i = 0; i < times; ++i)
                two.select({&two[size_t(i % 2)]});
            watch.changes.clear();
        };
        select(10000);
        const size_t before = mallinfo2().uordblks;
        select(10000);
        QVERIFY2(mallinfo2().uordblks < before + 500000, qPrintable(QString::number(mallinfo2().uordblks - before)));
    }

    void theSelectionMayChangeWhileItIsWritten()
    {
        const People three(3);
        connect(&three[0], &Person::heightChanged, this, [&] { three.select({}); });
        three.write(4, "height");
        QCOMPARE(three[2].height(), 4.0); // the write goes to those that were selected when it began
        QVERIFY(three.controller->selectedObjects().isEmpty());
    }

    void indexesBeyondTheContentSelectNothing()
    {
        const People four(4);
        four.controller->setContent(four.objects());
        QVERIFY(four.controller->setSelectionIndexes({1, 3}));
        for (const ZelIndexSet &beyond : {ZelIndexSet({0, 17}), ZelIndexSet({4}), ZelIndexSet::withRange(-5, 6),
                                          ZelIndexSet::withRange(0, 4'000'000'000)}) {
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression("^WARNING: The selection indexes"));
            QVERIFY(!four.controller->setSelectionIndexes(beyond));
        }
        QCOMPARE(four.controller->selectedObjects(), QList<QObject *>({&four[1], &four[3]}));
    }
};

QTEST_MAIN(tst_ZelArrayController)
#include "tst_ZelArrayController.moc"
