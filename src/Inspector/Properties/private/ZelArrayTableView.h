// SPDX-License-Identifier: MIT
#pragma once

#include <QTableView>

/// A table that may say in its middle why it has no rows, and whose rows the user can move.
///
/// Selected rows are dragged to a gap between two rows, which a line shows, or moved by a row with Alt and an arrow
/// key. The table only reports the new order, and that Delete or Backspace was pressed. Rows that cannot be edited are
/// not moved.
class ZelArrayTableView : public QTableView
{
    Q_OBJECT
public:
    explicit ZelArrayTableView(QWidget *parent);

    /// Shown while there are no rows; null for nothing.
    const QString &placeholder() const { return m_placeholder; }
    void setPlaceholder(const QString &text);

    /// In ascending order.
    QList<int> selectedRows() const;
    /// Selects the same elements after they were put into the given order, and tells assistive technology where they
    /// are. See reordered().
    void followOrder(const QList<int> &order);

Q_SIGNALS:
    /// The user wants the rows in another order: each entry is the present number of the row that is to stand there.
    /// The table may be gone afterwards.
    void reordered(const QList<int> &order);
    /// The user wants the selected rows, of which there is one or more, to be removed. The table may be gone
    /// afterwards.
    void removalRequested();

protected:
    bool event(QEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void focusOutEvent(QFocusEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void startDrag(Qt::DropActions actions) override;

private:
    bool canMoveRows() const;
    bool takes(const QDropEvent *event) const;
    int gapAt(const QPoint &place) const;
    int yOfGap(int gap) const;
    void setGap(int gap);
    void moveByKey(int key);
    void moveToGap(int gap);
    QPixmap imageOfRows(const QList<int> &rows) const;
    void drawGap();
    void paintFocus();

    QString m_placeholder;
    int m_gap = -1; // above which row dragged rows would be dropped
};
