// SPDX-License-Identifier: MIT
#include "Core/Errors/ZelException.h"
#include "Split.h"
#include "SplitView/ZelSplitView.h"
#include "Support/TableRow.h"
#include "ViewController/ZelKeyedCoder.h"

class tst_ZelPrioritySplitViewDelegate : public QObject
{
    Q_OBJECT

    /// The panes fill the splitter from its start, or overflow it at their minimums.
    static void checkLayout(const Split &split, const QList<Split::Item> &items)
    {
        const QList<int> lengths = split.lengths();
        QList<int> sizes = split.splitter->sizes();
        QList<int> starts;
        int end = -split.splitter->handleWidth();
        bool isAtMinimum = true;
        for (int i = 0; i < lengths.size(); ++i) {
            if (split.splitter->widget(i)->isHidden())
                sizes[i] = 0;
            if (split.isCollapsed(i))
                continue;
            starts.append(end + split.splitter->handleWidth());
            end = starts.last() + lengths[i];
            isAtMinimum = isAtMinimum && lengths[i] == std::ceil(items[i].minimum);
            QVERIFY(lengths[i] >= items[i].minimum);
        }
        QVERIFY(end == split.length() || (isAtMinimum && end > split.length()));
        QCOMPARE(split.starts(), starts);
        QCOMPARE(sizes, lengths);
    }

