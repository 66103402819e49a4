// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"
#include "Resources/ZelColor.h"

#include <QSharedPointer>
#include <QStringList>
#include <functional>
#include <utility>

class ZelColorList;
using ZelColorListPtr = QSharedPointer<ZelColorList>;

/// A named, ordered list of colours with keys.
///
/// "Crayons" (plain colours) and "System" (the palette's colours, computed when they are shown) are always there; an
/// application adds its own. Lists are filled and added on the main thread; look-ups may follow on any.
class ZEL_EXPORT ZelColorList
{
public:
    using Entry = std::pair<QString, ZelColor>;
    /// The colour that a key of a computed list stands for at this moment.
    using Source = std::function<QColor(const QString &key)>;

    explicit ZelColorList(const QString &name, const QList<Entry> &entries = {});
    /// A computed list: its colours are named ones.
    ZelColorList(const QString &name, const QStringList &keys, const Source &source);

    const QString &name() const { return m_name; }
    QStringList allKeys() const;
    /// Invalid for an unknown key.
    ZelColor colorWithKey(const QString &key) const;
    /// Whether the colours are computed, and what one of them is at this moment; invalid for an unknown key.
    bool isComputed() const { return bool(m_source); }
    QColor computedColorWithKey(const QString &key) const;
    /// Replaces the colour of the key, or appends it.
    void setColorForKey(const ZelColor &color, const QString &key);
    void removeColorWithKey(const QString &key);

    /// All lists: "Crayons", "System", then the application's in the order in which they were added.
    static QList<ZelColorListPtr> availableColorLists();
    /// Null for an unknown name.
    static ZelColorListPtr colorListNamed(const QString &name);
    /// Adds a list, in the place of the one of the same name if there is one.
    static void addColorList(const ZelColorListPtr &list);
    static void removeColorListNamed(const QString &name);

private:
    QString m_name;
    QList<Entry> m_entries;
    Source m_source;
};
Q_DECLARE_METATYPE(ZelColorListPtr)
