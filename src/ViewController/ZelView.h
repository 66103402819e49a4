// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Layout/ZelLayoutConstraint.h"
#include "Platform/Resources/ZelColor.h"
#include "Platform/Runtime/ZelGuarded.h"
#include "Platform/Runtime/ZelSourcePlace.h"

#include <QPainter>
#include <QPointer>
#include <QRectF>
#include <QTransform>
#include <QWidget>
#include <memory>

class ZelBackingLayer;
class ZelKeyedCoder;
class ZelViewController;
struct ZelResponderLink;

/// A widget with a background and a border colour that is told when it enters and leaves a window.
///
/// A view is *installed* from the moment it has a window until it loses it. It has one when its top-level widget is not
/// a bare ZelView, or is one that has been shown; whether the window is visible does not matter. On entering, the
/// view's viewDidInstall runs, then its controller's, then those of the views below it; on leaving, viewWillUninstall
/// in the same order. Moving from one window straight into another does neither. A view that is made inside a window
/// (its parent given to the constructor) is installed when Qt polishes it: in the next turn of the event loop, or when
/// it is shown. Putting it in with addSubview or setParent installs it at once. A view taken out with
/// removeFromSuperview is told while it still has its window, with setParent right afterwards.
///
/// Every class that overrides viewWillUninstall calls uninstall() in its own destructor: there the hook of the most
/// derived class still exists.
///
/// Views lay out their children with constraints (see ZelConstraintLayout). updateConstraints runs once before the
/// layout wherever setNeedsUpdateConstraints was called, and once for every new view.
class ZelView : public ZelGuarded<QWidget>, public ZelPlaced
{
    Q_OBJECT
    /// None by default. Both colours follow the palette if they are named system colours.
    Q_PROPERTY(ZelColor backgroundColor READ backgroundColor WRITE setBackgroundColor NOTIFY backgroundColorChanged)
    Q_PROPERTY(ZelColor borderColor READ borderColor WRITE setBorderColor NOTIFY borderColorChanged)
    /// False by default; kept, archived and copied. Coordinates grow downwards in any case.
    Q_PROPERTY(bool flipped READ isFlipped WRITE setFlipped NOTIFY flippedChanged)
    /// False by default. An opaque view promises to paint all of itself.
    Q_PROPERTY(bool opaque READ isOpaque WRITE setOpaque NOTIFY opaqueChanged)
    Q_PROPERTY(bool installed READ isInstalled WRITE setInstalled NOTIFY installedChanged)
    Q_PROPERTY(
        ZelViewController *viewController READ viewController WRITE setViewController NOTIFY viewControllerChanged)
    /// Redraws a view on demand by default. Kept, and not looked at: Qt redraws what is asked for, and what a resize
    /// uncovers.
    Q_PROPERTY(LayerContentsRedrawPolicy layerContentsRedrawPolicy READ layerContentsRedrawPolicy WRITE
                   setLayerContentsRedrawPolicy NOTIFY layerContentsRedrawPolicyChanged)
    Q_MOC_INCLUDE("ViewController/ZelViewController.h")
public:
    enum LayerContentsRedrawPolicy : quint8 {
        LayerContentsRedrawNever,
        LayerContentsRedrawOnSetNeedsDisplay,
        LayerContentsRedrawDuringViewResize,
        LayerContentsRedrawBeforeViewResize,
        LayerContentsRedrawCrossfade,
    };
    Q_ENUM(LayerContentsRedrawPolicy)

    explicit ZelView(QWidget *parent = nullptr);
    explicit ZelView(const QRectF &frame, QWidget *parent = nullptr);
    /// Reads what encodeWithCoder wrote. Every view class has such a constructor.
    explicit ZelView(const ZelKeyedCoder &coder, QWidget *parent = nullptr);
    ~ZelView() override;

