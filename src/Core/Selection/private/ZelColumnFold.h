// SPDX-License-Identifier: MIT
#pragma once

#include "Core/KeyValue/private/ZelClassAccessors.h"
#include "Core/Selection/private/ZelColumnAccess.h"
#include "Core/Selection/private/ZelObjectBlock.h"

#include <QVariant>

#include <optional>

/// The values of one key, folded block by block. The first object's value is the one to agree with; the others are
/// compared with it in memory, since making a QVariant for each would take most of the time.
class ZelColumnFold
{
public:
    explicit ZelColumnFold(ZelKey key)
        : m_key(key)
        , m_accessors(key)
    {
    }

    /// Takes the values of a block in, up to the object that decides the fold.
    void add(const ZelObjectBlock &block);
    /// Whether further objects cannot change the result.
    bool isDecided() const { return m_isDecided; }
    /// Whether an object answers keys itself, so that values have to be folded as those of a path are.
    bool needsPaths() const { return m_needsPaths; }
    /// The value on which all objects agree, or a marker, as ZelSelectionFold::value answers it.
    const QVariant &result() const { return m_result; }

    /// Whether the values are an unset text and an empty one.
    static bool areEmptyTexts(const QVariant &a, const QVariant &b);

private:
    /// Answers the place of the next object, from the first one on, that has another value or is of another class.
    using SkipEqual = qsizetype (*)(const ZelPropertyAccessor &, const ZelObjectBlock &, qsizetype first,
                                    const QVariant &expected, QVariant &memory);
    template<typename Value>
    static qsizetype skipEqual(const ZelPropertyAccessor &accessor, const ZelObjectBlock &block, qsizetype first,
                               const QVariant &expected, QVariant &memory);
    static qsizetype skipSame(const ZelPropertyAccessor &accessor, const ZelObjectBlock &block, qsizetype first,
                              const QVariant &expected, QVariant &memory);
    static SkipEqual skipEqualFor(QMetaType type);

    qsizetype skipByStore(const ZelObjectBlock &block, qsizetype first);

    void addOne(const QObject *object, const QMetaObject *metaObject);
    void decide(const QVariant &result);
    void compareAs(const ZelPropertyAccessor &accessor, const QMetaObject *metaObject);

    ZelKey m_key;
    ZelClassAccessors m_accessors;
    const QMetaObject *m_class = nullptr;            // whose objects are compared in memory
    const ZelPropertyAccessor *m_accessor = nullptr; // of that class
    SkipEqual m_skip = nullptr;                      // null while they cannot be compared so
    std::optional<ZelColumnAccess> m_columns;        // if a store of the class has such values
    QVariant m_stored;                               // the first object's value as the property answers it
    QVariant m_memory;                               // for the values of the others
    QVariant m_result = QVariant::fromValue(ZelNoSelectionMarker);
    bool m_isFirst = true;
    bool m_isOfTexts = true; // all properties so far are texts, only for which an empty text and none are one value
    bool m_isDecided = false;
    bool m_needsPaths = false;
};
