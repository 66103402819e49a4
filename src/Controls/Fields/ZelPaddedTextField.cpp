// SPDX-License-Identifier: MIT
#include "Controls/Fields/ZelPaddedTextField.h"

#include "Controls/private/ZelControlSupport.h"

#include <QEvent>

void ZelPaddedTextField::setPadding(const QMargins &padding)
{
    m_padding = padding;
    applyPadding();
}

void ZelPaddedTextField::applyPadding()
{
    const bool isMirrored = layoutDirection() == Qt::RightToLeft;
    const QMargins mirrored(m_padding.right(), m_padding.top(), m_padding.left(), m_padding.bottom());
    setTextMargins(isMirrored ? mirrored : m_padding);
}

void ZelPaddedTextField::changeEvent(QEvent *event)
{
    ZelTextField::changeEvent(event);
    if (event->type() == QEvent::LayoutDirectionChange)
        applyPadding();
}

void ZelPaddedTextField::setSelectable(bool selectable)
{
    m_selectable = selectable;
    setFocusPolicy(selectable ? Qt::StrongFocus : Qt::NoFocus);
    setCursor(selectable ? Qt::IBeamCursor : Qt::ArrowCursor);
    if (!selectable)
        deselect();
}

bool ZelPaddedTextField::handleEvent(QEvent *event)
{
    if (!m_selectable && (ZelControlSupport::isInput(event) || event->type() == QEvent::ContextMenu)) {
        event->ignore();
        return false;
    }
    return ZelTextField::handleEvent(event);
}
