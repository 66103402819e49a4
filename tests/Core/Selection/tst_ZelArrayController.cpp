// SPDX-License-Identifier: MIT
#include "Core/Errors/ZelException.h"
#include "Core/KeyValue/private/ZelPropertyDomain.h"
#include "Core/RunLoop/private/ZelReadingScope.h"
#include "Core/Selection/ZelArrayController.h"
#include "Core/Selection/private/ZelTypedColumn.h"
#include "Core/Watch.h"
#include "Support/Person.h"
#include "Support/Random.h"
#include "Support/Reports.h"
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

/// Has two keys in common with people, one of them of another type.
class Tree : public QObject
{
    Q_OBJECT
    Q_PROPERTY(double height MEMBER m_height NOTIFY heightChanged)
    Q_PROPERTY(QSize tags MEMBER m_tags)
Q_SIGNALS:
    void heightChanged();

private:
    double m_height = 1;
    QSize m_tags{1, 2};
};

/// Reading its first value may have an effect elsewhere.
class Meddler : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int first READ first NOTIFY changed)
    Q_PROPERTY(int second MEMBER m_second NOTIFY changed)
public:
    std::function<void()> meddle;

    int first() const
    {
        if (meddle)
            meddle();
        return 0;
    }
Q_SIGNALS:
    void changed();

private:
    int m_second = 0;
};

namespace {
const QStringList g_keys{"name", "height", "frame", "silent"};

/// A selection of some of many objects, and a list that says which. Few objects tell at once, many at the end of a
/// turn, and the keys of very many are read together.
class World
{
public:
    explicit World(unsigned seed)
        : m_random(seed)
    {
        for (int i = 0; i < (seed % 2 ? 6 : seed % 20 ? 60 : 1100); ++i)
            m_objects.push_back(made());
        for (const QString &key : g_keys) {
            m_watches.push_back(std::make_unique<Watch>(&m_controller, QString("selection." + key)));
            m_known.append(fold(key));
        }
    }

    void step()
    {
        const quint32 kind = m_random.below(8);
        if (kind == 0) {
            select();
        } else if (kind == 1) {
            die();
        } else if (kind == 2) {
            writeToAll();
        } else if (kind == 3) {
            const ZelObjectController::ChangeBatch batch(&m_controller);
            for (int i = 0; i < 5; ++i)
                change();
        } else {
            change();
        }
        for (size_t i = 0; i <= m_objects.size() / 50; ++i)
            QCoreApplication::processEvents(); // large selections are connected, and tell of changes, when there is
                                               // time
        const ZelReadingScope reading;
        for (qsizetype i = 0; i < g_keys.size(); ++i)
            check(g_keys.at(i), *m_watches[size_t(i)], m_known[i]);
        checkColumn();
    }

private:
    std::unique_ptr<QObject> made()
    {
        if (m_random.below(30) == 0)
            return std::make_unique<Tree>();
        return std::make_unique<Person>();
    }
    QVariant someValue(const QString &key)
    {
        const int number = int(m_random.below(8) / 7); // mostly alike
        return key == "height"  ? QVariant(double(number))
               : key == "frame" ? QVariant(QRectF(number, 0, 1, m_random.below(6) / 5))
                                : QVariant(number ? "x" : QString());
    }
    static QVariant plainValue(const QObject *object, const QString &key)
    {
        return object->property(key.toLatin1().constData());
    }

