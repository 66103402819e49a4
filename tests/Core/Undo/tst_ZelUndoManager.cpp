// SPDX-License-Identifier: MIT
#include "Core/RunLoop/ZelNotificationCenter.h"
#include "Core/Selection/ZelArrayController.h"
#include "Core/Undo/ZelUndoManager.h"
#include "Core/Undo/private/ZelOwnNumbers.h"
#include "Core/Undo/private/ZelRecordedWrite.h"
#include "Core/Watch.h"
#include "Support/Person.h"
#include "Support/Random.h"
#include "Support/Reports.h"

namespace {
/// Some people, and a list of what they were after each step.
class World
{
public:
    explicit World(unsigned seed)
        : m_random(seed)
    {
        for (int i = 0; i < 4; ++i) {
            m_people.push_back(std::make_unique<Person>(QString::number(i)));
            m_people.back()->setFriendOf(m_people.front().get());
        }
        m_states.append(state());
        m_controller.setSelectedObjects({m_people[1].get(), m_people[2].get()});
    }

    void step()
    {
        Watch watch(&m_controller, "selection.height", 0);
        const qsizetype most = m_states.size() - 1;
        const quint32 kind = m_random.below(12);
        if (kind < 3) {
            finish(write(), {});
        } else if (kind < 5) {
            kind == 3 ? m_manager.undo() : m_manager.redo();
            m_index = std::clamp<qsizetype>(m_index + (kind == 3 ? -1 : 1), 0, most);
        } else if (kind == 5) {
            m_index = qsizetype(m_random.below(quint32(most) + 1));
            m_manager.stack()->setIndex(int(m_index));
        } else if (kind == 6) {
            m_controller.setSelectedObjects(some());
        } else if (kind == 7 && m_random.below(8) == 0) {
            die(1 + m_random.below(3));
        } else if (kind > 8) {
            group();
        }
        QVERIFY(kind < 3 || kind > 4 || watch.count() <= 1); // a step tells once
        QCOMPARE(state(), m_states.at(m_index));
        QCOMPARE(m_manager.stack()->count(), int(m_states.size()) - 1);
        QCOMPARE(m_manager.stack()->index(), int(m_index));
        QCOMPARE(m_manager.stack()->undoText(), m_names.value(m_index - 1));
        QCOMPARE(m_manager.stack()->redoText(), m_names.value(m_index));
    }

private:
    QList<QObject *> some()
    {
        QList<QObject *> some;
        for (const auto &person : m_people)
            if (person && m_random.below(2))
                some.append(person.get());
        return some;
    }
    QList<QVariantList> state() const
    {
        QList<QVariantList> state;
        for (const auto &p : m_people)
            state.append(p ? QVariantList{p->name(), p->height(), p->flags(), p->frame(), p->silent} : QVariantList());
        return state;
    }
    /// Answers whether there is something to undo.
    bool write()
    {
        const char *paths[]{"name", "height", "flags", "frame.x", "frame.width", "silent", "friendOf.name"};
        const ZelKeyPath path(paths[m_random.below(7)]);
        QVariant value = m_random.below(3);
        if (path.string().endsWith("name"))
            value = value.toString();
        else if (path == ZelKeyPath("flags"))
            value = 0.6 + value.toInt(); // is rounded
        const QList<QVariantList> before = state();
        const ZelRecordedWrite write(&m_manager);
        if (path.isSingleKey() && m_random.below(2))
            write.mapValues(some(), path, [&](const QVariant &) { return value; });
        else
            write.setValueForKeyPath(&m_controller, value, ZelKeyPath("selection." + path.string()));
        return state() != before;
    }
    void group()
    {
        bool isChanged = false;
        QString name;
        const auto before = state();
        const ZelUndoGrouping outer(&m_manager);
        for (quint32 i = m_random.below(5); i > 0; --i) {
            std::optional<ZelUndoGrouping> inner;
            if (m_random.below(2))
                inner.emplace(&m_manager);
            isChanged |= write();
            if (m_random.below(3) == 0)
                m_manager.setActionName(name = QString::number(m_random.below(9)));
        }
        if (m_random.below(5) == 0) {
            QCOMPARE(m_manager.rollBackGrouping(), isChanged);
            QCOMPARE(state(), before);
            name = isChanged ? QString() : name;
            isChanged = m_random.below(2) ? write() : false;
        }
        finish(isChanged, name);
    }
    void finish(bool isChanged, const QString &name)
    {
        if (!isChanged)
            return;
        m_states.resize(++m_index);
        m_names.resize(m_index - 1);
        m_states.append(state());
        m_names.append(name);
    }
    void die(size_t i)
    {
        m_people[i].reset();
        for (QList<QVariantList> &state : m_states)
            state[qsizetype(i)].clear();
    }

