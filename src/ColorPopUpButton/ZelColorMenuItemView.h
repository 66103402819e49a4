// SPDX-License-Identifier: MIT
#pragma once

#include "Controls/ZelControlSize.h"
#include "Core/ZelExport.h"
#include "ViewController/ZelView.h"

class ZelColorMatrix;
class ZelLabel;

/// The strip of recently used colours in a menu: a heading with the swatches below it. It follows the shared list.
class ZEL_EXPORT ZelColorMenuItemView : public ZelView
{
    Q_OBJECT
    /// The colour that was chosen last; absent by default.
    Q_PROPERTY(QVariant selectedColor READ selectedColor WRITE setSelectedColor NOTIFY selectedColorChanged)
    /// A ZelControlSize::Size, small by default. It determines the font of the heading and the height of the view.
    Q_PROPERTY(quint32 controlSize READ controlSize WRITE setControlSize NOTIFY controlSizeChanged)
    Q_PROPERTY(ZelLabel *label READ label CONSTANT)
    Q_PROPERTY(ZelColorMatrix *matrix READ matrix CONSTANT)
    Q_MOC_INCLUDE("ColorPopUpButton/ZelColorMatrix.h")
    Q_MOC_INCLUDE("Controls/ZelLabel.h")
public:
    explicit ZelColorMenuItemView(QWidget *parent = nullptr);
    explicit ZelColorMenuItemView(const ZelKeyedCoder &coder, QWidget *parent = nullptr);
    ~ZelColorMenuItemView() override;

    const QVariant &selectedColor() const { return m_selectedColor; }
    void setSelectedColor(const QVariant &color);
    quint32 controlSize() const { return m_controlSize; }
    void setControlSize(quint32 size);
    ZelLabel *label() const { return m_label; }
    ZelColorMatrix *matrix() const { return m_matrix; }

    void updateColorButtons();
    /// Chooses the colour of a cell, which is white beyond the end of the list. Closes the menu and reports the choice.
    void selectColor(int index);

    void viewDidInstall() override;
    void viewWillUninstall() override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }
    bool drawsContent() const override { return false; }

Q_SIGNALS:
    void selectedColorChanged();
    void controlSizeChanged();
    /// The user has chosen a colour; the menu is closed by then. The view may be gone afterwards.
    void action(ZelColorMenuItemView *sender);

protected:
    void changeEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    ZelView *newInstance() const override { return new ZelColorMenuItemView; }

private:
    void setUp();
    void placeSubviews();

    ZelLabel *m_label;
    ZelColorMatrix *m_matrix;
    QVariant m_selectedColor;
    quint32 m_controlSize = ZelControlSize::Small;
};
