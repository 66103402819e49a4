// SPDX-License-Identifier: MIT
#pragma once

#include "Core/RunLoop/ZelGuarded.h"
#include "Core/ZelExport.h"

#include <QColor>
#include <QObject>
#include <QPointer>

class QColorDialog;
class QWidget;

/// The one window of the application in which any colour can be chosen. It is not modal, has no buttons and stays open
/// until the user closes it.
///
/// It serves one client at a time, its delegate. A client makes itself the delegate and brings the panel to the front;
/// the former client is told. Every move of the user is reported at once. A client that hears of a change may not be
/// the delegate any more and must check that. A client may die at any time. The keys for undo and redo act on the
/// window of the client's widget.
class ZEL_EXPORT ZelColorPanel : public ZelGuarded<QObject>
{
    Q_OBJECT
public:
    ~ZelColorPanel() override;
    /// The panel is made on the first call and deleted with the application object. Call it on the main thread only.
    static ZelColorPanel *sharedColorPanel();

    /// The client; null by default, and after it has died.
    QObject *delegate() const { return m_delegate; }
    void setDelegate(QObject *delegate);

    /// Black by default. Opaque unless the panel shows alpha.
    QColor color() const;
    /// Shows a colour without reporting it. An invalid colour changes nothing.
    void setColor(const QColor &color);

    /// Whether users can choose an opacity; false by default.
    bool showsAlpha() const;
    void setShowsAlpha(bool shows);

    bool isVisible() const;
    /// Shows the panel above the window of the client's widget, which may be null.
    void orderFront(const QWidget *client);
    void close();
    /// The dialog inside; null until the panel is first used.
    QWidget *window() const;

    /// Whether the user is dragging, so that further changes may come.
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
    QPointer<const QWidget> m_client; // the widget for which the panel was brought to the front
    QColor m_knownColor;              // the colour that was set or reported last
    bool m_isSettingColor = false;
    bool m_isTracking = false;
};
