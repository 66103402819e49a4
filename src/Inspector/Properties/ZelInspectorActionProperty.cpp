// SPDX-License-Identifier: MIT
#include "Inspector/Properties/ZelInspectorActionProperty.h"

#include "Inspector/Properties/ZelEditorLayout.h"
#include "Observation/ZelObservations.h"
#include "Platform/Binding/ZelBinding.h"
#include "Platform/Runtime/ZelExceptionReporter.h"
#include "Platform/Selection/ZelUndoManager.h"
#include "ViewController/ZelView.h"

namespace {
const char g_context = 0;
}

ZelInspectorActionProperty::ZelInspectorActionProperty(QObject *owner)
    : ZelInspectorProperty(owner)
{
}

ZelInspectorActionProperty::~ZelInspectorActionProperty()
{
    uninstall();
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
    bindTitle(m_button, ZelTitleBinding, &g_context);
    if (!keyPath().isEmpty() && owner())
        ZelObservations(this).addBindingWithObject(m_button, ZelValueBinding, owner(), keyPath(), {}, &g_context);
    bindEnabledKeyPathToControl(m_button);
}

void ZelInspectorActionProperty::viewWillUninstall()
{
    ZelInspectorProperty::viewWillUninstall();
    ZelObservations(this).removeAllObservationsForContext(&g_context);
}

QWidget *ZelInspectorActionProperty::viewForBaselineAlignment()
{
    view();
    return m_button;
}
