// SPDX-License-Identifier: MIT
#include "Core/Selection/private/ZelSelectionFold.h"

#include "Core/Errors/private/ZelFirstException.h"
#include "Core/KeyValue/ZelKeyValueCoding.h"
#include "Core/KeyValue/ZelKeyValueObserving.h"
#include "Core/KeyValue/ZelPropertyAccessor.h"
#include "Core/KeyValue/private/ZelClassAccessors.h"
#include "Core/KeyValue/private/ZelObjectRecord.h"
#include "Core/KeyValue/private/ZelPropertyDomain.h"
#include "Core/Values/ZelValues.h"
#include "Core/Values/private/ZelValueConversion.h"

#include <QRectF>
#include <algorithm>

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

template<typename Value>
bool readEqual(const ZelPropertyAccessor &accessor, const QObject *object, const void *expected)
{
    Value value{};
    return accessor.readTyped(object, &value) && isEqual(value, *static_cast<const Value *>(expected));
}

/// An unset text and an empty one are the same here: people see no difference.
bool readEqualText(const ZelPropertyAccessor &accessor, const QObject *object, const void *expected)
{
    QString text;
    const auto &other = *static_cast<const QString *>(expected);
    return accessor.readTyped(object, &text) && text == other;
}

/// Compares an object's value with one of the same type, without a QVariant; null for other types.
using ReadEqual = bool (*)(const ZelPropertyAccessor &, const QObject *, const void *);
ReadEqual readEqualFor(int type)
{
    switch (type) {
    case QMetaType::Double:
        return readEqual<double>;
    case QMetaType::Float:
        return readEqual<float>;
    case QMetaType::Int:
        return readEqual<int>;
    case QMetaType::UInt:
        return readEqual<uint>;
    case QMetaType::LongLong:
        return readEqual<qlonglong>;
    case QMetaType::ULongLong:
        return readEqual<qulonglong>;
    case QMetaType::Bool:
        return readEqual<bool>;
    case QMetaType::QPointF:
        return readEqual<QPointF>;
    case QMetaType::QSizeF:
        return readEqual<QSizeF>;
    case QMetaType::QRectF:
        return readEqual<QRectF>;
    case QMetaType::QString:
        return readEqualText;
    default:
        return nullptr;
    }
}

/// Compares the values of one class's objects in memory, whatever their type. Making a QVariant for each would take
/// most of the time of a long walk.
class SameValue
{
public:
    /// Takes an object's value as the one to compare with.
    void set(const ZelPropertyAccessor &accessor, const QObject *object)
    {
        const QMetaType type = accessor.type();
        const bool isPlain = type.isValid() && type.id() != QMetaType::QVariant && type.isEqualityComparable() &&
                             !type.flags().testFlag(QMetaType::PointerToQObject);
        m_expected = isPlain ? QVariant(type) : QVariant();
        m_value = m_expected;
        m_isSet = isPlain && accessor.readTyped(object, m_expected.data());
    }
    void clear() { m_isSet = false; }

    /// Whether the object has that value. Answers false also if it cannot tell.
    bool isOf(const ZelPropertyAccessor &accessor, const QObject *object)
    {
        return m_isSet && accessor.readTyped(object, m_value.data()) &&
               accessor.type().equals(m_value.constData(), m_expected.constData());
    }

private:
    QVariant m_expected;
    QVariant m_value;
    bool m_isSet = false;
};

bool hasPath(const QObject *object, const ZelKeyPath &path)
{
    return ZelHasKey(object, path.first());
}

/// Whether the values are an unset text and an empty one.
bool areEmptyTexts(const QVariant &a, const QVariant &b)
{
    const auto isEmptyText = [](const QVariant &value) {
        return value.typeId() == QMetaType::QString && value.toString().isEmpty();
    };
    return (isEmptyText(a) || isEmptyText(b)) && (isEmptyText(a) || ZelIsAbsent(a)) &&
           (isEmptyText(b) || ZelIsAbsent(b));
}

/// Folds whole values, for paths of several keys and for objects that answer keys themselves.
QVariant foldPaths(const QList<QPointer<QObject>> &objects, const ZelKeyPath &path)
{
    QVariant result = QVariant::fromValue(ZelNoSelectionMarker);
    bool isFirst = true;
    const QObject *source = nullptr; // of the result
    const auto isOfTexts = [&](const QObject *object) {
        return ZelPropertyDomain::ofKeyPath(object, path).isOfTexts();
    };
    for (const QPointer<QObject> &object : objects) {
        if (!object)
            continue;
        if (!hasPath(object, path))
            return QVariant::fromValue(ZelNotApplicableMarker);
        const QVariant value = ZelValueForKeyPath(object.data(), path);
        if (ZelIsControllerMarker(value))
            return value;
        const bool isOther = !isFirst && ZelNotEqual(value, result) &&
                             !(areEmptyTexts(value, result) && isOfTexts(object) && isOfTexts(source));
        if (isOther)
            return QVariant::fromValue(ZelMultipleValuesMarker);
        result = value;
        source = object;
        isFirst = false;
    }
    return result;
}

} // namespace

