// SPDX-License-Identifier: MIT
#include "window/SwatchProperty.h"

#include "Observation/ZelObservations.h"
#include "Platform/Runtime/ZelValues.h"
#include "Platform/Selection/ZelUndoManager.h"
#include "ViewController/ZelView.h"
#include "window/SwatchRow.h"

namespace {
const char g_context = 0;
}

SwatchProperty::SwatchProperty(QObject *owner)
    : ZelInspectorCustomProperty(owner)
{
}

SwatchProperty::~SwatchProperty()
{
    uninstall();
}

void SwatchProperty::loadView()
{
    ZelView *container = makeEditorView();
    m_row = new SwatchRow(container);
    m_row->setAccessibleName(title());
    container->addConstraintsWithVisualFormat(QStringLiteral("H:|-2-[row]-2-|"), {{QStringLiteral("row"), m_row}});
    container->addConstraintsWithVisualFormat(QStringLiteral("V:|-2-[row]-2-|"), {{QStringLiteral("row"), m_row}});
    connect(m_row, &SwatchRow::colorPicked, this, &SwatchProperty::colorPicked);
}

void SwatchProperty::viewDidInstall()
{
    ZelInspectorCustomProperty::viewDidInstall();
    bindEnabledKeyPathToControl(m_row);
    observeForUpdate(keyPath(), &g_context);
    updateView();
}

void SwatchProperty::viewWillUninstall()
{
    ZelInspectorCustomProperty::viewWillUninstall();
    ZelObservations(this).removeAllObservationsForContext(&g_context);
    cancelUpdateView();
}

void SwatchProperty::updateView()
{
    const QVariant value = reflectedValue();
    if (m_row && !isUpdatingValues())
        m_row->setColor(ZelIsControllerMarker(value) ? QColor() : value.value<QColor>());
}

QWidget *SwatchProperty::viewForBaselineAlignment()
{
    view();
    return m_row;
}

void SwatchProperty::colorPicked(const QColor &color)
{
    // What is written while the grouping is open can be undone in one step.
    const ZelUndoGrouping grouping(undoManager());
    const UpdatingValues guard(this);
    setReflectedValue(color);
    userDidChangeValue(m_row);
}
