// SPDX-License-Identifier: MIT
#include "Core/Selection/ZelItemSelection.h"

#include "Core/Errors/ZelExceptionReporter.h"
#include "Core/RunLoop/ZelMemberScope.h"
#include "Core/Selection/private/ZelModelItems.h"
#include "Core/Selection/private/ZelModelKeys.h"
#include "Core/Selection/private/ZelProxyChain.h"
#include "Core/Selection/private/ZelRowRanges.h"
#include "Core/Values/ZelValues.h"

#include <QSet>
#include <QTimerEvent>

namespace {

QList<QObject *> living(const QList<QPointer<QObject>> &objects)
{
    QList<QObject *> found;
    found.reserve(objects.size());
    for (const QPointer<QObject> &object : objects) {
        if (object)
            found.append(object);
    }
    return found;
}

bool isSelectable(const QModelIndex &index)
{
    constexpr Qt::ItemFlags needed = Qt::ItemIsSelectable | Qt::ItemIsEnabled;
    return (index.flags() & needed) == needed;
}

/// Whether a proxy does not let a row be edited that its model would.
bool isLockedByProxy(const QModelIndex &inView, const QModelIndex &inSource)
{
    return inView.model() != inSource.model() && !inView.flags().testFlag(Qt::ItemIsEditable) &&
           inSource.flags().testFlag(Qt::ItemIsEditable);
}

} // namespace

ZelItemSelection::ZelItemSelection(QItemSelectionModel *selectionModel, ZelObjectController *controller)
    : ZelItemSelection(selectionModel, controller, ObjectFunction())
{
}

ZelItemSelection::ZelItemSelection(QItemSelectionModel *selectionModel, ZelObjectController *controller, int objectRole)
    : ZelItemSelection(selectionModel, controller,
                       [objectRole](const QModelIndex &row) { return ZelObject(row.data(objectRole)); })
{
    m_role = objectRole;
}

ZelItemSelection::ZelItemSelection(QItemSelectionModel *selectionModel, ZelObjectController *controller,
                                   const ObjectFunction &objectOf, const IndexFunction &indexOf)
    : ZelGuarded<QObject>(controller)
    , m_controller(controller)
    , m_objectOf(objectOf)
    , m_indexOf(indexOf)
{
    if (controller)
        connect(controller, &ZelObjectController::selectionChanged, this, &ZelItemSelection::showSelection);
    follow(selectionModel);
    if (selectionModel && selectionModel->hasSelection())
        takeSelection();
    else
        showSelection();
}

ZelItemSelection::~ZelItemSelection()
{
    keep({});
}

void ZelItemSelection::setSelectionModel(QItemSelectionModel *selectionModel)
{
    if (selectionModel == m_selectionModel)
        return;
    if (m_selectionModel)
        disconnect(m_selectionModel, nullptr, this, nullptr);
    follow(selectionModel);
    takeSelection();
}

void ZelItemSelection::follow(QItemSelectionModel *selectionModel)
{
    m_selectionModel = selectionModel;
    if (selectionModel) {
        connect(selectionModel, &QItemSelectionModel::selectionChanged, this, &ZelItemSelection::takeSelection);
        connect(selectionModel, &QItemSelectionModel::modelChanged, this, &ZelItemSelection::modelWasReset);
        connect(selectionModel, &QObject::destroyed, this, &ZelItemSelection::takeSelection);
    }
    followModel();
}

void ZelItemSelection::followModel()
{
    for (const QPointer<QAbstractItemModel> &model : {m_model, m_source}) {
        if (model)
            disconnect(model, nullptr, this, nullptr);
    }
    m_items.clear();
    m_model = m_selectionModel ? m_selectionModel->model() : nullptr;
    m_source = ZelProxyChain(m_model).source();
    if (m_model) {
        connect(m_model, &QAbstractItemModel::modelReset, this, &ZelItemSelection::modelWasReset);
        connect(m_model, &QObject::destroyed, this, &ZelItemSelection::takeSelection);
    }
    if (m_model && m_objectOf) {
        connect(m_model, &QAbstractItemModel::dataChanged, this, [this](auto &, auto &, const QList<int> &roles) {
            if (roles.isEmpty() || roles.contains(m_role))
                retakeLater();
        });
    } else if (m_source) {
        connect(m_source, &QAbstractItemModel::headerDataChanged, this, &ZelItemSelection::keysChanged);
        connect(m_source, &QAbstractItemModel::columnsInserted, this, &ZelItemSelection::keysChanged);
        connect(m_source, &QAbstractItemModel::columnsRemoved, this, &ZelItemSelection::keysChanged);
        connect(m_source, &QAbstractItemModel::columnsMoved, this, &ZelItemSelection::keysChanged);
    }
}

void ZelItemSelection::modelWasReset()
{
    followModel(); // a proxy may have another model now, and the model other keys
    takeSelection();
}

void ZelItemSelection::keysChanged()
{
    m_items.clear();
    retakeLater(); // when the former items have ended, too
}

void ZelItemSelection::retakeLater()
{
    if (!m_retaking.isActive())
        m_retaking.start(0, this);
}

bool ZelItemSelection::handleEvent(QEvent *event)
{
    if (event->type() != QEvent::Timer || static_cast<QTimerEvent *>(event)->timerId() != m_retaking.timerId())
        return ZelGuarded<QObject>::handleEvent(event);
    m_retaking.stop();
    takeSelection();
    return true;
}

void ZelItemSelection::setKey(const QString &key, int column, int role, QMetaType type)
{
    m_keys.removeIf([&](const ZelModelKey &known) { return known.key == ZelKey(key); });
    m_keys.append({ZelKey(key), column, role, type});
    m_items.clear();
    takeSelection();
}

