// SPDX-License-Identifier: MIT
#pragma once

#include "Core/KeyValue/private/ZelClassAccessors.h"
#include "Core/Selection/ZelObjectController.h"
#include "Core/Selection/ZelValueBlock.h"
#include "Core/Selection/private/ZelPlaces.h"
#include "Core/Values/ZelGeometryType.h"

#include <algorithm>
#include <optional>
#include <span>

/// The values that all selected objects have for one key, if each consists of numbers as those of a certain type do.
/// They are read and written through memory, which costs a fraction of doing so as variants. A column is made for one
/// event and not kept.
class ZelTypedColumn
{
public:
    using Numbers = ZelGeometryType::Numbers;
    /// Changes a value's numbers.
    using Change = std::function<void(Numbers &)>;

    ZelTypedColumn(const ZelObjectController &controller, ZelKey key, const ZelGeometryType &like);

    struct Fold
    {
        std::optional<Numbers> first; ///< the first object's numbers; nothing if no object is selected
        unsigned differing = 0;       ///< a bit for each number in which the objects differ
    };
    /// Answers the numbers in which the objects agree after each object's numbers have been changed. Nothing if the
    /// value of an object is not of such a type.
    std::optional<Fold> fold(const Change &change);

    /// The objects whose values become different when their numbers are changed, with their old and new values.
    struct Edit
    {
        QList<QPointer<QObject>> objects;
        ZelValueBlock before;
        ZelValueBlock after;
        ZelPlaces places; ///< of the objects among all selected ones
    };
    /// Calls replace(std::span<Numbers>, qsizetype place) for all objects, a few at once; the place is that of the
    /// first. Answers nothing if the values are not all of one such type, or if a property does not announce its
    /// changes.
    template<typename Replace> std::optional<Edit> edit(const Replace &replace);
    /// Changes the numbers of one value of the edit.
    template<typename Replace>
    void change(const void *value, void *changed, qsizetype place, const Replace &replace) const
    {
        Numbers numbers{};
        m_editType->load(value, numbers);
        replace(std::span(&numbers, 1), place);
        m_editType->store(numbers, changed);
    }
    /// The largest number of objects that are changed at once.
    static constexpr qsizetype groupSize = 64;
    /// Hands each object's numbers on. False if the value of an object is not of such a type.
    bool visit(const std::function<void(const Numbers &)> &take);

    /// Answers null if values of the type are not edited as those of the other one.
    static const ZelGeometryType *typeOf(QMetaType type, const ZelGeometryType &like);

private:
    /// Answers null if the object's property is not of such a type.
    const ZelGeometryType *typeOf(const QObject *object);
    /// Reads the value of an object, which must be the one that was asked last for its type.
    bool read(const QObject *object, void *value) const { return m_accessor->readTyped(object, value); }
    bool load(const QObject *object, Numbers &numbers);
    /// The living objects and their values. Nothing if these are not all of one such type, or if a property does not
    /// announce its changes.
    std::optional<Edit> readForEdit();
    bool readForEdit(const QObject *object, Edit &edit, qsizetype place);
    /// Takes an object into the edit if its numbers make it another value. Such objects are moved to the front.
    void take(Edit &edit, qsizetype index, const Numbers &numbers) const
    {
        const qsizetype count = edit.places.count();
        void *after = edit.after.data(count);
        m_editType->store(numbers, after);
        if (m_editType->equal(std::as_const(edit.before).data(index), after))
            return;
        if (count < index) {
            edit.objects[count] = edit.objects.at(index);
            edit.before.copy(index, count);
        }
        edit.places.append(index);
    }
    /// The values that the selection knows its objects to have; null if they are to be read.
    ZelValueBlock *known() const;
    static void compare(Numbers numbers, const Change &change, Fold &fold);

    const ZelObjectController &m_controller;
    ZelKey m_key;
    const ZelGeometryType &m_like;
    ZelClassAccessors m_accessors;
    const ZelPropertyAccessor *m_accessor = nullptr;
    const ZelGeometryType *m_type = nullptr;
    const ZelGeometryType *m_editType = nullptr; // of all values of the edit
};

template<typename Replace> std::optional<ZelTypedColumn::Edit> ZelTypedColumn::edit(const Replace &replace)
{
    std::optional<Edit> edit = readForEdit();
    if (!edit || edit->objects.isEmpty())
        return edit;
    const qsizetype size = edit->objects.size();
    edit->after = ZelValueBlock(m_editType->type, size);
    std::array<Numbers, groupSize> numbers;
    for (qsizetype first = 0; first < size; first += groupSize) {
        const qsizetype end = std::min(first + groupSize, size);
        for (qsizetype i = first; i < end; ++i)
            m_editType->load(std::as_const(edit->before).data(i), numbers[size_t(i - first)]);
        replace(std::span(numbers).first(size_t(end - first)), first);
        for (qsizetype i = first; i < end; ++i)
            take(*edit, i, numbers[size_t(i - first)]);
    }
    if (const qsizetype count = edit->places.count(); count < size) { // otherwise the list stays shared, without a copy
        edit->objects.resize(count);
        edit->before.shrink(count);
        edit->after.shrink(count);
    }
    return edit;
}
