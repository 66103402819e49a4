// SPDX-License-Identifier: MIT
#include "Core/Errors/ZelException.h"
#include "Split.h"
#include "SplitView/ZelSplitView.h"

#include <QLabel>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTest>

class tst_ZelPrioritySplitViewDelegate : public QObject
{
    Q_OBJECT

    static void checkLayout(const Split &split, const QList<Split::Item> &items)
    {
        const QList<int> lengths = split.lengths();
        int total = 0;
        int shown = 0;
        bool isAtMinimum = true;
        QList<int> starts;
        for (int i = 0; i < lengths.size(); ++i) {
            if (split.isCollapsed(i))
                continue;
            starts.append(total + shown * split.splitter->handleWidth());
            total += lengths[i];
            ++shown;
            isAtMinimum = isAtMinimum && lengths[i] == std::ceil(items[i].minimum);
            QVERIFY(lengths[i] >= items[i].minimum);
        }
        const int whole = total + qMax(0, shown - 1) * split.splitter->handleWidth();
        QVERIFY(whole == split.length() || (isAtMinimum && whole > split.length()));
        QCOMPARE(split.starts(), starts);
        QList<int> sizes = split.splitter->sizes();
        for (int i = 0; i < sizes.size(); ++i)
            if (split.splitter->widget(i)->isHidden())
                sizes[i] = 0;
        QCOMPARE(sizes, lengths);
    }

    /// What a resize to the length gives, worked out point by point.
    static QList<int> expected(QList<int> lengths, const QList<Split::Item> &items, const Split &split, int length)
    {
        int space = length + split.splitter->handleWidth();
        for (int i = 0; i < lengths.size(); ++i) {
            if (split.isCollapsed(i))
                continue;
            lengths[i] = std::max(lengths[i], int(std::ceil(items[i].minimum)));
            space -= lengths[i] + split.splitter->handleWidth();
        }
        const auto better = [&](int a, int b) {
            return items[a].priority != items[b].priority ? items[a].priority > items[b].priority : a < b;
        };
        while (space != 0) {
            int chosen = -1;
            for (int i = 0; i < lengths.size(); ++i) {
                const bool canChange = space > 0 || lengths[i] - 1 >= items[i].minimum;
                if (!split.isCollapsed(i) && canChange &&
                    (chosen < 0 || (space > 0 ? better(i, chosen) : better(chosen, i))))
                    chosen = i;
            }
            if (chosen < 0)
                break;
            lengths[chosen] += space > 0 ? 1 : -1;
            space += space > 0 ? -1 : 1;
        }
        return lengths;
    }

