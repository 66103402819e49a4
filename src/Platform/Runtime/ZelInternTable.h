// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QReadWriteLock>
#include <QString>
#include <memory>

/// Keeps one immortal Entry for each text. Entry is constructible from the text. Thread safe.
template<typename Entry> class ZelInternTable
{
public:
    static const Entry *intern(const QString &text)
    {
        static ZelInternTable *table = new ZelInternTable; // entries outlive every static destructor
        {
            QReadLocker locker(&table->m_lock);
            if (const Entry *entry = table->m_entries.value(text))
                return entry;
        }
        // Made outside the lock: making an entry may intern its parts.
        auto made = std::make_unique<Entry>(text);
        QWriteLocker locker(&table->m_lock);
        const Entry *&entry = table->m_entries[text];
        if (!entry)
            entry = made.release();
        return entry;
    }

private:
    QReadWriteLock m_lock;
    QHash<QString, const Entry *> m_entries;
};
