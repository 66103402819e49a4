// SPDX-License-Identifier: MIT
#pragma once

#include "Core/RunLoop/ZelGuarded.h"

#include <QPointer>
#include <QTimer>
#include <QWidget>

class ZelErrorNote;
class ZelModelValidation;

/// Shows on a control that a value which a user entered was not taken: a frame in the error colour, which fades in half
/// a second unless the style has no animations, and a note with the reason, if there is one.
///
/// Assistive technology gets an alert; the control's description is the reason meanwhile. The note goes when the user
/// turns to something else, after some seconds, and with the control.
class ZelRefusalMark : public ZelGuarded<QWidget>
{
    Q_OBJECT
public:
    /// The control shows another value than the one that was entered.
    static void flash(QWidget *control);
    /// The value was refused for that reason.
    static void show(QWidget *control, const QString &reason);
    /// The control shows another value than the one that was typed: a note tells both, as the control shows them. Where
    /// one of them is empty, or too long for a note, it only says so.
    static void showChange(QWidget *control, const QString &typed, const QString &kept);
    /// What models say, for people.
    static QString text(const ZelModelValidation &validation);

    ~ZelRefusalMark() override;

protected:
    bool filterEvent(QObject *watched, QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    explicit ZelRefusalMark(QWidget *control);
    static ZelRefusalMark *markOf(QWidget *control);
    void begin(const QString &description);
    void fade();

    QPointer<QWidget> m_control;
    QPointer<ZelErrorNote> m_note;
    QString m_description;       // the reason
    QString m_formerDescription; // the control's own
    QTimer m_end;
    double m_opacity = 0;
    bool m_isNew = false; // in the turn of the event loop in which it began
};
