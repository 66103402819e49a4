// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Controls/ZelTextField.h"

/// A text field with room beside its text, such as for a small button inside its frame.
class ZelPaddedTextField : public ZelTextField
{
    Q_OBJECT
    Q_PROPERTY(QMargins padding READ padding WRITE setPadding)
    Q_PROPERTY(bool selectable READ isSelectable WRITE setSelectable)
public:
    using ZelTextField::ZelTextField;

    /// Points between the frame's inner edges and the text; none by default. Left is the leading edge: the right one in
    /// a right-to-left layout.
    QMargins padding() const { return m_padding; }
    void setPadding(const QMargins &padding);

    /// Whether users can set a cursor into the text and select it; true. Otherwise the field does not take the focus
    /// and leaves what the mouse does to its parent.
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
