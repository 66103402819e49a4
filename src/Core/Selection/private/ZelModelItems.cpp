// SPDX-License-Identifier: MIT
#include "Core/Selection/private/ZelModelItems.h"

#include "Core/Errors/ZelExceptionReporter.h"
#include "Core/Selection/private/ZelModelKeys.h"

#include <QTimerEvent>

ZelModelItems *ZelModelItems::of(QAbstractItemModel *model, const ZelModelKeys *keys)
{
    const auto all = model->findChildren<ZelModelItems *>(Qt::FindDirectChildrenOnly);
    for (ZelModelItems *items : all) {
        if (items->m_keys == keys && !items->m_isOver)
            return items;
    }
    return new ZelModelItems(model, keys);
}

ZelModelItems::ZelModelItems(QAbstractItemModel *model, const ZelModelKeys *keys)
    : ZelGuarded<QObject>(model)
    , m_keys(keys)
{
    connect(model, &QAbstractItemModel::dataChanged, this, &ZelModelItems::dataChanged);
    connect(model, &QAbstractItemModel::rowsRemoved, this, &ZelModelItems::rowsGone);
    connect(model, &QAbstractItemModel::layoutChanged, this, &ZelModelItems::rowsGone);
    connect(model, &QAbstractItemModel::modelReset, this, &ZelModelItems::rowsGone);
    connect(model, &QAbstractItemModel::columnsInserted, this, &ZelModelItems::endAll);
    connect(model, &QAbstractItemModel::columnsRemoved, this, &ZelModelItems::endAll);
    connect(model, &QAbstractItemModel::columnsMoved, this, &ZelModelItems::endAll);
}

ZelModelItems::~ZelModelItems()
{
    qDeleteAll(std::exchange(m_items, {}));
}

ZelModelItem *ZelModelItems::item(const QModelIndex &row, bool isLocked)
{
    const QPersistentModelIndex index(row);
    const ZelModelItemClass *itemClass = m_keys->classOf(row, isLocked);
    const auto [begin, end] = std::as_const(m_items).equal_range(index);
    for (auto known = begin; known != end; ++known) {
        if ((*known)->itemClass() == itemClass && (*known)->isLocked() == isLocked)
            return *known;
    }
    return *m_items.insert(index, ZelModelItem::make(row, itemClass, isLocked).release());
}

void ZelModelItems::release(const QList<QPointer<ZelModelItem>> &items)
{
    for (const QPointer<ZelModelItem> &item : items) {
        if (!item)
            continue;
        item->release();
        if (!item->isNeeded() && item->index().isValid() && m_items.remove(item->index(), item) > 0)
            discard(item);
    }
}

void ZelModelItems::dataChanged(const QModelIndex &first, const QModelIndex &last, const QList<int> &roles)
{
    if (m_items.isEmpty() || !first.isValid() || !last.isValid())
        return;
    const QList<int> places = m_keys->concerned(first.column(), last.column(), roles);
    const QPointer<ZelModelItems> alive(this);
    for (const QPointer<ZelModelItem> &item : itemsBetween(first, last)) {
        for (const int place : places)
            ZelExceptionReporter::run(nullptr, [&] { item ? item->announce(place) : void(); });
        if (!alive)
            return;
        if (item && item->index().isValid() && m_keys->classOf(item->index(), item->isLocked()) != item->itemClass()) {
            m_isOutdated = true;
            tidyLater();
        }
    }
}

QList<QPointer<ZelModelItem>> ZelModelItems::itemsBetween(const QModelIndex &first, const QModelIndex &last) const
{
    QList<QPointer<ZelModelItem>> found;
    const QModelIndex parent = first.parent();
    if (last.row() - first.row() < m_items.size()) {
        for (int row = first.row(); row <= last.row(); ++row) {
            const auto [begin, end] = m_items.equal_range(first.sibling(row, 0));
            for (auto item = begin; item != end; ++item)
                found.append(*item);
        }
        return found;
    }
    for (ZelModelItem *item : m_items) {
        const QPersistentModelIndex &index = item->index();
        if (index.row() >= first.row() && index.row() <= last.row() && index.parent() == parent)
            found.append(item);
    }
    return found;
}

void ZelModelItems::rowsGone()
{
    m_hasGone = true;
    tidyLater();
}

void ZelModelItems::endAll()
{
    m_isOver = true;
    for (ZelModelItem *item : std::exchange(m_items, {})) {
        item->end();
        discard(item);
    }
    tidyLater();
}

void ZelModelItems::discard(ZelModelItem *item)
{
    m_discarded.emplace_back(item);
    tidyLater();
}

void ZelModelItems::tidyLater()
{
    if (!m_tidying.isActive())
        m_tidying.start(0, this);
}

bool ZelModelItems::handleEvent(QEvent *event)
{
    if (event->type() != QEvent::Timer || static_cast<QTimerEvent *>(event)->timerId() != m_tidying.timerId())
        return ZelGuarded<QObject>::handleEvent(event);
    m_tidying.stop();
    if (std::exchange(m_hasGone, false)) {
        m_items.removeIf([this](const auto &entry) {
            const bool isGone = !entry.value()->index().isValid();
            if (isGone)
                m_discarded.emplace_back(entry.value());
            return isGone;
        });
    }
    const QPointer<ZelModelItems> alive(this);
    for (std::unique_ptr<ZelModelItem> &item : std::exchange(m_discarded, {}))
        item.reset();
    if (alive && std::exchange(m_isOutdated, false))
        Q_EMIT outdated();
    if (alive && m_isOver && m_discarded.empty())
        deleteLater();
    return true;
}
