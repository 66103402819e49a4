// SPDX-License-Identifier: MIT
#pragma once

#include "Geometry/ZelRectAnchor.h"
#include "Platform/Controls/ZelCellGroup.h"
#include "ViewController/ZelView.h"

#include <QIcon>

class ZelOriginSelectionView;

/// Hears of choices in an origin selection view.
class ZelOriginSelectionViewDelegate
{
public:
    virtual ~ZelOriginSelectionViewDelegate() = default;
    /// Called before the view shows the anchor. The view may be deleted.
    virtual void originSelectionViewDidSelectAnchor(ZelOriginSelectionView *, ZelRectAnchor) {}
};

/// A picture of a rectangle's nine anchors, of which one is chosen by a click, or with the arrow keys.
class ZelOriginSelectionView : public ZelView, public ZelCellGroup
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

    /// Not owned. A delegate that is a QObject may die before the view.
    ZelOriginSelectionViewDelegate *delegate() const;
    void setDelegate(ZelOriginSelectionViewDelegate *delegate);

    /// The same where it is a QObject; another object than a delegate stands for none.
    QObject *delegateObject() const { return m_delegateObject; }
    void setDelegateObject(QObject *delegate);

    /// The picture of the anchor.
    const QIcon &image() const { return m_image; }
    void updateImage();
    /// The name of the picture, under which the application may register its own; null for what is no anchor.
    static QString imageNameForAnchor(ZelRectAnchor anchor);
    /// The anchor at a position; the first one beside the view.
    ZelRectAnchor anchorAtPosition(const QPointF &position) const;

    int cellCount() const override { return ZelOriginBottomRight + 1; }
    QRect cellRect(int cell) const override;
    QString cellName(int cell) const override;
    bool isCellSelected(int cell) const override { return ZelRectAnchor(cell) == m_anchor; }
    int currentCell() const override { return m_anchor > ZelOriginBottomRight ? -1 : int(m_anchor); }
    void clickCell(int cell) override { choose(ZelRectAnchor(cell)); }

    /// 71 points in both directions.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }
    void drawRect(QPainter &painter, const QRect &dirtyRect) override;
    bool drawsContent() const override { return true; }

Q_SIGNALS:
    void anchorChanged();

protected:
    void changeEvent(QEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    ZelView *newInstance() const override { return new ZelOriginSelectionView; }

private:
    void choose(ZelRectAnchor anchor);

    ZelRectAnchor m_anchor = ZelOriginTopLeft;
    QIcon m_image;
    ZelOriginSelectionViewDelegate *m_delegate = nullptr;
    QPointer<QObject> m_delegateObject; // the delegate, if it is a QObject
    bool m_delegateIsObject = false;
};
