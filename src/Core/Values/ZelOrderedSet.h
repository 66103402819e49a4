// SPDX-License-Identifier: MIT
#pragma once

#include "Core/Values/ZelValues.h"
#include "Core/Values/ZelVariantHash.h"

#include <QList>
#include <bit>

/// A list without equal elements: an element is found as in a set, and has a place as in a list. Values are compared by
/// ZelEqual where they are QVariants, by == and qHash otherwise.
///
/// Finding and appending take the time of a hash look-up; inserting and removing elsewhere is linear. Copies share
/// their elements until one of them is changed. Elements cannot be changed in place, only replaced.
template<typename Type> class ZelOrderedSet
{
public:
    using value_type = Type;
    using size_type = qsizetype;
    using const_iterator = typename QList<Type>::const_iterator;
    using iterator = const_iterator;
    using const_reference = const Type &;

    ZelOrderedSet() = default;
    ZelOrderedSet(std::initializer_list<Type> elements)
    {
        reserve(qsizetype(elements.size()));
        for (const Type &element : elements)
            append(element);
    }
    /// The elements of the list, each at its first place.
    explicit ZelOrderedSet(const QList<Type> &elements)
    {
        reserve(elements.size());
        for (const Type &element : elements)
            append(element);
    }

    bool isEmpty() const { return m_elements.isEmpty(); }
    qsizetype size() const { return m_elements.size(); }
    qsizetype count() const { return m_elements.size(); }
    const Type &at(qsizetype index) const { return m_elements.at(index); }
    const Type &operator[](qsizetype index) const { return m_elements.at(index); }
    const QList<Type> &values() const { return m_elements; }
    const_iterator begin() const { return m_elements.cbegin(); }
    const_iterator end() const { return m_elements.cend(); }
    const_iterator cbegin() const { return begin(); }
    const_iterator cend() const { return end(); }

    /// Answers -1 for an element that is not in the set.
    qsizetype indexOf(const Type &element) const { return m_slots.isEmpty() ? -1 : m_slots.at(slotOf(element)); }
    bool contains(const Type &element) const { return indexOf(element) >= 0; }

    void reserve(qsizetype count)
    {
        m_elements.reserve(count);
        if (count > capacity())
            fillSlots(count);
    }
    /// Appends the element unless an equal one is there. Answers whether it did.
    bool append(const Type &element)
    {
        if (size() >= capacity())
            fillSlots(2 * size() + 4);
        const qsizetype slot = slotOf(element);
        if (m_slots.at(slot) >= 0)
            return false;
        m_slots[slot] = size();
        m_elements.append(element);
        return true;
    }
    /// Inserts the element at a place unless an equal one is there. Answers whether it did.
    bool insert(qsizetype index, const Type &element)
    {
        if (contains(element))
            return false;
        m_elements.insert(index, element);
        fillSlots(size());
        return true;
    }
    /// Replaces the element at a place. Changes nothing and answers false if an equal one is at another place.
    bool replace(qsizetype index, const Type &element)
    {
        const qsizetype found = indexOf(element);
        if (found >= 0 && found != index)
            return false;
        m_elements.replace(index, element);
        if (found < 0)
            fillSlots(size());
        return true;
    }
    /// Answers false if the element is not there.
    bool remove(const Type &element)
    {
        const qsizetype index = indexOf(element);
        if (index < 0)
            return false;
        removeAt(index);
        return true;
    }
    void removeAt(qsizetype index)
    {
        m_elements.removeAt(index);
        fillSlots(size());
    }
    /// Removes the elements for which the function answers true, and answers how many they were. The function must not
    /// look into the set.
    template<typename Predicate> qsizetype removeIf(Predicate predicate)
    {
        const qsizetype removed = m_elements.removeIf(predicate);
        if (removed > 0)
            fillSlots(size());
        return removed;
    }
    void clear() { *this = {}; }

    /// Whether both have the same elements in the same order.
    friend bool operator==(const ZelOrderedSet &a, const ZelOrderedSet &b)
    {
        return std::equal(a.begin(), a.end(), b.begin(), b.end(), &ZelOrderedSet::isSame);
    }

private:
    static bool isSame(const Type &a, const Type &b)
    {
        if constexpr (std::is_same_v<Type, QVariant>)
            return ZelEqual(a, b);
        else
            return a == b;
    }
    static size_t hash(const Type &element)
    {
        if constexpr (std::is_same_v<Type, QVariant>)
            return ZelVariantHash(element, QHashSeed::globalSeed());
        else
            return qHash(element, QHashSeed::globalSeed());
    }

    /// Half of the slots stay free, so that runs of taken ones stay short.
    qsizetype capacity() const { return m_slots.size() / 2; }
    /// The slot with the element's index, or the free one where it belongs.
    qsizetype slotOf(const Type &element) const
    {
        const size_t mask = size_t(m_slots.size()) - 1;
        // The hash is multiplied, since those of numbers and pointers may agree in their low bits.
        size_t slot = (quint64(hash(element)) * 0x9e3779b97f4a7c15u >> 32) & mask;
        while (m_slots.at(qsizetype(slot)) >= 0 && !isSame(m_elements.at(m_slots.at(qsizetype(slot))), element))
            slot = (slot + 1) & mask;
        return qsizetype(slot);
    }
    void fillSlots(qsizetype count)
    {
        m_slots = QList<qsizetype>(qsizetype(std::bit_ceil(size_t(2 * std::max<qsizetype>(count, 4)))), -1);
        for (qsizetype i = 0; i < size(); ++i)
            m_slots[slotOf(m_elements.at(i))] = i;
    }

    QList<Type> m_elements;
    QList<qsizetype> m_slots; // indexes of elements by hash, -1 where there is none; a power of two, or empty
};
Q_DECLARE_SEQUENTIAL_CONTAINER_METATYPE(ZelOrderedSet)
