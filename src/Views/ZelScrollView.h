// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Runtime/ZelGuarded.h"

#include <QPointer>
#include <QScrollArea>

/// Scrolls a document view vertically: the document is as wide as the visible part, and as high as it wants to be for
/// that width. No frame, no background.
///
/// The wheel scrolls also over a spin box, pop-up button or slider that does not have the focus, so that scrolling
/// through a form does not change its values.
class ZelScrollView : public ZelGuardedScrollArea<QScrollArea>
{
    Q_OBJECT
public:
    explicit ZelScrollView(QWidget *parent = nullptr);
    ~ZelScrollView() override;

    QWidget *documentView() const { return widget(); }
    /// The view becomes the scroll view's; a former one is deleted.
    void setDocumentView(QWidget *view);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

    bool filterEvent(QObject *watched, QEvent *event) override;

protected:
    bool handleEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void updateDocumentSize();
    QSize documentSize() const;
    int documentHeight(int width) const;
    void watchWindow();
    bool scrollsInPlaceOf(const QWidget *widget) const;

    QPointer<QObject> m_watchedWindow;
    bool m_updatingDocumentSize = false;
};
