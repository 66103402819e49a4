// SPDX-License-Identifier: MIT
#include "Platform/Controls/ZelPaddedTextField.h"

#include "Platform/Controls/ZelControlSupport.h"

#include <QEvent>

void ZelPaddedTextField::setSelectable(bool selectable)
{
    m_selectable = selectable;
    setFocusPolicy(selectable ? Qt::StrongFocus : Qt::NoFocus);
    setCursor(selectable ? Qt::IBeamCursor : Qt::ArrowCursor);
    if (!selectable)
        deselect();
}

bool ZelPaddedTextField::event(QEvent *event)
{
    if (!m_selectable && (ZelControlSupport::isInput(event) || event->type() == QEvent::ContextMenu)) {
        event->ignore();
        return false;
    }
    return ZelTextField::event(event);
}
