// SPDX-License-Identifier: MIT
#pragma once

#include "Core/RunLoop/ZelGuarded.h"
#include "Resources/ZelColor.h"

#include <QWidget>

class ZelColorPopUpButtonCell;
class ZelTextField;

/// A field in the menu of a colour button, in which the selected colour can be read and another one entered.
///
/// Return takes what was typed, as a choice of the user, and closes the menu. Escape, another item of the menu and
/// anything else that leaves the field discard it. See ZelColorFormatter for what is read.
class ZelColorHexView : public ZelGuarded<QWidget>
{
    Q_OBJECT
public:
    ZelColorHexView(ZelColorPopUpButtonCell *cell, QWidget *parent);

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void takeColor();

    QPointer<ZelColorPopUpButtonCell> m_cell;
    ZelTextField *m_field;
};