    /// What a resize to the length gives: the first of the highest priority grows, the last of the lowest shrinks
    /// first.
    static QList<int> expected(QList<int> lengths, const QList<Split::Item> &items, const Split &split, int length)
    {
        const auto least = [&](int i) { return int(std::ceil(items[i].minimum)); };
        int space = length + split.splitter->handleWidth();
        QList<int> order;
        for (int i = 0; i < lengths.size(); ++i) {
            if (split.isCollapsed(i))
                continue;
            order.append(i);
            lengths[i] = std::max(lengths[i], least(i));
            space -= lengths[i] + split.splitter->handleWidth();
        }
        std::stable_sort(order.begin(), order.end(),
                         [&](int a, int b) { return items[a].priority > items[b].priority; });
        if (space > 0)
            lengths[order.first()] += space;
        for (auto i = order.crbegin(); i != order.crend() && space < 0; ++i) {
            const int change = std::max(space, least(*i) - lengths[*i]);
            lengths[*i] += change;
            space -= change;
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
    void everyLayoutAddsUp()
    {
        const QByteArray given = qgetenv("ZEL_TEST_SEED");
        const quint32 seed = given.isEmpty() ? QRandomGenerator::global()->generate() : given.toUInt();
        QRandomGenerator random(seed);
        const TableRow row(QStringLiteral("seed %1").arg(seed));
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
        const int divider = split.splitter->handleWidth();
        split.setCollapsed(1, true);
        QCOMPARE(split.lengths(), QList<int>({100, 0, 200 + divider}));
        split.setCollapsed(0, true);
        QCOMPARE(split.starts(), QList<int>({0}));
        split.setCollapsed(2, true); // the last one stays
        QCOMPARE(split.lengths(), QList<int>({0, 0, split.length()}));
        split.setCollapsed(0, false);
        split.setCollapsed(1, false);
        QCOMPARE(split.lengths(), QList<int>({50, 100, 150}));
        // A pane with a minimum of its own, which the splitter puts out of sight.
        split.splitter->widget(1)->setMinimumSize(60, 60);
        split.setCollapsed(1, true);
        QVERIFY(!split.splitter->rect().intersects(split.splitter->widget(1)->geometry()));
        QVERIFY(split.isCollapsed(1));
        // Others may collapse and size panes.
        Split sized({{50, 1000, 0, true}, {50, 1000, 1}}, {100, 100});
        const std::pair<QList<int>, QList<int>> rows[] = {
            {{10, 190}, {50, 150}}, {{190, 0}, {150, 50}}, {{0, 190}, {0, sized.length()}}};
        for (const auto &[set, lengths] : rows) {
            sized.splitter->setSizes(set);
            QCoreApplication::sendPostedEvents();
            QCOMPARE(sized.lengths(), lengths);
        }
    }
    void widgetsLimitThemselves()
    {
        struct Pane : QWidget
        {
            int hint = 20;
            QSize minimumSizeHint() const override { return {hint, hint}; }
        };
        Split split({{10, 1000, 2}, {10, 1000, 0}, {10, 1000, 1}}, {100, 100, 100}, Qt::Horizontal,
                    std::make_unique<ZelSplitView>());
        split.splitter->widget(0)->setMaximumWidth(120);
        split.splitter->widget(1)->setMinimumWidth(80);
        auto *pane = new Pane;
        delete split.splitter->replaceWidget(2, pane);
        QCoreApplication::sendPostedEvents();
        const int third = split.lengths()[2];
        split.resize(split.length() + 50);
        QCOMPARE(split.lengths(), QList<int>({120, 100, third + 30}));
        pane->hint = third + 40; // counts before it is announced
        split.resize(split.length() + 5);
        QCOMPARE(split.lengths(), QList<int>({120, 95, third + 40}));
        QCOMPARE(split.splitter->sizes(), split.lengths());
        split.resize(split.length() - 20);
        QCOMPARE(split.lengths(), QList<int>({115, 80, third + 40}));
    }
    void prioritiesAndCollapsibilityLayOutAgain()
    {
        Split split({{100, 1000, 0}, {100, 1000, 1}}, {150, 150});
        split.splitter->hide(); // resizing does not lay out
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
        ZelPrioritySplitViewItem other(0, 1000, 5, false);
        split.delegate->setItems({&other, items[1]});
        split.resize(split.length() + 10);
        items[0]->setPriorityIndex(7);
        QCOMPARE(split.lengths(), QList<int>({210, 150}));
    }
    void sortOrdersAreReverses()
    {
        const Split split({{0, 0, 1}, {0, 0, 2}, {0, 0, 1}, {0, 0, 2}}, {50, 50, 50, 50});
        const auto i = split.delegate->items();
        const QList<ZelPrioritySplitViewItem *> descending{i[1], i[3], i[0], i[2]};
        QCOMPARE(split.delegate->sortedItemsByDescendingPriority(), descending);
        QCOMPARE(split.delegate->sortedItemsByAscendingPriority(),
                 QList<ZelPrioritySplitViewItem *>(descending.rbegin(), descending.rend()));
    }
    void dividersAreConstrained()
    {
        const Split split({{40, 120}, {50, 130}}, {100, 100});
        auto &delegate = *split.delegate;
        QSplitter *splitter = split.splitter.get();
        const auto least = [&](double proposed, qsizetype index = 0) {
            return delegate.splitViewConstrainMinCoordinateOfSubviewAt(splitter, proposed, index);
        };
        const auto greatest = [&](double proposed, qsizetype index = 0) {
            return delegate.splitViewConstrainMaxCoordinateOfSubviewAt(splitter, proposed, index);
        };
        const double end = split.length();
        QCOMPARE(std::tuple(least(0), least(110)), std::tuple(end - 130, 110.0));
        QCOMPARE(std::tuple(greatest(1000), greatest(60)), std::tuple(120.0, 60.0));
        delegate.items()[0]->setMinLength(90);
        delegate.items()[1]->setMinLength(95);
        QCOMPARE(std::tuple(least(0), greatest(1000)), std::tuple(90.0, end - 95));
        const std::function<void()> mistakes[] = {[&] { least(0, 1); }, [&] { greatest(0, 1); },
                                                  [&] { delegate.itemForViewIndex(-1); },
                                                  [] { ZelPrioritySplitViewDelegate nowhere(nullptr); }};
        for (const auto &mistake : mistakes)
            QVERIFY_EXCEPTION_THROWN(mistake(), ZelInternalInconsistencyException);
    }
    void panesComeAndGo()
    {
        Split split({{}, {}}, {100, 100});
        split.splitter->addWidget(new QLabel(QStringLiteral("A pane with a text")));
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
        delete split.splitter->widget(1);
        QCoreApplication::sendPostedEvents();
        checkLayout(split, {{}, {}});
        split.splitter->setOrientation(Qt::Vertical);
        QCoreApplication::sendPostedEvents();
        split.resize(300);
        checkLayout(split, {{}, {}});
    }
    void anArchiveKeepsEverything()
    {
        const QVariantMap expected{{"minLength", 12.5},
                                   {"maxLength", 300.0},
                                   {"priorityIndex", std::numeric_limits<quint64>::max()},
                                   {"collapsible", true}};
        ZelKeyedCoder coder;
        ZelPrioritySplitViewItem(ZelKeyedCoder(expected)).encodeWithCoder(coder);
        QCOMPARE(coder.values(), expected);
        const ZelPrioritySplitViewItem item(ZelKeyedCoder(QVariantMap{{"minLength", 40}})); // may lack keys
        QCOMPARE(std::tuple(item.minLength(), item.priorityIndex(), item.isCollapsible()), std::tuple(40.0, 0u, false));
        QVERIFY(item.maxLength() > QWIDGETSIZE_MAX);
    }
};
QTEST_MAIN(tst_ZelPrioritySplitViewDelegate)
#include "tst_ZelPrioritySplitViewDelegate.moc"
