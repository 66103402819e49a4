// SPDX-License-Identifier: MIT
#pragma once

#include "ViewController/ZelView.h"

class ZelColorMatrix;
class ZelLabel;

/// The strip of recently used colours in a menu: a heading and the swatches below it. Follows the shared list.
class ZelColorMenuItemView : public ZelView
{
    Q_OBJECT
    /// The colour chosen last; absent by default.
    Q_PROPERTY(QVariant selectedColor READ selectedColor)
public:
    explicit ZelColorMenuItemView(QWidget *parent = nullptr);
    ~ZelColorMenuItemView() override;

    const QVariant &selectedColor() const { return m_selectedColor; }
    ZelLabel *label() const { return m_label; }
    ZelColorMatrix *matrix() const { return m_matrix; }

    void updateColorButtons();
    /// Chooses the colour of a cell: white behind the end of the list. Closes the menu and reports.
    void selectColor(int index);

    void viewDidInstall() override;
    void viewWillUninstall() override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }
    bool drawsContent() const override { return false; }

Q_SIGNALS:
    /// The user has chosen a colour; the menu is closed by then. The view may be gone afterwards.
    void action(ZelColorMenuItemView *sender);

protected:
    void changeEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    ZelView *newInstance() const override { return new ZelColorMenuItemView; }

private:
    void placeSubviews();

    ZelLabel *m_label;
    ZelColorMatrix *m_matrix;
    QVariant m_selectedColor;
};
