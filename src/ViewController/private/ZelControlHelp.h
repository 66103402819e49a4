// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>
#include <QString>

class QEvent;
class QWidget;

/// What is told about a control on demand: its tool tip and, for assistive technology, its description. Both are put
/// together here and nowhere else. Controllers of the views around the control know what it stands for (see
/// ZelViewController::helpForControl).
class ZelControlHelp
{
public:
    /// What the controllers around the control add; null if they add nothing.
    static QString of(const QWidget *control);
    /// For a tool tip event: shows the text, which is about what the control shows at the moment, the nearest tool tip
    /// that is set, and what the controllers add. What is set comes first if they add something, unless the text
    /// belongs to a part of the control, which is the area. Answers false, and shows nothing, if there is only what is
    /// set, since Qt shows that.
    static bool showToolTip(QEvent *event, QWidget *control, const QString &text = {}, const QRect &area = {});

    /// The accessible description of a control: the text that is set for it, and what the controllers add.
    static QString description(QWidget *control, const QString &text);
    /// For events of a control whose accessible interface is Qt's, which cannot ask: while the control has the focus
    /// and assistive technology is running, the help is its accessible description.
    static void describeFocused(const QEvent *event, QWidget *control);
};
