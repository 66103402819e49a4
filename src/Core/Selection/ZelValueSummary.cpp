// SPDX-License-Identifier: MIT
#include "Core/Selection/ZelValueSummary.h"

#include "Core/KeyValue/private/ZelClassAccessors.h"
#include "Core/Values/ZelValues.h"

#include <QColor>
#include <QDateTime>
#include <QFont>
#include <QUrl>

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>

namespace {

constexpr size_t g_firstTableSize = 64;
constexpr qsizetype g_mostUnhashed = 100; // each is compared with each other one

/// The same bits for numbers that are equal, and for all NaNs.
quint64 bitsOf(double number)
{
    const double plain = std::isnan(number) ? std::numeric_limits<double>::quiet_NaN() : number + 0.0;
    return std::bit_cast<quint64>(plain);
}

size_t placeOfBits(quint64 bits, size_t tableSize)
{
    constexpr quint64 golden = 0x9E3779B97F4A7C15;
    return size_t(((bits ^ (bits >> 32)) * golden) >> (64 - std::countr_zero(tableSize)));
}

bool isInteger(QMetaType type)
{
    return type.id() != QMetaType::Double && type.id() != QMetaType::Float;
}

/// Whether a double holds the integer as it is.
template<typename Integer> bool fitsDouble(Integer number)
{
    constexpr Integer limit = Integer(1) << 53;
    if constexpr (std::is_signed_v<Integer>)
        return number <= limit && number >= -limit;
    else
        return number <= limit;
}

QHash<int, ZelValueSummary::Hash> &registeredHashes()
{
    static QHash<int, ZelValueSummary::Hash> hashes;
    return hashes;
}

template<typename Type> size_t hashOf(const QVariant &value)
{
    return qHash(value.value<Type>());
}

size_t hashOfGeometry(const QVariant &value)
{
    ZelGeometryType::Numbers numbers{};
    ZelGeometryType::find(value.metaType())->load(value.constData(), numbers);
    return qHashRange(numbers.begin(), numbers.end());
}

ZelValueSummary::Hash hashFor(QMetaType type)
{
    switch (type.id()) {
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
        return [](const QVariant &value) { return qHash(value.toULongLong()); };
    case QMetaType::QColor:
        return [](const QVariant &value) { return qHash(quint64(value.value<QColor>().rgba64())); };
    case QMetaType::QDate:
        return hashOf<QDate>;
    case QMetaType::QTime:
        return hashOf<QTime>;
    case QMetaType::QDateTime:
        return hashOf<QDateTime>;
    case QMetaType::QFont:
        return hashOf<QFont>;
    case QMetaType::QUrl:
        return hashOf<QUrl>;
    case QMetaType::QByteArray:
        return hashOf<QByteArray>;
    case QMetaType::QStringList:
        return hashOf<QStringList>;
    default:
        return ZelGeometryType::find(type) ? &hashOfGeometry : registeredHashes().value(type.id());
    }
}

/// Whether the value comes first in the order of its type. Values without an order come in any.
bool isLess(const QVariant &a, const QVariant &b)
{
    const bool isNullA = ZelIsNull(a);
    if (isNullA || ZelIsNull(b))
        return isNullA && !ZelIsNull(b);
    if (ZelIsNumber(a) != ZelIsNumber(b))
        return ZelIsNumber(a);
    if (a.typeId() == QMetaType::QString && b.typeId() == QMetaType::QString)
        return a.toString().localeAwareCompare(b.toString()) < 0;
    return QVariant::compare(a, b) == QPartialOrdering::Less;
}

} // namespace

void ZelValueSummary::registerHash(QMetaType type, Hash hash)
{
    registeredHashes().insert(type.id(), hash);
}

// Numbers

template<typename Type>
bool ZelValueSummary::addRead(ZelValueSummary &summary, const ZelPropertyAccessor &accessor, const QObject *object)
{
    Type value{};
    if (!accessor.readTyped(object, &value))
        return false;
    if constexpr (std::is_same_v<Type, QString>) {
        summary.addText(value, 1);
    } else {
        if constexpr (std::is_same_v<Type, qlonglong> || std::is_same_v<Type, qulonglong>) {
            if (!fitsDouble(value))
                return false;
        }
        summary.addNumber(double(value));
    }
    return true;
}

ZelValueSummary::AddRead ZelValueSummary::addReadFor(QMetaType type)
{
    switch (type.id()) {
    case QMetaType::Double:
        return &addRead<double>;
    case QMetaType::Float:
        return &addRead<float>;
    case QMetaType::Int:
        return &addRead<int>;
    case QMetaType::UInt:
        return &addRead<uint>;
    case QMetaType::LongLong:
        return &addRead<qlonglong>;
    case QMetaType::ULongLong:
        return &addRead<qulonglong>;
    case QMetaType::Bool:
        return &addRead<bool>;
    case QMetaType::QString:
        return &addRead<QString>;
    default:
        return nullptr;
    }
}

