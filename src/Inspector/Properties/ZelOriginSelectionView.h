// SPDX-License-Identifier: MIT
#pragma once

#include "Controls/Cells/ZelCellGroup.h"
#include "Core/RunLoop/ZelWeakInterface.h"
#include "Core/ZelExport.h"
#include "Geometry/ZelRectAnchor.h"
#include "ViewController/ZelView.h"

#include <QIcon>

class ZelOriginSelectionView;

/// Is told which anchor is chosen in an origin selection view.
class ZEL_EXPORT ZelOriginSelectionViewDelegate
{
public:
    virtual ~ZelOriginSelectionViewDelegate() = default;
    /// Called before the view shows the anchor. The view may be deleted.
    virtual void originSelectionViewDidSelectAnchor(ZelOriginSelectionView *, ZelRectAnchor) {}
};

/// A picture of a rectangle's nine anchors, of which one is chosen by a click, or with the arrow keys.
class ZEL_EXPORT ZelOriginSelectionView : public ZelView, public ZelCellGroup
{
    Q_OBJECT
    Q_INTERFACES(ZelCellGroup)
    /// Top left by default.
    Q_PROPERTY(quint64 anchor READ anchor WRITE setAnchorNumber NOTIFY anchorChanged)
    Q_PROPERTY(QObject *delegate READ delegateObject WRITE setDelegateObject STORED false)
    Q_PROPERTY(QIcon image READ image STORED false)
public:
    explicit ZelOriginSelectionView(QWidget *parent = nullptr);
    ~ZelOriginSelectionView() override;

    ZelRectAnchor anchor() const { return m_anchor; }
    /// Does not tell the delegate. A value that is no anchor shows none.
    void setAnchor(ZelRectAnchor anchor);
    void setAnchorNumber(quint64 anchor) { setAnchor(ZelRectAnchor(anchor)); }

    /// The delegate is not owned. If it is a QObject, it may die before the view.
    ZelOriginSelectionViewDelegate *delegate() const;
    void setDelegate(ZelOriginSelectionViewDelegate *delegate);

    /// The delegate if it is a QObject, else null. Setting an object that is no delegate leaves the view without one.
    QObject *delegateObject() const { return m_delegate.object(); }
    void setDelegateObject(QObject *delegate);

    /// The picture of the anchor.
    const QIcon &image() const { return m_image; }
    void updateImage();
    /// The name of the picture, under which the application may register its own; null for a value that is no anchor.
    static QString imageNameForAnchor(ZelRectAnchor anchor);
    /// The anchor at a position; top left for a position outside of the view.
    ZelRectAnchor anchorAtPosition(const QPointF &position) const;

    int cellCount() const override { return ZelOriginBottomRight + 1; }
    QRect cellRect(int cell) const override;
    int cellAt(const QPointF &position) const override { return int(anchorAtPosition(position)); }
    QString cellName(int cell) const override;
    bool isCellSelected(int cell) const override { return ZelRectAnchor(cell) == m_anchor; }
    int currentCell() const override { return m_anchor > ZelOriginBottomRight ? -1 : int(m_anchor); }
    void clickCell(int cell) override;

    /// 71 points in both directions.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }
    void drawRect(QPainter &painter, const QRect &dirtyRect) override;
    bool drawsContent() const override { return true; }

Q_SIGNALS:
    void anchorChanged();

protected:
    bool positionedEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    int cellColumns() const override { return 3; }
    ZelView *newInstance() const override { return new ZelOriginSelectionView; }

private:
    ZelRectAnchor m_anchor = ZelOriginTopLeft;
    QIcon m_image;
    ZelWeakInterface<ZelOriginSelectionViewDelegate> m_delegate;
};
