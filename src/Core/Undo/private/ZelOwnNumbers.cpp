// SPDX-License-Identifier: MIT
#include "Core/Undo/private/ZelOwnNumbers.h"

#include "Core/KeyValue/private/ZelClassAccessors.h"
#include "Core/KeyValue/private/ZelPropertyDomain.h"
#include "Core/Selection/private/ZelColumnAccess.h"
#include "Core/Selection/private/ZelColumnWatch.h"
#include "Core/Selection/private/ZelPlaces.h"
#include "Core/Selection/private/ZelPrefetch.h"
#include "Core/Undo/ZelNumbersInterface.h"
#include "Core/Undo/private/ZelModelValidation.h"
#include "Core/Undo/private/ZelRecordedWrite.h"
#include "Core/Values/private/ZelExactInteger.h"
#include "Core/Values/private/ZelSpareNumbers.h"

#include <cmath>
#include <numeric>
#include <optional>

namespace {

double changedNumber(const ZelNumberChange &change, double own, qsizetype index, qsizetype count)
{
    const double number = change.number(own, index, count);
    return std::isfinite(number) ? number : own;
}

/// The numbers at these places.
ZelValueBlock blockOf(const std::vector<double> &numbers, const ZelPlaces &places)
{
    ZelValueBlock block(QMetaType::fromType<double>(), places.count());
    auto *values = static_cast<double *>(block.data(0));
    for (qsizetype i = 0; i < places.count(); ++i)
        values[i] = numbers[size_t(places.at(i))];
    return block;
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
    if (takeKnown(targets))
        return;
    const auto countWith = [](qsizetype count, const ZelWriteTarget &target) { return count + target.objects.size(); };
    const auto numbers =
        ZelSpareNumbers::make(size_t(std::accumulate(targets.begin(), targets.end(), qsizetype(0), countWith)));
    numbers->clear();
    for (ZelWriteTarget &target : targets)
        addPart(std::move(target), *numbers);
    m_numbers = numbers;
    if (m_parts.size() != 1 || !m_parts.front().isOfDoubles)
        return;
    const ZelWriteTarget &target = m_parts.front().target;
    if (target.selection)
        target.selection->noteColumn(target.path, ZelValueBlock(m_numbers));
}

/// Takes the numbers that were read last, as those are that an edit is checked with before it is made. False unless the
/// selection has heard since then of everything that happens to them.
bool ZelOwnNumbers::takeKnown(std::vector<ZelWriteTarget> &targets)
{
    if (m_transformer || targets.size() != 1 || !targets.front().selection)
        return false;
    ZelWriteTarget &target = targets.front();
    ZelValueBlock *known = target.selection->notedColumn(target.path);
    if (!known || known->type() != QMetaType::fromType<double>() || known->size() != target.objects.size())
        return false;
    m_numbers = known->numbers();
    m_parts.push_back({std::move(target), true});
    return true;
}

const ZelNumberChange::Numbers &ZelOwnNumbers::numbers()
{
    if (m_interface && m_owner)
        m_numbers = std::make_shared<const std::vector<double>>(m_interface->numbersForKey(m_path.first()));
    return m_numbers;
}

void ZelOwnNumbers::addPart(ZelWriteTarget &&target, std::vector<double> &numbers)
{
    const size_t first = numbers.size();
    const bool isOfDoubles = readDoubles(target, numbers);
    if (!isOfDoubles) {
        numbers.resize(first);
        readValues(target, numbers);
    }
    m_parts.push_back({std::move(target), isOfDoubles});
}

/// Answers false if the values are not all doubles whose changes are announced.
bool ZelOwnNumbers::readDoubles(const ZelWriteTarget &target, std::vector<double> &numbers) const
{
    if (m_transformer || !target.path.isSingleKey())
        return false;
    const QMetaType type = QMetaType::fromType<double>();
    ZelClassAccessors accessors(target.path);
    ZelColumnAccess columns(target.path.first(), type);
    for (qsizetype i = 0; i < target.objects.size(); ++i) {
        ZelPrefetch::ahead(target.objects, i);
        const QObject *object = target.objects.at(i);
        const qsizetype taken = columns.take(target.objects.constData() + i, target.objects.size() - i);
        const std::byte *values = taken > 0 && accessors.announced(object, type) ? columns.read() : nullptr;
        if (values) {
            const auto *read = static_cast<const double *>(columns.valueAt(values, 0));
            numbers.insert(numbers.end(), read, read + taken);
            i += taken - 1;
            continue;
        }
        if (!object || !accessors.readTyped(object, type, &numbers.emplace_back()))
            return false;
    }
    return true;
}

void ZelOwnNumbers::readValues(ZelWriteTarget &target, std::vector<double> &numbers)
{
    target.readOldValues();
    for (const QVariant &value : std::as_const(target.oldValues)) {
        const QVariant shown = m_transformer ? m_transformer->transformedValue(value) : value;
        if (ZelExactInteger::isWide(shown.metaType()))
            m_integers.insert(qsizetype(numbers.size()), shown);
        numbers.push_back(ZelNumberChange::ownNumber(shown));
    }
}

QVariant ZelOwnNumbers::valueAt(qsizetype index) const
{
    const auto integer = m_integers.constFind(index);
    return integer == m_integers.constEnd() ? QVariant(m_numbers->at(size_t(index))) : *integer;
}

QVariant ZelOwnNumbers::changed(const ZelNumberChange &change, qsizetype index) const
{
    return change.value(valueAt(index), index, qsizetype(m_numbers->size()));
}

bool ZelOwnNumbers::isInexact(const ZelNumberChange &change, qsizetype index) const
{
    return change.isInexact(valueAt(index), index, qsizetype(m_numbers->size()));
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

void ZelOwnNumbers::writeDoubles(const Part &part, qsizetype first, const ZelNumberChange &change,
                                 const ZelRecordedWrite &write) const
{
    const ZelNumberChange::Numbers numbers = change.numbers(m_numbers);
    const double *own = m_numbers->data() + first;
    const double *changed = numbers->data() + first;
    QList<QPointer<QObject>> objects = part.target.objects;
    const qsizetype size = objects.size();
    const auto changes = [&](qsizetype i) { return changed[i] != own[i] && std::isfinite(changed[i]); };
    ZelPlaces places(first); // of the objects that change, which are moved to the front of the lists
    for (qsizetype i = 0; i < size; ++i) {
        if (!changes(i))
            continue;
        if (places.count() < i)
            objects[places.count()] = objects.at(i);
        places.append(first + i);
    }
    const qsizetype count = places.count();
    if (count == 0)
        return;
    if (count < size) // otherwise the list stays shared, without a copy
        objects.resize(count);
    const auto renew = [&](qsizetype index, const void *present, void *value) {
        *static_cast<double *>(value) =
            changedNumber(change, *static_cast<const double *>(present), places.at(index), qsizetype(numbers->size()));
    };
    const bool areAll = count == qsizetype(numbers->size());
    std::optional<ZelColumnWatch> watch;
    if (areAll && part.target.selection)
        watch.emplace(*part.target.selection, part.target.path);
    write.setValues(objects, areAll ? ZelValueBlock(m_numbers) : blockOf(*m_numbers, places),
                    areAll ? ZelValueBlock(numbers) : blockOf(*numbers, places), part.target.path, renew,
                    ZelModelValidation::validates(part.target), watch ? &*watch : nullptr);
}

void ZelOwnNumbers::writeValues(const Part &part, qsizetype first, const ZelNumberChange &change,
                                const ZelRecordedWrite &write) const
{
    const auto count = qsizetype(m_numbers->size());
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
