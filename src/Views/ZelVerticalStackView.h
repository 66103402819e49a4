// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"
#include "Views/ZelStackView.h"

/// A column of views, from top to bottom.
class ZEL_EXPORT ZelVerticalStackView : public ZelStackView
{
    Q_OBJECT
public:
    explicit ZelVerticalStackView(QWidget *parent = nullptr)
        : ZelStackView(Qt::Vertical, parent)
    {
    }
    explicit ZelVerticalStackView(const ZelKeyedCoder &coder, QWidget *parent = nullptr)
        : ZelStackView(Qt::Vertical, coder, parent)
    {
    }

protected:
    ZelView *newInstance() const override { return new ZelVerticalStackView; }
};
