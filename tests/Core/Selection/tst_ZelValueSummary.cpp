// SPDX-License-Identifier: MIT
#include "Core/Selection/ZelValueSummary.h"
#include "Core/Values/ZelValues.h"
#include "Support/Person.h"
#include "Support/Random.h"
#include <QTest>
#include <cmath>
#include <limits>

/// Has a key in common with people, as a number of another type.
class Pole : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int height MEMBER height)
    Q_PROPERTY(qlonglong big MEMBER big)
    Q_PROPERTY(QVariant any MEMBER any)
public:
    int height = 0;
    qlonglong big = 0;
    QVariant any;
};

namespace {
/// A value of a type that nobody can hash.
struct Opaque
{
    int number = 0;
    bool operator==(const Opaque &other) const { return number == other.number; }
};

QString told(const ZelValueSummary &summary, qsizetype count = 9)
{
    QStringList texts;
    for (const ZelValueSummary::Entry &entry : summary.first(count))
        texts.append((entry.value.isValid() ? entry.value.toString() : "none") + u'*' + QString::number(entry.count));
    return texts.join(u' ');
}

ZelValueSummary summaryOf(const QVariantList &values)
{
    ZelValueSummary summary;
    for (const QVariant &value : values)
        summary.add(value);
    return summary;
}
} // namespace

