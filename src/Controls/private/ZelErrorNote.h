// SPDX-License-Identifier: MIT
#pragma once

#include "Core/RunLoop/ZelGuarded.h"

#include <QLabel>
#include <QPointer>

/// A note beside a field that says why the field's text was refused, as long as that text is there.
///
/// The note covers what is below the field in the window. It is above the field if there is no room below or the widget
/// with the focus is there. A note that spares controls looks for room without any: below, above, or at the bottom of
/// what is scrolled. It lets the mouse through, follows the field when the field is moved, scrolled or
/// reparented, and is hidden while the field cannot be seen.
class ZelErrorNote : public ZelGuarded<QLabel>
{
    Q_OBJECT
public:
    enum Placement { BesideField, SparesControls };

    /// Shows the text beside the field, in a note that is made if there is none yet. An empty text deletes the note.
    static void show(QPointer<ZelErrorNote> *note, QWidget *field, const QString &text,
                     Placement placement = BesideField);

protected:
    bool filterEvent(QObject *watched, QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    explicit ZelErrorNote(QWidget *field);
    void attach();
    void joinWindow();
    void place();
    QRect placeBeside(const QRect &field, QSize size) const;
    QRect placeSparingControls(const QRect &field, const QRect &beside) const;
    bool coversControl(const QRect &place) const;

    QPointer<QWidget> m_field;
    Placement m_placement = BesideField;
    QList<QPointer<QWidget>> m_watched; // the field and its ancestors
};
