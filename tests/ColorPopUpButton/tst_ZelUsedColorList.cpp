// SPDX-License-Identifier: MIT
#include "ColorPopUpButton/ZelColorMatrix.h"
#include "ColorPopUpButton/ZelColorMenuItemView.h"
#include "Core/Errors/ZelAssertions.h"
#include "Observation/ZelObservations.h"

#include <QSignalSpy>
#include <QTest>
#include <QThread>

namespace {

ZelColor grey(int level)
{
    return ZelColor(QColor(level, level, level));
}

/// Notes which part of the widget is painted.
class PaintLog : public QObject
{
public:
    explicit PaintLog(QWidget *widget) { widget->installEventFilter(this); }
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Paint)
            painted += static_cast<QPaintEvent *>(event)->region();
        return false;
    }
    QRegion painted;
};

} // namespace

class tst_ZelUsedColorList : public QObject
{
    Q_OBJECT

    ZelUsedColorList *list = ZelUsedColorList::sharedUsedColorList();

private Q_SLOTS:
    /// Fills the list: 23 is the latest, 0 the oldest.
    void init()
    {
        for (int i = 0; i < ZelUsedColorListMax; ++i)
            list->usedColor(grey(i));
    }

    void theLatestComesFirst()
    {
        const std::tuple<int, int, int> rows[] = {{3, 23, 0}, {200, 3, 1}}; // used, then second and last
        for (const auto &[used, second, last] : rows) {
            list->usedColor(grey(used));
            const QList<ZelColor> colors = list->colors();
            QCOMPARE(colors.size(), ZelUsedColorListMax);
            QCOMPARE(colors[0], grey(used));
            QCOMPARE(colors[1], grey(second));
            QCOMPARE(colors.last(), grey(last));
            QCOMPARE(colors.count(grey(used)), 1);
        }
        QVERIFY_EXCEPTION_THROWN(list->usedColor(ZelColor()), ZelInternalInconsistencyException);
        QCOMPARE(list->colors().first(), grey(200));
    }

    void observersHearOfOtherColoursOnly()
    {
        static const char context = 0;
        QObject owner;
        int changes = 0;
        ZelObservations(&owner).addObservationWithObject(
            list, "colors", ZelKeyValueObservingOptionEqualCheck,
            [&](ZelBlockObservation *, const ZelKeyValueChange &) { ++changes; }, &context);
        QSignalSpy announced(list, &ZelUsedColorList::colorsChanged);
        list->usedColor(grey(23)); // the first one
        QCOMPARE(announced.count(), 1);
        QCOMPARE(changes, 0);
        list->usedColor(grey(22));
        QCOMPARE(changes, 1);
        ZelObservations(&owner).removeAllObservationsForContext(&context);
    }

    void threadsMayUseColours()
    {
        QList<QThread *> threads;
        for (int t = 0; t < 4; ++t)
            threads.append(QThread::create([this, t] {
                for (int i = 0; i < 500; ++i)
                    list->usedColor(grey(30 + (t * 7 + i) % 40));
            }));
        QThread *notified = nullptr;
        connect(list, &ZelUsedColorList::colorsChanged, this, [&] { notified = QThread::currentThread(); });
        for (QThread *thread : threads)
            thread->start();
        for (QThread *thread : threads)
            thread->wait();
        QCoreApplication::processEvents();
        list->disconnect(this);
        QCOMPARE(notified, thread());
        const QList<ZelColor> colors = list->colors();
        QCOMPARE(colors.size(), ZelUsedColorListMax);
        QCOMPARE(QSet<ZelColor>(colors.begin(), colors.end()).size(), ZelUsedColorListMax);
        qDeleteAll(threads);
    }

    void theStripRepaintsOnlyWhatIsAnother()
    {
        QWidget window;
        auto *view = new ZelColorMenuItemView(&window);
        window.resize(view->sizeHint());
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QVERIFY(view->isInstalled());
        ZelColorMatrix *matrix = view->matrix();
        QCOMPARE(matrix->colorAtIndex(0), grey(23));
        QCoreApplication::processEvents();
        PaintLog log(matrix);
        list->usedColor(grey(21)); // 23 22 21 20 becomes 21 23 22 20
        QTRY_VERIFY(!log.painted.isEmpty());
        QCOMPARE(matrix->colorAtIndex(0), grey(21));
        for (int i = 0; i < ZelColorMatrix::numberOfCells; ++i)
            QCOMPARE(log.painted.intersects(matrix->rectOfCell(i)), i < 3);
    }

    void theStripKeepsItsMeasures()
    {
        ZelColorMenuItemView view;
        const ZelColorMatrix *matrix = view.matrix();
        QCOMPARE(view.sizeHint().width(), 273);
        QCOMPARE(matrix->size(), QSize(227, 40));
        QCOMPARE(matrix->x(), 19);
        QCOMPARE(matrix->geometry().bottom() + 2, view.height());
        QCOMPARE(matrix->rectOfCell(13), QRect(19, 22, 18, 18));
        QCOMPARE(matrix->cellAtPosition({18, 5}), -1); // between two
        const int height = view.height();
        view.setControlSize(ZelControlSize::Mini);
        QVERIFY(view.height() < height);
        QCOMPARE(matrix->geometry().bottom() + 2, view.height());
        view.setLayoutDirection(Qt::RightToLeft);
        QCOMPARE(matrix->geometry().right(), view.width() - 20);
        QCOMPARE(matrix->rectOfCell(0).right(), 226);
    }
};

QTEST_MAIN(tst_ZelUsedColorList)
#include "tst_ZelUsedColorList.moc"
