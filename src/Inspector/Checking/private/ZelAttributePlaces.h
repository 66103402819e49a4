// SPDX-License-Identifier: MIT
#pragma once

#include "Core/Errors/ZelSourcePlace.h"

#include <QByteArray>
#include <QHash>

/// Finds where the attributes of an element begin: the reader keeps only the places of tags. Files are read again,
/// once.
class ZelAttributePlaces
{
public:
    /// The place of the attribute; that of the element if the attribute or the file is not there.
    ZelSourcePlace placeOf(const QString &attribute, const ZelSourcePlace &element);

private:
    const QByteArray &textOf(const QString &file);

    QHash<QString, QByteArray> m_texts;
};
