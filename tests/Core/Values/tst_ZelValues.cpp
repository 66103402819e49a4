// SPDX-License-Identifier: MIT
#include "Core/Values/ZelValues.h"

#include "Core/Errors/ZelAssertions.h"
#include "Core/KeyValue/ZelSelector.h"

#include <QColor>
#include <QTest>

class Target : public QObject
{
    Q_OBJECT
public:
    QStringList calls;
    Q_INVOKABLE void plain() { calls << QStringLiteral("plain"); }
    Q_INVOKABLE void withSender(QObject *sender)
    {
        calls << (sender == this ? QStringLiteral("self") : QStringLiteral("?"));
    }
    Q_INVOKABLE void withNumber(int) { calls << QStringLiteral("number"); }

protected Q_SLOTS:
    void protectedSlot() { calls << QStringLiteral("protected"); }

private Q_SLOTS:
    void privateSlot() { calls << QStringLiteral("private"); }
};

class tst_ZelValues : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void equality_data()
    {
        QTest::addColumn<QVariant>("a");
        QTest::addColumn<QVariant>("b");
        QTest::addColumn<bool>("equal");
        QTest::newRow("absent and unset text") << QVariant() << QVariant(QString()) << true;
        QTest::newRow("unset and empty text") << QVariant(QString()) << QVariant(QStringLiteral("")) << false;
        QTest::newRow("absent and null pointer") << QVariant() << QVariant::fromValue<QObject *>(nullptr) << true;
        QTest::newRow("absent and the null object") << QVariant() << ZelNull() << false;
        QTest::newRow("int and double") << QVariant(2) << QVariant(2.0) << true;
        QTest::newRow("enumeration and int") << QVariant::fromValue(Qt::AlignRight) << QVariant(2) << true;
        QTest::newRow("bool and int") << QVariant(true) << QVariant(1) << true;
        QTest::newRow("-1 and the largest unsigned") << QVariant(-1) << QVariant(~0ULL) << false;
        QTest::newRow("large integers differ") << QVariant((1LL << 60) + 1) << QVariant(1LL << 60) << false;
        QTest::newRow("text and number") << QVariant(QStringLiteral("2")) << QVariant(2) << false;
        QTest::newRow("same marker") << QVariant::fromValue(ZelMultipleValuesMarker)
                                     << QVariant::fromValue(ZelMultipleValuesMarker) << true;
        QTest::newRow("other marker") << QVariant::fromValue(ZelMultipleValuesMarker)
                                      << QVariant::fromValue(ZelNoSelectionMarker) << false;
        QTest::newRow("marker and number") << QVariant::fromValue(ZelMultipleValuesMarker) << QVariant(1) << false;
        QTest::newRow("pointers of different classes")
            << QVariant::fromValue<QObject *>(this) << QVariant::fromValue<tst_ZelValues *>(this) << true;
        QTest::newRow("invalid colour") << QVariant(QColor()) << QVariant() << true;
    }
    void equality()
    {
        QFETCH(QVariant, a);
        QFETCH(QVariant, b);
        QFETCH(bool, equal);
        QCOMPARE(ZelEqual(a, b), equal);
        QCOMPARE(ZelEqual(b, a), equal);
    }

    void listsOfAnyKind()
    {
        QCOMPARE(ZelList(QVariant::fromValue(QList<QObject *>{this})).value(0).value<QObject *>(), this);
        QCOMPARE(ZelList(QVariant(QStringList{QStringLiteral("a")})), QVariantList{QStringLiteral("a")});
        QVERIFY(!ZelIsList(QStringLiteral("text")));
        QVERIFY(!ZelIsList(QVariant(QByteArray("bytes"))));
    }

    void aReturningHandlerLetsTheCodeGoOn()
    {
        struct Handler : ZelAssertionHandler
        {
            QString seen;
            void handleFailure(const QString &location, const QString &message, const ZelSourcePlace &) override
            {
                seen = location + QLatin1Char('|') + message;
            }
        } handler;
        ZelAssertionHandler *former = ZelAssertionHandler::setCurrent(&handler);
        const bool answer = ZelRequire(false, "context != NULL", "/tmp/src/Observation/ZelObservations.cpp");
        ZelAssertionHandler::setCurrent(former);
        QVERIFY(!answer);
        QCOMPARE(handler.seen,
                 QStringLiteral("Observation/ZelObservations|Invalid parameter not satisfying: context != NULL"));
        QVERIFY_EXCEPTION_THROWN(ZelFail(QStringLiteral("x")), ZelInternalInconsistencyException);
        ZelReportFailure(QStringLiteral("met in a destructor")); // must not throw

        struct Thrower : ZelAssertionHandler
        {
            void handleFailure(const QString &, const QString &, const ZelSourcePlace &) override { throw 1; }
        } thrower;
        former = ZelAssertionHandler::setCurrent(&thrower);
        ZelReportFailure(QStringLiteral("met in a destructor")); // whatever it is that the handler throws
        ZelAssertionHandler::setCurrent(former);
    }

    void selectorsFindMethodsByName()
    {
        Target target;
        QVERIFY(ZelSelector("plain:").perform(&target));
        QVERIFY(ZelSelector("withSender:").perform(&target, &target));
        QCOMPARE(target.calls, QStringList({QStringLiteral("plain"), QStringLiteral("self")}));
        for (const char *unreachable : {"withNumber", "protectedSlot", "privateSlot", "deleteLater"}) {
            QTest::ignoreMessage(
                QtWarningMsg, QRegularExpression(QStringLiteral("^ERROR: .*\"%1\"").arg(QLatin1String(unreachable))));
            QVERIFY2(!ZelSelector(unreachable).perform(&target), unreachable);
        }
        QVERIFY(!ZelSelector().perform(&target));
    }
};

QTEST_MAIN(tst_ZelValues)
#include "tst_ZelValues.moc"
