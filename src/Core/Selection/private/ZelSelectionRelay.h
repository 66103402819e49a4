// SPDX-License-Identifier: MIT
#pragma once

#include "Core/KeyValue/ZelKeyValueObserving.h"

#include <QPointer>
#include <memory>
#include <vector>

class ZelSelectionProxy;

/// Hears of changes of one key path (or, with an empty path, of the deaths) of all selected objects.
///
/// The objects are connected in slices, each of which is a receiver of its own, so that neither connecting nor
/// disconnecting a large selection blocks. The slices of an ended relay are deleted in batches while the application is
/// idle.
class ZelSelectionRelay
{
public:
    ZelSelectionRelay(ZelSelectionProxy &proxy, const ZelKeyPath &path);
    ~ZelSelectionRelay();
    Q_DISABLE_COPY_MOVE(ZelSelectionRelay)

    bool isComplete() const { return m_connected >= m_objects.size(); }
    /// Connects the next slice.
    void connectSlice();
    /// Listens to these objects instead: at once if they are few, otherwise slice by slice.
    void setObjects(const QList<QPointer<QObject>> &objects);

    /// The number of objects that are connected at once.
    static constexpr qsizetype sliceSize = 1000;

private:
    class Slice;
    void retire();

    ZelSelectionProxy &m_proxy;
    ZelKeyPath m_path;
    QList<QPointer<QObject>> m_objects;
    qsizetype m_connected = 0;
    std::vector<std::unique_ptr<Slice>> m_slices;
};
