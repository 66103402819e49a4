// SPDX-License-Identifier: MIT
#pragma once

#include <QWidgetAction>

class ZelColorPopUpButtonCell;

/// The menu item with the field for a colour's digits or name. Each open menu that contains it has its own field.
class ZelColorHexItem : public QWidgetAction
{
    Q_OBJECT
public:
    explicit ZelColorHexItem(ZelColorPopUpButtonCell *cell);

protected:
    QWidget *createWidget(QWidget *parent) override;
};
