// SPDX-License-Identifier: MIT
#include "Core/Undo/private/ZelOwnNumbers.h"

#include "Core/KeyValue/private/ZelClassAccessors.h"
#include "Core/KeyValue/private/ZelPropertyDomain.h"
#include "Core/Undo/ZelNumbersInterface.h"
#include "Core/Undo/private/ZelModelValidation.h"
#include "Core/Undo/private/ZelRecordedWrite.h"
#include "Core/Values/private/ZelExactInteger.h"

#include <cmath>

namespace {

double &doubleAt(ZelValueBlock &block, qsizetype index)
{
    return *static_cast<double *>(block.data(index));
}

double changedNumber(const ZelNumberChange &change, double own, qsizetype index, qsizetype count)
{
    const double number = change.number(own, index, count);
    return std::isfinite(number) ? number : own;
}

} // namespace

ZelOwnNumbers::ZelOwnNumbers(QObject *root, const ZelKeyPath &path, const ZelValueTransformerPtr &transformer)
    : m_root(root)
    , m_path(path)
    , m_transformer(transformer)
{
    std::vector<ZelWriteTarget> targets = ZelWriteTarget::resolve(root, path);
    QObject *only =
        targets.size() == 1 && targets.front().objects.size() == 1 ? targets.front().objects.at(0) : nullptr;
    m_interface = qobject_cast<ZelNumbersInterface *>(only);
    if (m_interface && targets.front().path.isSingleKey()) {
        m_owner = only;
        m_path = targets.front().path;
        return;
    }
    for (ZelWriteTarget &target : targets)
        addPart(std::move(target));
}

const std::vector<double> &ZelOwnNumbers::numbers()
{
    if (m_interface && m_owner)
        m_numbers = m_interface->numbersForKey(m_path.first());
    return m_numbers;
}

void ZelOwnNumbers::addPart(ZelWriteTarget &&target)
{
    m_parts.push_back({std::move(target), {}, false});
    const size_t first = m_numbers.size();
    if (readDoubles(m_parts.back()))
        return;
    m_numbers.resize(first);
    readValues(m_parts.back());
}

/// Answers false if the values are not all doubles whose changes are announced.
bool ZelOwnNumbers::readDoubles(Part &part)
{
    const ZelWriteTarget &target = part.target;
    const QMetaType type = QMetaType::fromType<double>();
    if (m_transformer || !target.path.isSingleKey())
        return false;
    part.doubles = ZelValueBlock(type, target.objects.size());
    m_numbers.reserve(m_numbers.size() + size_t(target.objects.size()));
    ZelClassAccessors accessors(target.path);
    for (qsizetype i = 0; i < target.objects.size(); ++i) {
        const QObject *object = target.objects.at(i);
        if (!object || !accessors.readTyped(object, type, part.doubles.data(i)))
            return false;
        m_numbers.push_back(doubleAt(part.doubles, i));
    }
    part.isOfDoubles = true;
    return true;
}

void ZelOwnNumbers::readValues(Part &part)
{
    part.target.readOldValues();
    for (const QVariant &value : std::as_const(part.target.oldValues)) {
        const QVariant shown = m_transformer ? m_transformer->transformedValue(value) : value;
        if (ZelExactInteger::isWide(shown.metaType()))
            m_integers.insert(qsizetype(m_numbers.size()), shown);
        m_numbers.push_back(ZelNumberChange::ownNumber(shown));
    }
}

QVariant ZelOwnNumbers::valueAt(qsizetype index) const
{
    const auto integer = m_integers.constFind(index);
    return integer == m_integers.constEnd() ? QVariant(m_numbers[size_t(index)]) : *integer;
}

QVariant ZelOwnNumbers::changed(const ZelNumberChange &change, qsizetype index) const
{
    return change.value(valueAt(index), index, qsizetype(m_numbers.size()));
}

bool ZelOwnNumbers::isInexact(const ZelNumberChange &change, qsizetype index) const
{
    return change.isInexact(valueAt(index), index, qsizetype(m_numbers.size()));
}

void ZelOwnNumbers::write(const ZelNumberChange &change, const ZelRecordedWrite &write)
{
    if (m_interface) {
        if (m_owner)
            m_interface->changeNumbersForKey(m_path.first(), change);
        return;
    }
    qsizetype first = 0;
    for (Part &part : m_parts) {
        const qsizetype size = part.target.objects.size();
        if (part.isOfDoubles)
            writeDoubles(part, first, change, write);
        else
            writeValues(part, first, change, write);
        first += size;
    }
}

void ZelOwnNumbers::writeDoubles(Part &part, qsizetype first, const ZelNumberChange &change,
                                 const ZelRecordedWrite &write) const
{
    const auto count = qsizetype(m_numbers.size());
    QList<QPointer<QObject>> objects = part.target.objects;
    ZelValueBlock after(QMetaType::fromType<double>(), objects.size());
    std::vector<qsizetype> places; // of the objects that change, which are moved to the front of the lists
    for (qsizetype i = 0; i < objects.size(); ++i) {
        const double own = doubleAt(part.doubles, i);
        const double number = changedNumber(change, own, first + i, count);
        if (number == own || std::isnan(number))
            continue;
        const auto place = qsizetype(places.size());
        doubleAt(part.doubles, place) = own;
        doubleAt(after, place) = number;
        if (place < i)
            objects[place] = objects.at(i);
        places.push_back(first + i);
    }
    const auto changed = qsizetype(places.size());
    if (changed < objects.size()) {
        objects.resize(changed);
        part.doubles.shrink(changed);
        after.shrink(changed);
    }
    ZelClassAccessors accessors(part.target.path);
    const auto refresh = [&](const QObject *object, qsizetype index, const void *before, void *now) {
        double own = 0;
        if (accessors.readTyped(object, QMetaType::fromType<double>(), &own) &&
            own != *static_cast<const double *>(before))
            *static_cast<double *>(now) = changedNumber(change, own, places[size_t(index)], count);
    };
    if (changed > 0)
        write.setValues(objects, std::move(part.doubles), std::move(after), part.target.path, refresh,
                        ZelModelValidation::validates(part.target));
}

void ZelOwnNumbers::writeValues(const Part &part, qsizetype first, const ZelNumberChange &change,
                                const ZelRecordedWrite &write) const
{
    const auto count = qsizetype(m_numbers.size());
    const ZelPropertyDomain domain = ZelPropertyDomain::ofKeyPath(m_root, m_path);
    qsizetype index = first;
    const auto changed = [&](const QVariant &stored) -> std::optional<QVariant> {
        const QVariant shown = m_transformer ? m_transformer->transformedValue(stored) : stored;
        QVariant value = change.value(shown, index++, count);
        if (!value.isValid() || ZelEqual(value, shown))
            return std::nullopt;
        if (m_transformer && m_transformer->allowsReverseTransformation())
            value = m_transformer->reverseTransformedValue(value);
        return ZelIsNumber(value) ? domain.bounded(value) : value;
    };
    if (part.target.path.isSingleKey()) {
        QList<QObject *> objects;
        for (const QPointer<QObject> &object : part.target.objects)
            objects.append(object);
        write.mapValues(objects, part.target.path, changed);
        return;
    }
    QVariantList values;
    for (const QVariant &old : part.target.oldValues)
        values.append(changed(old).value_or(old));
    write.setValues(part.target.objects, part.target.oldValues, values, part.target.path);
}
