// SPDX-License-Identifier: MIT
#pragma once

#include "Core/RunLoop/ZelGuarded.h"

#include <QLabel>

/// A dimmed text below the inspectors of a pane. Long lines are wrapped.
class ZelInspectorNote : public ZelGuarded<QLabel>
{
public:
    explicit ZelInspectorNote(const QString &text);

protected:
    void paintEvent(QPaintEvent *event) override;
};
