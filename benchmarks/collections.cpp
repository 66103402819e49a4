// SPDX-License-Identifier: MIT
#include "Bench.h"

#include "Blocks/ZelBlocks.h"

#include <QtConcurrentMap>

namespace {

constexpr double Goal = 1.1;

QList<double> numbers(int count)
{
    QList<double> list;
    for (int i = 0; i < count; ++i)
        list.append((i * 7919) % 1000 * 0.25);
    return list;
}

bool isBig(double v)
{
    return v > 100;
}

/// Both sides compute a value, which must be the same.
template<typename Ours, typename Reference>
void compareValues(const char *name, const Ours &ours, const Reference &reference, const Bench::Options &options = {})
{
    Bench::expect(ours() == reference(), name);
    Bench::compare(
        QString::fromLatin1(name), Goal, [&] { Bench::keep(ours()); }, [&] { Bench::keep(reference()); }, options);
}

/// Both sides change a collection, each round beginning with a copy of its own.
template<typename Collection, typename Ours, typename Reference>
void compareChanges(const char *name, const Collection &original, const Ours &ours, const Reference &reference,
                    double goal = Goal)
{
    Collection a = original;
    Collection b = original;
    ours(a);
    reference(b);
    Bench::expect(a == b, name);
    Collection changed;
    const auto before = [&] {
        changed = original;
        changed.detach();
    };
    Bench::compare(QString::fromLatin1(name), goal, Bench::Work(before, [&] { ours(changed); }),
                   Bench::Work(before, [&] { reference(changed); }));
}

} // namespace

static void readLists()
{
    const QList<double> list = numbers(100000);
    const QList<double> other = numbers(100000);
    const auto isNegative = [](double v) { return v < 0; };
    const auto isShort = [](double v) { return !isBig(v); };
    const auto square = [](double v) { return v * v; };
    compareValues(
        "list: each",
        [&] {
            double sum = 0;
            ZelBlocks(list).each([&](double v) { sum += v; });
            return sum;
        },
        [&] {
            double sum = 0;
            for (double v : list)
                sum += v;
            return sum;
        },
        Bench::small);
    compareValues(
        "list: reduce", [&] { return ZelBlocks(list).reduce(0.0, std::plus<double>()); },
        [&] {
            double sum = 0;
            for (double v : list)
                sum = sum + v;
            return sum;
        },
        Bench::small);
    QStringList texts; // a loop over numbers is so short that its place in memory decides
    for (double v : list)
        texts.append(QString::number(v));
    const auto isSought = [](const QString &text) { return text == QLatin1String("400.5"); };
    compareValues(
        "list: match nothing", [&] { return ZelBlocks(texts).match(isSought); },
        [&]() -> std::optional<QString> {
            for (const QString &text : texts) {
                if (isSought(text))
                    return text;
            }
            return {};
        },
        Bench::small);
    compareValues(
        "list: all", [&] { return ZelBlocks(list).none(isNegative); },
        [&] {
            for (double v : list) {
                if (isNegative(v))
                    return false;
            }
            return true;
        },
        Bench::small);
    compareValues(
        "list: corresponds", [&] { return ZelBlocks(list).corresponds(other, std::equal_to<double>()); },
        [&] {
            for (qsizetype i = 0; i < list.size(); ++i) {
                if (i >= other.size() || list.at(i) != other.at(i))
                    return false;
            }
            return !list.isEmpty();
        },
        Bench::small);
    compareValues(
        "list: reject", [&] { return ZelBlocks(list).reject(isShort); },
        [&] {
            QList<double> selected;
            for (double v : list) {
                if (!isShort(v))
                    selected.append(v);
            }
            return selected;
        });
    compareValues(
        "list: map", [&] { return ZelBlocks(list).map(square); },
        [&] {
            QList<double> mapped;
            mapped.reserve(list.size());
            for (double v : list)
                mapped.append(square(v));
            return mapped;
        });
}
ZEL_BENCHMARK(readLists)

