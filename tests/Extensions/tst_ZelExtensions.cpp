// SPDX-License-Identifier: MIT
#include "Extensions/ZelAlert.h"
#include "Extensions/ZelRecoverableError.h"
#include "Extensions/ZelTimingLog.h"
#include "Support/Failures.h"
#include "Support/User.h"

/// Clicks the button; Escape without a title.
static void answer(QMessageBox *box, const QString &title)
{
    if (title.isEmpty())
        return QTest::keyClick(box, Qt::Key_Escape);
    for (QAbstractButton *button : box->buttons()) {
        if (button->text() == title)
            return button->click();
    }
}

class tst_ZelExtensions : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void alertsOutliveNothing()
    {
        int done = 0;
        auto *window = new QWidget;
        window->show();
        QObject *context = nullptr;
        const auto begin = [&] {
            context = new QObject;
            const ZelAlert::Block count = [&done] { ++done; };
            return QPointer<QMessageBox>(
                ZelAlert("Well?").addButton("Yes", QMessageBox::AcceptRole, count).beginSheet(window, context));
        };
        QPointer<QMessageBox> box = begin();
        delete context;
        answer(box, "Yes");
        QTRY_VERIFY(!box);
        box = begin();
        answer(box, "Yes");
        delete context; // after the answer, before the block
        box = begin();
        delete window;
        QVERIFY(!box);
        QTest::qWait(20);
        QCOMPARE(done, 0);
        delete context;
    }

    void anErrorsOptionsAreTheButtons()
    {
        QWidget window;
        User::open(&window);
        int attempted = 0;
        QList<bool> told;
        const auto check = [&](const char *click, int attempts, bool isRecovered) {
            QPointer<QMessageBox> box;
            {
                const auto attempt = [&attempted](bool success) {
                    return [=, &attempted] { return ++attempted, success; };
                };
                ZelRecoverableError error("<b>No such file.</b>", "It may have been moved.");
                error.addOption("Try & Again", attempt(false)).addOption("Create It", attempt(true));
                error.addOption("Cancel").addOption("Ignore");
                QCOMPARE(error.optionTitles(), (QStringList{"Try & Again", "Create It", "Cancel", "Ignore"}));
                box = error.present(&window, this, [&told](bool recovered) { told.append(recovered); });
            }                          // the alert does not need the value any more
            QVERIFY(box->isVisible()); // and the call has returned
            QCOMPARE(box->text() + box->informativeText(), "<b>No such file.</b>It may have been moved.");
            QCOMPARE(box->windowModality(), Qt::WindowModal);
            QCOMPARE(box->textFormat(), Qt::PlainText);
            QCOMPARE(box->defaultButton()->text(), "Try && Again");
            answer(box, click);
            QTRY_COMPARE(told, QList<bool>{isRecovered});
            told.clear();
            QCOMPARE(std::exchange(attempted, 0), attempts);
            QTRY_VERIFY(!box);
        };
        check("Create It", 1, true);
        check("Try && Again", 1, false);
        check("Cancel", 0, false);
        check("", 0, false); // Escape gives up the first way
        QTest::qWait(20);
        QVERIFY(told.isEmpty() && attempted == 0);  // nothing came twice
        auto context = std::make_unique<QObject>(); // an attempt may end it
        ZelRecoverableError error("Broken.");
        error.addOption("Close It", [&context] { return context.reset(), true; });
        bool isTold = false;
        answer(error.present(&window, context.get(), [&isTold](bool) { isTold = true; }), "Close It");
        QTRY_VERIFY(!context);
        QTest::qWait(20);
        QVERIFY(!isTold);
        Failures failures;
        QVERIFY(!error.attemptRecovery(1) && !error.attemptRecovery(-1) && !ZelAlert("x").beginSheet(&window, nullptr));
        QCOMPARE(failures.seen.size(), 3);
        // One without options is acknowledged.
        QVERIFY(!ZelRecoverableError().present(&window, this));
        QPointer<QMessageBox> box = ZelRecoverableError("Full.").present(&window, this);
        QCOMPARE(box->buttons().size(), 1);
        answer(box, "");
        QTRY_VERIFY(!box);
    }

    void timingsAreLoggedWhereDebuggingIsOn()
    {
        static QStringList lines;
        const QtMessageHandler former =
            qInstallMessageHandler([](QtMsgType type, const QMessageLogContext &, const QString &text) {
                if (type == QtDebugMsg)
                    lines.append(text);
            });
        QList<double> elapsed;
        for (const bool isOn : {true, false}) {
            const_cast<QLoggingCategory &>(zelLog()).setEnabled(QtDebugMsg, isOn);
            ZelTimingLog timing("open");
            QTest::qSleep(20);
            timing.lap("read");
            QTest::qSleep(40);
            timing.lap("show");
            elapsed.append(timing.elapsed());
        }
        const_cast<QLoggingCategory &>(zelLog()).setEnabled(QtDebugMsg, true);
        qInstallMessageHandler(former);
        QCOMPARE(lines.size(), 3);
        QList<double> times;
        for (const char *start : {"TIMING: open, read: ", "TIMING: open, show: ", "TIMING: open: "}) {
            const QString line = lines.at(times.size());
            QVERIFY2(line.startsWith(start) && line.endsWith(" ms"), qPrintable(line));
            times.append(line.mid(qstrlen(start)).chopped(3).toDouble());
        }
        const double read = times.at(0), show = times.at(1), whole = times.at(2);
        const bool isAll = whole >= elapsed.at(0) - 0.1 && whole >= read + show - 0.2 && whole < read + show + 20;
        QVERIFY2(read >= 20 && show >= 40 && elapsed.at(0) >= 60 && isAll, qPrintable(lines.join(u'\n')));
        QCOMPARE(elapsed.at(1), 0.0);
    }
};
QTEST_MAIN(tst_ZelExtensions)
#include "tst_ZelExtensions.moc"
