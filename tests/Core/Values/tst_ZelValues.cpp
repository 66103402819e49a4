// SPDX-License-Identifier: MIT
#include "Core/Errors/ZelAssertions.h"
#include "Core/KeyValue/ZelSelector.h"
#include "Core/Values/ZelGeometryType.h"
#include "Core/Values/ZelIndexSet.h"
#include "Core/Values/ZelOrderedSet.h"
#include "Core/Values/ZelValues.h"
#include "Core/Values/private/ZelNumberScanner.h"
#include "Support/Random.h"
#include <QTest>
#include <QtWidgets>
#include <clocale>
#include <set>

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

    void aFailureIsReportedAndTheCodeGoesOn()
    {
        struct Thrower : ZelAssertionHandler
        {
            QString seen;
            void handleFailure(const QString &, const QString &message, const ZelSourcePlace &) override
            {
                seen = message;
                throw 1;
            }
        } thrower;
        ZelAssertionHandler *former = ZelAssertionHandler::setCurrent(&thrower);
        ZelReportFailure("met in a destructor"); // whatever it is that the handler throws
        QCOMPARE(ZelAssertionHandler::setCurrent(former), &thrower);
        QCOMPARE(thrower.seen, "met in a destructor");
        ZelReportFailure("met in a destructor"); // must not throw
    }

    void selectorsFindMethodsByName()
    {
        Target target;
        QVERIFY(ZelSelector("plain:").perform(&target));
        QVERIFY(ZelSelector("withSender:").perform(&target, &target));
        QCOMPARE(target.calls, QStringList({"plain", "self"}));
        QVERIFY(ZelSelector("plain").canPerform(&target) && !ZelSelector("withNumber").canPerform(&target));
        QVERIFY(!ZelSelector("plain").canPerform(nullptr) && !ZelSelector().canPerform(&target));
        for (const char *unreachable : {"withNumber", "withTwo", "privateSlot", "deleteLater", "emitted"}) {
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QString("^ERROR: .*\"%1\"").arg(unreachable)));
            QVERIFY2(!ZelSelector(unreachable).perform(&target), unreachable);
        }
        QVERIFY(!ZelSelector().perform(&target) && !ZelSelector("plain").perform(nullptr));
        QCOMPARE(target.calls.size(), 2);
    }

    void anIndexSetIsASetOfIntegers()
    {
        Random random(42);
        ZelIndexSet indexes;
        std::set<qsizetype> reference;
        for (int step = 0; step < 2000; ++step) {
            const ZelIndexSet::Range range{qsizetype(random.below(60)) - 5, qsizetype(random.below(8)) - 1};
            const quint32 change = random.below(5);
            if (change == 0)
                indexes.unite(ZelIndexSet::withRange(range.first, range.count));
            else
                change < 3 ? indexes.insert(range) : indexes.remove(range);
            for (qsizetype i = range.first; i < range.end(); ++i)
                change < 3 ? (void)reference.insert(i) : (void)reference.erase(i);
            std::vector<qsizetype> found, within;
            qsizetype ranges = 0;
            indexes.forEach([&](qsizetype i) {
                found.push_back(i);
                ranges += !reference.contains(i - 1);
            });
            indexes.within(20).forEach([&](qsizetype i) { within.push_back(i); });
            QCOMPARE(found, std::vector<qsizetype>(reference.begin(), reference.end()));
            QCOMPARE(within, std::vector<qsizetype>(reference.lower_bound(0), reference.lower_bound(20)));
            QCOMPARE(indexes.ranges().size(), ranges); // those that touch are one
            QCOMPARE(indexes.count(), qsizetype(reference.size()));
            QCOMPARE(indexes.first(), reference.empty() ? -1 : *reference.begin());
            QCOMPARE(indexes.last(), reference.empty() ? -1 : *reference.rbegin());
            for (qsizetype i = -7; i < 70; ++i)
                QCOMPARE(indexes.contains(i), reference.contains(i));
        }
        QCOMPARE(ZelIndexSet({3, 1, 2}), ZelIndexSet::withRange(1, 3));
        QVERIFY(ZelIndexSet().isEmpty() && ZelIndexSet().first() == -1 && ZelIndexSet().last() == -1);
    }

    /// Few values, so that most are there already, and some that are alike in their low bits.
    void anOrderedSetIsAListWithoutRepetitions()
    {
        for (unsigned seed = 1; seed <= 20; ++seed) {
            Random random(seed);
            ZelOrderedSet<int> set;
            QList<int> list;
            for (int step = 0; step < 400; ++step) {
                const int value = int(random.below(40)) * 1024;
                const qsizetype place = qsizetype(random.below(quint32(list.size()) + 1));
                const bool isNew = !list.contains(value);
                const ZelOrderedSet<int> copy = set;
                const QList<int> before = list;
                const quint32 kind = random.below(7);
                if (kind == 0) {
                    QCOMPARE(set.remove(value), !isNew);
                    list.removeOne(value);
                } else if (kind == 1) {
                    QCOMPARE(set.insert(place, value), isNew);
                    if (isNew)
                        list.insert(place, value);
                } else if (kind == 2 && place < list.size()) {
                    QCOMPARE(set.replace(place, value), isNew || list.at(place) == value);
                    if (isNew)
                        list[place] = value;
                } else if (kind == 3 && random.below(10) == 0) {
                    const auto isAbove = [value](int i) { return i > value; };
                    QCOMPARE(set.removeIf(isAbove), list.removeIf(isAbove));
                } else if (kind > 3) {
                    QCOMPARE(set.append(value), isNew);
                    if (isNew)
                        list.append(value);
                }
                QCOMPARE(set.values(), list);
                for (int i = 0; i < 40; ++i)
                    QCOMPARE(set.indexOf(i * 1024), list.indexOf(i * 1024));
                QVERIFY(copy.values() == before && (copy == set) == (before == list));
                QVERIFY(copy.isEmpty() || copy.indexOf(before.last()) == before.size() - 1);
            }
            QCOMPARE(ZelOrderedSet<int>(list + list).values(), list);
            QCOMPARE(ZelList(QVariant::fromValue(set)), QVariantList(list.begin(), list.end()));
        }
        ZelOrderedSet<int> many;
        for (int i = 0; i < 5000; ++i)
            QVERIFY(many.append(i * 1024) && many.indexOf(i * 1024) == i);
    }

    void anOrderedSetComparesVariantsAsValues()
    {
        QObject object;
        const QVariant pointer = QVariant::fromValue(&object), noPointer = QVariant::fromValue<QObject *>(nullptr);
        const ZelOrderedSet<QVariant> set{1, QVariant(), "1", ZelNull(), pointer};
        const std::pair<QVariant, int> rows[]{{1.0, 0}, {quint64(1), 0}, {true, 0},    {QString(), 1}, {noPointer, 1},
                                              {"1", 2}, {ZelNull(), 3},  {pointer, 4}, {2, -1}};
        for (const auto &[value, place] : rows)
            QCOMPARE(set.indexOf(value), place);
        QVERIFY(ZelIsList(QVariant::fromValue(set)));
        QCOMPARE(ZelList(QVariant::fromValue(set)).size(), 5);
        const QVariantList values{-0.0, QDate(2020, 2, 2), QByteArray("a"), QPointF(1, 2), QVariantList{1, 2}, 1e300};
        const ZelOrderedSet<QVariant> others(values);
        for (qsizetype i = 0; i < values.size(); ++i)
            QCOMPARE(others.indexOf(values.at(i)), i);
        QCOMPARE(others.indexOf(0), 0);
    }

    void numbersAreScanned()
    {
        std::setlocale(LC_ALL, "de_DE.UTF-8");
        QLocale::setDefault(QLocale(QLocale::German));
        constexpr qint64 most = std::numeric_limits<qint64>::max(), least = std::numeric_limits<qint64>::min();
        constexpr double largest = std::numeric_limits<double>::max();
        const auto check = [](auto scan, auto expected, const QStringList &texts) {
            for (const QString &text : texts)
                QVERIFY2(scan(text) == expected, qPrintable(text.left(20)));
        };
        const auto integer = [&](qint64 expected, auto... texts) {
            check(ZelNumberScanner::integer, expected, {texts...});
        };
        integer(0, "abc", "", "-", "- 5", "0x10", "\u0663\u0664"); // the last are digits of another script
        integer(12, "12abc", " +12", "12.9");
        integer(-42, "  -42");
        integer(most - 1, "9223372036854775806");
        integer(most, "9223372036854775807", "9223372036854775808", QString(35, u'9'));
        integer(least + 1, "-9223372036854775807");
        integer(least, "-9223372036854775808", "-9223372036854775809", QString('-' + QString(35, u'9')));
        const auto hexadecimal = [&](std::optional<quint64> expected, auto... texts) {
            check(ZelNumberScanner::hexadecimal, expected, {texts...});
        };
        hexadecimal({}, "0x", "zz", "-1", "");
        hexadecimal(0x1f, "0x1F", "0X1f", " 1fg3");
        hexadecimal(~1ull, "0xFFFFFFFFFFFFFFFE");
        hexadecimal(~0ull, "0xFFFFFFFFFFFFFFFF", "0x10000000000000000", "fffffffffffffffff0");
        const auto real = [&](double expected, auto... texts) { check(ZelNumberScanner::real, expected, {texts...}); };
        real(0, ".", "-", "", "nan", "inf", "0x10", "e5", "1e-400", "-.e1");
        real(1, "1,5", "1e", "1e+", "1.", "+1E0", "10e-1", ".1e1");
        real(0.5, " 0.5", ".5", "5e-1", "0.5.3");
        real(-125, "-1.25e2x", "-1.25E+2");
        real(largest, "1e999999999999999999", QString(1'000'000, u'9'));
        real(-largest, "-1e400");
        real(1.0 / 3.0, QString("0." + QString(1'000'000, u'3')));
        check(ZelNumberScanner::isInteger, true, {"12", " -5", "0x1F", " 0Xa", "+0"});
        check(ZelNumberScanner::isInteger, false, {"0x", "0xg", "1x", "1.0", "-", ""});
    }
};
QTEST_GUILESS_MAIN(tst_ZelValues)
#include "tst_ZelValues.moc"
