// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"
#include "Resources/ZelColor.h"

#include <QList>
#include <QMutex>
#include <QObject>

/// The number of colours that are remembered.
inline constexpr int ZelUsedColorListMax = 24;

/// The colours that were used last in this process, the most recent one first.
///
/// The list may be read and changed on any thread. Changes are announced on the main thread: at once if they are made
/// there, otherwise in the next turn of its event loop.
class ZEL_EXPORT ZelUsedColorList : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QList<ZelColor> colors READ colors NOTIFY colorsChanged)
public:
    static ZelUsedColorList *sharedUsedColorList();

    /// At most ZelUsedColorListMax colours.
    QList<ZelColor> colors() const;
    /// Puts the colour at the front. A full list loses its oldest colour. The change is announced even if the colour is
    /// the first already. Asserts that the colour is valid.
    void usedColor(const ZelColor &color);

Q_SIGNALS:
    void colorsChanged();

private:
    ZelUsedColorList();

    mutable QMutex m_mutex;
    QList<ZelColor> m_colors;
};
