// SPDX-License-Identifier: MIT
#include "Core/Selection/private/ZelTypedColumn.h"

#include "Core/KeyValue/ZelKeyValueCoding.h"
#include "Core/Selection/private/ZelPrefetch.h"
#include "Core/Selection/private/ZelSelectionProxy.h"

ZelTypedColumn::ZelTypedColumn(const ZelObjectController &controller, ZelKey key, const ZelGeometryType &like)
    : m_controller(controller)
    , m_key(key)
    , m_like(like)
    , m_accessors(ZelKeyPath(key))
{
}

const ZelGeometryType *ZelTypedColumn::typeOf(QMetaType type, const ZelGeometryType &like)
{
    const ZelGeometryType *found = ZelGeometryType::find(type);
    return found && found->isLike(like) ? found : nullptr;
}

const ZelGeometryType *ZelTypedColumn::typeOf(const QObject *object)
{
    const ZelPropertyAccessor *accessor = m_accessors.of(object);
    if (accessor != m_accessor) {
        m_accessor = accessor;
        m_type = accessor ? typeOf(accessor->type(), m_like) : nullptr;
    }
    return m_type;
}

std::optional<ZelTypedColumn::Fold> ZelTypedColumn::fold(const Change &change)
{
    Fold fold;
    // The selection already knows whether all objects have one value, as they mostly do.
    const QVariant whole = ZelValueForKey(m_controller.selection(), m_key);
    if (const ZelGeometryType *type = typeOf(whole.metaType(), m_like)) {
        type->load(whole.constData(), fold.first.emplace());
        change(*fold.first);
        return fold;
    }
    const unsigned all = (1U << m_like.count) - 1;
    Numbers numbers{};
    if (const ZelValueBlock *values = known()) {
        const ZelGeometryType *type = typeOf(values->type(), m_like);
        for (qsizetype i = 0; i < values->size() && fold.differing != all; ++i) {
            type->load(values->data(i), numbers);
            compare(numbers, change, fold);
        }
        return fold;
    }
    const QList<QPointer<QObject>> objects = m_controller.heldObjects();
    for (auto object = objects.cbegin(); object != objects.cend() && fold.differing != all; ++object) {
        if (!*object)
            continue;
        if (!load(*object, numbers))
            return std::nullopt;
        compare(numbers, change, fold);
    }
    return fold;
}

ZelValueBlock *ZelTypedColumn::known() const
{
    ZelValueBlock *values = static_cast<ZelSelectionProxy *>(m_controller.selection())->notedColumn(m_key);
    return values && typeOf(values->type(), m_like) ? values : nullptr;
}

bool ZelTypedColumn::load(const QObject *object, Numbers &numbers)
{
    alignas(double) std::byte memory[sizeof(Numbers)]; // enough for the largest type
    const ZelGeometryType *type = typeOf(object);
    if (!type || !read(object, memory))
        return false;
    type->load(memory, numbers);
    return true;
}

bool ZelTypedColumn::visit(const std::function<void(const Numbers &)> &take)
{
    const QList<QPointer<QObject>> objects = m_controller.heldObjects();
    Numbers numbers{};
    for (const QPointer<QObject> &object : objects) {
        if (!object)
            continue;
        if (!load(object, numbers))
            return false;
        take(numbers);
    }
    return true;
}

void ZelTypedColumn::compare(Numbers numbers, const Change &change, Fold &fold)
{
    change(numbers);
    if (!fold.first)
        fold.first = numbers;
    for (size_t i = 0; i < numbers.size(); ++i)
        fold.differing |= unsigned(numbers[i] != (*fold.first)[i]) << i;
}

std::optional<ZelTypedColumn::Edit> ZelTypedColumn::readForEdit()
{
    Edit edit{m_controller.heldObjects(), {}, {}, ZelPlaces()};
    m_editType = nullptr;
    if (ZelValueBlock *values = known()) {
        m_editType = ZelGeometryType::find(values->type());
        edit.before = values->share();
        return edit;
    }
    const qsizetype size = edit.objects.size();
    qsizetype count = 0; // of the living objects
    for (qsizetype i = 0; i < size; ++i) {
        ZelPrefetch::ahead(edit.objects, i);
        const QObject *object = edit.objects.at(i);
        if (!object)
            continue;
        if (!readForEdit(object, edit, count))
            return std::nullopt;
        if (count < i)
            edit.objects[count] = edit.objects.at(i);
        ++count;
    }
    if (count < size) {
        edit.objects.resize(count);
        edit.before.shrink(count);
    }
    return edit;
}

/// Reads the value of an object into the edit, whose type is that of the first object.
bool ZelTypedColumn::readForEdit(const QObject *object, Edit &edit, qsizetype place)
{
    if (!m_editType && (m_editType = typeOf(object)))
        edit.before = ZelValueBlock(m_editType->type, edit.objects.size());
    const ZelPropertyAccessor *accessor = m_editType ? m_accessors.announced(object, m_editType->type) : nullptr;
    return accessor && accessor->readTyped(object, edit.before.data(place));
}