    void select()
    {
        const quint32 oneIn = 1 + m_random.below(3) * m_random.below(8);
        m_selected.clear();
        for (const auto &object : m_objects)
            if (m_random.below(oneIn) == 0)
                m_selected.append(object.get());
        m_controller.setSelectedObjects(m_selected);
    }
    void die()
    {
        auto &place = m_objects[m_random.below(quint32(m_objects.size()))];
        m_selected.removeOne(place.get());
        place.reset();
        place = made();
    }
    void change()
    {
        const QString key = g_keys.at(m_random.below(4));
        QObject *object = m_objects[m_random.below(quint32(m_objects.size()))].get();
        if (!plainValue(object, key).isValid())
            return;
        object->setProperty(key.toLatin1().constData(), someValue(key));
        ZelRereadSilentProperties();
    }
    void writeToAll()
    {
        const QString key = g_keys.at(m_random.below(4));
        QObjectList known = m_selected;
        known.removeIf([&](const QObject *object) { return !plainValue(object, key).isValid(); });
        if (known.isEmpty())
            return;
        const QVariant value = someValue(key);
        ZelSetValueForKeyPath(&m_controller, value, ZelKeyPath("selection." + key));
        for (const QObject *object : std::as_const(known))
            QCOMPARE(plainValue(object, key), value);
    }

    /// The objects' values one after the other, read without the library.
    QVariant fold(const QString &key) const
    {
        QVariant known = QVariant::fromValue(ZelNoSelectionMarker);
        for (qsizetype i = 0; i < m_selected.size(); ++i) {
            const QVariant value = plainValue(m_selected.at(i), key);
            if (!value.isValid())
                return QVariant::fromValue(ZelNotApplicableMarker);
            if (i > 0 && value != known)
                return QVariant::fromValue(ZelMultipleValuesMarker);
            known = value;
        }
        return known;
    }
    void check(const QString &key, Watch &watch, QVariant &known)
    {
        const QVariant now = fold(key), former = std::exchange(known, now);
        const QList<ZelKeyValueChange> changes = std::exchange(watch.changes, {});
        const QByteArray what = key.toLatin1();
        QVERIFY2(ZelEqual(ZelValueForKeyPath(&m_controller, ZelKeyPath("selection." + key)), now), what);
        QVERIFY2(ZelEqual(former, now) || !changes.isEmpty(), what);
        if (changes.isEmpty())
            return;
        QVERIFY2(ZelEqual(changes.first().keyValueChangeOld(), former), what);
        QVERIFY2(ZelEqual(changes.last().keyValueChangeNew(), now), what);
    }
    /// The numbers of all frames agree with the frames, and an edit names the objects whose frames it changes.
    void checkColumn()
    {
        ZelTypedColumn column(m_controller, "frame", *ZelGeometryType::find(QMetaType::fromType<QRectF>()));
        const auto found = column.fold([](ZelTypedColumn::Numbers &numbers) { numbers[0] += 1; });
        QList<QRectF> before;
        QList<QPointer<QObject>> others;
        const QRectF first = m_selected.isEmpty() ? QRectF() : plainValue(m_selected.first(), "frame").toRectF();
        unsigned differing = 0;
        for (QObject *object : std::as_const(m_selected)) {
            if (!qobject_cast<const Person *>(object))
                return;
            const QRectF frame = plainValue(object, "frame").toRectF();
            differing |= unsigned(frame.x() != first.x()) | unsigned(frame.width() != first.width()) << 2 |
                         unsigned(frame.height() != first.height()) << 3;
            if (frame.height() == 1)
                continue;
            others.append(object);
            before.append(frame);
        }
        QVERIFY(found);
        QCOMPARE(found->first.has_value(), !m_selected.isEmpty());
        QVERIFY(!found->first || (*found->first)[0] == first.x() + 1);
        QCOMPARE(found->differing, differing);
        const auto edit = column.edit([](std::span<ZelTypedColumn::Numbers> values, qsizetype) {
            for (ZelTypedColumn::Numbers &numbers : values)
                numbers[3] = 1;
        });
        QVERIFY(edit);
        QCOMPARE(edit->objects, others);
        for (qsizetype i = 0; i < others.size(); ++i) {
            QCOMPARE(edit->before.at(i).toRectF(), before.at(i));
            QCOMPARE(edit->after.at(i).toRectF().height(), 1);
        }
    }