    ZelColor backgroundColor() const;
    /// An equal colour changes nothing. A layer shows the new colour by itself, otherwise the view is redrawn.
    void setBackgroundColor(const ZelColor &color);
    void setBackgroundColor(const QColor &color) { setBackgroundColor(ZelColor(color)); }
    ZelColor borderColor() const;
    /// An equal colour changes nothing. The view is redrawn, with a layer too.
    void setBorderColor(const ZelColor &color);
    void setBorderColor(const QColor &color) { setBorderColor(ZelColor(color)); }
    bool isFlipped() const { return m_flipped; }
    void setFlipped(bool flipped);
    bool isOpaque() const { return m_opaque; }
    void setOpaque(bool opaque);
    bool isInstalled() const { return m_installed; }
    void setInstalled(bool installed);
    LayerContentsRedrawPolicy layerContentsRedrawPolicy() const { return m_layerContentsRedrawPolicy; }
    void setLayerContentsRedrawPolicy(LayerContentsRedrawPolicy policy);

    /// The controller that this is the view of, held weakly.
    ZelViewController *viewController() const;
    /// Puts the controller between the view and its next responder, and gives the former controller's back to the view.
    void setViewController(ZelViewController *controller);
    /// That of the controller, or of the nearest one above it that has one.
    ZelSourcePlace place() const override;

    /// The controller if there is one, else what was set, else the parent. Qt's own event delivery goes by the parents.
    QObject *nextResponder() const;
    /// With a controller, sets the controller's next responder. Forgotten when the view gets another parent.
    void setNextResponder(QObject *responder);

    /// Children that are widgets and no windows, from the bottom of the stack to its top.
    QList<QWidget *> subviews() const;
    /// Adds the view above all others, or below the subview that has that index. Null is none. Shown unless it was
    /// hidden explicitly.
    void addSubview(QWidget *view, qsizetype index = -1);
    /// Makes these the subviews, in this order, taking out all others; laid out once. What is taken out has no parent.
    /// Null pointers are left out.
    void setSubviews(const QList<QWidget *> &views);
    /// Hides the widget, or lets it be seen. One without a parent does not become a window: the view that takes it
    /// shows it.
    static void setShown(QWidget *view, bool shown);
    /// Takes the view out of its parent and window; it then belongs to the caller.
    void removeFromSuperview();
    /// The same for any widget.
    static void removeFromSuperview(QWidget *view);

    /// The place in the parent's coordinates. Fractions of the size are kept until the view is resized otherwise, those
    /// of the position until it is moved otherwise.
    QRectF frame() const;
    void setFrame(const QRectF &frame);
    /// The view's own coordinates: (0, 0) and the frame's size unless set. Bounds of another size scale what the view
    /// and the views below it draw, the positions of events, and the frames of subviews. A resize keeps the scale.
    /// Touches and gestures are not scaled; other widgets below the view are not either.
    QRectF bounds() const;
    void setBounds(const QRectF &bounds);
    /// Maps the view's coordinates to its widget's.
    QTransform boundsTransform() const;

    /// A layer paints the background and the border in the place of the view.
    bool wantsLayer() const { return layer() != nullptr; }
    void setWantsLayer(bool wants);
    ZelBackingLayer *layer() const;

    /// Constraints between the view and its subviews, kept by its ZelConstraintLayout.
    void addConstraint(const ZelLayoutConstraint::Ptr &constraint);
    void addConstraints(const QList<ZelLayoutConstraint::Ptr> &constraints);
    /// Adds and answers the constraints of a visual format.
    QList<ZelLayoutConstraint::Ptr> addConstraintsWithVisualFormat(const QString &format,
                                                                   const QHash<QString, QWidget *> &views,
                                                                   const QHash<QString, double> &metrics = {});
    void removeConstraints(const QList<ZelLayoutConstraint::Ptr> &constraints);
    QList<ZelLayoutConstraint::Ptr> constraints() const;

    /// Has updateConstraints run before the next layout.
    void setNeedsUpdateConstraints();
    bool needsUpdateConstraints() const { return m_needsUpdateConstraints; }
    void updateConstraintsIfNeeded();

    /// The distance of the first text baseline from the bottom, in points; 0 unless a subclass knows better.
    virtual double baselineOffsetFromBottom() const { return 0; }

