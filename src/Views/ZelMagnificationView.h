// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"
#include "ViewController/ZelView.h"

#include <optional>

class QAbstractScrollArea;
class QGestureEvent;
class QNativeGestureEvent;

/// Shows its first subview magnified. The view is meant to be the widget of a scroll area.
///
///     auto *magnifier = new ZelMagnificationView;
///     magnifier->addSubview(canvas);
///     magnifier->setContentSize(QSizeF(595, 842));
///     scrollArea->setWidget(magnifier); // not resizable: the view sizes itself
///
/// The view's bounds differ from its frame by the factor. So a content that is a ZelView draws and gets its events in
/// unmagnified coordinates, and stays sharp. Any other widget is only resized. Content that is smaller than the visible
/// area is centred in it.
///
/// The wheel with Ctrl and pinching zoom about the pointer. The actions zoom about the centre of the visible area. The
/// point about which the view zooms keeps its place on the screen as far as the scroll area can scroll.
///
/// In a QScrollArea, receivers of changes, including those of the scroll bars, may delete the view.
class ZEL_EXPORT ZelMagnificationView : public ZelView
{
    Q_OBJECT
    /// 1 by default. The setter does not apply the limits and does not scroll.
    Q_PROPERTY(double magnificationFactor READ magnificationFactor WRITE setMagnificationFactor NOTIFY
                   magnificationFactorChanged)
    /// The limits of zooming, 0.25 and 4 by default.
    Q_PROPERTY(double minMagnification READ minMagnification WRITE setMinMagnification NOTIFY minMagnificationChanged)
    Q_PROPERTY(double maxMagnification READ maxMagnification WRITE setMaxMagnification NOTIFY maxMagnificationChanged)
    /// The unmagnified size of the content.
    Q_PROPERTY(QSizeF contentSize READ contentSize WRITE setContentSize NOTIFY contentSizeChanged)
    /// The running product of pinches. It starts at 0, and therefore stays 0 until another value is set.
    Q_PROPERTY(double pinchMagnificationFactor READ pinchMagnificationFactor WRITE setPinchMagnificationFactor NOTIFY
                   pinchMagnificationFactorChanged)
    /// A flag for code that changes the frame from outside. The view itself only resets it.
    Q_PROPERTY(bool updatingDocumentFrame READ isUpdatingDocumentFrame WRITE setUpdatingDocumentFrame NOTIFY
                   updatingDocumentFrameChanged)
public:
    explicit ZelMagnificationView(QWidget *parent = nullptr);
    explicit ZelMagnificationView(const QRectF &frame, QWidget *parent = nullptr);
    explicit ZelMagnificationView(const ZelKeyedCoder &coder, QWidget *parent = nullptr);
    ~ZelMagnificationView() override;

    double magnificationFactor() const { return m_magnificationFactor; }
    /// A factor that is not positive and finite is ignored.
    void setMagnificationFactor(double factor);
    double minMagnification() const { return m_minMagnification; }
    void setMinMagnification(double factor);
    double maxMagnification() const { return m_maxMagnification; }
    void setMaxMagnification(double factor);
    QSizeF contentSize() const { return m_contentSize; }
    void setContentSize(const QSizeF &size);
    double pinchMagnificationFactor() const { return m_pinchMagnificationFactor; }
    void setPinchMagnificationFactor(double factor);
    bool isUpdatingDocumentFrame() const { return m_updatingDocumentFrame; }
    void setUpdatingDocumentFrame(bool updating);

    /// The first subview; null if there is none.
    QWidget *contentView() const;
    /// The part that the scroll area shows, in the view's coordinates.
    QRectF visibleDocumentRect() const;

    /// Sizes the view and places the content. The view does this by itself whenever the superview, the content or its
    /// size changes.
    void updateContentFrame();
    /// Zooms about the centre of what is visible, within the limits.
    void magnifyVisibleRectWithFactor(double factor);
    /// Zooms about a point in the view's coordinates.
    void magnifyVisibleRectWithFactor(double factor, const QPointF &point);
    /// Zooms by the event's value about the event's position.
    void magnifyWithEvent(QNativeGestureEvent *event);

    QSize sizeHint() const override;
    bool filterEvent(QObject *watched, QEvent *event) override;

public Q_SLOTS:
    void zoomIn(QObject *sender = nullptr);
    void zoomOut(QObject *sender = nullptr);
    void zoomToActualSize(QObject *sender = nullptr);
    /// Zooms to the actual size, like zoomToActualSize.
    void zoomFitInWindow(QObject *sender = nullptr);
    /// Zooms to the percentage that is the tag of the sender's selected item. Tags outside of 1 to 400 are ignored. The
    /// sender is a ZelPopUpButton, a QComboBox (whose items' data are the tags) or the chosen ZelMenuItem itself.
    void selectMagnificationFactor(QObject *sender);

Q_SIGNALS:
    void magnificationFactorChanged();
    void minMagnificationChanged();
    void maxMagnificationChanged();
    void contentSizeChanged();
    void pinchMagnificationFactorChanged();
    void updatingDocumentFrameChanged();

public:
    void layoutSubviews() override;
    void didAddSubview(QWidget *subview) override;
    void willRemoveSubview(QWidget *subview) override;
    bool drawsContent() const override;

protected:
    ZelView *newInstance() const override { return new ZelMagnificationView; }
    bool handleEvent(QEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    /// The point about which a series of zooms at one place is made. If it were computed at each step it would drift,
    /// because the scroll area scrolls by whole points.
    struct Anchor
    {
        QPointF point;
        QPointF place;
        QPoint viewPosition;
        double factor;
    };

    void initialize();
    void watchSuperview();
    QSizeF superviewSize() const;
    QAbstractScrollArea *scrollArea() const;
    void placeContent();
    void prepareScrollBars(const QSizeF &frameSize);
    bool pinch(QGestureEvent *event);
    void pinchBy(double magnification, const QPointF &place);
    void magnifyAtPlace(double factor, const QPointF &place);
    void magnify(double factor, const QPointF &point, const QPointF &place);
    void scrollTo(const QPointF &position);

    double m_magnificationFactor = 1;
    double m_minMagnification = 0.25;
    double m_maxMagnification = 4;
    QSizeF m_contentSize{0, 0};
    double m_pinchMagnificationFactor = 0;
    bool m_updatingDocumentFrame = false;
    bool m_updating = false;
    bool m_superviewChanged = false; // during an update
    std::optional<Anchor> m_anchor;
    QPointer<QWidget> m_superview; // its size is watched
};