    Random m_random;
    std::vector<std::unique_ptr<QObject>> m_objects;
    QObjectList m_selected;
    ZelArrayController m_controller;
    std::vector<std::unique_ptr<Watch>> m_watches;
    QVariantList m_known; // what each has told last
};

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
    /// Against a list that is looked through every time.
    void theSelectionIsWhatItsObjectsSay() { stepThrough<World>(40, 150); }

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
        Tree tree;
        three.select({&three[0], &three[1], &tree, &tree, &three[2]});
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

    /// What a getter changes while several keys of many are read together is read again.
    void aGetterMayChangeWhatWasReadWithIt()
    {
        std::vector<Meddler> all(1100);
        QList<QObject *> objects;
        for (Meddler &one : all)
            objects.append(&one);
        ZelArrayController controller;
        controller.setContent(objects);
        controller.setSelectedObjects(objects);
        Watch first(&controller, "selection.first", 0), second(&controller, "selection.second", 0);
        for (int i = 0; i < 300; ++i)
            QCoreApplication::processEvents(); // all are connected
        Q_EMIT all[0].changed();
        all[1000].meddle = [&] { all[0].setProperty("second", 5); };
        const ZelReadingScope scope;
        QCOMPARE(ZelValueForKeyPath(&controller, QString("selection.first")), QVariant(0));
        QVERIFY(ZelIsMarker(ZelValueForKeyPath(&controller, QString("selection.second")), ZelMultipleValuesMarker));
    }

    /// Observers of many are told without a value, which the first of them who asks decides.
    void manyAreReadWhenSomebodyAsks()
    {
        const auto connectAll = [] {
            for (int i = 0; i < 300; ++i)
                QCoreApplication::processEvents();
        };
        const People many(3000);
        Watch height(many.controller.get(), "selection.height", 0), flags(many.controller.get(), "selection.flags");
        many.select(many.objects().mid(0, 2000));
        many[0].setHeight(2);
        many[0].setFlags(7);
        connectAll();
        QCOMPARE(height.count(), 1); // nobody knows that it was another one
        QCOMPARE(flags.count(), 2);
        QCOMPARE(flags.lastOld(), QVariant(0));
        QVERIFY(ZelIsMarker(flags.lastNew(), ZelMultipleValuesMarker));
        many.select(many.objects());
        QVERIFY(many.isMultiple("height"));
        many[0].setHeight(1);
        connectAll();
        QCOMPARE(height.count(), 3);
        QCOMPARE(many.value("height"), QVariant(1.0));
    }

    void selectionAndControllerMayChangeOrDieMeanwhile()
    {
        for (const bool selects : {false, true}) {
            People three(3);
            if (selects)
                three.select({});
            Watch height(three.controller.get(), "selection.height", 0);
            Watch name(three.controller.get(), "selection.name", 0);
            height.react = name.react = [&] { three.controller.reset(); };
            selects ? three.select(three.objects()) : three[0].setHeight(2);
            QVERIFY(!three.controller);
            three[0].setHeight(3);
            QCOMPARE(height.count() + name.count(), 1);
        }
        const People three(3);
        connect(&three[0], &Person::heightChanged, this, [&] { three.select({}); });
        three.write(4, "height");
        QCOMPARE(three[2].height(), 4.0); // the write goes to those that were selected when it began
        QVERIFY(three.controller->selectedObjects().isEmpty());
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
        const auto counts = [&] { return quiet[0]->count() * 10 + elsewhere.count(); };
        QVERIFY_EXCEPTION_THROWN(two[0].setHeight(3), std::runtime_error);
        QCOMPARE(counts(), 21);
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
        QCOMPARE(counts(), 56); // the other was told of each object before
        two.write(8, "height");
        QVERIFY_EXCEPTION_THROWN(batch(true), std::logic_error);
        QCOMPARE(counts(), 79);
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
        size_t before = 0;
        for (size_t i = 0; i < 20000; ++i) {
            if (i == 10000)
                before = mallinfo2().uordblks;
            two.select({&two[i % 2]});
            watch.changes.clear();
        }
        QVERIFY2(mallinfo2().uordblks < before + 500000, "kept");
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
