// SPDX-License-Identifier: MIT
#include "Blocks/ZelWindow.h"

#include "Core/Errors/ZelException.h"
#include "Core/RunLoop/ZelNotificationCenter.h"
#include "Core/Undo/ZelUndoManager.h"
#include "Observation/ZelObservations.h"

#include <QMainWindow>
#include <QPainter>
#include <QTest>
#include <QUndoStack>
#include <QWindow>

static const char g_context = 0;

/// Shows a text that is brought up to date late, and says what it painted.
class Readout : public QWidget
{
public:
    explicit Readout(QStringList &log, QWidget *parent = nullptr)
        : QWidget(parent)
        , m_log(log)
    {
    }
    void setText(const QString &text)
    {
        m_model = text;
        update();
        m_invocation.schedule();
    }

protected:
    void paintEvent(QPaintEvent *) override { m_log << "paint " + m_shown; }

private:
    QString m_model;
    QString m_shown;
    QStringList &m_log;
    ZelDelayedInvocation m_invocation{[this] { m_shown = m_model; }};
};

class tst_ZelWindow : public QObject
{
    Q_OBJECT

    QStringList m_log;
    void logCheckpoints()
    {
        ZelObservations(this).addObservationWithCenter(
            nullptr, {ZelWindowDisplayCheckpointNotification, ZelDelayedInvocationCheckpointNotification}, nullptr,
            [this](ZelNotificationObservation *observation, const ZelNotification &notification) {
                m_log << (observation->name() == ZelWindowDisplayCheckpointNotification ? "window " : "invocations ") +
                             notification.object->objectName();
            },
            &g_context);
    }
    static void show(QWidget *window)
    {
        window->resize(100, 100);
        window->show();
        QVERIFY(QTest::qWaitForWindowExposed(window));
        QTest::qWait(20);
    }

private Q_SLOTS:
    void cleanup()
    {
        ZelObservations(this).removeAllObservationsForContext(&g_context);
        m_log.clear();
    }

    void aFrameShowsWhatTheModelSays_data()
    {
        QTest::addColumn<bool>("ownWindow");
        QTest::newRow("ZelWindow") << false;
        QTest::newRow("a window of the application's") << true;
    }

    void aFrameShowsWhatTheModelSays()
    {
        QFETCH(bool, ownWindow);
        const auto window =
            std::unique_ptr<QWidget>(ownWindow ? static_cast<QWidget *>(new QMainWindow) : new ZelWindow);
        auto *readout = new Readout(m_log, window.get());
        if (ownWindow)
            QCOMPARE(ZelWindow::attach(readout), ZelWindow::attach(window.get()));
        readout->setText("first");
        show(window.get());
        QVERIFY(!m_log.isEmpty());
        for (const QString &line : std::as_const(m_log))
            QCOMPARE(line, "paint first");

        window->setObjectName("W");
        m_log.clear();
        logCheckpoints();
        ZelWindowDisplay::of(readout)->performBeforeDisplayUsingBlock([this] { m_log << "block"; });
        readout->update();
        readout->setText("second"); // the invocation is due after the painting
        QTest::qWait(20);
        QCOMPARE(m_log, (QStringList{"window W", "invocations W", "block", "paint second"}));

        m_log.clear();
        readout->setText("third");
        QExposeEvent uncovered(window->rect());
        QCoreApplication::sendEvent(window->windowHandle(), &uncovered);
        QCOMPARE(m_log.value(1), "invocations W");
        QTRY_COMPARE(m_log.last(), "paint third");
        QVERIFY(!m_log.contains("paint second"));
    }

    void displayIfNeededPaintsAtOnceWithOneCheckpoint()
    {
        ZelWindow window;
        window.setObjectName("W");
        auto *readout = new Readout(m_log, &window);
        show(&window);
        m_log.clear();
        logCheckpoints();
        window.performBeforeDisplayUsingBlock([&] { readout->repaint(); });
        readout->setText("now");
        window.displayIfNeeded();
        QCOMPARE(m_log, (QStringList{"window W", "invocations W", "paint now"}));
        m_log.clear();
        window.displayIfNeeded();
        QCOMPARE(m_log, (QStringList{"window W", "invocations W"}));
    }

    void blocksQueuedByBlocksRunInTheSamePass()
    {
        ZelWindow window;
        window.performBeforeDisplayUsingBlock([&] {
            m_log << "a";
            window.performBeforeDisplayUsingBlock([this] { m_log << "c"; });
        });
        window.performBeforeDisplayUsingBlock([&] {
            m_log << "b";
            window.performDelayedBlocks(); // does not begin again
        });
        window.performDelayedBlocks();
        window.performDelayedBlocks();
        QCOMPARE(m_log, (QStringList{"a", "b", "c"}));
        QVERIFY_EXCEPTION_THROWN(window.performBeforeDisplayUsingBlock(nullptr), ZelInternalInconsistencyException);
    }

    void aBlockThatThrowsDoesNotEndTheCheckpoints()
    {
        ZelWindow window;
        window.performBeforeDisplayUsingBlock([] { throw ZelGenericException("block"); });
        window.performBeforeDisplayUsingBlock([this] { m_log << "next"; });
        QVERIFY_EXCEPTION_THROWN(window.displayIfNeeded(), ZelGenericException);
        QCOMPARE(m_log, QStringList{"next"});
        window.displayIfNeeded();
        QCOMPARE(m_log, QStringList{"next"});
    }

    void theWindowMayGoDuringItsCheckpoint_data()
    {
        QTest::addColumn<bool>("synchronously");
        QTest::newRow("on update") << false;
        QTest::newRow("displayIfNeeded") << true;
    }

    void theWindowMayGoDuringItsCheckpoint()
    {
        QFETCH(bool, synchronously);
        QPointer<ZelWindow> window = new ZelWindow;
        show(window);
        window->performBeforeDisplayUsingBlock([=] { delete window; });
        window->performBeforeDisplayUsingBlock([this] { m_log << "never"; });
        window->update();
        if (synchronously)
            window->displayIfNeeded();
        QTRY_VERIFY(!window);
        QVERIFY(m_log.isEmpty());
    }

    void windowsHaveAnUndoManager()
    {
        ZelWindow window;
        QVERIFY(window.undoManager());
        QMainWindow own;
        QUndoStack stack;
        ZelWindow::attach(&own, &stack);
        ZelWindow::attach(&own);
        QCOMPARE(ZelUndoManager::forWidget(&own)->stack(), &stack);
    }
};

QTEST_MAIN(tst_ZelWindow)
#include "tst_ZelWindow.moc"
