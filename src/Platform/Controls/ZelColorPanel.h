// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Runtime/ZelGuarded.h"

#include <QColor>
#include <QObject>
#include <QPointer>

class QColorDialog;
class QWidget;

/// The application's one window for choosing any colour: not modal, without buttons, open until it is closed.
///
/// It serves one client at a time, its delegate. Whoever wants it makes itself the delegate and brings it to the front;
/// the former client hears of that. Every move of the user is reported at once. A client must not expect to be the
/// delegate still when it hears of a change, and may die at any time. The keys for undo and redo undo in the window of
/// the client's widget.
class ZelColorPanel : public ZelGuarded<QObject>
{
    Q_OBJECT
public:
    ~ZelColorPanel() override;
    /// Made when it is first asked for; goes with the application. Used on the main thread.
    static ZelColorPanel *sharedColorPanel();

    /// The client, held weakly; null by default.
    QObject *delegate() const { return m_delegate; }
    void setDelegate(QObject *delegate);

    /// Black by default. Opaque unless the panel shows alpha.
    QColor color() const;
    /// Shows a colour; not reported. An invalid one changes nothing.
    void setColor(const QColor &color);

    /// Whether opacity can be chosen; false.
    bool showsAlpha() const;
    void setShowsAlpha(bool shows);

    bool isVisible() const;
    /// Shows the panel above the window of the client's widget, which may be null.
    void orderFront(const QWidget *client);
    void close();
    /// The dialog inside; null until the panel is first used.
    QWidget *window() const;

    /// Whether the user is dragging, with further changes to come.
    bool isTracking() const { return m_isTracking; }

Q_SIGNALS:
    /// Not sent when the delegate has died.
    void delegateDidChange();
    /// The user has chosen a colour.
    void colorDidChange();
    /// The user has let go of the mouse.
    void trackingDidEnd();
    void willClose();

protected:
    bool filterEvent(QObject *watched, QEvent *event) override;

private:
    ZelColorPanel();
    QColorDialog *dialog();
    void addShortcuts();
    static bool leavesShortcut(QObject *focused, QEvent *event);
    void noteChange();
    void setTracking(bool tracking);

    QColorDialog *m_dialog = nullptr;
    QPointer<QObject> m_delegate;
    QPointer<const QWidget> m_client; // the widget for which it was brought to the front
    QColor m_knownColor;              // what was set or reported last
    bool m_isSettingColor = false;
    bool m_isTracking = false;
};
