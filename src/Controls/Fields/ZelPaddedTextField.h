// SPDX-License-Identifier: MIT
#pragma once

#include "Controls/Fields/ZelTextField.h"
#include "Core/ZelExport.h"

/// A text field with room beside its text, for instance for a small button inside its frame.
class ZEL_EXPORT ZelPaddedTextField : public ZelTextField
{
    Q_OBJECT
    Q_PROPERTY(QMargins padding READ padding WRITE setPadding)
    Q_PROPERTY(bool selectable READ isSelectable WRITE setSelectable)
public:
    using ZelTextField::ZelTextField;

    /// Points between the frame's inner edges and the text; none by default. The left margin belongs to the leading
    /// edge, which is on the right in a right-to-left layout.
    QMargins padding() const { return m_padding; }
    void setPadding(const QMargins &padding);

    /// Whether users can put the cursor into the text and select it; true by default. If not, the field does not take
    /// the focus and leaves mouse events to its parent.
    bool isSelectable() const { return m_selectable; }
    void setSelectable(bool selectable);

protected:
    bool handleEvent(QEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void applyPadding();

    QMargins m_padding;
    bool m_selectable = true;
};
