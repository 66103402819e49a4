// SPDX-License-Identifier: MIT
#pragma once

#include "Core/KeyValue/ZelKeptValue.h"

#include <QAbstractTableModel>

/// The elements of a list in one column, each as its text.
///
/// New elements are taken over without a reset: selected rows stay selected, and a text that is being typed stays in
/// its cell as long as its element is the same.
class ZelArrayTableModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    using QAbstractTableModel::QAbstractTableModel;

    /// Whether cells can be edited, and rows be moved; true by default.
    void setEditable(bool editable) { m_editable = editable; }

    void setValues(const QVariantList &values);

    int rowCount(const QModelIndex &parent = {}) const override { return parent.isValid() ? 0 : int(m_values.size()); }
    int columnCount(const QModelIndex &parent = {}) const override { return parent.isValid() ? 0 : 1; }
    QVariant data(const QModelIndex &index, int role) const override;
    /// Emits cellEdited with what was entered and changes nothing itself: the receiver does, with setValues.
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

Q_SIGNALS:
    void cellEdited(int row, const QVariant &value);

private:
    QList<ZelKeptValue> m_values;
    bool m_editable = true;
};
