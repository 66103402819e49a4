// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Runtime/ZelKeyValueObserving.h"

#include <QPointer>
#include <memory>
#include <vector>

/// The observation of a path of several keys: one level for each object along the path, rebuilt from where it changed.
class ZelKeyPathChain : public std::enable_shared_from_this<ZelKeyPathChain>
{
public:
    ZelKeyPathChain(QObject *root, ZelKeyValueObserver *observer, const ZelKeyPath &path,
                    ZelKeyValueObservingOptions options, const void *context);
    ~ZelKeyPathChain();

    void start();
    /// Ends it, also in the middle of a delivery.
    void stop();
    bool isFor(const ZelKeyValueObserver *observer, const ZelKeyPath &path, const void *context) const
    {
        return m_observer == observer && m_path == path && m_context == context;
    }

private:
    class Level;
    class Source;
    /// Whether the next object below is the same as before.
    bool attachBelow(size_t level);
    /// For a level below which the objects are the same: follows what may have changed unheard. Whether there is such.
    bool rereadSilentBelow(size_t level);
    void detachFrom(size_t level);
    void changed(size_t level, const ZelKeyValueChange &change);
    void deliver(const ZelKeyValueChange &change);
    QVariant value() const;

    QPointer<QObject> m_root;
    ZelKeyValueObserver *m_observer;
    ZelKeyPath m_path;
    ZelKeyValueObservingOptions m_options;
    const void *m_context;
    std::vector<std::unique_ptr<Level>> m_levels;
    std::vector<std::unique_ptr<Level>> m_retired; // replaced while one of them was delivering
    int m_delivering = 0;
    ZelKeptValue m_last; // the value delivered last, where the old one is asked for
};
