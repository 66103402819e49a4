// SPDX-License-Identifier: MIT
#include "Core/Values/ZelValues.h"

#include "Core/Errors/ZelAssertions.h"
#include "Core/KeyValue/ZelSelector.h"
#include "Core/Values/ZelGeometryType.h"
#include "Core/Values/ZelVariantHash.h"

#include <QColor>
#include <QRectF>
#include <QTest>
#include <QTime>
#include <QUrl>

class Target : public QObject
{
    Q_OBJECT
public:
    QStringList calls;
    Q_INVOKABLE void plain() { calls << "plain"; }
    Q_INVOKABLE void withSender(QObject *sender) { calls << (sender == this ? "self" : "?"); }
    Q_INVOKABLE void withNumber(int) { calls << "number"; }
    Q_INVOKABLE void withTwo(QObject *, QObject *) { calls << "two"; }

Q_SIGNALS:
    void emitted();
protected Q_SLOTS:
    void protectedSlot() { calls << "protected"; }

private Q_SLOTS:
    void privateSlot() { calls << "private"; }
};

class tst_ZelValues : public QObject
{
    Q_OBJECT
    QObject m_other;
private Q_SLOTS:
    /// Values of one group are equal, and have equal hashes; those of different groups are not.
    void equality()
    {
        const auto object = [](auto *pointer) { return QVariant::fromValue(pointer); };
        const auto marker = [](ZelControllerMarker marker) { return QVariant::fromValue(marker); };
        QList<QVariantList> groups{
            {QVariant(), QString(), object((QObject *)nullptr), object((Target *)nullptr), QVariant::fromValue(nullptr),
             QColor(), QDate(), QTime(), QDateTime()},
            {QString(""), ""},
            {QByteArray(), QByteArray("")},
            {ZelNull(), ZelNull()},
            {0, false, 0.0, -0.0, 0ULL},
            {1, true, 1.0f},
            {2, 2.0, QVariant::fromValue(Qt::AlignRight), QVariant::fromValue<short>(2), uchar(2)},
            {2.5f, 2.5},
            {-1, -1LL, -1.0},
            {~0ULL, QVariant::fromValue(~0UL)},
            {1LL << 60, 1ULL << 60},
            {object((QObject *)this), object(this)}};
        for (const QVariant &single : QVariantList{(1LL << 60) + 1, "2", QByteArray("2"), "a:b", QUrl("a:b"),
                                                   marker(ZelMultipleValuesMarker), marker(ZelNoSelectionMarker),
                                                   object(&m_other), QColor(Qt::red), QTime(1, 2), QDate(2020, 2, 2)})
            groups.append(QVariantList{single});
        groups += QList<QVariantList>{{QVariant(QVariantList{1})}, {QVariant(QVariantList{2})}};
        for (const QVariantList &group : std::as_const(groups)) {
            for (const QVariant &a : group) {
                QVERIFY2(ZelIsAbsent(a) == (&group == &groups.first()), qPrintable(ZelDescription(a)));
                QCOMPARE(ZelPresent(a).isValid(), !ZelIsAbsent(a));
                QCOMPARE(ZelIsNull(a), ZelIsAbsent(a) || &group == &groups.at(3));
                for (const QVariantList &other : std::as_const(groups)) {
                    for (const QVariant &b : other) {
                        const QString what = ZelDescription(a) + " and " + ZelDescription(b);
                        QVERIFY2(ZelEqual(a, b) == (&group == &other), qPrintable(what));
                        QVERIFY2(&group != &other || ZelVariantHash(a, 7) == ZelVariantHash(b, 7), qPrintable(what));
                    }
                }
            }
        }
    }

    void listsAndTexts()
    {
        QCOMPARE(ZelList(QVariant::fromValue(QList<QObject *>{this})).value(0).value<QObject *>(), this);
        QCOMPARE(ZelList(QStringList{"a"}), QVariantList{"a"});
        for (const QVariant &single : {QVariant(), QVariant("text"), QVariant(QByteArray("bytes")), QVariant(7)})
            QVERIFY(!ZelIsList(single) && ZelList(single).isEmpty());
        const QString address = "<tst_ZelValues: 0x" + QString::number(quintptr(this), 16) + '>';
        const QVariantList values{QVariant(), ZelNull(), 7, QVariant::fromValue<QObject *>(this), QRectF()};
        QStringList descriptions, classes;
        for (const QVariant &value : values) {
            descriptions += ZelDescription(value);
            classes += ZelClassName(value);
        }
        QCOMPARE(descriptions, QStringList({"(null)", "<ZelNull>", "7", address, "<QRectF>"}));
        QCOMPARE(classes, QStringList({"nil", "ZelNull", "int", "tst_ZelValues", "QRectF"}));
        QCOMPARE(ZelObjectDescription(nullptr), "(null)");
    }