    Random m_random;
    std::vector<std::unique_ptr<Person>> m_people;
    ZelArrayController m_controller;
    ZelUndoManager m_manager;
    QList<QList<QVariantList>> m_states;
    QStringList m_names;
    qsizetype m_index = 0;
};

/// Some people whose edits are recorded.
struct Office
{
    Person ada, ben, cem;
    QUndoStack stack;
    ZelUndoManager manager{&stack, nullptr};
    ZelRecordedWrite write{&manager};

    void setHeight(double height) const { write.setValueForKeyPath(const_cast<Person *>(&ada), height, "height"); }
    /// As the digits of a number.
    int heights() const { return int(ada.height() * 100 + ben.height() * 10 + cem.height()); }
};
} // namespace

class tst_ZelUndoManager : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void stepsGoBackToWhatWasAndForthAgain() { stepThrough<World>(40, 200); }

    /// Nor where the setter does not take the value, or deletes its object.
    void nothingIsRecordedWhereNothingIsStored()
    {
        auto ada = std::make_unique<Person>();
        Office office;
        Person &ben = office.ben;
        ben.setHeight(5);
        ZelArrayController controller;
        controller.setSelectedObjects({ada.get(), &ben});
        const ZelRecordedWrite &write = office.write, unrecorded(nullptr);
        write.setValueForKeyPath(ada.get(), "Eve", "friendOf.name"); // there is no friend
        write.setValueForKeyPath(&controller, "Eve", "selection.friendOf.name");
        for (const char *path : {"selection.nameLength", "selection.unknown"})
            QVERIFY_EXCEPTION_THROWN(write.setValueForKeyPath(&controller, 3, path), ZelUndefinedKeyException);
        QVERIFY_EXCEPTION_THROWN(write.mapValues({ada.get(), &ben}, "unknown", [](auto &) { return 3; }),
                                 ZelUndefinedKeyException);
        office.manager.setRecordsEdits(false);
        write.setValueForKeyPath(&ben, 7, "frame.x");
        office.manager.setRecordsEdits(true);
        unrecorded.setValueForKeyPath(&ben, 8, "frame.y");
        unrecorded.mapValues({&ben}, "height", [](const QVariant &old) { return old.toInt(); });
        QCOMPARE(ben.frame().topLeft(), QPointF(7, 8));
        QCOMPARE(office.stack.count(), 0);
        connect(ada.get(), &Person::heightChanged, this, [&] { ada.reset(); });
        write.setValueForKeyPath(&controller, 2.6, "selection.flags");
        office.manager.nameEdit("Flags");
        write.setValueForKeyPath(&controller, 2.9, "selection.flags"); // rounded, too
        write.mapValues({ada.get(), &ben}, "flags", [](auto &) { return 3.1; });
        write.setValueForKeyPath(&controller, 5, "selection.height");
        office.manager.nameEdit("Height");
        QVERIFY(!ada && ben.flags() == 3);
        QCOMPARE(office.stack.count(), 1);
        QCOMPARE(office.stack.undoText(), "Flags");
    }

    void aWriteThatThrowsIsDoneAndRecordedAsAWhole()
    {
        for (const bool throughSelection : {true, false}) {
            Office office;
            office.ben.setHeight(2);
            const QList<QObject *> all{&office.ada, &office.ben, &office.cem};
            ZelArrayController controller;
            controller.setSelectedObjects(all);
            const auto thrower =
                connect(&office.ben, &Person::heightChanged, this, [] { throw std::runtime_error("observer"); });
            const auto change = [&] {
                throughSelection ? office.write.setValueForKeyPath(&controller, 5, "selection.height")
                                 : office.write.mapValues(all, "height", [](auto &) { return 5; });
            };
            QVERIFY_EXCEPTION_THROWN(change(), std::runtime_error);
            QCOMPARE(office.heights(), 555);
            const Reports reports;
            office.manager.undo(); // throws there, too
            QCOMPARE(reports.messages, QStringList{"observer"});
            QCOMPARE(office.heights(), 20);
            disconnect(thrower);
            office.manager.redo();
            QCOMPARE(office.heights(), 555);
        }
    }

    void theNextObjectMayBeChangedAndTheFormerValueDie()
    {
        Office office;
        Person &ada = office.ada, &ben = office.ben;
        ben.setFlags(1);
        connect(&ada, &Person::flagsChanged, &ben, [&] { ben.setFlags(ada.flags() == 4 ? 2 : 1); });
        office.write.mapValues({&ada, &ben}, "flags", [](const QVariant &old) { return old.toInt() | 4; });
        for (const bool isDone : {true, false, true}) {
            QCOMPARE(ada.flags(), isDone ? 4 : 0);
            QCOMPARE(ben.flags(), isDone ? 2 | 4 : 1);
            isDone ? office.manager.undo() : office.manager.redo();
        }
        auto dan = std::make_unique<Person>();
        ada.setFriendOf(dan.get());
        office.write.setValueForKeyPath(&ada, QVariant::fromValue<QObject *>(&ben), "friendOf");
        QCOMPARE(ada.friendOf(), &ben);
        dan.reset(); // which is no value to go back to
        office.manager.undo();
        QCOMPARE(ada.friendOf(), nullptr);
    }

    /// An edit takes the numbers over with which it was checked, unless they have changed since.
    void numbersThatChangeAfterTheCheckAreReadAgain()
    {
        Person people[3];
        ZelArrayController controller;
        controller.setSelectedObjects({&people[0], &people[1], &people[2]});
        const Watch watch(&controller, "selection.height", 0);
        const ZelKeyPath path("selection.height");
        const auto heights = [&] { return QList<double>{people[0].height(), people[1].height(), people[2].height()}; };
        for (Person &person : people)
            person.setHeight(3);
        ZelUndoManager manager;
        const ZelNumberChange twice([](double own, qsizetype, qsizetype) { return own * 2; });
        const ZelNumberChange::Numbers known = ZelOwnNumbers(&controller, path, {}).numbers();
        QCOMPARE(ZelOwnNumbers(&controller, path, {}).numbers(), known); // the same list
        people[1].setHeight(50);
        ZelRecordedWrite(&manager).changeNumbers(&controller, twice, path);
        QCOMPARE(heights(), (QList<double>{6, 100, 6}));
        manager.undo();
        QCOMPARE(heights(), (QList<double>{3, 50, 3}));
        QCOMPARE(*known, (std::vector<double>{3, 3, 3}));
    }

    void longListsOfNumbersStayWhoseTheyAre()
    {
        const auto own = std::make_shared<std::vector<double>>(5000, 1);
        QMap<int, ZelNumberChange::Numbers> kept;
        for (int i = 0; i < 9; ++i) {
            const ZelNumberChange change([i](double number, qsizetype place, qsizetype) { return number + place * i; });
            kept[i] = change.numbers(own);
            if (i % 2 == 0)
                kept.remove(i / 2);
        }
        for (auto list = kept.cbegin(); list != kept.cend(); ++list) {
            QCOMPARE(list.value()->size(), 5000U);
            QCOMPARE(list.value()->at(4999), 1 + 4999.0 * list.key());
        }
    }

    void anEditIsNamedAfterItWasRecorded()
    {
        Office office;
        office.manager.setActionName("Given"); // by the application, for what it does next
        office.manager.registerUndo([] {}, [] {});
        QCOMPARE(office.stack.undoText(), "Given");
        office.setHeight(3);
        QString told;
        connect(&office.stack, &QUndoStack::undoTextChanged, this, [&told](const QString &now) { told = now; });
        office.manager.nameEdit("Height");
        QVERIFY(office.stack.undoText() == "Height" && told == "Height");
        office.manager.nameEdit("Nothing"); // there was no further edit
        QCOMPARE(office.stack.undoText(), "Height");
        office.manager.registerUndo([] {}, [] {});
        QCOMPARE(office.stack.undoText(), QString());
    }

    void whatAStepOrItsObserversThrowIsReportedAndTheRestIsDone()
    {
        Office office;
        int redone = 0;
        const Reports reports;
        const auto thrower =
            connect(&office.stack, &QUndoStack::indexChanged, this, [] { throw std::runtime_error("index"); });
        const auto undo = [] { throw std::runtime_error("undo"); };
        const auto redo = [&] { return ++redone == 1 ? throw std::runtime_error("redo") : void(); };
        {
            const ZelUndoGrouping grouping(&office.manager);
            office.setHeight(3);
            office.manager.registerUndo(undo, redo);
            office.manager.setActionName("Step");
        }
        office.manager.undo();
        disconnect(thrower);
        QCOMPARE(office.stack.count(), 1);
        for (int height : {0, 3, 0, 3}) {
            QCOMPARE(office.ada.height(), height);
            height ? office.stack.undo() : office.stack.redo();
        }
        QCOMPARE(redone, 2);
        const QString undone = "Undo \"Step\": undo";
        QCOMPARE(reports.messages, QStringList({"index", undone, "index", "Redo \"Step\": redo", undone, undone}));
    }

    /// By its own manager, by another one of the stack, and while the manager ends.
    void whatIsWrittenDuringAStepBelongsToIt()
    {
        for (const QString by : {"own", "other", "ended"}) {
            Office office;
            QUndoStack &stack = office.stack;
            auto own = std::make_unique<ZelUndoManager>(&stack, nullptr);
            const auto react = [&] {
                if (by == "ended")
                    own.reset();
                ZelRecordedWrite(by == "own" ? own.get() : &office.manager)
                    .setValueForKeyPath(&office.ben, office.ben.height() + 1, "height");
            };
            own->registerUndo(react, react);
            ZelRecordedWrite(own.get()).setValueForKeyPath(&office.ada, 1, "height");
            QList<int> found;
            for (const auto step : {&QUndoStack::undo, &QUndoStack::undo, &QUndoStack::redo, &QUndoStack::redo}) {
                (stack.*step)();
                found.append(office.heights());
            }
            stack.setIndex(0);
            found.append(office.heights());
            // Redoing takes the reaction back, and reacts again.
            QCOMPARE(found, QList<int>({0, 10, 10, 110, 10}));
            QCOMPARE(stack.count(), 2);
        }
    }

    /// A stack does not survive a push while it redoes a command.
    void aPassiveEditDuringAnotherCommandIsPushedAfterwards()
    {
        struct Foreign : QUndoCommand
        {
            explicit Foreign(Office &office)
                : office(office)
            {
            }
            void redo() override
            {
                const ZelPassiveEdits passive; // as when it changes the selection while something is being typed
                if (std::exchange(edits, true)) {
                    office.setHeight(3);
                    office.manager.nameEdit("Height");
                    QCoreApplication::processEvents();
                    countMeanwhile = office.stack.count();
                }
            }
            Office &office;
            int countMeanwhile = 0;
            bool edits = false;
        };
        Office office;
        auto *foreign = new Foreign(office);
        office.stack.push(foreign);
        office.stack.undo();
        QTestEventLoop loop;
        QTimer::singleShot(0, &office.stack, [&] {
            office.stack.redo();
            QCOMPARE(foreign->countMeanwhile, 1);
            QVERIFY(office.stack.count() == 2 && office.stack.index() == 2 && office.stack.undoText() == "Height");
            office.stack.undo();
            const ZelPassiveEdits passive; // no step is running now, which the manager cannot know
            office.setHeight(4);
            QCOMPARE(office.stack.index(), 1);
            connect(&office.stack, &QUndoStack::indexChanged, &loop, &QTestEventLoop::exitLoop);
        });
        loop.enterLoopMSecs(5000);
        QCOMPARE(office.stack.index(), 2);
        office.stack.undo();
        QCOMPARE(office.ada.height(), 0.0);
    }

    /// What is being typed when a stack does a step again becomes part of it: the steps behind go back to that.
    void laterStepsFollowWhatWasTypedBeforeARedo()
    {
        struct Typing : ZelNotificationObserver
        {
            Office *typesIn = nullptr;
            void observeNotification(const ZelNotification &) override
            {
                if (const Office *office = std::exchange(typesIn, nullptr))
                    office->setHeight(7);
            }
        } typing;
        Office office;
        office.write.setValueForKeyPath(&office.ada, "Ada", "name");
        office.setHeight(3);
        office.stack.setIndex(0);
        typing.typesIn = &office;
        ZelNotificationCenter::defaultCenter()->addObserver(&typing, ZelUndoStepWillBeginNotification, &office.stack);
        office.stack.redo();
        ZelNotificationCenter::defaultCenter()->removeObserver(&typing);
        for (int round = 0; round < 2; ++round) {
            QCOMPARE(office.ada.height(), 7.0);
            office.stack.redo();
            QCOMPARE(office.ada.height(), 3.0);
            office.stack.undo();
        }
        office.stack.undo();
        QCOMPARE(office.ada.height(), 0.0);
    }

    void theManagerIsFoundFromAnyWidgetOfItsWindow()
    {
        QWidget window;
        auto *manager = new ZelUndoManager(&window);
        ZelUndoManager::setForWindow(&window, manager);
        auto *child = new QWidget(&window);
        const QWidget popup(child, Qt::Popup);
        QCOMPARE(ZelUndoManager::forWidget(child), manager);
        QCOMPARE(ZelUndoManager::forWidget(&popup), manager);
        delete manager;
        QVERIFY(!ZelUndoManager::forWidget(child) && !ZelUndoManager::forWidget(nullptr));
        const ZelUndoGrouping none(ZelUndoManager::forWidget(child));
    }
};
QTEST_MAIN(tst_ZelUndoManager)
#include "tst_ZelUndoManager.moc"
