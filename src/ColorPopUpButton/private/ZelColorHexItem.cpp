// SPDX-License-Identifier: MIT
#include "ColorPopUpButton/private/ZelColorHexItem.h"

#include "ColorPopUpButton/ZelColorPopUpButtonCell.h"
#include "ColorPopUpButton/private/ZelColorHexView.h"
#include "Resources/ZelLocalizedString.h"

ZelColorHexItem::ZelColorHexItem(ZelColorPopUpButtonCell *cell)
    : QWidgetAction(cell)
{
    setText(ZelLocalizedString(QStringLiteral("Hex")));
}

QWidget *ZelColorHexItem::createWidget(QWidget *parent)
{
    return new ZelColorHexView(static_cast<ZelColorPopUpButtonCell *>(this->parent()), parent);
}
