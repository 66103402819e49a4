// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Runtime/ZelGuarded.h"

#include <QLabel>
#include <QPointer>

/// Says beside a field why its text could not be taken, for as long as the text stands there.
///
/// The note lies over whatever is below the field in its window, or above it where there is no room below or the focus
/// is there. It lets the mouse through, follows the field when that is moved, scrolled or put elsewhere, and is out of
/// sight while the field is.
class ZelErrorNote : public ZelGuarded<QLabel>
{
    Q_OBJECT
public:
    /// Shows the text beside the field in a note that is made when it is needed; an empty text takes the note away.
    static void show(QPointer<ZelErrorNote> *note, QWidget *field, const QString &text);

protected:
    bool filterEvent(QObject *watched, QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    explicit ZelErrorNote(QWidget *field);
    void attach();
    void joinWindow();
    void place();

    QPointer<QWidget> m_field;
    QList<QPointer<QWidget>> m_watched; // the field and what it lies in
};
