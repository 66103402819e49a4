// SPDX-License-Identifier: MIT
#include "window/SwatchProperty.h"

#include "Core/Undo/ZelUndoManager.h"
#include "Core/Values/ZelValues.h"
#include "ViewController/ZelView.h"
#include "window/SwatchRow.h"

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
    observeForUpdate(keyPath());
    updateView();
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
