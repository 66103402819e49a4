// SPDX-License-Identifier: MIT
#pragma once

#include "Blocks/ZelCollectionBlocks.h"

#include <QElapsedTimer>
#include <QHash>
#include <QMap>
#include <vector>

/// The operations of QHash and QMap; blocks get key and value. See ZelBlocks.h.
template<typename Dictionary> class ZelDictionaryBlocks : public ZelCollectionBlocks<ZelDictionaryBlocks<Dictionary>>
{
public:
    using Key = typename Dictionary::key_type;
    using Value = typename Dictionary::mapped_type;
    using Iterator = typename Dictionary::const_iterator;

    explicit ZelDictionaryBlocks(Dictionary &dictionary)
        : m_dictionary(dictionary)
    {
    }

    template<typename Function> [[gnu::flatten]] bool visit(const Function &function) const
    {
        for (auto entry = m_dictionary.cbegin(), end = m_dictionary.cend(); entry != end; ++entry) {
            if (!function(entry.key(), entry.value()))
                return false;
        }
        return true;
    }

    /// Calls the block for every entry, on several threads.
    template<typename Block> void apply(const Block &block) const
    {
        if (!ZelRequireBlock(block))
            return;
        std::vector<Iterator> entries; // a vector can be divided among threads, a hash or a tree can only be walked
        entries.reserve(size_t(m_dictionary.size()));
        for (auto entry = m_dictionary.cbegin(), end = m_dictionary.cend(); entry != end; ++entry)
            entries.push_back(entry);
        ZelForEachConcurrently(entries.cbegin(), entries.cend(),
                               [&](const Iterator &entry) { std::invoke(block, entry.key(), entry.value()); });
    }

    /// The value of the first entry for which the block answers true.
    template<typename Block> ZelMatch<Value> match(const Block &block) const
    {
        if (ZelRequireBlock(block)) {
            for (auto entry = m_dictionary.cbegin(), end = m_dictionary.cend(); entry != end; ++entry) {
                if (std::invoke(block, entry.key(), entry.value()))
                    return entry.value();
            }
        }
        return {};
    }

    /// The entries for which the block answers true. The block may be called on several threads at once; it is, once
    /// the first entries have shown that this pays.
    template<typename Block> auto select(const Block &block) const
    {
        std::remove_const_t<Dictionary> selected;
        if (!ZelRequireBlock(block))
            return selected;
        QElapsedTimer timer;
        timer.start();
        int trials = Trials;
        for (auto entry = m_dictionary.cbegin(), end = m_dictionary.cend(); entry != end; ++entry) {
            if (trials-- == 0 && timer.nsecsElapsed() > Trials * MinimumNanoseconds) {
                selectConcurrently(entry, block, selected);
                break;
            }
            if (std::invoke(block, entry.key(), entry.value()))
                selected.insert(entry.key(), entry.value());
        }
        return selected;
    }

    /// The block's results under the same keys.
    template<typename Block> auto map(const Block &block) const
    {
        using Result = ZelBlockResult<Block, const Key &, const Value &>;
        MappedTo<Result> mapped;
        if (!ZelRequireBlock(block))
            return mapped;
        if constexpr (requires { mapped.reserve(m_dictionary.size()); })
            mapped.reserve(m_dictionary.size());
        for (auto entry = m_dictionary.cbegin(), end = m_dictionary.cend(); entry != end; ++entry)
            insertLast(mapped, entry.key(), ZelStored(Result(std::invoke(block, entry.key(), entry.value()))));
        return mapped;
    }

    /// Removes the entries for which the block answers false, when all have been asked.
    template<typename Block> void performSelect(const Block &block) const requires(!std::is_const_v<Dictionary>)
    {
        if (!ZelRequireBlock(block))
            return;
        ZelRemoveFailing(
            m_dictionary, [](const Iterator &entry) -> const Key & { return entry.key(); },
            [&](const Iterator &entry) { return !std::invoke(block, entry.key(), entry.value()); },
            [](Dictionary &kept, const Iterator &entry) { insertLast(kept, entry.key(), entry.value()); });
    }

    /// Replaces the values by the block's results, when all have been asked. A result that equals its value is not
    /// stored.
    template<typename Block> void performMap(const Block &block) const requires(!std::is_const_v<Dictionary>)
    {
        if (!ZelRequireBlock(block))
            return;
        std::vector<std::pair<qsizetype, Value>> changes;
        qsizetype index = 0;
        visit([&](const Key &key, const Value &value) {
            Value mapped = ZelStored(Value(std::invoke(block, key, value)));
            if (!ZelIsSameElement(mapped, value))
                changes.emplace_back(index, std::move(mapped));
            ++index;
            return true;
        });
        if (changes.empty())
            return;
        auto entry = m_dictionary.begin();
        qsizetype place = 0;
        for (auto &[changed, mapped] : changes) {
            std::advance(entry, changed - place);
            place = changed;
            entry.value() = std::move(mapped);
        }
    }

private:
    /// The time for an entry from which on several threads pay.
    static constexpr qint64 MinimumNanoseconds = 2000;
    static constexpr int Trials = 32;

    template<typename Result, typename Any> struct Rebound;
    template<typename Result, template<typename, typename> typename Type, typename K, typename V>
    struct Rebound<Result, Type<K, V>>
    {
        using type = Type<K, Result>;
    };
    template<typename Result> using MappedTo = typename Rebound<Result, std::remove_const_t<Dictionary>>::type;

    /// Inserts at the end where the dictionary is sorted, since keys come in its order.
    template<typename Target, typename Result> static void insertLast(Target &target, const Key &key, Result &&value)
    {
        if constexpr (requires { target.insert(target.cend(), key, value); })
            target.insert(target.cend(), key, std::forward<Result>(value));
        else
            target.insert(key, std::forward<Result>(value));
    }

    template<typename Block, typename Selected>
    void selectConcurrently(Iterator first, const Block &block, Selected &selected) const
    {
        struct Trial
        {
            Iterator entry;
            bool passes = false;
        };
        std::vector<Trial> trials;
        for (auto end = m_dictionary.cend(); first != end; ++first)
            trials.push_back({first});
        ZelForEachConcurrently(trials.begin(), trials.end(), [&](Trial &trial) {
            trial.passes = bool(std::invoke(block, trial.entry.key(), trial.entry.value()));
        });
        for (const Trial &trial : trials) {
            if (trial.passes)
                selected.insert(trial.entry.key(), trial.entry.value());
        }
    }

    Dictionary &m_dictionary;
};
