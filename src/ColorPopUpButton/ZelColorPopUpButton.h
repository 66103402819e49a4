// SPDX-License-Identifier: MIT
#pragma once

#include "ColorPopUpButton/ZelColorPopUpButtonCell.h"
#include "Controls/Menus/ZelPopUpButton.h"
#include "Core/ZelExport.h"

#include <QBasicTimer>
#include <memory>

class ZelColorDrag;

/// A pop-up button for choosing a colour; see ZelColorPopUpButtonCell for its menu.
///
/// The button shows the swatch and the name of the selected colour, or a selection marker. A choice of the user that
/// changes the colour is reported as by any pop-up button. A choice that does not change it is not reported, except
/// "Current Color", which emits action() so that the same colour is applied again.
///
/// The colour can be dragged away from the button, with the mouse pressed anywhere but on its arrow: the menu therefore
/// opens when the mouse is released, or when it was held still for QApplication::startDragTime(). Without a colour, and
/// for several different ones, nothing is dragged, and the menu opens at once. A colour that is dropped on the button
/// is a choice of the user like one from the menu. A button that is disabled or not editable takes none. The keys for
/// copy and paste do the same with the clipboard. What is taken from other programs are a colour
/// ("application/x-color") and a text of the form "#rrggbb" or "#aarrggbb", whose first digits are the opacity.
class ZEL_EXPORT ZelColorPopUpButton : public ZelPopUpButton
{
    Q_OBJECT
    Q_PROPERTY(ZelColorPopUpButtonCell *cell READ cell CONSTANT)
    // The cell's.
    Q_PROPERTY(ZelColorListPtr colorList READ colorList WRITE setColorList NOTIFY colorListChanged)
    Q_PROPERTY(ZelColor defaultColor READ defaultColor WRITE setDefaultColor NOTIFY defaultColorChanged)
    Q_PROPERTY(QVariant selectedColor READ selectedColor WRITE setSelectedColor NOTIFY selectedColorChanged)
    Q_PROPERTY(bool showsAlpha READ showsAlpha WRITE setShowsAlpha NOTIFY showsAlphaChanged)
    Q_PROPERTY(QVariant objectValue READ selectedColor WRITE setSelectedColor NOTIFY selectedColorChanged)
public:
    explicit ZelColorPopUpButton(QWidget *parent = nullptr);
    ~ZelColorPopUpButton() override;

    ZelColorPopUpButtonCell *cell() const { return m_cell; }
    // The cell's.
    const ZelColorListPtr &colorList() const { return m_cell->colorList(); }
    void setColorList(const ZelColorListPtr &list) { m_cell->setColorList(list); }
    const ZelColor &defaultColor() const { return m_cell->defaultColor(); }
    void setDefaultColor(const ZelColor &color) { m_cell->setDefaultColor(color); }
    const QVariant &selectedColor() const { return m_cell->selectedColor(); }
    void setSelectedColor(const QVariant &color) { m_cell->setSelectedColor(color); }
    bool showsAlpha() const { return m_cell->showsAlpha(); }
    void setShowsAlpha(bool shows) { m_cell->setShowsAlpha(shows); }

    /// The value of the control is the selected colour.
    QVariant objectValue() const { return selectedColor(); }
    void setObjectValue(const QVariant &value) { setSelectedColor(value); }

    /// The text on the button, or the colour in the form "#rrggbb" if there is no text.
    QString spokenText() const override;
    /// Leaves room for a name of usual length.
    QSize sizeHint() const override;

Q_SIGNALS:
    void colorListChanged();
    void defaultColorChanged();
    void selectedColorChanged();
    void showsAlphaChanged();

protected:
    QAction *shownItem() const override;
    void prepareItems() override;
    bool canStepTo(const QAction *item) const override;
    QList<QAction *> menuItems() override;
    void chooseItem(QAction *item) override;

    bool handleEvent(QEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void timerEvent(QTimerEvent *event) override;

private:
    ZelColor colorToTake(const QDropEvent *event) const;
    void setDropTarget(bool isTarget);
    void endPress();
    bool handleClipboardKey(QKeyEvent *event);

    ZelColorPopUpButtonCell *m_cell;
    std::unique_ptr<ZelColorDrag> m_drag; // while a colour is pressed
    QBasicTimer m_holdTimer;
    bool m_isDropTarget = false;
};
