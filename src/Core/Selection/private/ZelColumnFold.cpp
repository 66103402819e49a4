// SPDX-License-Identifier: MIT
#include "Core/Selection/private/ZelColumnFold.h"

#include "Core/Values/ZelValues.h"

#include <QRectF>

namespace {

template<typename Value> bool isEqual(const Value &a, const Value &b)
{
    return a == b;
}

// They compare exactly first: Qt's comparison, which allows for small distances, costs more, and most values are equal.

bool isEqual(const QPointF &a, const QPointF &b)
{
    return (a.x() == b.x() && a.y() == b.y()) || a == b;
}

bool isEqual(const QSizeF &a, const QSizeF &b)
{
    return (a.width() == b.width() && a.height() == b.height()) || a == b;
}

bool isEqual(const QRectF &a, const QRectF &b)
{
    return (a.x() == b.x() && a.y() == b.y() && a.width() == b.width() && a.height() == b.height()) || a == b;
}

/// Calls isOther(object) for the living objects of the first one's class, up to the first of which that is true.
template<typename IsOther> qsizetype skipUntil(const ZelObjectBlock &block, qsizetype first, const IsOther &isOther)
{
    const QMetaObject *metaObject = block.classOf(first);
    for (qsizetype i = first; i < block.count(); ++i) {
        block.prefetchBehind(i);
        if (block.classOf(i) != metaObject)
            return i;
        const QObject *object = block.object(i);
        if (object && isOther(object))
            return i;
    }
    return block.count();
}

} // namespace

/// An unset text and an empty one are the same here: people see no difference.
template<typename Value>
qsizetype ZelColumnFold::skipEqual(const ZelPropertyAccessor &accessor, const ZelObjectBlock &block, qsizetype first,
                                   const QVariant &expected, QVariant &)
{
    const Value &wanted = *static_cast<const Value *>(expected.constData());
    return skipUntil(block, first, [&](const QObject *object) {
        Value value{};
        return !accessor.readTyped(object, &value) || !isEqual(value, wanted);
    });
}

template<>
qsizetype ZelColumnFold::skipEqual<QVariant>(const ZelPropertyAccessor &accessor, const ZelObjectBlock &block,
                                             qsizetype first, const QVariant &expected, QVariant &)
{
    const bool isNone = !expected.isValid();
    return skipUntil(block, first, [&](const QObject *object) {
        QVariant value;
        return !accessor.readTyped(object, &value) || ((!isNone || value.isValid()) && ZelNotEqual(value, expected));
    });
}

/// For all other types that can be compared.
qsizetype ZelColumnFold::skipSame(const ZelPropertyAccessor &accessor, const ZelObjectBlock &block, qsizetype first,
                                  const QVariant &expected, QVariant &memory)
{
    const QMetaType type = expected.metaType();
    void *value = memory.data();
    return skipUntil(block, first, [&](const QObject *object) {
        return !accessor.readTyped(object, value) || !type.equals(value, expected.constData());
    });
}

ZelColumnFold::SkipEqual ZelColumnFold::skipEqualFor(QMetaType type)
{
    const bool isEnumeration = type.flags().testFlag(QMetaType::IsEnumeration);
    switch (isEnumeration && type.sizeOf() == sizeof(int) ? QMetaType::Int : type.id()) {
    case QMetaType::Double:
        return &skipEqual<double>;
    case QMetaType::Float:
        return &skipEqual<float>;
    case QMetaType::Int:
        return &skipEqual<int>;
    case QMetaType::UInt:
        return &skipEqual<uint>;
    case QMetaType::LongLong:
        return &skipEqual<qlonglong>;
    case QMetaType::ULongLong:
        return &skipEqual<qulonglong>;
    case QMetaType::Bool:
        return &skipEqual<bool>;
    case QMetaType::QPointF:
        return &skipEqual<QPointF>;
    case QMetaType::QSizeF:
        return &skipEqual<QSizeF>;
    case QMetaType::QRectF:
        return &skipEqual<QRectF>;
    case QMetaType::QString:
        return &skipEqual<QString>;
    case QMetaType::QVariant:
        return &skipEqual<QVariant>;
    default:
        return nullptr;
    }
}

