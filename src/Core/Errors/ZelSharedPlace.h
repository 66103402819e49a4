// SPDX-License-Identifier: MIT
#pragma once

#include "Core/Errors/ZelSourcePlace.h"
#include "Core/ZelExport.h"

#include <QExplicitlySharedDataPointer>
#include <QSharedData>

/// A place in a quarter of the memory: places of elements of one name in one file share the texts.
class ZEL_EXPORT ZelSharedPlace
{
public:
    ZelSharedPlace() = default;
    ZelSharedPlace(const ZelSourcePlace &place);

    /// What it was made from. Lines and columns from 2^32 are unknown.
    ZelSourcePlace place() const;

private:
    struct Texts : QSharedData
    {
        QString file;
        QString element;
    };
    static QExplicitlySharedDataPointer<Texts> textsOf(const ZelSourcePlace &place);

    QExplicitlySharedDataPointer<Texts> m_texts;
    quint32 m_line = 0;
    quint32 m_column = 0;
};