    /// Collapses, hides or drags, or stores the state and reads it back.
    static void changeSomething(const Split &split, const QList<Split::Item> &items, QRandomGenerator &random)
    {
        const int index = random.bounded(split.splitter->count());
        QWidget *pane = split.splitter->widget(index);
        const QList<int> before = split.lengths();
        switch (random.bounded(5)) {
        case 0:
            split.delegate->setSubviewCollapsed(pane, !split.isCollapsed(index));
            break;
        case 1:
            if (split.splitter->count() > 1)
                pane->setVisible(pane->isHidden());
            break;
        case 2: {
            const Qt::Key keys[] = {Qt::Key_Right, Qt::Key_Left, Qt::Key_Down, Qt::Key_Up, Qt::Key_Home, Qt::Key_End};
            if (!split.splitter->handle(index)->isHidden())
                QTest::keyClick(split.splitter->handle(index), keys[random.bounded(6)]);
            for (int i = 0; i < items.size(); ++i)
                QVERIFY(split.lengths().at(i) <= std::max<double>(before[i], items[i].maximum));
            break;
        }
        case 3:
            QVERIFY(split.splitter->restoreState(split.splitter->saveState()));
            QCoreApplication::sendPostedEvents();
            // The splitter knows neither of overflow nor of room that a collapsed pane leaves.
            if (!before.contains(0) &&
                split.splitter->childrenRect().united(split.splitter->rect()) == split.splitter->rect())
                QCOMPARE(split.lengths(), before);
            break;
        }
    }

private Q_SLOTS:
    void sizesChangeByPriority_data()
    {
        QTest::addColumn<QList<int>>("priorities");
        QTest::addColumn<int>("change");
        QTest::addColumn<QList<int>>("lengths");
        QTest::newRow("growth to the first") << QList<int>{0, 1} << 50 << QList<int>{150, 350};
        QTest::newRow("shrink from the last, then the next") << QList<int>{0, 1} << -80 << QList<int>{100, 270};
        QTest::newRow("equal: growth to the earliest") << QList<int>{3, 3} << 50 << QList<int>{200, 300};
        QTest::newRow("equal: shrink from the latest") << QList<int>{3, 3} << -120 << QList<int>{130, 200};
        QTest::newRow("overflow") << QList<int>{0, 1} << -300 << QList<int>{100, 200};
    }
    void sizesChangeByPriority()
    {
        QFETCH(QList<int>, priorities);
        QFETCH(int, change);
        QFETCH(QList<int>, lengths);
        Split split({{100, 1000, quint64(priorities[0])}, {200, 1000, quint64(priorities[1])}}, {150, 300});
        split.splitter->show();
        QCOMPARE(split.lengths(), QList<int>({150, 300}));
        split.resize(split.length() + change);
        QCOMPARE(split.lengths(), lengths);
    }
    void everyLayoutAddsUp()
    {
        bool isGiven = false;
        const quint32 given = qEnvironmentVariable("ZEL_TEST_SEED").toUInt(&isGiven);
        const quint32 seed = isGiven ? given : QRandomGenerator::global()->generate();
        QRandomGenerator random(seed);
        const auto note = qScopeGuard([&] {
            if (QTest::currentTestFailed())
                qWarning() << "seed" << seed;
        });
        for (int round = 0; round < 150 && !QTest::currentTestFailed(); ++round) {
            QList<Split::Item> items;
            QList<int> lengths;
            for (int i = random.bounded(1, 7); i > 0; --i) {
                items.append(
                    {random.bounded(90.0), 90 + random.bounded(310.0), random.bounded(3u), random.bounded(2) == 0});
                lengths.append(random.bounded(60, 150));
            }
            const auto orientation = random.bounded(2) ? Qt::Horizontal : Qt::Vertical;
            Split split(items, lengths, orientation,
                        random.bounded(2) ? std::make_unique<QSplitter>() : std::make_unique<ZelSplitView>());
            split.splitter->setLayoutDirection(random.bounded(3) ? Qt::LeftToRight : Qt::RightToLeft);
            split.splitter->show();
            QCoreApplication::sendPostedEvents();
            checkLayout(split, items);
            for (int step = 0; step < 10 && !QTest::currentTestFailed(); ++step) {
                changeSomething(split, items, random);
                QCoreApplication::sendPostedEvents();
                const QList<int> before = split.lengths();
                if (before.count(0) == before.size())
                    continue;
                checkLayout(split, items);
                const int pane = random.bounded(split.splitter->count());
                if (random.bounded(3) == 0) { // holds from the next layout on
                    items[pane].minimum = random.bounded(150.0);
                    split.delegate->items().at(pane)->setMinLength(items[pane].minimum);
                }
                int length = random.bounded(40, 900);
                length += length == split.length();
                split.resize(length);
                QCOMPARE(split.length(), length);
                QCOMPARE(split.lengths(), expected(before, items, split, length));
                checkLayout(split, items);
            }
        }
    }
    void aCollapsedPaneTakesNoRoom()
    {
        Split split({{50, 1000, 0, true}, {50, 1000, 1, true}, {50, 1000, 2}}, {100, 100, 100});
        split.splitter->show();
        const int divider = split.splitter->handleWidth();
        split.setCollapsed(1, true);
        QCOMPARE(split.lengths(), QList<int>({100, 0, 200 + divider}));
        QCOMPARE(split.starts(), QList<int>({0, 100 + divider}));
        split.resize(split.length() + 40);
        QCOMPARE(split.lengths(), QList<int>({100, 0, 240 + divider}));
        split.setCollapsed(0, true);
        QCOMPARE(split.starts(), QList<int>({0}));
        split.setCollapsed(2, true); // the last one stays
        QCOMPARE(split.lengths(), QList<int>({0, 0, split.length()}));
        split.setCollapsed(0, false);
        split.setCollapsed(1, false);
        QCOMPARE(split.lengths(), QList<int>({50, 100, 190}));
        // A pane with a minimum of its own, which the splitter puts out of sight.
        split.splitter->widget(1)->setMinimumSize(60, 60);
        split.setCollapsed(1, true);
        QVERIFY(!split.splitter->rect().intersects(split.splitter->widget(1)->geometry()));
        QVERIFY(split.isCollapsed(1));
    }
    void othersMayCollapseAndSize()
    {
        Split split({{50, 1000, 0, true}, {50, 1000, 1}}, {100, 100});
        split.splitter->show();
        split.splitter->setSizes({10, 190});
        QCoreApplication::sendPostedEvents();
        QCOMPARE(split.lengths(), QList<int>({50, 150}));
        split.splitter->setSizes({190, 0});
        QCoreApplication::sendPostedEvents();
        QCOMPARE(split.lengths(), QList<int>({150, 50}));
        split.splitter->setSizes({0, 190});
        QCoreApplication::sendPostedEvents();
        QCOMPARE(split.lengths(), QList<int>({0, split.length()}));
    }
    void aWidgetsOwnLimitsHold()
    {
        Split split({{10, 1000, 0}, {10, 1000, 1}}, {100, 100});
        split.splitter->widget(0)->setMinimumWidth(80);
        split.splitter->widget(1)->setMaximumWidth(120);
        split.splitter->show();
        split.resize(split.length() + 50);
        QCOMPARE(split.lengths(), QList<int>({130, 120}));
        split.resize(split.length() - 100);
        QCOMPARE(split.lengths(), QList<int>({80, 70}));
    }
    void aGrownMinimumCountsBeforeItIsAnnounced()
    {
        struct Pane : QWidget
        {
            int hint = 20;
            QSize minimumSizeHint() const override { return {hint, hint}; }
        };
        Split split({{10, 1000, 2}, {10, 1000, 0}, {10, 1000, 1}}, {100, 100, 100}, Qt::Horizontal,
                    std::make_unique<ZelSplitView>());
        auto *pane = new Pane;
        delete split.splitter->replaceWidget(2, pane);
        split.splitter->show();
        QCoreApplication::sendPostedEvents();
        const QList<int> before = split.lengths();
        pane->hint = before[2] + 50;
        split.resize(split.length() + 10);
        const QList<int> after{before[0], before[1] - 40, before[2] + 50};
        QCOMPARE(split.lengths(), after);
        QCOMPARE(split.splitter->sizes(), after);
    }
    void otherFiltersSeeEveryEventOnce()
    {
        struct Filter : QObject
        {
            QHash<QEvent::Type, int> seen;
            bool eventFilter(QObject *, QEvent *event) override
            {
                ++seen[event->type()];
                return false;
            }
        };
        for (bool isOurs : {false, true}) {
            Filter first;
            Filter last;
            auto splitter = isOurs ? std::make_unique<ZelSplitView>() : std::make_unique<QSplitter>();
            splitter->installEventFilter(&first);
            Split split({{50, 1000, 0}, {50, 1000, 1}}, {100, 100}, Qt::Horizontal, std::move(splitter));
            split.splitter->installEventFilter(&last);
            split.splitter->show();
            QCoreApplication::sendPostedEvents();
            last.seen.clear(); // it was put before the delegate's until then
            first.seen.clear();
            split.splitter->hide();
            split.splitter->show();
            split.resize(300);
            split.resize(70); // the panes overflow
            split.resize(60);
            split.splitter->widget(0)->updateGeometry();
            QCoreApplication::sendPostedEvents();
            for (Filter *filter : {&first, &last}) {
                QCOMPARE(filter->seen.value(QEvent::Show), 1);
                QCOMPARE(filter->seen.value(QEvent::Resize), 3);
                QCOMPARE(filter->seen.value(QEvent::LayoutRequest), 1);
            }
        }
    }
    void prioritiesAndCollapsibilityLayOutAgain()
    {
        Split split({{100, 1000, 0}, {100, 1000, 1}}, {150, 150});
        const QList<ZelPrioritySplitViewItem *> items = split.delegate->items();
        QSignalSpy moved(split.splitter.get(), &QSplitter::splitterMoved);
        split.resize(split.length() + 50);
        items[0]->setMinLength(180);
        items[0]->setMaxLength(190);
        QCOMPARE(split.lengths(), QList<int>({150, 150}));
        items[0]->setPriorityIndex(2);
        QCOMPARE(split.lengths(), QList<int>({200, 150}));
        split.resize(split.length() + 10);
        items[1]->setCollapsible(true);
        QCOMPARE(split.lengths(), QList<int>({210, 150}));
        QVERIFY(moved.isEmpty());
        // Items that were taken out are not listened to.
        auto other = std::make_unique<ZelPrioritySplitViewItem>(0, 1000, 5, false);
        split.delegate->setItems({other.get(), items[1]});
        split.resize(split.length() + 10);
        items[0]->setPriorityIndex(7);
        QCOMPARE(split.lengths(), QList<int>({210, 150}));
    }
    void sortOrdersAreReverses()
    {
        const Split split({{0, 0, 1}, {0, 0, 2}, {0, 0, 1}, {0, 0, 2}}, {50, 50, 50, 50});
        const auto i = split.delegate->items();
        const QList<ZelPrioritySplitViewItem *> descending{i[1], i[3], i[0], i[2]};
        const QList<ZelPrioritySplitViewItem *> ascending{i[2], i[0], i[3], i[1]};
        QCOMPARE(split.delegate->sortedItemsByDescendingPriority(), descending);
        QCOMPARE(split.delegate->sortedItemsByAscendingPriority(), ascending);
    }
    void dividersAreConstrained()
    {
        const Split split({{40, 120}, {50, 130}}, {100, 100});
        QSplitter *splitter = split.splitter.get();
        const int end = split.length();
        const auto least = [&](double p) {
            return split.delegate->splitViewConstrainMinCoordinateOfSubviewAt(splitter, p, 0);
        };
        const auto greatest = [&](double p) {
            return split.delegate->splitViewConstrainMaxCoordinateOfSubviewAt(splitter, p, 0);
        };
        QCOMPARE(least(0), end - 130.0);
        QCOMPARE(least(110), 110.0);
        QCOMPARE(greatest(1000), 120.0);
        QCOMPARE(greatest(60), 60.0);
        QVERIFY_EXCEPTION_THROWN(split.delegate->splitViewConstrainMinCoordinateOfSubviewAt(splitter, 0, 1),
                                 ZelInternalInconsistencyException);
    }
    void missingPartsAreAsserted()
    {
        QVERIFY_EXCEPTION_THROWN(ZelPrioritySplitViewDelegate(nullptr), ZelInternalInconsistencyException);
        Split split({{}, {}}, {100, 100});
        QVERIFY_EXCEPTION_THROWN(split.delegate->itemForViewIndex(2), ZelInternalInconsistencyException);
        split.splitter->show();
        split.splitter->addWidget(new QWidget);
        QVERIFY_EXCEPTION_THROWN(split.delegate->adjustSubviews(), ZelInternalInconsistencyException);
        split.resize(400); // left to the splitter, nothing leaves the event
        QCoreApplication::sendPostedEvents();
        // Items beyond the panes are skipped.
        QList<ZelPrioritySplitViewItem *> items = split.delegate->items();
        for (int i = 0; i < 3; ++i)
            items.append(new ZelPrioritySplitViewItem(10, 1000, quint64(i + 1), false));
        split.delegate->setItems(items);
        const QList<int> before = split.lengths();
        split.resize(450);
        QCOMPARE(split.lengths(), QList<int>({before[0], before[1], before[2] + 50}));
    }
    void panesComeAndGo()
    {
        Split split({{50, 1000, 0}, {50, 1000, 1}, {50, 1000, 2}}, {200, 200});
        split.splitter->show();
        auto *label = new QLabel(QStringLiteral("A pane with a text"));
        split.splitter->addWidget(label);
        QCoreApplication::sendPostedEvents();
        checkLayout(split, {{50}, {50}, {50}});
        const int rest = split.length() - split.splitter->handleWidth();
        delete split.splitter->widget(1);
        QCoreApplication::sendPostedEvents();
        QCOMPARE(split.splitter->count(), 2);
        QCOMPARE(split.lengths().last() + split.lengths().first(), rest);
        split.splitter->setOrientation(Qt::Vertical);
        QCoreApplication::sendPostedEvents();
        split.resize(300);
        QCOMPARE(split.lengths().last() + split.lengths().first(), 300 - split.splitter->handleWidth());
    }
    void anyoneMayDieFirst_data()
    {
        QTest::addColumn<QByteArray>("order");
        for (QByteArray order : {"sdip", "isdp", "dsip", "pids", "psid", "dpsi"})
            QTest::newRow(order) << order;
    }
    void anyoneMayDieFirst()
    {
        QFETCH(QByteArray, order);
        auto split =
            std::make_unique<Split>(QList<Split::Item>{{10, 1000, 0, true}, {10, 1000, 1, true}}, QList<int>{100, 100});
        split->splitter->show();
        const auto list = split->delegate->items();
        const QList<QPointer<ZelPrioritySplitViewItem>> items(list.begin(), list.end());
        const QPointer<QWidget> pane(split->splitter->widget(0));
        for (char who : order) {
            if (who == 's')
                split->splitter.reset();
            if (who == 'd')
                split->delegate.reset();
            if (who == 'i')
                delete items[0];
            if (who == 'p')
                delete pane;
            if (split->splitter)
                split->splitter->resize(split->splitter->width() + 10, 80);
            if (split->delegate && !items[1].isNull())
                items[1]->setPriorityIndex(items[1]->priorityIndex() + 1);
            if (split->delegate)
                split->delegate->adjustSubviews();
            QCoreApplication::sendPostedEvents();
        }
        QVERIFY(!split->splitter && !split->delegate);
        QVERIFY(pane.isNull() && items[0].isNull());
    }
};

QTEST_MAIN(tst_ZelPrioritySplitViewDelegate)
#include "tst_ZelPrioritySplitViewDelegate.moc"