    /// Writes the frame, the flippedness, the opacity and the colours that there are.
    virtual void encodeWithCoder(ZelKeyedCoder &coder) const;
    /// A new view of the same class and frame with the same colours, flippedness and opacity; nothing else is copied. A
    /// subclass that does not override newInstance() is an assertion, and null.
    ZelView *copy() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    bool hasHeightForWidth() const override;
    int heightForWidth(int width) const override;

Q_SIGNALS:
    void backgroundColorChanged();
    void borderColorChanged();
    void flippedChanged();
    void opaqueChanged();
    void installedChanged();
    void viewControllerChanged();
    void layerContentsRedrawPolicyChanged();

public: // Hooks. Overrides call the base first.
    virtual void viewDidInstall();
    virtual void viewWillUninstall();
    /// Adds and removes constraints for the present state. Forwarded to the controller.
    virtual void updateConstraints();
    /// Called after the view got another size or its subviews were laid out. Forwarded to the controller's layout().
    virtual void layoutSubviews();
    /// The subview may still be under construction.
    virtual void didAddSubview(QWidget *subview);
    /// Null for a subview that is being destroyed.
    virtual void willRemoveSubview(QWidget *subview);
    /// Called before the view is painted.
    virtual void viewWillDraw();
    /// Draws in the view's coordinates. The base paints the colours, unless there is a layer.
    virtual void drawRect(QPainter &painter, const QRect &dirtyRect);
    /// Whether drawRect draws more than the colours. A subclass is taken to; one that does not override drawRect says
    /// no, for instances of its own class, and saves them the painter.
    virtual bool drawsContent() const;
    virtual std::unique_ptr<ZelBackingLayer> makeBackingLayer();

protected:
    /// Puts the constraints in the place of those that the member holds. Answers whether they are others.
    bool replaceConstraints(QList<ZelLayoutConstraint::Ptr> &member,
                            const QList<ZelLayoutConstraint::Ptr> &constraints);
    /// An empty view of the same class, for copy().
    virtual ZelView *newInstance() const { return new ZelView; }
    /// For destructors: runs the hooks of this view and those below it if they are installed. What they throw is
    /// reported. The view is not installed again.
    void uninstall() noexcept;

    /// Gets the events that have a position, in the view's coordinates; the base hands them to their handlers, such as
    /// mousePressEvent. The place for those without one: hovering, tool tips and What's This. In event() they stand
    /// where the widget is, not where the view's bounds are.
    virtual bool positionedEvent(QEvent *event);

    bool handleEvent(QEvent *event) override;
    void childEvent(QChildEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void updateConstraintsForLayout() const;
    friend class ZelViewInstaller;
    friend class ZelConstraintUpdates;
    friend class ZelSubviewGroup;
    struct Rare; // what few views have
    Rare &rare();
    ZelResponderLink takeResponderLink();
    void leaveViewController();
    double hairlineWidth() const;
    bool hasScaledBounds() const;
    bool deliverScaled(QEvent *event);
    void placeSubview(QWidget *view, QWidget *above);
    void removeSubviews(const QList<QPointer<QWidget>> &views);
    void showSubview(QWidget *view);
    void installAndShowSubviews();

    std::unique_ptr<Rare> m_rare;
    QPointer<ZelViewController> m_viewController;
    qint32 m_updateIndex = -1; // place in the queue of ZelConstraintUpdates
    LayerContentsRedrawPolicy m_layerContentsRedrawPolicy = LayerContentsRedrawOnSetNeedsDisplay;
    bool m_flipped : 1 = false;
    bool m_opaque : 1 = false;
    bool m_installed : 1 = false;
    bool m_needsUpdateConstraints : 1 = true;
    bool m_shownAsWindow : 1 = false;
    bool m_destroying : 1 = false; // never installed again
    bool m_moving = false;         // the parent is being changed, which says nothing about the window
    bool m_grouping = false;       // a group of subviews comes or goes, which is no subview
};
