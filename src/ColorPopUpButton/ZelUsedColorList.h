// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Resources/ZelColor.h"

#include <QList>
#include <QMutex>
#include <QObject>

/// How many colours are remembered.
inline constexpr int ZelUsedColorListMax = 24;

/// The colours that were used last in this process, most recent first.
///
/// Colours may be used and read on any thread. Changes are announced on the main thread: at once there, and in the next
/// turn of its event loop for a colour used elsewhere.
class ZelUsedColorList : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QList<ZelColor> colors READ colors NOTIFY colorsChanged)
public:
    static ZelUsedColorList *sharedUsedColorList();

    /// At most ZelUsedColorListMax.
    QList<ZelColor> colors() const;
    /// Puts the colour at the front; the oldest leaves a full list. Announced also for the colour that is the first
    /// already. An invalid colour is an assertion.
    void usedColor(const ZelColor &color);

Q_SIGNALS:
    void colorsChanged();

private:
    ZelUsedColorList();

    mutable QMutex m_mutex;
    QList<ZelColor> m_colors;
};
