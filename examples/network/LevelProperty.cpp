// SPDX-License-Identifier: MIT
#include "LevelProperty.h"

#include <Inspector/Description/ZelInspectorConfiguration.h>
#include <ViewController/ZelView.h>

#include <QPainter>

void LevelSlider::paintEvent(QPaintEvent *event)
{
    const QRect band(6, height() - 5, width() - 12, 4);
    QLinearGradient colors(band.topLeft(), band.topRight());
    const bool isMirrored = layoutDirection() == Qt::RightToLeft;
    colors.setColorAt(isMirrored ? 1 : 0, Qt::darkGreen);
    colors.setColorAt(0.5, Qt::yellow);
    colors.setColorAt(isMirrored ? 0 : 1, Qt::red);
    QPainter painter(this);
    painter.setOpacity(isEnabled() && isEditable() ? 1 : 0.3);
    painter.fillRect(band, colors);
    painter.end();
    ZelSlider::paintEvent(event);
}

QSize LevelSlider::makeSizeHint() const
{
    return ZelSlider::makeSizeHint() + QSize(0, 10);
}

/// Reads what the description says: `step` is an attribute of this editor's own.
void LevelProperty::configure(const ZelInspectorConfiguration &configuration)
{
    ZelInspectorCustomProperty::configure(configuration); // title, keyPath, enabledKeyPath, actionName, ...
    m_step = configuration.doubleValueNamed(u"step", 1);
}

void LevelProperty::loadView()
{
    ZelView *container = makeEditorView();
    m_slider = new LevelSlider(container);
    m_slider->setMaxValue(100);
    m_slider->setIncrement(m_step);
    for (const char *format : {"H:|-2-[slider]-2-|", "V:|-2-[slider]-2-|"})
        container->addConstraintsWithVisualFormat(format, {{"slider", m_slider}});
    connect(m_slider, &ZelSlider::action, this, &LevelProperty::take);
}

void LevelProperty::viewDidInstall()
{
    ZelInspectorCustomProperty::viewDidInstall();
    bindEnabledKeyPathToControl(m_slider);
    observeForUpdate(keyPath()); // ends by itself
    updateView();
}

/// Shows the value: a number, or a marker such as "several".
void LevelProperty::updateView()
{
    if (!m_slider || isUpdatingValues())
        return;
    m_slider->setObjectValue(reflectedValue());
    m_slider->setEditable(isWritable());
}

QWidget *LevelProperty::viewForBaselineAlignment()
{
    return view() ? m_slider : nullptr;
}

void LevelProperty::take()
{
    const UpdatingValues guard(this);
    setReflectedValue(m_slider->objectValue()); // recorded for undo, for all selected devices
    userDidChangeValue(m_slider);               // names the step and sends the action
}
