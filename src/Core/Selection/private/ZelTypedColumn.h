// SPDX-License-Identifier: MIT
#pragma once

#include "Core/KeyValue/private/ZelClassAccessors.h"
#include "Core/Selection/ZelObjectController.h"
#include "Core/Selection/ZelValueBlock.h"
#include "Core/Values/ZelGeometryType.h"

#include <optional>

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
        std::vector<qsizetype> places; ///< of the objects among all selected ones
    };
    /// Answers nothing if the values are not all of one such type, or if a property does not announce its changes.
    std::optional<Edit> edit(const std::function<void(Numbers &, qsizetype place)> &change);
    /// Hands each object's numbers on. False if the value of an object is not of such a type.
    bool visit(const std::function<void(const Numbers &)> &take);
    /// Makes the new value of an object anew if the object does not have its old value any more: the setter of another
    /// object may have changed it.
    void refresh(const QObject *object, const void *before, void *after, const Change &change);

    /// Answers null if values of the type are not edited as those of the other one.
    static const ZelGeometryType *typeOf(QMetaType type, const ZelGeometryType &like);

private:
    /// Answers null if the object's property is not of such a type.
    const ZelGeometryType *typeOf(const QObject *object);
    /// Reads the value of an object, which must be the one that was asked last for its type.
    bool read(const QObject *object, void *value) const { return m_accessor->readTyped(object, value); }
    bool load(const QObject *object, Numbers &numbers);
    bool compare(const QObject *object, const Change &change, Fold &fold);

    const ZelObjectController &m_controller;
    ZelKey m_key;
    const ZelGeometryType &m_like;
    ZelClassAccessors m_accessors;
    const ZelPropertyAccessor *m_accessor = nullptr;
    const ZelGeometryType *m_type = nullptr;
    const ZelGeometryType *m_editType = nullptr; // of all values of the edit
};
