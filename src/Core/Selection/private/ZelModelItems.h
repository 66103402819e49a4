// SPDX-License-Identifier: MIT
#pragma once

#include "Core/RunLoop/ZelGuarded.h"
#include "Core/Selection/private/ZelModelItem.h"

#include <QAbstractItemModel>
#include <QBasicTimer>
#include <QMultiHash>
#include <QPointer>
#include <vector>

class ZelModelKeys;

/// The items of a model: objects for those of its rows that are selected or were written. It belongs to the model, so
/// that undo reaches the rows as long as they exist, whichever view they were selected in.
class ZelModelItems : public ZelGuarded<QObject>
{
    Q_OBJECT
public:
    /// The model's items with these keys.
    static ZelModelItems *of(QAbstractItemModel *model, const ZelModelKeys *keys);
    ~ZelModelItems() override;

    /// The item of the row of that index, which is made if it does not exist.
    ZelModelItem *item(const QModelIndex &row, bool isLocked);
    /// Ends the use of items, which somebody has retained, and forgets those that are not needed any more.
    void release(const QList<QPointer<ZelModelItem>> &items);

    bool handleEvent(QEvent *event) override;

Q_SIGNALS:
    /// The flags of rows have changed, so that other keys of them are read-only now: other items stand for them.
    void outdated();

private:
    ZelModelItems(QAbstractItemModel *model, const ZelModelKeys *keys);
    void dataChanged(const QModelIndex &first, const QModelIndex &last, const QList<int> &roles);
    QList<QPointer<ZelModelItem>> itemsBetween(const QModelIndex &first, const QModelIndex &last) const;
    void rowsGone();
    void endAll();
    void discard(ZelModelItem *item);
    void tidyLater();

    const ZelModelKeys *m_keys;
    QMultiHash<QPersistentModelIndex, ZelModelItem *> m_items;
    std::vector<std::unique_ptr<ZelModelItem>> m_discarded; // deleted when none of their functions can be running
    QBasicTimer m_tidying;
    bool m_hasGone = false;    // some of the rows may be gone
    bool m_isOutdated = false; // see outdated()
    bool m_isOver = false;     // the keys mean other columns now
};
