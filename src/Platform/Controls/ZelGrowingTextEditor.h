// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Runtime/ZelGuarded.h"

#include <QPlainTextEdit>

class ZelGrowingTextField;

/// What lies over a growing text field while it has the focus.
class ZelGrowingTextEditor : public ZelGuardedScrollArea<QPlainTextEdit>
{
    Q_OBJECT
public:
    explicit ZelGrowingTextEditor(ZelGrowingTextField *field);

    /// Stands in for the field in the chain of the focus.
    void takeFocus(Qt::FocusReason reason);
    void setTextColor(const QColor &color);
    /// Hands the widget an event that the field got, in the field's coordinates.
    void forward(QMouseEvent *event);
    /// The editor tells the field nothing any more.
    void disconnectField();

protected:
    bool handleEvent(QEvent *event) override;
    bool viewportEvent(QEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    void alignText();

    ZelGrowingTextField *m_field; // null once the editor was given up
};
