// SPDX-License-Identifier: MIT
#pragma once

#include "Blocks/ZelDictionaryBlocks.h"
#include "Blocks/ZelIndexSetBlocks.h"
#include "Blocks/ZelListBlocks.h"
#include "Blocks/ZelOrderedSetBlocks.h"
#include "Blocks/ZelSetBlocks.h"

// Operations on collections with functions ("blocks"), in place of loops:
//
//     const QStringList names = ZelBlocks(people).map([](const Person *person) { return person->name(); });
//     ZelBlocks(names).performReject(&QString::isEmpty);
//
// The collections are QList, QSet, QHash and QMap (blocks get key and value), ZelOrderedSet and ZelIndexSet, of any
// elements. A block is anything that can be called with an element, members of a class included. Without one every
// operation asserts "block != nil" and answers nothing, false or an empty collection.
//
// ZelBlocks(collection) refers to the collection: nothing is copied that is only read. A block must not change the
// collection that it is called for. If it throws, the collection is as it was. What a block answers as an absent
// QVariant is stored as the null object, so that nothing is lost; other types are stored as they are.

template<typename Collection> struct ZelBlocksOf;
template<typename Type> struct ZelBlocksOf<QList<Type>>
{
    template<typename Collection> using Kind = ZelListBlocks<Collection>;
};
template<typename Type> struct ZelBlocksOf<ZelOrderedSet<Type>>
{
    template<typename Collection> using Kind = ZelOrderedSetBlocks<Collection>;
};
template<typename Type> struct ZelBlocksOf<QSet<Type>>
{
    template<typename Collection> using Kind = ZelSetBlocks<Collection>;
};
template<typename Key, typename Type> struct ZelBlocksOf<QHash<Key, Type>>
{
    template<typename Collection> using Kind = ZelDictionaryBlocks<Collection>;
};
template<typename Key, typename Type> struct ZelBlocksOf<QMap<Key, Type>>
{
    template<typename Collection> using Kind = ZelDictionaryBlocks<Collection>;
};
template<> struct ZelBlocksOf<ZelIndexSet>
{
    template<typename Collection> using Kind = ZelIndexSetBlocks<Collection>;
};

/// The operations of a collection, which must live while they are used. A temporary one can only be read.
template<typename Collection> auto ZelBlocks(Collection &collection)
{
    return typename ZelBlocksOf<std::remove_const_t<Collection>>::template Kind<Collection>(collection);
}
template<typename Collection> auto ZelBlocks(const Collection &&collection)
{
    return typename ZelBlocksOf<Collection>::template Kind<const Collection>(collection);
}
