// SPDX-License-Identifier: MIT
#pragma once

#include "Core/RunLoop/ZelGuarded.h"

#include <QPointer>
#include <QWidget>

class ZelPopover;

/// The window of a popover: a frame around the content, which it fills. It tells the popover when the content changes
/// its size or goes away, and when the window is hidden.
///
/// It has no parent, so that the content does not die with the anchor. It copies from the anchor what a child would
/// inherit.
class ZelPopoverWindow : public ZelGuarded<QWidget>
{
    Q_OBJECT
public:
    explicit ZelPopoverWindow(ZelPopover *popover);

    /// Shows the content. With null the former content is taken out and has no parent then.
    void setContent(QWidget *content);
    /// The size of the window for a content of the given size. A width or height that is not positive stands for the
    /// one that the content wants.
    QSize sizeForContent(const QSize &contentSize) const;
    /// Takes over screen, layout direction, locale, undo manager and source place from the anchor, colours and font
    /// from its window, and stays above that window.
    void belongTo(QWidget *anchor);
    ZelPopover *popover() const;
    /// Deletes the window at once, or as soon as it handles no event any more.
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
    QWidget *m_content = nullptr; // while it is being destroyed the pointer is only compared
};
