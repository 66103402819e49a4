// SPDX-License-Identifier: MIT
#pragma once

#include "ColorPopUpButton/ZelUsedColorList.h"
#include "Controls/Cells/ZelCellGroup.h"
#include "Core/RunLoop/ZelGuarded.h"
#include "Core/ZelExport.h"

#include <QWidget>
#include <memory>

class ZelColorDrag;

/// Two rows of twelve swatches, of which one can be chosen with the mouse or the keyboard.
///
/// A swatch that is pressed can be dragged out of the matrix as a colour, to a colour button or another program.
///
/// The swatches are no widgets. Setting another list of colours repaints only the places whose colour changes.
class ZEL_EXPORT ZelColorMatrix : public ZelGuarded<QWidget>, public ZelCellGroup
{
    Q_OBJECT
    Q_INTERFACES(ZelCellGroup)
public:
    static constexpr int numberOfRows = 2;
    static constexpr int numberOfColumns = 12;
    static constexpr int numberOfCells = numberOfRows * numberOfColumns;
    static_assert(numberOfCells == ZelUsedColorListMax);

    explicit ZelColorMatrix(QWidget *parent = nullptr);
    ~ZelColorMatrix() override;

    /// Sets the colours of the swatches. Swatches beyond the end of the list are white, and drawn as empty places.
    void setColors(const QList<ZelColor> &colors);
    ZelColor colorAtIndex(int index) const;
    QRect rectOfCell(int index) const;
    /// The cell at the position; -1 beside and between the cells.
    int cellAtPosition(const QPoint &position) const { return cellAt(position); }

    /// The highlighted cell, which a click or a key would choose; -1 if there is none.
    int highlightedCell() const { return m_highlighted; }
    void setHighlightedCell(int index);

    Roles cellRoles() const override { return {QAccessible::ColorChooser, QAccessible::Button}; }
    int cellCount() const override { return numberOfCells; }
    QRect cellRect(int cell) const override { return rectOfCell(cell); }
    QString cellName(int cell) const override;
    QString cellToolTip(int cell) const override;
    bool isCellSelected(int cell) const override { return cell == m_highlighted; }
    int currentCell() const override { return m_highlighted; }
    void clickCell(int cell) override { Q_EMIT cellChosen(cell); }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

Q_SIGNALS:
    /// The user has chosen a cell. The matrix may be gone afterwards.
    void cellChosen(int index);
    /// The user drags the colour of a cell. The drag goes on even if the matrix is deleted.
    void dragDidBegin();

protected:
    bool handleEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override { paintCells(event); }
    int cellColumns() const override { return numberOfColumns; }
    void setCurrentCell(int cell) override { setHighlightedCell(cell); }
    void drawCell(QPainter *painter, int cell) const override;

private:
    bool followDrag(const QEvent *event);

    QList<ZelColor> m_colors;
    std::unique_ptr<ZelColorDrag> m_drag; // while a cell is pressed
    int m_used = 0;                       // how many swatches have a colour of the list
    int m_highlighted = -1;
};