static void mapValues()
{
    QVariantList list;
    for (int i = 0; i < 10000; ++i)
        list.append(i % 10 == 0 ? QVariant() : i % 2 ? QVariant(i) : QVariant(QString::number(i)));
    const auto plainNumber = [](const QVariant &v) { return ZelIsNumber(v) ? v : QVariant(); };
    compareValues(
        "list of values: map", [&] { return ZelBlocks(list).map(plainNumber); },
        [&] {
            QVariantList mapped;
            mapped.reserve(list.size());
            for (const QVariant &v : list) {
                const QVariant result = plainNumber(v);
                mapped.append(ZelIsAbsent(result) ? ZelNull() : result);
            }
            return mapped;
        });
}
ZEL_BENCHMARK(mapValues)

static void changeLists()
{
    compareChanges(
        "list: performSelect", numbers(100000), [](QList<double> &list) { ZelBlocks(list).performSelect(isBig); },
        [](QList<double> &list) {
            QList<double> selected;
            for (double v : std::as_const(list)) {
                if (isBig(v))
                    selected.append(v);
            }
            list = selected;
        });
    compareChanges(
        "list: performSelect against removeIf", numbers(100000),
        [](QList<double> &list) { ZelBlocks(list).performSelect(isBig); },
        [](QList<double> &list) { list.removeIf([](double v) { return !isBig(v); }); }, 0);
    const auto rounded = [](double v) { return double(qint64(v)); };
    compareChanges(
        "list: performMap", numbers(100000), [=](QList<double> &list) { ZelBlocks(list).performMap(rounded); },
        [=](QList<double> &list) {
            QList<double> changed = list;
            for (double &v : changed) {
                if (const double mapped = rounded(v); mapped != v)
                    v = mapped;
            }
            list = changed;
        });
}
ZEL_BENCHMARK(changeLists)

static void applyToLists()
{
    QList<int> list(2000, 1);
    const auto work = [](int i) {
        double v = i;
        for (int k = 0; k < 200; ++k)
            v = v * 1.0001 + 1;
        Bench::keep(v);
    };
    Bench::compare(
        QStringLiteral("list: apply"), Goal, [&] { ZelBlocks(list).apply(work); },
        [&] { QtConcurrent::blockingMap(list.cbegin(), list.cend(), work); }, Bench::small);
}
ZEL_BENCHMARK(applyToLists)

static void sets()
{
    QSet<int> set;
    for (int i = 0; i < 10000; ++i)
        set.insert(i * 31);
    const auto isOdd = [](int i) { return i % 2 == 1; };
    const auto half = [](int i) { return i / 2; };
    compareValues(
        "set: select", [&] { return ZelBlocks(set).select(isOdd); },
        [&] {
            QSet<int> selected;
            for (int i : set) {
                if (isOdd(i))
                    selected.insert(i);
            }
            return selected;
        });
    compareValues(
        "set: map", [&] { return ZelBlocks(set).map(half); },
        [&] {
            QSet<int> mapped;
            mapped.reserve(set.size());
            for (int i : set)
                mapped.insert(half(i));
            return mapped;
        });
    const auto inTens = [](int i) { return i / 31 % 10 == 0; };
    compareChanges(
        "set: performReject", set, [=](QSet<int> &s) { ZelBlocks(s).performReject(inTens); },
        [=](QSet<int> &s) {
            for (auto element = s.begin(); element != s.end();)
                element = inTens(*element) ? s.erase(element) : std::next(element);
        });
    const ZelOrderedSet<int> ordered(set.values());
    compareValues(
        "ordered set: map", [&] { return ZelBlocks(ordered).map(half); },
        [&] {
            ZelOrderedSet<int> mapped;
            mapped.reserve(ordered.size());
            for (int i : ordered)
                mapped.append(half(i));
            return mapped;
        });
}
ZEL_BENCHMARK(sets)

