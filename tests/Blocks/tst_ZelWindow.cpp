// SPDX-License-Identifier: MIT
#include "Blocks/ZelWindow.h"
#include "Core/Errors/ZelException.h"
#include "Core/Undo/ZelUndoManager.h"
#include "Observation/ZelObservations.h"
#include <QTest>
#include <QtWidgets>

static const char g_context = 0;
static QStringList g_log;

/// Shows a text that is brought up to date late, and says what it painted.
class Readout : public QWidget
{
public:
    using QWidget::QWidget;
    void setText(const QString &text)
    {
        m_model = text;
        update();
        m_invocation.schedule();
    }

private:
    void paintEvent(QPaintEvent *) override { g_log << "paint " + m_shown; }

    QString m_model;
    QString m_shown;
    ZelDelayedInvocation m_invocation{[this] { m_shown = m_model; }};
};

class tst_ZelWindow : public QObject
{
    Q_OBJECT
    static QString taken() { return std::exchange(g_log, {}).join(", "); }
    static void show(QWidget *window)
    {
        window->resize(100, 100);
        window->show();
        QVERIFY(QTest::qWaitForWindowExposed(window));
        QTest::qWait(20);
    }

private Q_SLOTS:
    void aFrameShowsWhatTheModelSays()
    {
        for (const bool isOwn : {false, true}) { // a window of the application's
            const std::unique_ptr<QWidget> window(isOwn ? static_cast<QWidget *>(new QMainWindow) : new ZelWindow);
            auto *readout = new Readout(window.get());
            QUndoStack stack;
            auto *display = isOwn ? ZelWindow::attach(readout, &stack) : ZelWindowDisplay::of(readout);
            QCOMPARE(ZelWindow::attach(window.get()), display); // which keeps the stack, too
            QCOMPARE(ZelUndoManager::forWidget(readout)->stack() == &stack, isOwn);
            readout->setText("first");
            show(window.get());
            QVERIFY(g_log.removeAll(QString("paint first")) > 0);
            QCOMPARE(taken(), "");
            window->setObjectName("W");
            ZelObservations(this).addObservationWithCenter(
                nullptr, {ZelWindowDisplayCheckpointNotification, ZelDelayedInvocationCheckpointNotification}, nullptr,
                [](ZelNotificationObservation *observation, const ZelNotification &notification) {
                    const bool isOfWindow = observation->name() == ZelWindowDisplayCheckpointNotification;
                    g_log << (isOfWindow ? "window " : "invocations ") + notification.object->objectName();
                },
                &g_context);
            display->performBeforeDisplayUsingBlock([] { g_log << "block"; });
            readout->update();
            readout->setText("second"); // the invocation is due after the painting
            QTest::qWait(20);
            QCOMPARE(taken(), "window W, invocations W, block, paint second");
            readout->setText("third");
            QExposeEvent uncovered(window->rect());
            QCoreApplication::sendEvent(window->windowHandle(), &uncovered);
            QCOMPARE(g_log.value(1), "invocations W");
            QTRY_COMPARE(g_log.last(), "paint third");
            QVERIFY(!taken().contains("paint second"));
            display->performBeforeDisplayUsingBlock([=] { readout->repaint(); }); // in one checkpoint
            readout->setText("now");
            display->displayIfNeeded();
            QCOMPARE(taken(), "window W, invocations W, paint now");
            display->displayIfNeeded();
            QCOMPARE(taken(), "window W, invocations W");
            ZelObservations(this).removeAllObservationsForContext(&g_context);
        }
    }

    void blocksRunInOnePass()
    {
        ZelWindow window;
        QVERIFY(window.undoManager());
        const auto note = [](const char *text) { return [text] { g_log << text; }; };
        window.performBeforeDisplayUsingBlock([&] {
            g_log << "a";
            window.performBeforeDisplayUsingBlock(note("c"));
            window.performDelayedBlocks(); // does not begin again
        });
        window.performBeforeDisplayUsingBlock(note("b"));
        window.performDelayedBlocks();
        window.performDelayedBlocks();
        QCOMPARE(taken(), "a, b, c");
        QVERIFY_EXCEPTION_THROWN(window.performBeforeDisplayUsingBlock(nullptr), ZelInternalInconsistencyException);
        // One that throws does not end the checkpoints.
        window.performBeforeDisplayUsingBlock([] { throw ZelGenericException("block"); });
        window.performBeforeDisplayUsingBlock(note("next"));
        QVERIFY_EXCEPTION_THROWN(window.displayIfNeeded(), ZelGenericException);
        window.displayIfNeeded();
        QCOMPARE(taken(), "next");
    }

    void theWindowMayGoDuringItsCheckpoint()
    {
        for (const bool synchronously : {false, true}) {
            QPointer<ZelWindow> window = new ZelWindow;
            show(window);
            window->performBeforeDisplayUsingBlock([=] { delete window; });
            window->performBeforeDisplayUsingBlock([] { g_log << "never"; });
            window->update();
            if (synchronously)
                window->displayIfNeeded();
            QTRY_VERIFY(!window);
            QCOMPARE(taken(), "");
        }
    }
};
QTEST_MAIN(tst_ZelWindow)
#include "tst_ZelWindow.moc"
