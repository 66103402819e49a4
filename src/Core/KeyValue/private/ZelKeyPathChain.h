// SPDX-License-Identifier: MIT
#pragma once

#include "Core/KeyValue/ZelKeyValueObserving.h"

#include <QPointer>
#include <memory>
#include <vector>

/// The observation of a path of several keys. It has one level for each object along the path; when an object changes,
/// the levels below it are made anew.
class ZelKeyPathChain : public std::enable_shared_from_this<ZelKeyPathChain>
{
public:
    ZelKeyPathChain(QObject *root, ZelKeyValueObserver *observer, const ZelKeyPath &path,
                    ZelKeyValueObservingOptions options, const void *context);
    ~ZelKeyPathChain();

    void start();
    /// Ends the observation. May be called in the middle of a delivery.
    void stop();
    bool isFor(const ZelKeyValueObserver *observer, const ZelKeyPath &path, const void *context) const
    {
        return m_observer == observer && m_path == path && m_context == context;
    }

private:
    class Level;
    class Source;
    /// Makes the levels below fit the objects that are there now. Answers whether the next object is the same as
    /// before.
    bool attachBelow(size_t level);
    /// Called when the next object is the same: makes the levels below fit where a change may not have been heard of.
    /// Answers whether there are such levels.
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