static void dictionaries()
{
    using Hash = QHash<int, QString>;
    Hash hash;
    for (int i = 0; i < 10000; ++i)
        hash.insert(i, QString::number(i % 100));
    const auto isShort = [](int, const QString &text) { return text.size() < 2; };
    const auto longer = [](int key, const QString &text) { return key % 2 ? text : QString(text + u'!'); };
    compareValues(
        "hash: select", [&] { return ZelBlocks(hash).reject(isShort); },
        [&] {
            Hash selected;
            for (auto entry = hash.cbegin(); entry != hash.cend(); ++entry) {
                if (!isShort(entry.key(), entry.value()))
                    selected.insert(entry.key(), entry.value());
            }
            return selected;
        });
    compareValues(
        "hash: map", [&] { return ZelBlocks(hash).map(longer); },
        [&] {
            Hash mapped;
            mapped.reserve(hash.size());
            for (auto entry = hash.cbegin(); entry != hash.cend(); ++entry)
                mapped.insert(entry.key(), longer(entry.key(), entry.value()));
            return mapped;
        });
    compareChanges(
        "hash: performReject", hash, [=](Hash &h) { ZelBlocks(h).performReject(isShort); },
        [=](Hash &h) {
            for (auto entry = h.begin(); entry != h.end();)
                entry = isShort(entry.key(), entry.value()) ? h.erase(entry) : std::next(entry);
        });
    QHash<QString, int> byText;
    for (int i = 0; i < 10000; ++i)
        byText.insert(QString::number(i * 7919), i);
    const auto inFifties = [](const QString &, int value) { return value % 50 == 0; };
    // The loop asks and erases on one way through, the operation only when all have been asked: what is not at hand any
    // more then, such as texts or the nodes of a tree, is looked for twice.
    compareChanges(
        "hash of texts: performReject", byText, [=](auto &h) { ZelBlocks(h).performReject(inFifties); },
        [=](auto &h) {
            for (auto entry = h.begin(); entry != h.end();)
                entry = inFifties(entry.key(), entry.value()) ? h.erase(entry) : std::next(entry);
        },
        0);
    QMap<int, QString> map;
    for (auto entry = hash.cbegin(); entry != hash.cend(); ++entry)
        map.insert(entry.key(), entry.value());
    compareChanges(
        "map: performReject", map, [=](auto &m) { ZelBlocks(m).performReject(isShort); },
        [=](auto &m) {
            for (auto entry = m.begin(); entry != m.end();)
                entry = isShort(entry.key(), entry.value()) ? m.erase(entry) : std::next(entry);
        },
        0);
    compareValues(
        "hash: all", [&] { return ZelBlocks(hash).none([](int key, const QString &) { return key < 0; }); },
        [&] {
            for (auto entry = hash.cbegin(); entry != hash.cend(); ++entry) {
                if (entry.key() < 0)
                    return false;
            }
            return true;
        },
        Bench::small);
    compareChanges(
        "hash: performMap", hash, [=](Hash &h) { ZelBlocks(h).performMap(longer); },
        [=](Hash &h) {
            Hash changed = h;
            for (auto entry = changed.begin(); entry != changed.end(); ++entry) {
                const QString mapped = longer(entry.key(), entry.value());
                if (mapped != entry.value())
                    entry.value() = mapped;
            }
            h = changed;
        });
}
ZEL_BENCHMARK(dictionaries)

static void indexSets()
{
    const ZelIndexSet set = ZelIndexSet::withRange(0, 1000000);
    const auto inThousands = [](qsizetype i) { return i / 1000 % 2 == 0; };
    compareValues(
        "index set: reduce", [&] { return ZelBlocks(set).reduce(qsizetype(0), std::bit_xor<qsizetype>()); },
        [&] {
            qsizetype value = 0;
            set.forEach([&](qsizetype i) { value ^= i; });
            return value;
        },
        Bench::small);
    compareValues(
        "index set: select", [&] { return *ZelBlocks(set).select(inThousands); },
        [&] {
            ZelIndexSet selected;
            set.forEach([&](qsizetype i) {
                if (inThousands(i))
                    selected.insert(i);
            });
            return selected;
        });
    compareValues(
        "index set: map", [&] { return *ZelBlocks(set).map([](qsizetype i) { return i + i / 1000; }); },
        [&] {
            ZelIndexSet mapped;
            set.forEach([&](qsizetype i) { mapped.insert(i + i / 1000); });
            return mapped;
        });
}
ZEL_BENCHMARK(indexSets)
