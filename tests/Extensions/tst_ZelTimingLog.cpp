// SPDX-License-Identifier: MIT
#include "Core/Errors/ZelAssertions.h"
#include "Extensions/ZelTimingLog.h"

#include <QTest>

namespace {

QStringList lines;

/// Collects what is logged while it lives.
class Log
{
public:
    Log()
    {
        lines.clear();
        m_former = qInstallMessageHandler([](QtMsgType type, const QMessageLogContext &, const QString &text) {
            if (type == QtDebugMsg)
                lines.append(text);
        });
    }
    ~Log() { qInstallMessageHandler(m_former); }
    Q_DISABLE_COPY_MOVE(Log)

private:
    QtMessageHandler m_former;
};

double millisecondsIn(const QString &line, const QString &start)
{
    const bool fits = line.startsWith(start) && line.endsWith(QStringLiteral(" ms"));
    return fits ? line.mid(start.size()).chopped(3).toDouble() : -1;
}

} // namespace

class tst_ZelTimingLog : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void namesStretchesOfTime()
    {
        const Log log;
        {
            ZelTimingLog timing("open");
            QTest::qSleep(20);
            timing.lap("read");
            QTest::qSleep(40);
            timing.lap("show");
        }
        QCOMPARE(lines.size(), 3);
        const double read = millisecondsIn(lines.at(0), QStringLiteral("TIMING: open, read: "));
        const double show = millisecondsIn(lines.at(1), QStringLiteral("TIMING: open, show: "));
        const double whole = millisecondsIn(lines.at(2), QStringLiteral("TIMING: open: "));
        QVERIFY2(read >= 20 && show >= 40, qPrintable(lines.join(u'\n')));
        QVERIFY(whole >= read + show - 0.2); // the second lap did not begin at the start
        QVERIFY(whole < read + show + 20);
    }

    void isSilentWhereDebuggingIsOff()
    {
        const Log log;
        QLoggingCategory &category = const_cast<QLoggingCategory &>(zelLog());
        category.setEnabled(QtDebugMsg, false);
        {
            ZelTimingLog timing("quiet");
            timing.lap("lap");
            QCOMPARE(timing.elapsed(), 0.0);
        }
        category.setEnabled(QtDebugMsg, true);
        QCOMPARE(lines, QStringList());
    }
};

QTEST_MAIN(tst_ZelTimingLog)
#include "tst_ZelTimingLog.moc"
