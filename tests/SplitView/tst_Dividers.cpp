// SPDX-License-Identifier: MIT
#include "Split.h"
#include "SplitView/ZelSplitView.h"
#include "Support/TableRow.h"
#include "Support/User.h"

/// Dividers under the mouse and the keyboard, and how they look.
class tst_Dividers : public QObject
{
    Q_OBJECT
    static QPoint along(const Split &split, int length)
    {
        if (split.splitter->orientation() == Qt::Vertical)
            return {0, length};
        return {split.splitter->isRightToLeft() ? -length : length, 0};
    }
    /// Presses, moves in two steps, and releases, in the coordinates of a divider that moves along.
    static void drag(const Split &split, int index, int distance, bool release = true)
    {
        QSplitterHandle *handle = split.splitter->handle(index);
        const QPoint from = handle->mapTo(split.splitter.get(), handle->rect().center());
        const auto there = [&](int length) {
            return handle->mapFrom(split.splitter.get(), from + along(split, length));
        };
        QTest::mousePress(handle, Qt::LeftButton, {}, there(0));
        QTest::mouseMove(handle, there(distance / 2));
        QTest::mouseMove(handle, there(distance));
        if (release)
            QTest::mouseRelease(handle, Qt::LeftButton, {}, there(distance));
    }

private Q_SLOTS:
    void draggingKeepsTheLimits()
    {
        const int divider = QSplitter().handleWidth(); // the maximum after it counts from the pane's end, with it
        const std::pair<int, QList<int>> rows[] = {{20, {120, 180, 100}},
                                                   {90, {160, 140, 100}},
                                                   {-70, {60 + divider, 240 - divider, 100}},
                                                   {-90, {60 + divider, 240 - divider, 100}}};
        for (const auto &[distance, lengths] : rows) {
            for (int variant = 0; variant < 8; ++variant) {
                const TableRow row(QStringLiteral("%1, variant %2").arg(distance).arg(variant));
                Split split({{40, 160}, {50, 240}, {60, 1000, 1}}, {100, 200, 100},
                            variant & 1 ? Qt::Horizontal : Qt::Vertical);
                split.splitter->setLayoutDirection(variant & 2 ? Qt::LeftToRight : Qt::RightToLeft);
                split.splitter->setOpaqueResize(variant & 4);
                User::open(split.splitter.get());
                QSignalSpy moved(split.splitter.get(), &QSplitter::splitterMoved);
                drag(split, 1, distance);
                QCOMPARE(split.lengths(), lengths);
                QCOMPARE(split.splitter->sizes(), lengths);
                QCOMPARE(moved.value(moved.size() - 1).value(1).toInt(), 1);
                QCOMPARE(split.splitter->opaqueResize(), bool(variant & 4));
            }
        }
    }
    void draggingCollapsesAndOpens()
    {
        const int divider = QSplitter().handleWidth();
        const std::tuple<int, int, QList<int>> rows[] = {
            {1, -55, {80, 120, 100}},           {1, -45, {0, 200 + divider, 100}},
            {1, 30, {0, 200 + divider, 100}},  // not yet half of its minimum
            {1, 190, {200 + divider, 0, 100}}, // one opens while the other collapses
            {1, -190, {0, 200 + divider, 100}}, {1, 90, {90, 110, 100}},
            {2, 70, {90, 210 + divider, 0}},    {2, -50, {90, 130, 80}}};
        for (const bool isOpaque : {false, true}) { // in one jump, or step by step
            Split split({{80, 1000, 0, true}, {80, 1000, 0, true}, {80, 1000, 1, true}}, {100, 100, 100});
            split.splitter->setOpaqueResize(isOpaque);
            User::open(split.splitter.get());
            for (const auto &[index, distance, lengths] : rows) {
                drag(split, index, distance);
                QCOMPARE(split.lengths(), lengths);
                QVERIFY(split.splitter->handle(index)->visibleRegion().contains(QPoint(1, 1)));
            }
            // One in the middle opens out of the divider that its neighbours share.
            split.setCollapsed(1, true);
            const QList<int> closed = split.lengths();
            drag(split, 2, 85);
            QCOMPARE(split.lengths(), QList<int>({90, 85 - divider, closed[2] - 85}));
        }
    }
    void keysMoveADividerThatHasTheFocus()
    {
        Split split({{40, 160, 0, true}, {50, 1000, 1}}, {100, 200});
        User::open(split.splitter.get());
        QSplitterHandle *handle = split.splitter->handle(1);
        QTest::keyClick(split.splitter.get(), Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), handle);
        const int all = split.length();
        const std::tuple<Qt::Key, Qt::KeyboardModifiers, QList<int>> rows[] = {
            {Qt::Key_Right, {}, {110, 190}},
            {Qt::Key_Left, Qt::ShiftModifier, {109, 191}},
            {Qt::Key_Left, Qt::ControlModifier, {109, 191}},
            {Qt::Key_Home, {}, {40, 260}},
            {Qt::Key_Left, {}, {40, 260}},
            {Qt::Key_End, {}, {160, 140}},
            {Qt::Key_Down, {}, {160, 140}},
            {Qt::Key_Return, {}, {0, all}},
            {Qt::Key_Space, {}, {160, 140}},
            {Qt::Key_Enter, {}, {0, all}},
            {Qt::Key_Right, {}, {40, 260}}};
        for (const auto &[key, modifiers, lengths] : rows) {
            QTest::keyClick(handle, key, modifiers);
            QCOMPARE(split.lengths(), lengths);
        }
        QTest::mouseDClick(handle, Qt::LeftButton);
        QCOMPARE(split.lengths(), QList<int>({0, all}));
    }
    void anyoneMayDieDuringADrag()
    {
        struct Pane : QWidget
        {
            std::function<void()> resized = [] {};
            void resizeEvent(QResizeEvent *) override { resized(); }
        };
        for (const char who : {'s', 'd', 'i', 'p', 'o', 'r'}) {
            for (const bool isOpaque : {true, false}) {
                const TableRow row{QString(QLatin1Char(who))};
                Split split({{40, 160}, {50, 240}, {50, 1000}}, {100, 200, 100});
                split.splitter->setOpaqueResize(isOpaque);
                auto *pane = new Pane;
                delete split.splitter->replaceWidget(0, pane);
                User::open(split.splitter.get());
                if (who == 'r') // while the pane is resized
                    pane->resized = [&] { split.delegate.reset(); };
                drag(split, 1, 20, false);
                if (who == 's')
                    split.splitter.reset();
                else if (who == 'd')
                    split.delegate.reset();
                else if (who == 'i')
                    qDeleteAll(split.delegate->items());
                else if (who != 'r')
                    delete split.splitter->widget(who == 'p' ? 0 : 2);
                if (split.splitter)
                    split.resize(split.length() + 10);
                if (split.delegate)
                    split.delegate->adjustSubviews();
                QCoreApplication::sendPostedEvents();
                if (!split.splitter)
                    continue;
                QSplitterHandle *handle = split.splitter->handle(1);
                QTest::mouseMove(handle, QPoint(15, 5));
                QTest::mouseRelease(handle, Qt::LeftButton, {}, QPoint(15, 5));
                QVERIFY(split.splitter->widget(0)->width() >= (who == 'p' || who == 'o' ? 40 : 0));
                QCOMPARE(split.delegate == nullptr, who == 'd' || who == 'r');
            }
        }
    }
    void dividersFollowLevelAndWindow()
    {
        auto owned = std::make_unique<ZelSplitView>(Qt::Horizontal);
        ZelSplitView *view = owned.get();
        const Split split({{40, 1000}, {50, 1000}, {50, 1000}}, {100, 100, 100}, Qt::Horizontal, std::move(owned));
        User::open(view);
        view->handle(1)->clearFocus();
        const auto seen = [&](int index) {
            return QColor(view->grab().toImage().pixel(view->handle(index)->geometry().center()));
        };
        QList<QColor> colors{view->palette().color(QPalette::Window)};
        for (quint64 level : {0, 2, 1}) {
            view->setLevel(level);
            QCOMPARE(seen(1), view->dividerColor());
            QVERIFY(!colors.contains(seen(2)));
            colors.append(seen(2));
        }
        QWidget other;
        User::open(&other);
        QVERIFY(seen(1) != colors.last());
        QCOMPARE(seen(1), view->dividerColor());
        User::open(view);
        view->handle(1)->setFocus();
        QCOMPARE(seen(1), view->palette().color(QPalette::Highlight));
    }
};
QTEST_MAIN(tst_Dividers)
#include "tst_Dividers.moc"
