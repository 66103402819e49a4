// SPDX-License-Identifier: MIT
#pragma once

#include "Layout/private/ZelLayoutItem.h"

#include <memory>
#include <unordered_map>
#include <vector>

/// The items of a container in the order in which constraints name them, found by their widgets.
class ZelLayoutItems
{
public:
    size_t size() const { return m_items.size(); }
    ZelLayoutItem &operator[](size_t index) const { return *m_items[index]; }
    auto begin() const { return m_items.begin(); }
    auto end() const { return m_items.end(); }

    /// Answers -1 for a widget without an item.
    int indexOf(const QWidget *widget) const
    {
        const auto found = m_indexes.find(widget);
        return found == m_indexes.end() ? -1 : found->second;
    }
    /// Adds the item and answers its index.
    int append(std::unique_ptr<ZelLayoutItem> item)
    {
        const int index = int(m_items.size());
        m_indexes.insert_or_assign(item->widget(), index);
        m_items.push_back(std::move(item));
        return index;
    }
    /// Takes an item out and leaves a hole in its place: for a list that is thrown away afterwards.
    std::unique_ptr<ZelLayoutItem> release(int index)
    {
        m_indexes.erase(m_items[size_t(index)]->widget());
        return std::move(m_items[size_t(index)]);
    }
    std::unique_ptr<ZelLayoutItem> take(size_t index)
    {
        std::unique_ptr<ZelLayoutItem> item = std::move(m_items[index]);
        m_items.erase(m_items.begin() + ptrdiff_t(index));
        m_indexes.clear();
        for (size_t i = 0; i < m_items.size(); ++i)
            m_indexes.insert_or_assign(m_items[i]->widget(), int(i));
        return item;
    }

private:
    std::vector<std::unique_ptr<ZelLayoutItem>> m_items;
    std::unordered_map<const QWidget *, int> m_indexes; // most are small, for which QHash takes a kilobyte
};
