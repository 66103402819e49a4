// SPDX-License-Identifier: MIT
#include "Core/Selection/private/ZelTypedColumn.h"

#include "Core/KeyValue/ZelKeyValueCoding.h"

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
    const QList<QPointer<QObject>> objects = m_controller.heldObjects();
    const unsigned all = (1U << m_like.count) - 1;
    for (auto object = objects.cbegin(); object != objects.cend() && fold.differing != all; ++object) {
        if (*object && !compare(*object, change, fold))
            return std::nullopt;
    }
    return fold;
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

bool ZelTypedColumn::compare(const QObject *object, const Change &change, Fold &fold)
{
    Numbers numbers{};
    if (!load(object, numbers))
        return false;
    change(numbers);
    if (!fold.first)
        fold.first = numbers;
    for (size_t i = 0; i < numbers.size(); ++i)
        fold.differing |= unsigned(numbers[i] != (*fold.first)[i]) << i;
    return true;
}

std::optional<ZelTypedColumn::Edit> ZelTypedColumn::edit(const std::function<void(Numbers &, qsizetype place)> &change)
{
    Edit edit{m_controller.heldObjects(), {}, {}, {}};
    edit.places.reserve(size_t(edit.objects.size()));
    qsizetype place = -1;
    const ZelGeometryType *&type = m_editType;
    type = nullptr;
    Numbers numbers{};
    qsizetype count = 0; // of the objects that change; they are moved to the front of the lists
    for (qsizetype i = 0; i < edit.objects.size(); ++i) {
        const QObject *object = edit.objects.at(i);
        if (!object)
            continue;
        ++place;
        if (!type && (type = typeOf(object))) {
            edit.before = ZelValueBlock(type->type, edit.objects.size());
            edit.after = ZelValueBlock(type->type, edit.objects.size());
        }
        if (!type || typeOf(object) != type || m_accessor->isSilent() || !read(object, edit.before.data(count)))
            return std::nullopt;
        type->load(edit.before.data(count), numbers);
        change(numbers, place);
        type->store(numbers, edit.after.data(count));
        if (type->equal(edit.before.data(count), edit.after.data(count)))
            continue;
        if (count < i)
            edit.objects[count] = edit.objects.at(i);
        edit.places.push_back(place);
        ++count;
    }
    if (count < edit.objects.size()) { // otherwise the list stays shared with the controller, without a copy
        edit.objects.resize(count);
        edit.before.shrink(count);
        edit.after.shrink(count);
    }
    return edit;
}

void ZelTypedColumn::refresh(const QObject *object, const void *before, void *after, const Change &change)
{
    alignas(double) std::byte now[sizeof(Numbers)];
    if (!m_editType || typeOf(object) != m_editType || !read(object, now) || m_editType->equal(before, now))
        return;
    Numbers numbers{};
    m_editType->load(now, numbers);
    change(numbers);
    m_editType->store(numbers, after);
}