QVariant ZelSelectionFold::value(const QList<QPointer<QObject>> &objects, const ZelKeyPath &path)
{
    ZelClassAccessors accessors(path);
    const ZelPropertyAccessor *current = nullptr;
    ReadEqual readEqual = nullptr;
    SameValue sameValue;
    QVariant stored; // the first object's value as the property answers it
    QVariant result = QVariant::fromValue(ZelNoSelectionMarker);
    bool isFirst = true;
    bool isOfTexts = true; // all properties so far are texts, only for which an empty text and none are one value
    if (!path.isSingleKey())
        return foldPaths(objects, path);
    for (qsizetype i = 0; i < objects.size(); ++i) {
        const QObject *object = objects.at(i);
        if (!object)
            continue;
        const ZelPropertyAccessor *accessor = accessors.of(object);
        if (!accessor)
            return ZelPropertyAccessor::interfaceOf(object) ? foldPaths(objects, path)
                                                            : QVariant::fromValue(ZelNotApplicableMarker);
        if (accessor != current) {
            current = accessor;
            readEqual = nullptr;
            sameValue.clear();
        }
        if (readEqual ? readEqual(*accessor, object, stored.constData()) : sameValue.isOf(*accessor, object))
            continue;
        const QVariant value = accessor->read(object);
        isOfTexts = isOfTexts && accessor->type().id() == QMetaType::QString;
        if (!isFirst && ZelNotEqual(value, stored) && !(isOfTexts && areEmptyTexts(value, stored)))
            return QVariant::fromValue(ZelMultipleValuesMarker);
        if (isFirst) {
            stored = value;
            result = ZelPresent(value);
        }
        if (accessor->type().isValid() && stored.metaType() == accessor->type())
            readEqual = readEqualFor(stored.typeId());
        if (!readEqual && !isFirst)
            sameValue.set(*accessor, object);
        isFirst = false;
    }
    return result;
}

void ZelSelectionFold::setValue(const QList<QPointer<QObject>> &objects, const QVariant &value, const ZelKeyPath &path)
{
    ZelClassAccessors accessors(path);
    const ZelPropertyAccessor *current = nullptr;
    QVariant converted; // for the current accessor, if that takes values through memory and announces them
    const bool isPlain = path.isSingleKey() && !ZelIsNull(value) && !ZelIsControllerMarker(value);
    const QList<QPointer<QObject>> snapshot = objects; // a setter may change the selection
    ZelFirstException errors;
    bool isFound = false;
    for (const QPointer<QObject> &held : snapshot) {
        QObject *object = held;
        if (!object)
            continue;
        const ZelPropertyAccessor *accessor = isPlain ? accessors.of(object) : nullptr;
        if (accessor && accessor != current) {
            current = accessor;
            converted = value;
            if (accessor->isSilent() || !accessor->type().isValid() ||
                ZelValueConversion::convert(converted, accessor->type()) != ZelValueConversion::Fits ||
                converted.metaType() != accessor->type()) // a property of any type is not written through memory
                converted.clear();
        }
        errors.run([&] {
            const bool isWritten =
                accessor && converted.isValid() && accessor->writeTyped(object, std::as_const(converted).constData());
            const bool hasKey = isWritten || accessor || hasPath(object, path);
            isFound = isFound || hasKey;
            if (!isWritten && hasKey)
                ZelSetValueForKeyPath(object, value, path);
        });
    }
    errors.rethrow();
    const auto living = [](const QPointer<QObject> &object) { return !object.isNull(); };
    const auto first = std::find_if(snapshot.begin(), snapshot.end(), living);
    if (!isFound && first != snapshot.end())
        ZelSetValueForKeyPath(first->data(), value, path); // throws, because the object lacks the key
}

bool ZelSelectionFold::isSilent(const QList<QPointer<QObject>> &objects, const ZelKeyPath &path)
{
    ZelClassAccessors accessors(path);
    for (const QPointer<QObject> &object : objects) {
        if (!object)
            continue;
        const ZelPropertyAccessor *accessor = path.isSingleKey() ? accessors.of(object) : nullptr;
        if (!accessor || accessor->isSilent()) // something along a path may be silent
            return true;
    }
    return false;
}
