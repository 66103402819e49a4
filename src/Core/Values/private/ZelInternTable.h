// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QReadWriteLock>
#include <QString>
#include <memory>

/// Keeps one Entry for each text, for ever. An Entry is made from its text. The table may be used on any thread.
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
        // The entry is made outside the lock, since it may intern its parts. If another thread was faster, it is
        // dropped.
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
