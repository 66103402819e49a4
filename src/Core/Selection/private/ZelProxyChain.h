// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractProxyModel>
#include <QVarLengthArray>

/// The models from that of a view to the one behind all proxies. It is made for one use and not kept.
class ZelProxyChain
{
public:
    explicit ZelProxyChain(QAbstractItemModel *viewModel)
        : m_source(viewModel)
    {
        while (auto *proxy = qobject_cast<QAbstractProxyModel *>(m_source)) {
            m_proxies.append(proxy);
            m_source = proxy->sourceModel();
        }
    }

    /// Null if the last proxy has no model.
    QAbstractItemModel *source() const { return m_source; }
    bool hasProxies() const { return !m_proxies.isEmpty(); }
    QModelIndex toSource(QModelIndex index) const
    {
        for (const QAbstractProxyModel *proxy : m_proxies)
            index = proxy->mapToSource(index);
        return index;
    }
    /// Takes an index of any of the models to the view's. Invalid if the view does not have it.
    QModelIndex toView(QModelIndex index) const
    {
        auto proxy = m_proxies.end();
        while (proxy != m_proxies.begin() && index.isValid() && index.model() != m_proxies.first()) {
            --proxy;
            if (index.model() == (*proxy)->sourceModel())
                index = (*proxy)->mapFromSource(index);
        }
        return index;
    }

private:
    QVarLengthArray<QAbstractProxyModel *, 4> m_proxies;
    QAbstractItemModel *m_source;
};