ZelValueSummary::Number &ZelValueSummary::placeOf(double number)
{
    const quint64 bits = bitsOf(number);
    const size_t mask = m_table.size() - 1;
    size_t place = placeOfBits(bits, m_table.size());
    while (m_table[place].count > 0 && bitsOf(m_table[place].value) != bits)
        place = (place + 1) & mask;
    m_lastPlace = place;
    return m_table[place];
}

const ZelValueSummary::Number *ZelValueSummary::findNumber(double number) const
{
    if (m_table.empty())
        return nullptr;
    const quint64 bits = bitsOf(number);
    size_t place = placeOfBits(bits, m_table.size());
    while (m_table[place].count > 0 && bitsOf(m_table[place].value) != bits)
        place = (place + 1) & (m_table.size() - 1);
    return &m_table[place];
}

void ZelValueSummary::growTable()
{
    std::vector<Number> former(std::max(g_firstTableSize, m_table.size() * 4));
    former.swap(m_table);
    for (const Number &number : former) {
        if (number.count > 0)
            placeOf(number.value) = number;
    }
}

inline void ZelValueSummary::addNumber(double number, qsizetype count)
{
    m_objectCount += count;
    if (m_numberCount > 0 && m_table[m_lastPlace].value == number) { // as it often is
        m_table[m_lastPlace].count += count;
        return;
    }
    if (m_numberCount * 2 >= m_table.size())
        growTable();
    Number &known = placeOf(number);
    if (known.count == 0) {
        known.value = number + 0.0; // without the sign of zero
        ++m_numberCount;
    }
    known.count += count;
}

void ZelValueSummary::noteNumberType(QMetaType type)
{
    if (m_numberCount == 0)
        m_numberType = type;
    else if (m_numberType != type)
        m_numberType = {};
}

bool ZelValueSummary::addNumberVariant(const QVariant &value, qsizetype count)
{
    if (!ZelIsNumber(value))
        return false;
    const QMetaType type = value.metaType();
    const bool isUnsigned = type.id() == QMetaType::ULongLong || type.id() == QMetaType::ULong;
    const bool isExact =
        !isInteger(type) || (isUnsigned ? fitsDouble(value.toULongLong()) : fitsDouble(value.toLongLong()));
    if (!isExact)
        return false;
    noteNumberType(type);
    addNumber(isInteger(type) ? (isUnsigned ? double(value.toULongLong()) : double(value.toLongLong()))
                              : value.toDouble(),
              count);
    return true;
}

QVariant ZelValueSummary::numberVariant(double number) const
{
    if (!m_numberType.isValid() || m_numberType.id() == QMetaType::Double)
        return number;
    QVariant value = isInteger(m_numberType) ? QVariant(qlonglong(number)) : QVariant(number);
    return value.convert(m_numberType) ? value : QVariant(number);
}

// Other values

template<typename IsEqual, typename Make>
void ZelValueSummary::addAt(size_t hash, qsizetype count, const IsEqual &isEqual, const Make &make)
{
    m_objectCount += count;
    if (m_lastOther < m_others.size() && isEqual(m_others[m_lastOther].value)) {
        m_others[m_lastOther].count += count;
        return;
    }
    for (auto place = m_otherPlaces.constFind(hash); place != m_otherPlaces.cend() && place.key() == hash; ++place) {
        if (!isEqual(m_others[*place].value))
            continue;
        m_lastOther = *place;
        m_others[m_lastOther].count += count;
        return;
    }
    m_lastOther = m_others.size();
    m_otherPlaces.insert(hash, m_lastOther);
    m_others.push_back({make(), count});
}

void ZelValueSummary::addText(const QString &text, qsizetype count)
{
    if (text.isEmpty()) {
        addOther({}, count);
        return;
    }
    addAt(
        qHash(text), count,
        [&](const QVariant &known) {
            return known.typeId() == QMetaType::QString && *static_cast<const QString *>(known.constData()) == text;
        },
        [&] { return QVariant(text); });
}

void ZelValueSummary::addOther(const QVariant &value, qsizetype count)
{
    const Hash hash = ZelIsNull(value) ? nullptr : hashFor(value.metaType());
    const auto isEqual = [&](const QVariant &known) {
        return ZelEqual(known, value) || (ZelIsNull(known) && ZelIsNull(value));
    };
    if (!hash && !ZelIsNull(value) && m_unhashedCount >= g_mostUnhashed && countOf(value) == 0) {
        m_objectCount += count;
        m_isCut = true;
        return;
    }
    addAt(hash ? hash(value) : size_t(value.typeId()), count, isEqual, [&] {
        m_unhashedCount += hash ? 0 : 1;
        return ZelIsNull(value) ? QVariant() : value;
    });
}

void ZelValueSummary::add(const QVariant &value, qsizetype count)
{
    if (value.typeId() == QMetaType::QString)
        addText(value.toString(), count);
    else if (!addNumberVariant(value, count))
        addOther(value, count);
}

// Making

