// SPDX-License-Identifier: MIT
#pragma once

#include "ActionBar/ZelActionBarButton.h"
#include "Core/ZelExport.h"

/// A button that a click switches on and off. With an image it looks pressed while it is on; without one it shows a
/// small check box beside its title.
class ZEL_EXPORT ZelActionBarCheckboxButton : public ZelActionBarButton
{
    Q_OBJECT
public:
    explicit ZelActionBarCheckboxButton(QWidget *parent = nullptr);

    QSize sizeHint() const override;

protected:
    void drawContent(QPainter &painter) override;
    bool isLit() const override;

private:
    QSize indicatorSize() const;
};