    void geometryTakesAnyNumbers()
    {
        constexpr double huge = 1e300, none = std::numeric_limits<double>::quiet_NaN();
        constexpr int limit = 1 << 30;
        const std::pair<ZelGeometryType::Numbers, QVariant> rows[]{{{1.5, -1.5, 8, 9}, QPoint(2, -2)},
                                                                   {{huge, -huge}, QPoint(limit, -limit)},
                                                                   {{none, 7}, QPoint(0, 7)},
                                                                   {{huge, none}, QSize(limit, 0)},
                                                                   {{3.4, 4.5}, QSize(3, 5)},
                                                                   {{-huge, 1, none, huge}, QRect(-limit, 1, 0, limit)},
                                                                   {{1.5, 2.5}, QPointF(1.5, 2.5)},
                                                                   {{1.5, 2.5}, QSizeF(1.5, 2.5)},
                                                                   {{1, 2, 3.5, 4.5}, QRectF(1, 2, 3.5, 4.5)}};
        for (const auto &[numbers, value] : rows) {
            const ZelGeometryType *type = ZelGeometryType::find(value.metaType());
            QVariant stored(value.metaType());
            QVERIFY(!type->equal(stored.constData(), value.constData()));
            type->store(numbers, stored.data());
            QCOMPARE(stored, value);
            QVERIFY(type->equal(stored.constData(), value.constData()));
            QCOMPARE(type->count, value.canConvert<QRectF>() ? 4 : 2);
            ZelGeometryType::Numbers loaded;
            type->load(value.constData(), loaded);
            QVariant again(type->ofDoubles);
            ZelGeometryType::find(type->ofDoubles)->store(loaded, again.data());
            QCOMPARE(again.toRectF(), value.toRectF());
            QCOMPARE(again.toPointF(), value.toPointF());
            QCOMPARE(again.toSizeF(), value.toSizeF());
        }
        QVERIFY(!ZelGeometryType::find(QMetaType::fromType<int>()));
    }

    void aReturningHandlerLetsTheCodeGoOn()
    {
        struct Handler : ZelAssertionHandler
        {
            QString seen;
            bool throws = false;
            void handleFailure(const QString &location, const QString &message, const ZelSourcePlace &) override
            {
                seen = location + '|' + message;
                if (throws)
                    throw 1;
            }
        } handler;
        ZelAssertionHandler *former = ZelAssertionHandler::setCurrent(&handler);
        QVERIFY(ZelRequire(true, "met"));
        QCOMPARE(handler.seen, QString());
        const bool answer = ZelRequire(false, "context != NULL", "/tmp/src/Observation/ZelObservations.cpp");
        handler.throws = true;
        ZelReportFailure("met in a destructor"); // whatever it is that the handler throws
        QCOMPARE(ZelAssertionHandler::setCurrent(former), &handler);
        QVERIFY(!answer);
        QVERIFY2(handler.seen.endsWith("|met in a destructor"), qPrintable(handler.seen));
        ZelReportFailure("met in a destructor"); // must not throw
        try {
            ZelRequire(false, "context != NULL", "/tmp/src/Observation/ZelObservations.cpp");
            QFAIL("no exception");
        } catch (const ZelInternalInconsistencyException &exception) {
            QVERIFY2(exception.reason().contains("Invalid parameter not satisfying: context != NULL"),
                     exception.what());
        }
    }

    void selectorsFindMethodsByName()
    {
        Target target;
        QVERIFY(ZelSelector("plain:").perform(&target));
        QVERIFY(ZelSelector("withSender:").perform(&target, &target));
        QCOMPARE(target.calls, QStringList({"plain", "self"}));
        QVERIFY(ZelSelector("plain").canPerform(&target) && !ZelSelector("withNumber").canPerform(&target));
        QVERIFY(!ZelSelector("plain").canPerform(nullptr) && !ZelSelector().canPerform(&target));
        for (const char *unreachable :
             {"withNumber", "withTwo", "protectedSlot", "privateSlot", "deleteLater", "emitted"}) {
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QString("^ERROR: .*\"%1\"").arg(unreachable)));
            QVERIFY2(!ZelSelector(unreachable).perform(&target), unreachable);
        }
        QVERIFY(!ZelSelector().perform(&target) && !ZelSelector("plain").perform(nullptr));
        QCOMPARE(target.calls.size(), 2);
    }
};

QTEST_GUILESS_MAIN(tst_ZelValues)
#include "tst_ZelValues.moc"
