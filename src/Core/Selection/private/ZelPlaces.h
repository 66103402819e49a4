// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <vector>

/// The places of objects in a list from which some may be left out. It takes no memory as long as none is.
class ZelPlaces
{
public:
    explicit ZelPlaces(qsizetype first = 0)
        : m_first(first)
    {
    }

    void append(qsizetype place)
    {
        if (m_places.empty() && place != m_first + m_count) {
            for (qsizetype i = 0; i < m_count; ++i)
                m_places.push_back(m_first + i);
            m_places.push_back(place);
        } else if (!m_places.empty()) {
            m_places.push_back(place);
        }
        ++m_count;
    }
    qsizetype at(qsizetype index) const { return m_places.empty() ? m_first + index : m_places[size_t(index)]; }
    qsizetype count() const { return m_count; }

private:
    qsizetype m_first;
    qsizetype m_count = 0;
    std::vector<qsizetype> m_places; // empty as long as they follow each other
};
