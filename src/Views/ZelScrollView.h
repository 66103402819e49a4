// SPDX-License-Identifier: MIT
#pragma once

#include "Core/RunLoop/ZelGuarded.h"
#include "Core/ZelExport.h"

#include <QPointer>
#include <QScrollArea>

/// Scrolls a document view vertically. The document is as wide as the visible part and as high as it wants to be for
/// that width. The scroll view has no frame and no background.
///
/// Over a spin box, a combo box or a slider that does not have the focus, the wheel scrolls and does not change the
/// value.
class ZEL_EXPORT ZelScrollView : public ZelGuardedScrollArea<QScrollArea>
{
    Q_OBJECT
public:
    explicit ZelScrollView(QWidget *parent = nullptr);
    ~ZelScrollView() override;

    QWidget *documentView() const { return widget(); }
    /// The scroll view takes ownership of the view and deletes the former one.
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
