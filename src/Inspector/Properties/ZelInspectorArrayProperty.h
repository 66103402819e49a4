// SPDX-License-Identifier: MIT
#pragma once

#include "ActionBar/ZelActionBar.h"
#include "Controls/ZelLabel.h"
#include "Core/KeyValue/ZelKeptValue.h"
#include "Core/Undo/ZelUndoBurst.h"
#include "Core/ZelExport.h"
#include "Inspector/Properties/ZelInspectorProperty.h"

#include <QTableView>

class ZelArrayTableModel;
class ZelArrayTableView;

/// Edits a list of short values in a table of one column, with buttons to add and to remove below it.
///
/// The list is a QStringList, a QVariantList or any other sequence; every edit replaces it as a whole, by a list of the
/// same type. What is entered takes the type of the element that it replaces; a text that is no such value changes
/// nothing. Selected rows can be moved, by dragging them and with Alt and an arrow key. Where the lists of several
/// objects differ, the table says so instead of rows, and nothing can be edited.
class ZEL_EXPORT ZelInspectorArrayProperty : public ZelInspectorProperty
{
    Q_OBJECT
    Q_PROPERTY(QVariant defaultValue MEMBER defaultValue)
    Q_PROPERTY(ZelView *borderView MEMBER m_borderView)
    Q_PROPERTY(QAbstractScrollArea *scrollView READ scrollView STORED false)
    Q_PROPERTY(QTableView *tableView READ tableView STORED false)
    Q_PROPERTY(ZelActionBar *actionBar MEMBER m_actionBar)
    Q_PROPERTY(ZelLabel *label MEMBER m_label)
    Q_PROPERTY(QVariant reflectedValues READ reflectedValues STORED false)
    Q_PROPERTY(ZelActionBarItem *addActionItem MEMBER m_addActionItem)
    Q_PROPERTY(ZelActionBarItem *removeActionItem MEMBER m_removeActionItem)
public:
    explicit ZelInspectorArrayProperty(QObject *owner);

    QVariant defaultValue; ///< what is added; the localized "Item" unless set
    ZelView *borderView() const { return m_borderView; }
    /// The table scrolls itself.
    QAbstractScrollArea *scrollView() const { return tableView(); }
    QTableView *tableView() const;
    ZelActionBar *actionBar() const { return m_actionBar; }
    ZelActionBarItem *addActionItem() const { return m_addActionItem; }
    ZelActionBarItem *removeActionItem() const { return m_removeActionItem; }
    ZelLabel *label() const { return m_label; }

    /// The list that is shown, or a selection marker; absent for none.
    const QVariant &reflectedValues() const { return m_reflectedValues.value(); }
    /// The elements in one line.
    QString textForValue(const QVariant &value) const override;
    int numberOfRows() const;
    /// Absent where there is no such row.
    QVariant objectValueForRow(int row) const;
    /// Replaces one element, as the edit of a cell does. An object without a list gets one. Nothing changes for a row
    /// that does not exist, and for a value that does not convert to the element's type.
    void setObjectValueForRow(const QVariant &value, int row);

    /// Adds the default value, and begins to edit it: what is typed there belongs to the same undo step. An object
    /// without a list gets one, which is not reported as a change by the user.
    Q_INVOKABLE void addObject(QObject *sender);
    /// Removes the selected rows.
    Q_INVOKABLE void removeObject(QObject *sender);
    /// Enables the button that removes if there are selected rows to be removed.
    void tableViewSelectionDidChange();
    void forceRedraw();

    /// Takes what is being typed into a cell.
    bool commitEditing() override;
    void loadView() override;
    void viewDidInstall() override;
    void updateView() override;
    QWidget *viewForBaselineAlignment() override;
    QList<QWidget *> controlsNamedByRow() override;
    double baselineOffsetFromView() const override;

protected:
    bool filterEvent(QObject *watched, QEvent *event) override;

private:
    void addTable();
    void addActionBar();
    void layOut(ZelView *container);
    void updateColors();
    bool canEdit() const;
    void editRow(int row);
    void takeCell(int row, const QVariant &value);
    void removeSelectedRows();
    void reorder(const QList<int> &order);
    QString nameOfMove() const;
    void writeValues(const QVariantList &values);

    QPointer<ZelView> m_borderView;
    QPointer<ZelArrayTableView> m_tableView;
    QPointer<ZelArrayTableModel> m_model;
    QPointer<ZelActionBar> m_actionBar;
    QPointer<ZelActionBarItem> m_addActionItem;
    QPointer<ZelActionBarItem> m_removeActionItem;
    QPointer<ZelLabel> m_label;
    ZelKeptValue m_reflectedValues;
    ZelUndoBurst m_adding;
    QPointer<QWidget> m_addedCell; // the field of the new row, until it is left
};
