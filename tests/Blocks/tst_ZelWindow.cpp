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
    Readout(QStringList &log, QWidget *parent)
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

private:
    void paintEvent(QPaintEvent *) override { m_log << "paint " + m_shown; }

    QString m_model;
    QString m_shown;
    QStringList &m_log;
    ZelDelayedInvocation m_invocation{[this] { m_shown = m_model; }};
};

class tst_ZelWindow : public QObject
{
    Q_OBJECT

    QStringList m_log;
    QStringList taken() { return std::exchange(m_log, {}); }
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

    void aFrameShowsWhatTheModelSays()
    {
        for (const bool isOwn : {false, true}) { // a window of the application's
            const std::unique_ptr<QWidget> window(isOwn ? static_cast<QWidget *>(new QMainWindow) : new ZelWindow);
            auto *readout = new Readout(m_log, window.get());
            QUndoStack stack;
            if (isOwn)
                QCOMPARE(ZelWindow::attach(readout, &stack), ZelWindow::attach(window.get()));
            QCOMPARE(ZelUndoManager::forWidget(readout)->stack() == &stack, isOwn);
            readout->setText("first");
            show(window.get());
            QVERIFY(m_log.removeAll(QString("paint first")) > 0);
            QCOMPARE(m_log, QStringList());
            window->setObjectName("W");
            logCheckpoints();
            ZelWindowDisplay *display = ZelWindowDisplay::of(readout);
            display->performBeforeDisplayUsingBlock([this] { m_log << "block"; });
            readout->update();
            readout->setText("second"); // the invocation is due after the painting
            QTest::qWait(20);
            QCOMPARE(taken(), (QStringList{"window W", "invocations W", "block", "paint second"}));
            readout->setText("third");
            QExposeEvent uncovered(window->rect());
            QCoreApplication::sendEvent(window->windowHandle(), &uncovered);
            QCOMPARE(m_log.value(1), "invocations W");
            QTRY_COMPARE(m_log.last(), "paint third");
            QVERIFY(!taken().contains("paint second"));
            display->performBeforeDisplayUsingBlock([=] { readout->repaint(); }); // in one checkpoint
            readout->setText("now");
            display->displayIfNeeded();
            QCOMPARE(taken(), (QStringList{"window W", "invocations W", "paint now"}));
            display->displayIfNeeded();
            QCOMPARE(taken(), (QStringList{"window W", "invocations W"}));
            cleanup();
        }
    }

    void blocksRunInOnePass()
    {
        ZelWindow window;
        QVERIFY(window.undoManager());
        const auto note = [this](const char *text) { return [this, text] { m_log << text; }; };
        window.performBeforeDisplayUsingBlock([&] {
            m_log << "a";
            window.performBeforeDisplayUsingBlock(note("c"));
            window.performDelayedBlocks(); // does not begin again
        });
        window.performBeforeDisplayUsingBlock(note("b"));
        window.performDelayedBlocks();
        window.performDelayedBlocks();
        QCOMPARE(m_log, (QStringList{"a", "b", "c"}));
        QVERIFY_EXCEPTION_THROWN(window.performBeforeDisplayUsingBlock(nullptr), ZelInternalInconsistencyException);
        // One that throws does not end the checkpoints.
        window.performBeforeDisplayUsingBlock([] { throw ZelGenericException("block"); });
        window.performBeforeDisplayUsingBlock(note("next"));
        QVERIFY_EXCEPTION_THROWN(window.displayIfNeeded(), ZelGenericException);
        window.displayIfNeeded();
        QCOMPARE(m_log.mid(3), QStringList{"next"});
    }

    void theWindowMayGoDuringItsCheckpoint()
    {
        for (const bool synchronously : {false, true}) {
            QPointer<ZelWindow> window = new ZelWindow;
            show(window);
            window->performBeforeDisplayUsingBlock([=] { delete window; });
            window->performBeforeDisplayUsingBlock([this] { m_log << "never"; });
            window->update();
            if (synchronously)
                window->displayIfNeeded();
            QTRY_VERIFY(!window);
            QCOMPARE(m_log, QStringList());
        }
    }
};

QTEST_MAIN(tst_ZelWindow)
#include "tst_ZelWindow.moc"
