// SPDX-License-Identifier: MIT
#pragma once

#include <QTableView>

/// A table that may say in its middle why it has no rows.
class ZelArrayTableView : public QTableView
{
    Q_OBJECT
public:
    explicit ZelArrayTableView(QWidget *parent);

    /// Shown while there are no rows; null for nothing.
    const QString &placeholder() const { return m_placeholder; }
    void setPlaceholder(const QString &text);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QString m_placeholder;
};