QModelIndex ZelItemSelection::indexOf(QObject *object) const
{
    return object && m_model ? indexesOf({object}).value(0) : QModelIndex();
}

ZelModelItems *ZelItemSelection::items()
{
    if (!m_items) {
        m_items = ZelModelItems::of(m_source, ZelModelKeys::of(*m_source, m_keys));
        connect(m_items, &ZelModelItems::outdated, this, &ZelItemSelection::takeSelection, Qt::UniqueConnection);
    }
    return m_items;
}

QList<QObject *> ZelItemSelection::selectedObjects()
{
    QList<QObject *> objects;
    if (!m_selectionModel || !m_model || !m_source)
        return objects;
    const ZelProxyChain proxies(m_model);
    for (const QItemSelectionRange &range : ZelRowRanges::sorted(m_selectionModel->selection())) {
        const QModelIndex parent = range.parent();
        for (int row = range.top(); row <= range.bottom(); ++row) {
            const QModelIndex index = m_model->index(row, range.left(), parent);
            if (!isSelectable(index))
                continue;
            if (m_objectOf) {
                objects.append(m_objectOf(index.siblingAtColumn(0)));
                continue;
            }
            const QModelIndex source = proxies.toSource(index);
            if (source.isValid())
                objects.append(items()->item(source.siblingAtColumn(0), isLockedByProxy(index, source)));
        }
    }
    return objects;
}

/// Lets go of the items that were selected only when the controller has the new ones: what is being typed is written
/// into the former ones at that moment.
void ZelItemSelection::takeSelection()
{
    if (m_isTaking || m_isShowing) {
        ++m_heard;
        return;
    }
    const QPointer<ZelItemSelection> alive(this);
    ZelExceptionReporter::run(this, [this] {
        const ZelMemberScope taking(this, m_isTaking, true);
        m_heard = 0;
        const QList<QObject *> objects = selectedObjects();
        if (m_controller)
            m_controller->setSelectedObjects(objects);
    });
    if (!alive || !m_controller)
        return;
    const bool isOther = m_heard > 1; // somebody has selected something else meanwhile
    if (!isOther)
        m_known = m_controller->heldObjects();
    keep(m_controller->selectedObjects());
    if (isOther)
        showSelection();
}

void ZelItemSelection::showSelection()
{
    if (m_isTaking || m_isShowing) {
        ++m_heard;
        return;
    }
    if (!m_controller || !m_selectionModel || !m_model)
        return;
    const QList<QObject *> objects = m_controller->selectedObjects();
    const bool isShown = objects == living(m_known); // where objects die, the model is about to remove their rows
    m_known = m_controller->heldObjects();
    const QPointer<ZelItemSelection> alive(this);
    if (!isShown)
        ZelExceptionReporter::run(this, [&] { select(objects); });
    if (!alive || !m_controller)
        return;
    keep(m_controller->selectedObjects());
    if (!isShown && m_heard > 1)
        retakeLater(); // somebody has changed one of the selections meanwhile
}

void ZelItemSelection::select(const QList<QObject *> &objects)
{
    const ZelMemberScope showing(this, m_isShowing, true);
    m_heard = 0;
    const QPointer<QItemSelectionModel> selectionModel = m_selectionModel;
    const QItemSelection rows = ZelRowRanges::ofRows(indexesOf(objects));
    selectionModel->select(rows, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    if (selectionModel && !rows.isEmpty() && rows.first().isValid() &&
        !selectionModel->isSelected(selectionModel->currentIndex()))
        selectionModel->setCurrentIndex(rows.first().topLeft(), QItemSelectionModel::NoUpdate);
}

QModelIndexList ZelItemSelection::indexesOf(const QList<QObject *> &objects) const
{
    if (m_objectOf && !m_indexOf)
        return search(objects);
    const ZelProxyChain proxies(m_model);
    QModelIndexList indexes;
    indexes.reserve(objects.size());
    for (const QObject *object : objects) {
        const auto *item = dynamic_cast<const ZelModelItem *>(object);
        const QModelIndex index = m_indexOf ? m_indexOf(object) : item ? QModelIndex(item->index()) : QModelIndex();
        indexes.append(index.isValid() ? proxies.toView(index) : QModelIndex());
    }
    return indexes;
}

/// Goes through the rows that the view's model has now until all objects are found.
QModelIndexList ZelItemSelection::search(const QList<QObject *> &objects) const
{
    QSet<QObject *> wanted(objects.begin(), objects.end());
    QModelIndexList found;
    QModelIndexList parents{QModelIndex()};
    while (!parents.isEmpty() && !wanted.isEmpty()) {
        const QModelIndex parent = parents.takeLast();
        for (int row = 0; row < m_model->rowCount(parent) && !wanted.isEmpty(); ++row) {
            const QModelIndex index = m_model->index(row, 0, parent);
            if (wanted.remove(m_objectOf(index)))
                found.append(index);
            if (m_model->hasChildren(index))
                parents.append(index);
        }
    }
    return found;
}

void ZelItemSelection::keep(const QList<QObject *> &objects)
{
    if (m_retained.isEmpty() && !m_items)
        return;
    QList<QPointer<ZelModelItem>> retained;
    for (QObject *object : objects) {
        auto *item = m_items ? dynamic_cast<ZelModelItem *>(object) : nullptr;
        if (item)
            retained.append(item);
    }
    for (const QPointer<ZelModelItem> &item : std::as_const(retained))
        item->retain();
    m_retained.swap(retained);
    if (m_retainedOf)
        m_retainedOf->release(retained);
    m_retainedOf = m_items;
}
