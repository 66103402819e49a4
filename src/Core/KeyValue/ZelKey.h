// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"

#include <QByteArray>
#include <QHash>
#include <QString>

class ZelKeyPath;

/// A property name, interned: making a key looks the name up, after which the key is a mere pointer.
///
/// Interned names are never freed; make keys from names in code and descriptions, not from user data.
/// Keys may be made on any thread.
class ZEL_EXPORT ZelKey
{
public:
    ZelKey() = default;
    ZelKey(const QString &name);
    ZelKey(const char *name)
        : ZelKey(QString::fromUtf8(name))
    {
    }

    bool isEmpty() const { return !m_entry; }
    const QString &string() const;
    /// The name in UTF-8, as the meta-object system wants it.
    const QByteArray &name() const;

    friend bool operator==(ZelKey a, ZelKey b) { return a.m_entry == b.m_entry; }
    friend size_t qHash(ZelKey key, size_t seed = 0) { return ::qHash(key.m_entry, seed); }

private:
    friend class ZelKeyPath;
    struct Entry;
    /// The path of that text, which is kept with the key.
    const ZelKeyPath &path() const;

    const Entry *m_entry = nullptr;
};
