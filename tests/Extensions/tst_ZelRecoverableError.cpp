// SPDX-License-Identifier: MIT
#include "Extensions/ZelAlert.h"
#include "Extensions/ZelRecoverableError.h"

#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QTimer>

namespace {

class Window : public QWidget
{
public:
    Window()
    {
        show();
        activateWindow();
        ready = QTest::qWaitForWindowActive(this);
    }
    bool ready = false;
};

QAbstractButton *buttonWithTitle(QMessageBox *box, const QString &title)
{
    for (QAbstractButton *button : box->buttons())
        if (button->text() == title)
            return button;
    return nullptr;
}

} // namespace

class tst_ZelRecoverableError : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void alertsRunTheChosenBlockOnce_data()
    {
        QTest::addColumn<QString>("click"); // empty: Escape
        QTest::addColumn<QString>("expected");
        QTest::newRow("a button") << "Replace && Keep"
                                  << "replaced";
        QTest::newRow("another") << "Cancel"
                                 << "cancelled";
        QTest::newRow("Escape") << ""
                                << "cancelled";
    }

    void alertsRunTheChosenBlockOnce()
    {
        QFETCH(QString, click);
        QFETCH(QString, expected);
        Window window;
        QVERIFY(window.ready);
        QStringList done;
        QPointer<QMessageBox> box = ZelAlert(QStringLiteral("<b>Replace?</b>"), QStringLiteral("Really"))
                                        .addButton(QStringLiteral("Replace & Keep"), QMessageBox::AcceptRole,
                                                   [&done] { done.append(QStringLiteral("replaced")); })
                                        .addButton(QStringLiteral("Cancel"), QMessageBox::RejectRole,
                                                   [&done] { done.append(QStringLiteral("cancelled")); })
                                        .beginSheet(&window, this);
        QVERIFY(box->isVisible()); // and the call has returned
        QCOMPARE(box->windowModality(), Qt::WindowModal);
        QCOMPARE(box->textFormat(), Qt::PlainText);
        QCOMPARE(box->defaultButton()->text(), QStringLiteral("Replace && Keep"));
        if (click.isEmpty())
            QTest::keyClick(box, Qt::Key_Escape);
        else
            buttonWithTitle(box, click)->click();
        QTRY_COMPARE(done, QStringList(expected));
        QTRY_VERIFY(!box);
        QTest::qWait(20);
        QCOMPARE(done.size(), 1);
    }

    void alertsOutliveNothing()
    {
        int done = 0;
        auto *window = new Window;
        auto *context = new QObject;
        const auto begin = [&] {
            return QPointer<QMessageBox>(
                ZelAlert(QStringLiteral("Well?"))
                    .addButton(QStringLiteral("Yes"), QMessageBox::AcceptRole, [&done] { ++done; })
                    .beginSheet(window, context));
        };
        QPointer<QMessageBox> box = begin();
        delete context;
        buttonWithTitle(box, QStringLiteral("Yes"))->click();
        QTRY_VERIFY(!box);
        context = new QObject;
        box = begin();
        buttonWithTitle(box, QStringLiteral("Yes"))->click();
        delete context; // after the answer, before the block
        context = new QObject;
        box = begin();
        delete window;
        QVERIFY(!box);
        QTest::qWait(20);
        QCOMPARE(done, 0);
        delete context;
    }

    void anErrorsOptionsAreTheButtons_data()
    {
        QTest::addColumn<QString>("click");
        QTest::addColumn<int>("attempts");
        QTest::addColumn<QList<bool>>("told");
        QTest::newRow("succeeds") << "Create It" << 1 << QList<bool>{true};
        QTest::newRow("fails") << "Try Again" << 1 << QList<bool>{false};
        QTest::newRow("gives up") << "Cancel" << 0 << QList<bool>{false};
    }

    void anErrorsOptionsAreTheButtons()
    {
        QFETCH(QString, click);
        QFETCH(int, attempts);
        QFETCH(QList<bool>, told);
        Window window;
        int attempted = 0;
        QList<bool> completions;
        QMessageBox *box = nullptr;
        {
            ZelRecoverableError error(QStringLiteral("No such file."), QStringLiteral("It may have been moved."));
            const auto attempt = [&attempted](bool success) { return ++attempted, success; };
            error.addOption(QStringLiteral("Try Again"), [attempt] { return attempt(false); })
                .addOption(QStringLiteral("Create It"), [attempt] { return attempt(true); })
                .addOption(QStringLiteral("Cancel"));
            QCOMPARE(error.optionTitles().size(), 3);
            box = error.present(&window, this, [&completions](bool recovered) { completions.append(recovered); });
        } // the alert does not need the value any more
        QCOMPARE(box->text(), QStringLiteral("No such file."));
        QCOMPARE(box->informativeText(), QStringLiteral("It may have been moved."));
        buttonWithTitle(box, click)->click();
        QTRY_COMPARE(completions, told);
        QCOMPARE(attempted, attempts);
    }

    void anAttemptMayEndItsContext()
    {
        Window window;
        auto context = std::make_unique<QObject>();
        ZelRecoverableError error(QStringLiteral("Broken."));
        error.addOption(QStringLiteral("Close It"), [&context] { return context.reset(), true; });
        bool isTold = false;
        QMessageBox *box = error.present(&window, context.get(), [&isTold](bool) { isTold = true; });
        buttonWithTitle(box, QStringLiteral("Close It"))->click();
        QTRY_VERIFY(!context);
        QTest::qWait(20);
        QVERIFY(!isTold);
    }

    void escapeGivesUpTheFirstWay()
    {
        Window window;
        QVERIFY(window.ready);
        int told = 0;
        ZelRecoverableError error(QStringLiteral("Changed by somebody else."));
        error.addOption(QStringLiteral("Read Again"), [] { return true; })
            .addOption(QStringLiteral("Cancel"))
            .addOption(QStringLiteral("Ignore"));
        QPointer<QMessageBox> box = error.present(&window, this, [&told](bool recovered) { told += !recovered; });
        QTest::keyClick(box, Qt::Key_Escape);
        QTRY_COMPARE(told, 1);
    }

    void anErrorWithoutOptionsIsAcknowledged()
    {
        Window window;
        QVERIFY(!ZelRecoverableError().present(&window, this));
        QPointer<QMessageBox> box = ZelRecoverableError(QStringLiteral("Full.")).present(&window, this);
        QCOMPARE(box->buttons().size(), 1);
        QTest::keyClick(box, Qt::Key_Escape);
        QTRY_VERIFY(!box);
    }
};

QTEST_MAIN(tst_ZelRecoverableError)
#include "tst_ZelRecoverableError.moc"
