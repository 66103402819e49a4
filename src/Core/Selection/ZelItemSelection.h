// SPDX-License-Identifier: MIT
#pragma once

#include "Core/RunLoop/ZelGuarded.h"
#include "Core/Selection/ZelObjectController.h"
#include "Core/ZelExport.h"

#include <QBasicTimer>
#include <QItemSelectionModel>
#include <QList>
#include <QMetaType>
#include <QPointer>
#include <functional>

class ZelModelItem;
class ZelModelItems;
struct ZelModelKey;

/// Keeps the selection of an item view and that of a controller the same: what is selected in the view is edited, and
/// what the controller selects is selected in the view.
///
///     new ZelItemSelection(tree->selectionModel(), &controller, Qt::UserRole); // data(Qt::UserRole) is a row's
///     QObject new ZelItemSelection(table->selectionModel(), &controller);              // rows without objects
///
/// A model without objects needs neither a role nor a function: then each selected row is edited by the model's data()
/// and setData(). Its keys are the model's role names (of the first column) and the texts of its headers as keys, "Due
/// date" as dueDate, with the values of Qt::EditRole; setKey names others. Cells that are not editable are read-only
/// keys. What setData does not take is shown as the model keeps it. A value keeps its type: what is written is
/// converted to the type of the present one. dataChanged announces changes.
///
/// There may be proxy models between the view and the model: rows are those of the model behind all proxies, so that
/// neither sorting nor filtering loses an edit, or a step of undo. Such steps reach a row as long as it exists: a row
/// that was removed and inserted again is another one, and so are all rows after a reset of the model or when its
/// columns change.
///
/// It is a child of the controller. Selection model and models are held weakly: when one of them dies, nothing is
/// selected any more. Rows come in the order in which the view shows them.
class ZEL_EXPORT ZelItemSelection : public ZelGuarded<QObject>
{
    Q_OBJECT
public:
    /// Answers the object of a row of the view's model, or null. The index is in the row's first column.
    using ObjectFunction = std::function<QObject *(const QModelIndex &row)>;
    /// Answers the row of an object, in the view's model or in one behind it.
    using IndexFunction = std::function<QModelIndex(const QObject *object)>;

    /// Edits the rows themselves. The view's selection is taken over into the controller or, if it is empty, the
    /// controller's into the view.
    ZelItemSelection(QItemSelectionModel *selectionModel, ZelObjectController *controller);
    /// Edits the object that data() answers for a row, in its first column, and this role.
    ZelItemSelection(QItemSelectionModel *selectionModel, ZelObjectController *controller, int objectRole);
    /// Edits the objects that a function answers. Without a function for the way back, the view's model is searched.
    ZelItemSelection(QItemSelectionModel *selectionModel, ZelObjectController *controller,
                     const ObjectFunction &objectOf, const IndexFunction &indexOf = {});
    ~ZelItemSelection() override;

    QItemSelectionModel *selectionModel() const { return m_selectionModel; }
    /// Follows another selection model: a view makes one whenever it gets another model. The controller selects what is
    /// selected there.
    void setSelectionModel(QItemSelectionModel *selectionModel);

    /// Names a key of the rows: the values of a column of the model behind all proxies. Of Qt::CheckStateRole they are
    /// booleans. A type is that of all values: editors refuse, while one types, what it does not hold. Without one, a
    /// value is converted to the type of the present one, and an absent value takes any.
    void setKey(const QString &key, int column, int role = Qt::EditRole, QMetaType type = {});

    /// The row of a selected object in the view's model; invalid if it is not there.
    QModelIndex indexOf(QObject *object) const;

    bool handleEvent(QEvent *event) override;

private:
    void follow(QItemSelectionModel *selectionModel);
    void followModel();
    void modelWasReset();
    void keysChanged();
    void retakeLater();
    void takeSelection();
    void showSelection();
    void select(const QList<QObject *> &objects);
    QList<QObject *> selectedObjects();
    ZelModelItems *items();
    QModelIndexList indexesOf(const QList<QObject *> &objects) const;
    QModelIndexList search(const QList<QObject *> &objects) const;
    void keep(const QList<QObject *> &objects);

    QPointer<QItemSelectionModel> m_selectionModel;
    QPointer<QAbstractItemModel> m_model;  // of the view
    QPointer<QAbstractItemModel> m_source; // behind all proxies
    QPointer<ZelObjectController> m_controller;
    ObjectFunction m_objectOf; // empty if the rows themselves are edited
    IndexFunction m_indexOf;
    int m_role = -1; // by which m_objectOf reads, or -1
    QList<ZelModelKey> m_keys;
    QPointer<ZelModelItems> m_items;  // null until they are needed
    QList<QPointer<QObject>> m_known; // the selection that view and controller had in common last
    QList<QPointer<ZelModelItem>> m_retained;
    QPointer<ZelModelItems> m_retainedOf;
    QBasicTimer m_retaking;
    bool m_isTaking = false;
    bool m_isShowing = false;
    int m_heard = 0; // changes of the other side while one is being taken or shown
};
