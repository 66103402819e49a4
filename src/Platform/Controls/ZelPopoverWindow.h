// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Runtime/ZelGuarded.h"

#include <QPointer>
#include <QWidget>

class ZelPopover;

/// The window of a popover: a frame around the content, which it fills. It tells the popover what happens to it.
///
/// It has no parent, so that the content does not die with the anchor; it takes over from the anchor what it would
/// inherit as a child.
class ZelPopoverWindow : public ZelGuarded<QWidget>
{
    Q_OBJECT
public:
    explicit ZelPopoverWindow(ZelPopover *popover);

    /// Null takes the former content out, without a parent.
    void setContent(QWidget *content);
    /// The size around the content: of that size, where it is positive, or of the size that the content wants.
    QSize sizeForContent(const QSize &contentSize) const;
    /// Belongs to the anchor's window from now on: its screen, style, colours, font, direction and undo manager.
    void belongTo(QWidget *anchor);
    ZelPopover *popover() const;
    /// Deletes the window, or has it deleted as soon as it is not at work any more.
    void dispose();

protected:
    bool handleEvent(QEvent *event) override;
    void childEvent(QChildEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void fitContent();

    QPointer<ZelPopover> m_popover;
    QWidget *m_content = nullptr; // only compared once it is being destroyed
};
