// SPDX-License-Identifier: MIT
#pragma once

#include "Core/RunLoop/ZelGuarded.h"

#include <QObject>
#include <QWidget>

/// Lets the user pick a colour anywhere on the screen.
///
/// While the picker exists, the widget has the mouse and the keyboard, and the pointer is a cross. A click picks the
/// colour under the pointer, and so does Return; arrow keys move the pointer, by ten points with Shift. Escape and
/// another button of the mouse give up, and so does what takes the mouse away. The picker deletes itself afterwards.
class ZelScreenColorPicker : public ZelGuarded<QObject>
{
    Q_OBJECT
public:
    /// Whether this platform shows programs what is on the screen. The visible widget is what is looked for there.
    static bool isPossible(const QWidget *widget);
    /// The widget becomes the parent.
    explicit ZelScreenColorPicker(QWidget *widget);
    ~ZelScreenColorPicker() override;

Q_SIGNALS:
    /// The widget may be gone afterwards.
    void picked(const QColor &color);

protected:
    bool filterEvent(QObject *watched, QEvent *event) override;

private:
    bool handleKey(const QKeyEvent *event);
    void pick(const QPoint &place);
    void end();

    QPointer<QWidget> m_widget;
};
