// SPDX-License-Identifier: MIT
#pragma once

#include "Core/RunLoop/ZelGuarded.h"

#include <QPlainTextEdit>

class ZelGrowingTextField;

/// The text editor that covers a growing text field while the field has the focus.
class ZelGrowingTextEditor : public ZelGuardedScrollArea<QPlainTextEdit>
{
    Q_OBJECT
public:
    explicit ZelGrowingTextEditor(ZelGrowingTextField *field);

    /// Takes the focus, and takes the place of the field in the focus chain.
    void takeFocus(Qt::FocusReason reason);
    void setTextColor(const QColor &color);
    /// Passes on a mouse event that the field got, in the field's coordinates.
    void forward(QMouseEvent *event);
    /// From here on the editor tells the field nothing.
    void disconnectField();

protected:
    bool handleEvent(QEvent *event) override;
    bool viewportEvent(QEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    bool isCut() const;
    void alignText();

    ZelGrowingTextField *m_field; // null after disconnectField()
};
