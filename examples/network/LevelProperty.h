// SPDX-License-Identifier: MIT
#pragma once

#include <Controls/Ranges/ZelSlider.h>
#include <Inspector/Properties/ZelInspectorCustomProperty.h>

/// A slider above a band from green to red.
class LevelSlider : public ZelSlider
{
    Q_OBJECT
public:
    using ZelSlider::ZelSlider;

protected:
    void paintEvent(QPaintEvent *event) override;
    QSize makeSizeHint() const override;
};

/// An editor of the application's own, for a level in per cent. The description names it by its class.
class LevelProperty : public ZelInspectorCustomProperty
{
    Q_OBJECT
public:
    using ZelInspectorCustomProperty::ZelInspectorCustomProperty;

    void configure(const ZelInspectorConfiguration &configuration) override;
    void loadView() override;
    void viewDidInstall() override;
    void updateView() override;
    QWidget *viewForBaselineAlignment() override;

private:
    void take();

    double m_step = 1;
    QPointer<LevelSlider> m_slider;
};
