// SPDX-License-Identifier: MIT
#pragma once

#include "Core/KeyValue/ZelKeyPath.h"
#include "Core/Values/ZelGeometryType.h"
#include "Core/ZelExport.h"

#include <QHash>
#include <QList>
#include <QPointer>
#include <QVariant>

#include <functional>
#include <optional>
#include <vector>

class ZelPropertyAccessor;

/// The different values that many objects have at a key path, and how many objects have each.
///
/// A summary is made in one pass over the objects when somebody asks, and is not kept up to date. Values count as the
/// same if they are ZelEqual; an empty text counts as no value. Numbers are read through memory and counted without a
/// QVariant for each object.
class ZEL_EXPORT ZelValueSummary
{
public:
    struct Entry
    {
        QVariant value; ///< absent for the objects without a value
        qsizetype count = 0;
    };
    struct Range
    {
        double least = 0;
        double greatest = 0;
    };
    using Objects = QList<QPointer<QObject>>;
    using Map = std::function<QVariant(const QVariant &)>;
    /// Makes one number of those of which a point, a size or a rectangle consists.
    using Part = std::function<double(const ZelGeometryType::Numbers &)>;
    using Hash = size_t (*)(const QVariant &);

    /// Objects that have died are passed over. Empty if an object lacks the key. What a getter throws is thrown on.
    static ZelValueSummary ofKeyPath(const Objects &objects, const ZelKeyPath &path);
    /// The same of one part of values that consist of `count` numbers; for any other value, of no value.
    static ZelValueSummary ofParts(const Objects &objects, const ZelKeyPath &path, int count, const Part &part);
    /// The summary of what the function makes of the values. It is called once for each different value.
    ZelValueSummary mapped(const Map &map) const;

    void add(const QVariant &value, qsizetype count = 1);

    qsizetype objectCount() const { return m_objectCount; }
    qsizetype differentCount() const { return qsizetype(m_numberCount + m_others.size()); }
    /// Whether there are more different values than differentCount() says. Values of a type that has no hash are not
    /// counted on when there are very many of them.
    bool isCut() const { return m_isCut; }
    /// At most so many values: those that most objects have come first, equally frequent ones in their own order.
    QList<Entry> first(qsizetype count) const;
    /// How many objects have the value.
    qsizetype countOf(const QVariant &value) const;
    /// The least and the greatest value if all present ones are numbers, NaN apart; else nothing.
    std::optional<Range> range() const;

    /// Lets values of an application's own type be counted quickly. Equal values must have equal hashes.
    static void registerHash(QMetaType type, Hash hash);

private:
    struct Number
    {
        double value = 0;
        qsizetype count = 0; // 0 in a free place of the table
    };

    template<typename Type> static bool addRead(ZelValueSummary &, const ZelPropertyAccessor &, const QObject *);
    using AddRead = bool (*)(ZelValueSummary &, const ZelPropertyAccessor &, const QObject *);
    static AddRead addReadFor(QMetaType type);
    bool read(const Objects &objects, const ZelKeyPath &path,
              const std::function<AddRead(const ZelPropertyAccessor &)> &reader, const Map &map);
    void addNumber(double number, qsizetype count = 1);
    bool addNumberVariant(const QVariant &value, qsizetype count);
    void addText(const QString &text, qsizetype count);
    void addOther(const QVariant &value, qsizetype count);
    template<typename IsEqual, typename Make>
    void addAt(size_t hash, qsizetype count, const IsEqual &isEqual, const Make &make);
    Number &placeOf(double number);
    const Number *findNumber(double number) const;
    void growTable();
    void noteNumberType(QMetaType type);
    QVariant numberVariant(double number) const;

    std::vector<Number> m_table; // of the numbers, by their hashes; its size is a power of two
    size_t m_numberCount = 0;
    size_t m_lastPlace = 0; // in the table, of the number that was added last
    QMetaType m_numberType; // of all numbers; invalid if they are of several types
    std::vector<Entry> m_others;
    QMultiHash<size_t, size_t> m_otherPlaces; // by hash
    size_t m_lastOther = 0;
    qsizetype m_objectCount = 0;
    qsizetype m_unhashedCount = 0;
    bool m_isCut = false;
};
