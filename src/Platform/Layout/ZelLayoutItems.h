// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Layout/ZelLayoutItem.h"

#include <QHash>
#include <memory>
#include <vector>

/// The items of a container in the order in which constraints name them, found by their widgets. Nearly all containers
/// have a handful of them, which are looked through; only beyond that there is a hash.
class ZelLayoutItems
{
public:
    size_t size() const { return m_items.size(); }
    ZelLayoutItem &operator[](size_t index) const { return *m_items[index]; }
    auto begin() const { return m_items.begin(); }
    auto end() const { return m_items.end(); }

    /// -1 for a widget without an item.
    int indexOf(const QWidget *widget) const
    {
        if (m_items.size() > Few)
            return m_indexes.value(widget, -1);
        for (size_t i = 0; i < m_items.size(); ++i) {
            if (m_items[i] && m_items[i]->widget() == widget)
                return int(i);
        }
        return -1;
    }
    /// Answers its index.
    int append(std::unique_ptr<ZelLayoutItem> item)
    {
        m_items.push_back(std::move(item));
        if (m_items.size() > Few)
            indexLast();
        return int(m_items.size()) - 1;
    }
    /// Leaves a hole, which only the end of the list mends.
    std::unique_ptr<ZelLayoutItem> release(int index) { return std::move(m_items[size_t(index)]); }
    std::unique_ptr<ZelLayoutItem> take(size_t index)
    {
        std::unique_ptr<ZelLayoutItem> item = std::move(m_items[index]);
        m_items.erase(m_items.begin() + ptrdiff_t(index));
        m_indexes.clear();
        for (size_t i = 0; m_items.size() > Few && i < m_items.size(); ++i)
            m_indexes.insert(m_items[i]->widget(), int(i));
        return item;
    }

private:
    static constexpr size_t Few = 12;

    void indexLast()
    {
        const size_t first = m_indexes.isEmpty() ? 0 : m_items.size() - 1;
        for (size_t i = first; i < m_items.size(); ++i)
            m_indexes.insert(m_items[i]->widget(), int(i));
    }

    std::vector<std::unique_ptr<ZelLayoutItem>> m_items;
    QHash<const QWidget *, int> m_indexes; // empty for few items
};