/// Does the same with values that a store reads for many objects at once.
qsizetype ZelColumnFold::skipByStore(const ZelObjectBlock &block, qsizetype first)
{
    constexpr qsizetype most = 1024;
    for (qsizetype i = first; i < block.count();) {
        if (block.classOf(i) != m_class)
            return i;
        const qsizetype count = m_columns->take(block.objects() + i, std::min(most, block.count() - i));
        const std::byte *values = count > 0 ? m_columns->read() : nullptr;
        if (!values && block.object(i)) {
            m_columns.reset();
            return m_skip(*m_accessor, block, i, m_stored, m_memory);
        }
        for (qsizetype k = 0; k < count; ++k) {
            if (!m_stored.metaType().equals(m_columns->valueAt(values, k), m_stored.constData()))
                return i + k;
        }
        i += std::max<qsizetype>(count, 1); // none if the object has died
    }
    return block.count();
}

void ZelColumnFold::add(const ZelObjectBlock &block)
{
    for (qsizetype i = 0; i < block.count() && !m_isDecided;) {
        const QMetaObject *metaObject = block.classOf(i);
        if (m_skip && metaObject && metaObject == m_class) {
            i = m_columns ? skipByStore(block, i) : m_skip(*m_accessor, block, i, m_stored, m_memory);
            if (i == block.count() || block.classOf(i) != metaObject)
                continue;
        }
        if (const QObject *object = metaObject ? block.object(i) : nullptr)
            addOne(object, metaObject);
        ++i;
    }
}

bool ZelColumnFold::areEmptyTexts(const QVariant &a, const QVariant &b)
{
    const auto isEmptyText = [](const QVariant &value) {
        return value.typeId() == QMetaType::QString && value.toString().isEmpty();
    };
    return (isEmptyText(a) || isEmptyText(b)) && (isEmptyText(a) || ZelIsAbsent(a)) &&
           (isEmptyText(b) || ZelIsAbsent(b));
}

void ZelColumnFold::decide(const QVariant &result)
{
    m_result = result;
    m_isDecided = true;
}

void ZelColumnFold::addOne(const QObject *object, const QMetaObject *metaObject)
{
    const ZelPropertyAccessor *accessor = m_accessors.of(object, metaObject);
    if (!accessor) {
        m_needsPaths = ZelPropertyAccessor::interfaceOf(object);
        decide(QVariant::fromValue(ZelNotApplicableMarker));
        return;
    }
    const QVariant value = accessor->read(object);
    m_isOfTexts = m_isOfTexts && accessor->type().id() == QMetaType::QString;
    if (m_isFirst) {
        m_stored = value;
        m_result = ZelPresent(value);
    } else if (ZelNotEqual(value, m_stored) && !(m_isOfTexts && areEmptyTexts(value, m_stored))) {
        decide(QVariant::fromValue(ZelMultipleValuesMarker));
        return;
    }
    m_isFirst = false;
    compareAs(*accessor, metaObject);
}

/// Has the next objects of the class compared in memory, if values of its property are of the type of the first value.
void ZelColumnFold::compareAs(const ZelPropertyAccessor &accessor, const QMetaObject *metaObject)
{
    const QMetaType type = accessor.type();
    const bool isOfAnyType = type.id() == QMetaType::QVariant;
    m_class = metaObject;
    m_accessor = &accessor;
    m_skip = nullptr;
    m_columns.reset();
    if (accessor.isOfOneObject() || !type.isValid() || (!isOfAnyType && m_stored.metaType() != type))
        return;
    m_skip = skipEqualFor(type);
    if (!m_skip && type.isEqualityComparable() && !type.flags().testFlag(QMetaType::PointerToQObject)) {
        m_skip = &skipSame;
        if (m_memory.metaType() != type)
            m_memory = QVariant(type);
    }
    if (m_skip && !isOfAnyType && ZelColumnStore::isAnyRegistered() && ZelColumnStore::find(metaObject))
        m_columns.emplace(m_key, type);
}
