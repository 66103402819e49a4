// SPDX-License-Identifier: MIT
#pragma once

#include "Inspector/Properties/ZelInspectorCustomProperty.h"

class SwatchRow;

/// An editor of the application's own: a row of colors. Named by its class in the inspector's description.
class SwatchProperty : public ZelInspectorCustomProperty
{
    Q_OBJECT
public:
    using ZelInspectorCustomProperty::ZelInspectorCustomProperty;

    void loadView() override;
    void viewDidInstall() override;
    void updateView() override;
    QWidget *viewForBaselineAlignment() override;
    /// Swatches have no text: the label stands in the middle of their height.
    double baselineOffsetFromView() const override { return -6; }

private:
    void colorPicked(const QColor &color);

    QPointer<SwatchRow> m_row;
};
