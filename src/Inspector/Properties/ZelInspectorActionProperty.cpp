// SPDX-License-Identifier: MIT
#include "Inspector/Properties/ZelInspectorActionProperty.h"

#include "Core/Binding/ZelBinding.h"
#include "Core/Errors/ZelExceptionReporter.h"
#include "Core/Undo/ZelUndoManager.h"
#include "Inspector/Properties/private/ZelEditorLayout.h"
#include "Observation/ZelObservations.h"
#include "ViewController/ZelInstalledContext.h"
#include "ViewController/ZelView.h"

ZelInspectorActionProperty::ZelInspectorActionProperty(QObject *owner)
    : ZelInspectorProperty(owner)
{
}

void ZelInspectorActionProperty::loadView()
{
    ZelView *container = makeEditorView();
    m_button = new ZelPushButton(title(), container);
    ZelEditorLayout::setStretches(m_button);
    ZelEditorLayout::layOut(container, m_button, nullptr);
    connect(m_button, &QPushButton::clicked, this, [this] {
        ZelExceptionReporter::run(this, [this] {
            const ZelUndoGrouping grouping(undoManager());
            userDidChangeValue(m_button);
        });
    });
}

void ZelInspectorActionProperty::viewDidInstall()
{
    ZelInspectorProperty::viewDidInstall();
    bindTitle(m_button, ZelTitleBinding);
    if (!keyPath().isEmpty() && owner())
        ZelObservations(this).addBindingWithObject(m_button, ZelValueBinding, owner(), keyPath(), {},
                                                   &ZelInstalledContext);
    bindEnabledKeyPathToControl(m_button);
}

QWidget *ZelInspectorActionProperty::viewForBaselineAlignment()
{
    view();
    return m_button;
}
