// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Runtime/ZelGuarded.h"

#include <QObject>
#include <QPointer>
#include <QRect>
#include <QSize>
#include <QWidget>

class ZelPopoverWindow;

/// Shows a widget, such as the view of a controller, in a small window next to a rectangle of another widget.
///
/// A popover is transient: a click outside, Escape, and the loss of its anchor or its content close it. What a user is
/// typing in the content is committed then, or dropped where it cannot be taken. Pop-up menus opened from the content
/// stay inside: closing them does not close the popover.
///
/// The content belongs to the popover, which may be shown any number of times; while it is closed, the content is kept
/// out of sight, in the window that it was shown in. Content, anchor, anchor's window and the popover itself may die at
/// any time, also while it is open and in answer to its signals.
class ZelPopover : public ZelGuarded<QObject>
{
    Q_OBJECT
    Q_PROPERTY(bool shown READ isShown NOTIFY shownChanged)
    Q_PROPERTY(QSize contentSize READ contentSize WRITE setContentSize)
public:
    explicit ZelPopover(QObject *parent = nullptr);
    /// Closes it, with notice, and deletes the content.
    ~ZelPopover() override;

    /// Null if there is none, or if it has been taken or destroyed.
    QWidget *contentWidget() const { return m_content; }
    /// Takes a widget over and deletes the former one. Closes the popover if it is shown.
    void setContentWidget(QWidget *content);
    /// Gives the content to the caller, without a parent. Closes the popover if it is shown.
    QWidget *takeContentWidget();

    /// The size of the content in points. A width or height that is not positive is as large as the content wants to
    /// be, now and when that changes.
    QSize contentSize() const { return m_contentSize; }
    void setContentSize(const QSize &size);

    bool isShown() const { return m_isShown; }
    /// Shows the content next to a rectangle in the widget's coordinates, an empty one for the whole widget. Where
    /// there is not enough room on the screen at the preferred edge it comes to the opposite one; it always stays on
    /// the screen. The keyboard focus goes to the content's own focus widget, or to the first that takes it by Tab, and
    /// back when the popover closes. A popover that is shown moves. Does nothing without content, or for a widget that
    /// cannot be seen.
    void showRelativeToRect(const QRect &rect, QWidget *widget, Qt::Edge preferredEdge = Qt::BottomEdge);

    /// The place for a window of that size beside a rectangle, both edges of which are centred on each other as far as
    /// the available part of the screen allows. All in global coordinates.
    static QRect placement(const QSize &size, const QRect &rect, Qt::Edge preferredEdge, const QRect &available);

public Q_SLOTS:
    /// Closes as a user does. Does nothing while it is not shown.
    void performClose();

Q_SIGNALS:
    /// The content is in its window and about to be seen.
    void willShow();
    void didShow();
    /// The content can still be seen, and what was being edited in it has been committed.
    void willClose();
    /// Sent once for every willShow, whatever the reason.
    void didClose();
    void shownChanged();

private:
    friend class ZelPopoverWindow;
    class Closing;
    bool filterEvent(QObject *watched, QEvent *event) override;
    void contentChangedSize();
    void contentWentAway();
    void widgetWasDestroyed(QObject *widget);
    void windowWasHidden();
    bool isOnAnchor(const QPoint &globalPosition) const;
    void finishClosing();
    void giveFocus();
    void place();
    void restoreFocus();
    ZelPopoverWindow *window();

    ZelPopoverWindow *m_window = nullptr;
    QPointer<QWidget> m_content;
    QPointer<QWidget> m_anchor;
    QPointer<QWidget> m_formerFocus;
    QRect m_rect;
    QSize m_contentSize;
    Qt::Edge m_edge = Qt::BottomEdge;
    bool m_isShown = false;
    bool m_isClosing = false;
};
