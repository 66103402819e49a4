// SPDX-License-Identifier: MIT
#pragma once

#include "ColorPopUpButton/ZelUsedColorList.h"
#include "Platform/Controls/ZelCellGroup.h"
#include "Platform/Runtime/ZelGuarded.h"

#include <QWidget>

/// Two rows of twelve swatches, of which one can be chosen with the mouse or the keyboard.
///
/// The swatches are no widgets: another list of colours repaints the places that have another colour, and no more.
class ZelColorMatrix : public ZelGuarded<QWidget>, public ZelCellGroup
{
    Q_OBJECT
    Q_INTERFACES(ZelCellGroup)
public:
    static constexpr int numberOfRows = 2;
    static constexpr int numberOfColumns = 12;
    static constexpr int numberOfCells = numberOfRows * numberOfColumns;
    static_assert(numberOfCells == ZelUsedColorListMax);

    explicit ZelColorMatrix(QWidget *parent = nullptr);

    /// White behind the end of the list.
    void setColors(const QList<ZelColor> &colors);
    ZelColor colorAtIndex(int index) const;
    QRect rectOfCell(int index) const;
    /// -1 beside and between the cells.
    int cellAtPosition(const QPoint &position) const;

    /// The cell that would be chosen; -1 for none.
    int highlightedCell() const { return m_highlighted; }
    void setHighlightedCell(int index);

    Roles cellRoles() const override { return {QAccessible::ColorChooser, QAccessible::Button}; }
    int cellCount() const override { return numberOfCells; }
    QRect cellRect(int cell) const override { return rectOfCell(cell); }
    QString cellName(int cell) const override;
    bool isCellSelected(int cell) const override { return cell == m_highlighted; }
    int currentCell() const override { return m_highlighted; }
    void clickCell(int cell) override { Q_EMIT cellChosen(cell); }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

Q_SIGNALS:
    /// The user has chosen a cell. The matrix may be gone afterwards.
    void cellChosen(int index);

protected:
    bool handleEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    bool moveHighlight(int key);

    QList<ZelColor> m_colors;
    int m_highlighted = -1;
    bool m_wasPointedAt = false; // a release alone, of the press that opened the menu, chooses nothing
};