/// Reads each object's value as the reader for its property does, or else as a QVariant, which is mapped. Answers false
/// if an object lacks the key.
bool ZelValueSummary::read(const Objects &objects, const ZelKeyPath &path,
                           const std::function<AddRead(const ZelPropertyAccessor &)> &reader, const Map &map)
{
    const Objects snapshot = objects; // a getter may change the selection
    ZelClassAccessors accessors(path);
    const ZelPropertyAccessor *current = nullptr;
    AddRead addRead = nullptr;
    for (const QPointer<QObject> &held : snapshot) {
        const QObject *object = held;
        if (!object)
            continue;
        const ZelPropertyAccessor *accessor = path.isSingleKey() ? accessors.of(object) : nullptr;
        if (accessor != current) {
            current = accessor;
            addRead = accessor ? reader(*accessor) : nullptr;
        }
        if (addRead && addRead(*this, *accessor, object))
            continue;
        const std::optional<QVariant> value = accessors.read(object);
        if (!value)
            return false;
        add(map ? map(*value) : *value);
    }
    return true;
}

ZelValueSummary ZelValueSummary::ofKeyPath(const Objects &objects, const ZelKeyPath &path)
{
    ZelValueSummary summary;
    const auto reader = [&summary](const ZelPropertyAccessor &accessor) {
        const AddRead addRead = addReadFor(accessor.type());
        if (addRead && accessor.type().id() != QMetaType::QString)
            summary.noteNumberType(accessor.type());
        return addRead;
    };
    if (!summary.read(objects, path, reader, {}))
        return {};
    return summary;
}

ZelValueSummary ZelValueSummary::ofParts(const Objects &objects, const ZelKeyPath &path, int count, const Part &part)
{
    ZelValueSummary summary;
    const auto ofValue = [&](const QVariant &value) {
        const ZelGeometryType *type = ZelGeometryType::find(value.metaType());
        if (!type || type->count != count)
            return QVariant();
        ZelGeometryType::Numbers numbers{};
        type->load(value.constData(), numbers);
        return QVariant(part(numbers));
    };
    const auto none = [](const ZelPropertyAccessor &) -> AddRead { return nullptr; };
    if (!summary.read(objects, path, none, ofValue))
        return {};
    return summary;
}

ZelValueSummary ZelValueSummary::mapped(const Map &map) const
{
    ZelValueSummary result;
    for (const Number &number : m_table) {
        if (number.count > 0)
            result.add(map(numberVariant(number.value)), number.count);
    }
    for (const Entry &entry : m_others)
        result.add(map(entry.value), entry.count);
    result.m_isCut = result.m_isCut || m_isCut;
    return result;
}

// Answers

qsizetype ZelValueSummary::countOf(const QVariant &value) const
{
    if (ZelIsNumber(value)) {
        const Number *number = findNumber(value.toDouble());
        if (number && number->count > 0 && ZelEqual(numberVariant(number->value), value))
            return number->count;
    }
    const bool isNull = ZelIsNull(value) || (value.typeId() == QMetaType::QString && value.toString().isEmpty());
    const auto found = std::find_if(m_others.begin(), m_others.end(), [&](const Entry &entry) {
        return isNull ? ZelIsNull(entry.value) : ZelEqual(entry.value, value);
    });
    return found == m_others.end() ? 0 : found->count;
}

QList<ZelValueSummary::Entry> ZelValueSummary::first(qsizetype count) const
{
    const auto isNumberBefore = [](const Number &a, const Number &b) {
        if (a.count != b.count)
            return a.count > b.count;
        return !std::isnan(a.value) && (std::isnan(b.value) || a.value < b.value);
    };
    std::vector<Number> numbers(std::min(size_t(count), m_numberCount));
    std::partial_sort_copy(m_table.begin(), m_table.end(), numbers.begin(), numbers.end(), isNumberBefore);
    // Only the numbers that are asked for become values.
    std::vector<Entry> entries;
    for (const Number &number : numbers)
        entries.push_back({numberVariant(number.value), number.count});
    std::vector<const Entry *> order;
    for (const Entry &entry : entries)
        order.push_back(&entry);
    for (const Entry &entry : m_others)
        order.push_back(&entry);
    std::vector<const Entry *> found(std::min(size_t(count), order.size()));
    std::partial_sort_copy(order.begin(), order.end(), found.begin(), found.end(), [](const Entry *a, const Entry *b) {
        if (a->count != b->count)
            return a->count > b->count;
        return isLess(a->value, b->value);
    });
    QList<Entry> result;
    for (const Entry *entry : found)
        result.append(*entry);
    return result;
}

std::optional<ZelValueSummary::Range> ZelValueSummary::range() const
{
    const bool isOfNumbers =
        std::all_of(m_others.begin(), m_others.end(), [](const Entry &entry) { return ZelIsNull(entry.value); });
    std::optional<Range> range;
    for (const Number &number : m_table) {
        if (number.count == 0 || std::isnan(number.value))
            continue;
        if (!range)
            range = Range{number.value, number.value};
        range->least = std::min(range->least, number.value);
        range->greatest = std::max(range->greatest, number.value);
    }
    return isOfNumbers ? range : std::nullopt;
}
