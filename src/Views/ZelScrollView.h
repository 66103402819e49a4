// SPDX-License-Identifier: MIT
#pragma once

#include "Core/RunLoop/ZelGuarded.h"
#include "Core/ZelExport.h"

#include <QPointer>
#include <QScrollArea>

class ZelSight;

/// Scrolls a document view vertically. The document is as wide as the visible part and as high as it wants to be for
/// that width. The scroll view has no frame and no background.
///
/// Over a spin box, a combo box or a slider that does not have the focus, the wheel scrolls and does not change the
/// value.
class ZEL_EXPORT ZelScrollView : public ZelGuardedScrollArea<QScrollArea>
{
    Q_OBJECT
    Q_PROPERTY(int keptRows READ keptRows WRITE setKeptRows NOTIFY keptRowsChanged)
public:
    explicit ZelScrollView(QWidget *parent = nullptr);
    ~ZelScrollView() override;

    QWidget *documentView() const { return widget(); }
    /// The scroll view takes ownership of the view and deletes the former one.
    void setDocumentView(QWidget *view);

    /// How many rows of inspectors in the document may have views; 500 by default. While there are more, those far out
    /// of sight give their views back. It counts only for inspectors of more than about three screens, whose rows get
    /// views when they come into sight.
    int keptRows() const { return m_keptRows; }
    void setKeptRows(int rows);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

    bool filterEvent(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    void keptRowsChanged();

protected:
    bool handleEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    friend class ZelSight;
    ZelSight *sight();
    void updateSight();
    void focusDidChange(QWidget *former, QWidget *present);
    void updateDocumentSize();
    QSize documentSize() const;
    int documentHeight(int width) const;
    void watchWindow();
    bool scrollsInPlaceOf(const QWidget *widget) const;

    QPointer<QObject> m_watchedWindow;
    QPointer<ZelSight> m_sight; // made for parts that wait to be seen
    int m_keptRows = 500;
    bool m_isTabPressed = false; // and no other key or button since then
    bool m_updatingDocumentSize = false;
};