class tst_ZelValueSummary : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    /// As many values as make the table grow, against counting by hand; also in the order of the values.
    void countsAsByHand()
    {
        for (unsigned seed = 0; seed < 12; ++seed) {
            Random random(seed);
            const int kinds = 1 << seed;
            std::vector<std::unique_ptr<QObject>> models;
            ZelValueSummary::Objects objects;
            QMap<double, qsizetype> counts;
            for (int i = 0; i < 3000; ++i) {
                const int kind = random.below(kinds);
                const bool isPole = i % 5 == 4;
                const double height = isPole ? kind : kind * 0.5;
                auto *person = isPole ? nullptr : new Person;
                auto *pole = isPole ? new Pole : nullptr;
                isPole ? void(pole->height = kind) : person->setHeight(height);
                models.emplace_back(isPole ? static_cast<QObject *>(pole) : person);
                objects.append(models.back().get());
                ++counts[height];
            }
            const auto summary = ZelValueSummary::ofKeyPath(objects, ZelKeyPath("height"));
            QCOMPARE(summary.objectCount(), 3000);
            QCOMPARE(summary.differentCount(), counts.size());
            QCOMPARE(summary.range()->least, counts.firstKey());
            QCOMPARE(summary.range()->greatest, counts.lastKey());
            for (auto count = counts.cbegin(); count != counts.cend(); ++count)
                QCOMPARE(summary.countOf(count.key()), count.value());
            QCOMPARE(summary.countOf(-1), 0);
            const auto first = summary.first(4);
            QCOMPARE(first.size(), std::min<qsizetype>(4, counts.size()));
            for (const auto &entry : first) {
                QCOMPARE(counts.take(entry.value.toDouble()), entry.count);
                for (auto count = counts.cbegin(); count != counts.cend(); ++count)
                    QVERIFY(std::find_if(first.begin(), first.end(),
                                         [&](const auto &e) { return e.value.toDouble() == count.key(); }) !=
                                first.end() ||
                            count.value() < entry.count ||
                            (count.value() == entry.count && count.key() > entry.value.toDouble()));
            }
        }
    }

    void whatIsTheSameValue()
    {
        const double nan = std::numeric_limits<double>::quiet_NaN();
        const struct
        {
            QVariantList values;
            const char *told;
        } rows[] = {
            {{1, 1.0, 1.0F, true, quint64(1)}, "1*5"},
            {{0.0, -0.0, 0}, "0*3"},
            {{nan, 2.0, -nan, nan}, "nan*3 2*1"},
            {{QString(), "", QVariant(), ZelNull(), "a"}, "none*4 a*1"},
            {{"b", "B", "a", "b"}, "b*2 B*1 a*1"},
            {{(1LL << 53) + 1, 1LL << 53, (1LL << 53) + 1}, "9007199254740993*2 9007199254740992*1"},
            {{"1", 1}, "1*1 1*1"},
            {{QDate(2024, 2, 1), QDate(2024, 1, 2), QDate(2024, 1, 2)}, "2024-01-02*2 2024-02-01*1"},
            {{QVariant::fromValue(Person::Admin), 2, 0}, "2*2 0*1"},
        };
        for (const auto &row : rows)
            QCOMPARE(told(summaryOf(row.values)), row.told);
        // The type stays as long as there is only one.
        QCOMPARE(summaryOf({QVariant::fromValue(Person::Admin)}).first(1).at(0).value,
                 QVariant::fromValue(Person::Admin));
        QCOMPARE(summaryOf({true, false}).first(1).at(0).value.metaType(), QMetaType::fromType<bool>());
    }

    void rangesAreThoseOfNumbers()
    {
        const double nan = std::numeric_limits<double>::quiet_NaN();
        QVERIFY(!summaryOf({1, "a"}).range());
        QVERIFY(!summaryOf({QVariant(), nan}).range());
        const auto range = summaryOf({nan, 3, QVariant(), -2.5}).range();
        QVERIFY(range && range->least == -2.5 && range->greatest == 3);
    }

    void objectsMayDieOrLackTheKey()
    {
        Person person;
        ZelValueSummary::Objects objects{&person};
        {
            Person dying;
            objects.append(&dying);
        }
        QCOMPARE(ZelValueSummary::ofKeyPath(objects, ZelKeyPath("height")).objectCount(), 1);
        Pole pole;
        pole.any = "x";
        pole.big = (1LL << 60) + 1;
        QCOMPARE(told(ZelValueSummary::ofKeyPath({&pole}, ZelKeyPath("big"))), "1152921504606846977*1");
        QCOMPARE(told(ZelValueSummary::ofKeyPath({&pole}, ZelKeyPath("any"))), "x*1");
        objects.append(&pole);
        QCOMPARE(ZelValueSummary::ofKeyPath(objects, ZelKeyPath("name")).objectCount(), 0);
        person.setFriendOf(&person);
        QCOMPARE(told(ZelValueSummary::ofKeyPath({&person}, ZelKeyPath("friendOf.height"))), "0*1");
    }

    void mappingMerges()
    {
        const auto odd = [](const QVariant &value) { return QVariant(value.toInt() % 2); };
        QCOMPARE(told(summaryOf({1, 2, 3, 3, "5"}).mapped(odd)), "1*4 0*1");
    }

    void partsOfPoints()
    {
        Person a;
        Person b;
        a.setFrame({1, 2, 3, 4});
        b.setFrame({5, 2, 3, 4});
        const auto part = [](size_t index) {
            return [index](const ZelGeometryType::Numbers &numbers) { return numbers[index]; };
        };
        QCOMPARE(told(ZelValueSummary::ofParts({&a, &b}, ZelKeyPath("frame"), 4, part(0))), "1*1 5*1");
        QCOMPARE(told(ZelValueSummary::ofParts({&a, &b}, ZelKeyPath("frame"), 4, part(1))), "2*2");
        QCOMPARE(told(ZelValueSummary::ofParts({&a, &b}, ZelKeyPath("frame"), 2, part(1))), "none*2");
    }

    /// Otherwise a tool tip could take minutes.
    void valuesWithoutHashAreNotCountedForEver()
    {
        ZelValueSummary summary;
        for (int i = 0; i < 1000; ++i)
            summary.add(QVariant::fromValue(Opaque{i}));
        summary.add(QVariant::fromValue(Opaque{7}));
        QVERIFY(summary.isCut());
        QCOMPARE(summary.objectCount(), 1001);
        QVERIFY(summary.differentCount() >= 50 && summary.differentCount() < 1000);
        QCOMPARE(summary.countOf(QVariant::fromValue(Opaque{7})), 2);
    }
};
Q_DECLARE_METATYPE(Opaque)

QTEST_MAIN(tst_ZelValueSummary)
#include "tst_ZelValueSummary.moc"
