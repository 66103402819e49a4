// SPDX-License-Identifier: MIT
#pragma once

#include "Blocks/ZelConcurrentWork.h"
#include "Core/Errors/ZelAssertions.h"
#include "Core/Values/ZelValues.h"

#include <QStringBuilder>
#include <QVarLengthArray>
#include <algorithm>
#include <functional>
#include <optional>
#include <vector>

// What the operations of ZelBlocks.h share.

/// Asserts that the block can be called. An empty std::function and a null pointer to a function or member cannot.
template<typename Block> bool ZelRequireBlock(const Block &block, const char *file = __builtin_FILE())
{
    if constexpr (requires { block.operator bool(); } || std::is_pointer_v<Block> || std::is_member_pointer_v<Block>)
        return ZelRequire(static_cast<bool>(block), "block != nil", file);
    else
        return true;
}

/// The block with its answer negated.
template<typename Block> auto ZelNegated(const Block &block)
{
    return [&block](const auto &...arguments) { return !std::invoke(block, arguments...); };
}

/// The type in which a result is kept: the sum of strings that QStringBuilder makes becomes a string.
template<typename Type> struct ZelKept
{
    using type = Type;
};
template<typename A, typename B> struct ZelKept<QStringBuilder<A, B>>
{
    using type = typename QConcatenable<QStringBuilder<A, B>>::ConvertTo;
};

/// What a block makes of its arguments.
template<typename Block, typename... Arguments>
using ZelBlockResult = typename ZelKept<std::decay_t<std::invoke_result_t<const Block &, Arguments...>>>::type;

/// A block's result as it is stored in a collection: the null object for an absent QVariant.
template<typename Value> Value ZelStored(Value value)
{
    if constexpr (std::is_same_v<Value, QVariant>) {
        if (ZelIsAbsent(value))
            return ZelNull();
    }
    return value;
}

/// Whether a mapped value is equal to the element and need not be stored. False for types without comparison.
template<typename Value> bool ZelIsSameElement(const Value &a, const Value &b)
{
    if constexpr (std::is_same_v<Value, QVariant>)
        return ZelEqual(a, b);
    else if constexpr (requires { bool(a == b); })
        return a == b;
    else
        return false;
}

/// The type of a search's answer: the element or nothing. Nothing is an absent QVariant, a null pointer, or else an
/// empty std::optional.
template<typename Type>
using ZelMatch =
    std::conditional_t<std::is_same_v<Type, QVariant> || std::is_pointer_v<Type>, Type, std::optional<Type>>;

/// Calls the function with what every iterator refers to, on several threads; see ZelPerformConcurrently.
template<typename Iterator, typename Function>
void ZelForEachConcurrently(Iterator begin, Iterator end, const Function &function)
{
    ZelPerformConcurrently(end - begin, [&](qsizetype first, qsizetype last) {
        for (Iterator i = begin + first, partEnd = begin + last; i != partEnd; ++i)
            function(*i);
    });
}

/// Removes from a collection with keys the entries for which `fails(iterator)` answers true, when all have been asked.
/// `keyOf(iterator)` is an entry's key, `insert(kept, iterator)` copies an entry into another collection.
template<typename Collection, typename KeyOf, typename Fails, typename Insert>
[[gnu::flatten]] void ZelRemoveFailing(Collection &collection, const KeyOf &keyOf, const Fails &fails,
                                       const Insert &insert)
{
    using Key = typename Collection::key_type;
    constexpr bool isPlain = std::is_trivially_copyable_v<Key> && std::is_default_constructible_v<Key>;
    using Note = std::conditional_t<isPlain, Key, const Key *>;
    const auto note = [&](const auto &entry) -> Note {
        if constexpr (isPlain)
            return keyOf(entry);
        else
            return &keyOf(entry);
    };
    // Each key is noted, and the note is kept if its entry failed. There is no branch on purpose: a processor cannot
    // foresee the block's answers, and wrong guesses would take longer than all the rest.
    constexpr qsizetype atFirst = std::max<qsizetype>(4096 / sizeof(Note), 1);
    QVarLengthArray<Note, atFirst> notes(atFirst);
    Note *failing = notes.data();
    qsizetype count = 0;
    const auto end = collection.cend();
    for (auto entry = collection.cbegin(); entry != end; ++entry) {
        if (count == notes.size()) {
            notes.resize(2 * count);
            failing = notes.data();
        }
        failing[count] = note(entry);
        count += qsizetype(fails(entry));
    }
    if constexpr (isPlain) {
        for (qsizetype i = 0; i < count; ++i)
            collection.remove(failing[i]);
    } else if (count <= collection.size() / 2) {
        std::vector<Key> keys; // copies, since a removal moves other entries about
        keys.reserve(size_t(count));
        for (qsizetype i = 0; i < count; ++i)
            keys.push_back(*failing[i]);
        for (const Key &key : keys)
            collection.remove(key);
    } else { // removing one by one would take longer than building a new collection
        Collection kept;
        qsizetype next = 0;
        for (auto entry = collection.cbegin(); entry != end; ++entry) {
            if (next < count && failing[next] == &keyOf(entry))
                ++next;
            else
                insert(kept, entry);
        }
        collection = std::move(kept);
    }
}
