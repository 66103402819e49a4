// SPDX-License-Identifier: MIT
#include "Core/Values/ZelIndexSet.h"
#include "Core/Values/ZelOrderedSet.h"
#include "Core/Values/private/ZelNumberScanner.h"
#include "Support/Random.h"

#include <QDate>
#include <QLocale>
#include <QTest>
#include <clocale>
#include <limits>
#include <set>

class tst_SetsAndScanner : public QObject
{
    Q_OBJECT
private Q_SLOTS:
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
                switch (random.below(7)) {
                case 0:
                    QCOMPARE(set.remove(value), !isNew);
                    list.removeOne(value);
                    break;
                case 1:
                    QCOMPARE(set.insert(place, value), isNew);
                    if (isNew)
                        list.insert(place, value);
                    break;
                case 2:
                    if (place == list.size())
                        break;
                    QCOMPARE(set.replace(place, value), isNew || list.at(place) == value);
                    if (isNew)
                        list[place] = value;
                    break;
                case 3:
                    if (random.below(10) == 0)
                        QCOMPARE(set.removeIf([&](int i) { return i > value; }),
                                 list.removeIf([&](int i) { return i > value; }));
                    break;
                default:
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
        const auto integer = [](qint64 expected, const QStringList &texts) {
            for (const QString &text : texts)
                QVERIFY2(ZelNumberScanner::integer(text) == expected, qPrintable(text));
        };
        integer(0, {"abc", "", "-", "- 5", "0x10", "\u0663\u0664"}); // the last are digits of another script
        integer(12, {"12abc", " +12", "12.9"});
        integer(-42, {"  -42"});
        integer(most - 1, {"9223372036854775806"});
        integer(most, {"9223372036854775807", "9223372036854775808", QString(35, u'9')});
        integer(least + 1, {"-9223372036854775807"});
        integer(least, {"-9223372036854775808", "-9223372036854775809", '-' + QString(35, u'9')});
        const auto hexadecimal = [](std::optional<quint64> expected, const QStringList &texts) {
            for (const QString &text : texts)
                QVERIFY2(ZelNumberScanner::hexadecimal(text) == expected, qPrintable(text));
        };
        hexadecimal({}, {"0x", "zz", "-1", ""});
        hexadecimal(0x1f, {"0x1F", "0X1f", " 1fg3"});
        hexadecimal(~1ull, {"0xFFFFFFFFFFFFFFFE"});
        hexadecimal(~0ull, {"0xFFFFFFFFFFFFFFFF", "0x10000000000000000", "fffffffffffffffff0"});
        const auto real = [](double expected, const QStringList &texts) {
            for (const QString &text : texts)
                QVERIFY2(ZelNumberScanner::real(text) == expected, qPrintable(text.left(20)));
        };
        real(0, {".", "-", "", "nan", "inf", "0x10", "e5", "1e-400", "-.e1"});
        real(1, {"1,5", "1e", "1e+", "1.", "+1E0", "10e-1", ".1e1"});
        real(0.5, {" 0.5", ".5", "5e-1", "0.5.3"});
        real(-125, {"-1.25e2x", "-1.25E+2"});
        real(largest, {"1e999999999999999999", QString(1'000'000, u'9')});
        real(-largest, {"-1e400"});
        real(1.0 / 3.0, {"0." + QString(1'000'000, u'3')});
        for (const char *text : {"12", " -5", "0x1F", " 0Xa", "+0"})
            QVERIFY2(ZelNumberScanner::isInteger(QString(text)), text);
        for (const char *text : {"0x", "0xg", "1x", "1.0", "-", ""})
            QVERIFY2(!ZelNumberScanner::isInteger(QString(text)), text);
    }
};

QTEST_GUILESS_MAIN(tst_SetsAndScanner)
#include "tst_SetsAndScanner.moc"
