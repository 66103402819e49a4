// SPDX-License-Identifier: MIT
#include "Core/Errors/ZelSharedPlace.h"

#include <QHash>

#include <array>
#include <limits>

namespace {

quint32 number(qint64 value)
{
    return value > 0 && value <= std::numeric_limits<quint32>::max() ? quint32(value) : 0;
}

} // namespace

ZelSharedPlace::ZelSharedPlace(const ZelSourcePlace &place)
    : m_line(number(place.line))
    , m_column(number(place.column))
{
    if (!place.file.isNull() || !place.element.isNull())
        m_texts = textsOf(place);
}

ZelSourcePlace ZelSharedPlace::place() const
{
    if (!m_texts)
        return {{}, m_line, m_column, {}};
    return {m_texts->file, m_line, m_column, m_texts->element};
}

/// The elements of a description have few names, so that the last texts under each hash are nearly always the same.
QExplicitlySharedDataPointer<ZelSharedPlace::Texts> ZelSharedPlace::textsOf(const ZelSourcePlace &place)
{
    thread_local std::array<QExplicitlySharedDataPointer<Texts>, 32> recent;
    auto &texts = recent[qHash(place.element) % recent.size()];
    if (!texts || texts->element != place.element || texts->file != place.file) {
        texts = new Texts;
        texts->file = place.file;
        texts->element = place.element;
    }
    return texts;
}
