// SPDX-License-Identifier: MIT
#pragma once

#include "Core/RunLoop/ZelGuarded.h"
#include "Core/ZelExport.h"

#include <QObject>
#include <QPointer>
#include <QRect>
#include <QSize>
#include <QWidget>

class ZelPopoverWindow;

/// Shows a widget, such as the view of a controller, in a small window next to a rectangle of another widget.
///
/// A popover is transient: a click outside, Escape, and the loss of its anchor or its content close it. Whatever the
/// user is typing in the content is committed then, or dropped if it cannot be accepted. Pop-up menus that are opened
/// from the content count as inside: closing them does not close the popover.
///
/// The content belongs to the popover, which may be shown any number of times. While the popover is closed, the content
/// stays in the hidden window. The content, the anchor, the anchor's window and the popover itself may die at any time,
/// also while the popover is open and in slots of its signals.
class ZEL_EXPORT ZelPopover : public ZelGuarded<QObject>
{
    Q_OBJECT
    Q_PROPERTY(bool shown READ isShown NOTIFY shownChanged)
    Q_PROPERTY(QSize contentSize READ contentSize WRITE setContentSize)
public:
    explicit ZelPopover(QObject *parent = nullptr);
    /// Closes the popover if it is shown, with the usual signals, and deletes the content.
    ~ZelPopover() override;

    /// The content; null if there is none, or if it was taken or destroyed.
    QWidget *contentWidget() const { return m_content; }
    /// Takes ownership of the widget and deletes the former content. Closes the popover if it is shown.
    void setContentWidget(QWidget *content);
    /// Gives the content to the caller, without a parent. Closes the popover if it is shown.
    QWidget *takeContentWidget();

    /// The size of the content in points. A width or height that is not positive follows the size that the content
    /// wants, also when that changes.
    QSize contentSize() const { return m_contentSize; }
    void setContentSize(const QSize &size);

    bool isShown() const { return m_isShown; }
    /// Shows the content next to a rectangle in the widget's coordinates. An empty rectangle stands for the whole
    /// widget. If there is no room on the screen at the preferred edge but at the opposite one, the popover appears
    /// there; it always stays on the screen. The keyboard focus goes to the content's own focus widget, or to the first
    /// widget in it that takes the focus by Tab, and returns when the popover closes. A popover that is already shown
    /// moves. Does nothing without content, while the popover is closing, or for a widget that is not visible.
    void showRelativeToRect(const QRect &rect, QWidget *widget, Qt::Edge preferredEdge = Qt::BottomEdge);

    /// The place for a window of the given size beside a rectangle. Window and rectangle are centred on each other as
    /// far as the available part of the screen allows. All coordinates are global.
    static QRect placement(const QSize &size, const QRect &rect, Qt::Edge preferredEdge, const QRect &available);

public Q_SLOTS:
    /// Closes the popover as a user does. Does nothing while it is not shown.
    void performClose();

Q_SIGNALS:
    /// Sent when the content is in its window and about to be shown.
    void willShow();
    void didShow();
    /// Sent while the content is still shown. What the user was editing in it has been committed or dropped.
    void willClose();
    /// Sent once for every willShow, for whatever reason the popover closes.
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
