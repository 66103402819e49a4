// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Runtime/ZelKey.h"

/// A dot-separated path of property names, parsed and interned once.
class ZelKeyPath
{
public:
    ZelKeyPath() = default;
    ZelKeyPath(const QString &path);
    ZelKeyPath(const char *path)
        : ZelKeyPath(QString::fromUtf8(path))
    {
    }
    ZelKeyPath(ZelKey key)
        : ZelKeyPath(key.string())
    {
    }

    bool isEmpty() const { return !m_entry; }
    const QString &string() const;
    /// The first segment.
    ZelKey first() const;
    /// What follows the first dot; empty for a path of one segment.
    ZelKeyPath rest() const;
    bool isSingleKey() const { return rest().isEmpty(); }

    friend bool operator==(const ZelKeyPath &a, const ZelKeyPath &b) { return a.m_entry == b.m_entry; }
    friend size_t qHash(const ZelKeyPath &path, size_t seed = 0) { return ::qHash(path.m_entry, seed); }

private:
    struct Entry;
    const Entry *m_entry = nullptr;
};
