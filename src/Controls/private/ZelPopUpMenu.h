// SPDX-License-Identifier: MIT
#pragma once

#include "Core/RunLoop/ZelGuarded.h"

#include <QHash>
#include <QMenu>
#include <QPointer>

/// The open menu of a pop-up button. It has no parent, so that it survives when a choice deletes the button.
class ZelPopUpMenu : public ZelGuarded<QMenu>
{
    Q_OBJECT
public:
    using Marks = QHash<const QAction *, Qt::CheckState>;

    explicit ZelPopUpMenu(QWidget *button);

    /// The menu draws this item with a check mark; the item itself is not changed.
    void setMarkedItem(QAction *item) { m_marked = item; }
    /// The menu draws these items with a check mark too, or with a dash if they are partially checked.
    void setMarks(const Marks &marks);
    Qt::CheckState markOf(const QAction *item) const;
    /// Whether several items may have a check mark, each for itself, rather than the one that is chosen.
    void setChoosesSeveral(bool several) { m_choosesSeveral = several; }
    /// Whether the menu has a column for marks.
    bool hasMarks() const { return m_marked || !m_marks.isEmpty(); }
    /// Opens the menu with the marked item over the button, or below the button if no item is marked.
    void open();

protected:
    /// Home and End go to the first and the last item that can be chosen. Widgets among the items get the focus by the
    /// arrow keys only.
    void keyPressEvent(QKeyEvent *event) override;
    void initStyleOption(QStyleOptionMenuItem *option, const QAction *action) const override;
    void mousePressEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QRect markRect(const QAction *item) const;
    void paintDash(QPainter *painter, const QAction *item) const;

    QPointer<QWidget> m_button;
    QPointer<QAction> m_marked;
    Marks m_marks;
    bool m_choosesSeveral = false;
};
