// SPDX-License-Identifier: MIT
#pragma once

#include "ColorPopUpButton/ZelColorPopUpButtonCell.h"
#include "Controls/Menus/ZelPopUpButton.h"
#include "Core/ZelExport.h"

/// A pop-up button for choosing a colour; see ZelColorPopUpButtonCell for its menu.
///
/// The button shows the swatch and the name of the selected colour, or a selection marker. A choice of the user that
/// changes the colour is reported as by any pop-up button. A choice that does not change it is not reported, except
/// "Current Color", which emits action() so that the same colour is applied again.
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
    void chooseItem(QAction *item) override;

private:
    ZelColorPopUpButtonCell *m_cell;
};
