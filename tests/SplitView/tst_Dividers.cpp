// SPDX-License-Identifier: MIT
#include "Split.h"
#include "SplitView/ZelSplitView.h"

#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QSignalSpy>
#include <QTest>

/// Dividers under the mouse and the keyboard, and how they look. ZEL_SCREENSHOTS names a folder for pictures.
class tst_Dividers : public QObject
{
    Q_OBJECT

    static void activate(QWidget *window)
    {
        window->show();
        window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(window));
    }
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
    void draggingKeepsTheLimits_data()
    {
        QTest::addColumn<int>("distance");
        QTest::addColumn<QList<int>>("lengths");
        QTest::newRow("freely") << 20 << QList<int>{120, 180, 100};
        QTest::newRow("to the maximum before it") << 90 << QList<int>{160, 140, 100};
        // The limit counts from the pane's end, with the divider.
        const int divider = QSplitter().handleWidth();
        QTest::newRow("to the maximum after it") << -70 << QList<int>{60 + divider, 240 - divider, 100};
        QTest::newRow("not collapsed") << -90 << QList<int>{60 + divider, 240 - divider, 100};
    }
    void draggingKeepsTheLimits()
    {
        QFETCH(int, distance);
        QFETCH(QList<int>, lengths);
        for (const auto orientation : {Qt::Horizontal, Qt::Vertical}) {
            for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
                for (bool isOpaque : {true, false}) {
                    Split split({{40, 160}, {50, 240}, {60, 1000, 1}}, {100, 200, 100}, orientation);
                    split.splitter->setLayoutDirection(direction);
                    split.splitter->setOpaqueResize(isOpaque);
                    activate(split.splitter.get());
                    QSignalSpy moved(split.splitter.get(), &QSplitter::splitterMoved);
                    drag(split, 1, distance);
                    QCOMPARE(split.lengths(), lengths);
                    QCOMPARE(split.splitter->sizes(), lengths);
                    QVERIFY(moved.count() >= 1);
                    QCOMPARE(moved.last()[1].toInt(), 1);
                    QCOMPARE(split.splitter->opaqueResize(), isOpaque);
                }
            }
        }
    }
    void draggingCollapsesAndOpens()
    {
        Split split({{80, 1000, 0, true}, {80, 1000, 0, true}, {80, 1000, 1, true}}, {100, 100, 100});
        activate(split.splitter.get());
        const int divider = split.splitter->handleWidth();
        drag(split, 1, -55);
        QCOMPARE(split.lengths(), QList<int>({80, 120, 100}));
        drag(split, 1, -45);
        QCOMPARE(split.lengths(), QList<int>({0, 200 + divider, 100}));
        QVERIFY(split.splitter->handle(1)->visibleRegion().contains(QPoint(1, 1)));
        drag(split, 1, 30); // not yet half of its minimum
        QVERIFY(split.isCollapsed(0));
        drag(split, 1, 90);
        QCOMPARE(split.lengths(), QList<int>({90, 110, 100}));
        // The last pane, to the end and back.
        drag(split, 2, 70);
        QCOMPARE(split.lengths(), QList<int>({90, 210 + divider, 0}));
        drag(split, 2, -50);
        QCOMPARE(split.lengths(), QList<int>({90, 130, 80}));
        // One in the middle opens out of the divider that its neighbours share.
        split.setCollapsed(1, true);
        const QList<int> closed = split.lengths();
        drag(split, 2, 85);
        QCOMPARE(split.lengths(), QList<int>({90, 85 - divider, closed[2] - 85}));
    }
    /// One drag may open the pane on the one side and collapse that on the other.
    void onePaneOpensWhileAnotherCollapses_data()
    {
        QTest::addColumn<QList<int>>("collapsed");
        QTest::addColumn<int>("divider");
        QTest::addColumn<int>("distance");
        QTest::addColumn<QList<int>>("opened"); // that takes all the room of the one that collapses
        QTest::newRow("the first one opens") << QList<int>{0} << 1 << 200 << QList<int>{0, 2};
        QTest::newRow("the last one opens") << QList<int>{2} << 2 << -200 << QList<int>{0, 2};
        QTest::newRow("the middle one opens at the end") << QList<int>{1} << 2 << 300 << QList<int>{0, 1};
        QTest::newRow("the middle one opens at the start") << QList<int>{1} << 1 << -300 << QList<int>{1, 2};
    }
    void onePaneOpensWhileAnotherCollapses()
    {
        QFETCH(QList<int>, collapsed);
        QFETCH(int, divider);
        QFETCH(int, distance);
        QFETCH(QList<int>, opened);
        for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
            Split split({{40, 1000, 0, true}, {40, 1000, 0, true}, {40, 1000, 1, true}}, {100, 100, 100});
            split.splitter->setLayoutDirection(direction);
            activate(split.splitter.get());
            for (int index : collapsed)
                split.setCollapsed(index, true);
            drag(split, divider, distance);
            QList<int> shown;
            for (int i = 0; i < 3; ++i)
                if (!split.isCollapsed(i))
                    shown.append(i);
            QCOMPARE(shown, opened);
            QCOMPARE(split.starts(), QList<int>({0, split.lengths()[shown[0]] + split.splitter->handleWidth()}));
            QCOMPARE(split.starts()[1] + split.lengths()[shown[1]], split.length());
        }
    }
    void collapsingEndsAnOverflow()
    {
        for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
            Split split({{60, 1000, 0, true}, {60, 1000, 1, true}}, {60, 60});
            split.splitter->setLayoutDirection(direction);
            activate(split.splitter.get());
            split.resize(66);
            drag(split, 1, -60);
            QCOMPARE(split.lengths(), QList<int>({0, 66}));
            QCOMPARE(split.starts(), QList<int>{0});
        }
    }
    void keysMoveADividerThatHasTheFocus()
    {
        Split split({{40, 160, 0, true}, {50, 1000, 1}}, {100, 200});
        activate(split.splitter.get());
        QSplitterHandle *handle = split.splitter->handle(1);
        QTest::keyClick(split.splitter.get(), Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), handle);
        const auto type = [&](Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
            QTest::keyClick(handle, key, modifiers);
            return split.lengths();
        };
        QCOMPARE(type(Qt::Key_Right), QList<int>({110, 190}));
        QCOMPARE(type(Qt::Key_Left, Qt::ShiftModifier), QList<int>({109, 191}));
        QCOMPARE(type(Qt::Key_Home), QList<int>({40, 260}));
        QCOMPARE(type(Qt::Key_Left), QList<int>({40, 260}));
        QCOMPARE(type(Qt::Key_End), QList<int>({160, 140}));
        QCOMPARE(type(Qt::Key_Down), QList<int>({160, 140}));
        QCOMPARE(type(Qt::Key_Return), QList<int>({0, split.length()}));
        QCOMPARE(type(Qt::Key_Space), QList<int>({160, 140}));
        QTest::mouseDClick(handle, Qt::LeftButton);
        QCOMPARE(split.lengths(), QList<int>({0, split.length()}));
        QTest::keyClick(handle, Qt::Key_Right);
        QCOMPARE(split.lengths(), QList<int>({40, 260}));
    }
    void anyoneMayDieDuringADrag_data()
    {
        QTest::addColumn<QByteArray>("who");
        for (QByteArray who : {"splitter", "delegate", "items", "pane", "other pane"})
            QTest::newRow(who) << who;
    }
    void anyoneMayDieDuringADrag()
    {
        QFETCH(QByteArray, who);
        for (bool isOpaque : {true, false}) {
            Split split({{40, 160}, {50, 240}, {50, 1000}}, {100, 200, 100});
            split.splitter->setOpaqueResize(isOpaque);
            activate(split.splitter.get());
            drag(split, 1, 20, false);
            if (who == "splitter")
                split.splitter.reset();
            else if (who == "delegate")
                split.delegate.reset();
            else if (who == "items")
                qDeleteAll(split.delegate->items());
            else
                delete split.splitter->widget(who == "pane" ? 0 : 2);
            QCoreApplication::sendPostedEvents();
            if (split.splitter) {
                QSplitterHandle *handle = split.splitter->handle(1);
                QTest::mouseMove(handle, QPoint(15, 5));
                QTest::mouseRelease(handle, Qt::LeftButton, {}, QPoint(15, 5));
                QVERIFY(split.splitter->widget(0)->width() >= (who == "delegate" || who == "items" ? 0 : 40));
            }
        }
    }
    void aPaneMayDeleteTheDelegate()
    {
        struct Pane : QWidget
        {
            std::function<void()> resized;
            void resizeEvent(QResizeEvent *) override
            {
                if (resized)
                    resized();
            }
        };
        for (int collapsed : {-1, 1}) {
            Split split({{40, 1000}, {50, 1000, 0, true}, {50, 1000}}, {100, 100, 100});
            auto *pane = new Pane;
            delete split.splitter->replaceWidget(0, pane);
            activate(split.splitter.get());
            if (collapsed >= 0)
                split.setCollapsed(collapsed, true);
            pane->resized = [&] { split.delegate.reset(); };
            drag(split, collapsed < 0 ? 1 : 2, -20);
            QVERIFY(!split.delegate);
        }
    }
    void dividersFollowLevelThemeAndWindow()
    {
        const QPalette light = QApplication::palette();
        for (bool isDark : {false, true}) {
            QApplication::setPalette(isDark ? QPalette(QColor(53, 53, 53)) : light);
            auto owned = std::make_unique<ZelSplitView>(Qt::Horizontal);
            ZelSplitView *view = owned.get();
            Split split({{40, 1000, 0, true}, {50, 1000, 0, true}, {50, 1000}}, {100, 100, 100}, Qt::Horizontal,
                        std::move(owned));
            activate(view);
            view->handle(1)->clearFocus();
            const auto seen = [&](int index) {
                return QColor(view->grab().toImage().pixel(view->handle(index)->geometry().center()));
            };
            QList<QColor> colors;
            for (quint64 level : {0, 1, 2}) {
                view->setLevel(level);
                QCOMPARE(seen(1), view->dividerColor());
                QVERIFY(!colors.contains(seen(2)) && seen(2) != view->palette().color(QPalette::Window));
                colors.append(seen(2));
            }
            view->setLevel(0);
            QWidget other;
            activate(&other);
            QVERIFY(seen(1) != colors[0]);
            QCOMPARE(seen(1), view->dividerColor());
            activate(view);
            view->handle(1)->setFocus();
            QCOMPARE(seen(1), view->palette().color(QPalette::Highlight));
            takePicture(split, isDark);
            QApplication::setPalette(light);
        }
    }

private:
    static void takePicture(Split &split, bool isDark)
    {
        const QString folder = qEnvironmentVariable("ZEL_SCREENSHOTS");
        if (folder.isEmpty())
            return;
        QDir().mkpath(folder);
        for (int i = 0; i < 3; ++i) {
            auto *label = new QLabel(QStringLiteral("Pane %1").arg(i), split.splitter->widget(i));
            label->move(4, 4);
            label->show();
        }
        const QString name =
            QStringLiteral("%1/split-%2-%3.png")
                .arg(folder, isDark ? QStringLiteral("dark") : QStringLiteral("light"), QStringLiteral("%1"));
        split.splitter->grab().save(name.arg(QStringLiteral("open")));
        split.setCollapsed(0, true);
        split.splitter->handle(1)->clearFocus();
        split.splitter->grab().save(name.arg(QStringLiteral("collapsed")));
    }
};

QTEST_MAIN(tst_Dividers)
#include "tst_Dividers.moc"
