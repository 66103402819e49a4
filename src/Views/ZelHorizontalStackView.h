// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"
#include "Views/ZelStackView.h"

/// A row of views, from left to right.
class ZEL_EXPORT ZelHorizontalStackView : public ZelStackView
{
    Q_OBJECT
public:
    explicit ZelHorizontalStackView(QWidget *parent = nullptr)
        : ZelStackView(Qt::Horizontal, parent)
    {
    }
    explicit ZelHorizontalStackView(const ZelKeyedCoder &coder, QWidget *parent = nullptr)
        : ZelStackView(Qt::Horizontal, coder, parent)
    {
    }

protected:
    ZelView *newInstance() const override { return new ZelHorizontalStackView; }
};
