// SPDX-License-Identifier: MIT
#pragma once

#include "Core/Errors/ZelSourcePlace.h"
#include "Core/RunLoop/ZelGuarded.h"
#include "Core/ZelExport.h"
#include "Layout/ZelLayoutConstraint.h"
#include "Resources/ZelColor.h"

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
/// A view is *installed* from the moment it has a window until it loses it. It has a window when its top-level widget
/// is not a ZelView, or is a ZelView that has been shown. It does not matter whether the window is visible now. On
/// entering, the view's viewDidInstall runs, then its controller's, then those of the views below it; on leaving,
/// viewWillUninstall in the same order. A move from one window straight into another calls neither. A view that is made
/// inside a window (its parent given to the constructor) is installed when Qt polishes it: in the next turn of the
/// event loop, or when it is shown. A view that is added with addSubview or setParent is installed at once. A view that
/// is taken out with removeFromSuperview is told while it still has its window; with setParent it is told right
/// afterwards.
///
/// Observations and bindings for ZelInstalledContext end when the view is uninstalled, and when it dies. A class that
/// overrides viewWillUninstall calls uninstall() in its own destructor, because the override cannot be called any more
/// from the base's destructor.
///
/// Views lay out their children with constraints (see ZelConstraintLayout). updateConstraints runs once before the next
/// layout after setNeedsUpdateConstraints was called, and once for every new view.
class ZEL_EXPORT ZelView : public ZelGuarded<QWidget>, public ZelPlaced
{
    Q_OBJECT
    /// None by default. Both colours follow the palette if they are named system colours.
    Q_PROPERTY(ZelColor backgroundColor READ backgroundColor WRITE setBackgroundColor NOTIFY backgroundColorChanged)
    Q_PROPERTY(ZelColor borderColor READ borderColor WRITE setBorderColor NOTIFY borderColorChanged)
    /// False by default. The flag is stored, archived and copied, but has no effect: coordinates always grow downwards.
    Q_PROPERTY(bool flipped READ isFlipped WRITE setFlipped NOTIFY flippedChanged)
    /// False by default. An opaque view promises to paint all of itself.
    Q_PROPERTY(bool opaque READ isOpaque WRITE setOpaque NOTIFY opaqueChanged)
    Q_PROPERTY(bool installed READ isInstalled WRITE setInstalled NOTIFY installedChanged)
    Q_PROPERTY(
        ZelViewController *viewController READ viewController WRITE setViewController NOTIFY viewControllerChanged)
    /// OnSetNeedsDisplay by default. The policy is stored but has no effect: Qt redraws what an update asks for and
    /// what a resize uncovers.
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
    /// An equal colour changes nothing. A layer shows the new colour by itself; a view without a layer is redrawn.
    void setBackgroundColor(const ZelColor &color);
    void setBackgroundColor(const QColor &color) { setBackgroundColor(ZelColor(color)); }
    ZelColor borderColor() const;
    /// An equal colour changes nothing. The view is redrawn even if it has a layer.
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

    /// The controller whose view this is; null if there is none or if it has died.
    ZelViewController *viewController() const;
    /// Puts the controller between the view and its next responder. The view gets the next responder of the former
    /// controller back.
    void setViewController(ZelViewController *controller);
    /// The place of the controller, or of the nearest controller above it that has one.
    ZelSourcePlace place() const override;

    /// The controller if there is one, else the responder that was set, else the parent. Qt's own event delivery
    /// ignores this and follows the parents.
    QObject *nextResponder() const;
    /// If the view has a controller, this sets the controller's next responder. The setting is dropped when the view
    /// gets another parent.
    void setNextResponder(QObject *responder);

    /// The children that are widgets but not windows, from the bottom of the stack to its top.
    QList<QWidget *> subviews() const;
    /// Adds the view above all others, or below the subview that has this index. Does nothing for null. The view is
    /// shown unless it was hidden explicitly.
    void addSubview(QWidget *view, qsizetype index = -1);
    /// Makes these the subviews, in this order, and lays them out once. All others are taken out and have no parent
    /// then. Null pointers are ignored.
    void setSubviews(const QList<QWidget *> &views);
    /// Hides or shows the widget. A widget without a parent does not become a window: it is shown by the view to which
    /// it is added.
    static void setShown(QWidget *view, bool shown);
    /// Takes the view out of its parent and window. The caller owns it afterwards.
    void removeFromSuperview();
    /// The same for any widget.
    static void removeFromSuperview(QWidget *view);

    /// The place in the parent's coordinates. It may have fractions: those of the size are kept until something else
    /// resizes the view, those of the position until something else moves it.
    QRectF frame() const;
    void setFrame(const QRectF &frame);
    /// The view's own coordinates: (0, 0) and the frame's size unless set. Bounds of another size scale what the view
    /// and the views below it draw, the positions of events, and the frames of subviews. A resize keeps the scale.
    /// Touches, gestures and widgets that are no views are not scaled.
    QRectF bounds() const;
    void setBounds(const QRectF &bounds);
    /// Maps the view's coordinates to its widget's.
    QTransform boundsTransform() const;

    /// Whether the view has a layer, which then paints background and border instead of the view.
    bool wantsLayer() const { return layer() != nullptr; }
    void setWantsLayer(bool wants);
    ZelBackingLayer *layer() const;

    /// Adds constraints between the view and its subviews to its ZelConstraintLayout. Fails with an assertion if the
    /// view has a layout of another kind.
    void addConstraint(const ZelLayoutConstraint::Ptr &constraint);
    void addConstraints(const QList<ZelLayoutConstraint::Ptr> &constraints);
    /// Adds the constraints that a visual format describes, and answers them.
    QList<ZelLayoutConstraint::Ptr> addConstraintsWithVisualFormat(const QString &format,
                                                                   const QHash<QString, QWidget *> &views,
                                                                   const QHash<QString, double> &metrics = {});
    void removeConstraints(const QList<ZelLayoutConstraint::Ptr> &constraints);
    QList<ZelLayoutConstraint::Ptr> constraints() const;

    /// Makes updateConstraints run before the next layout.
    void setNeedsUpdateConstraints();
    bool needsUpdateConstraints() const { return m_needsUpdateConstraints; }
    void updateConstraintsIfNeeded();

    /// The distance of the first text baseline from the bottom, in points; 0 unless a subclass knows better.
    virtual double baselineOffsetFromBottom() const { return 0; }

    /// Writes the frame, `flipped`, `opaque` and those colours that are set.
    virtual void encodeWithCoder(ZelKeyedCoder &coder) const;
    /// A new view of the same class with the same frame, colours, `flipped` and `opaque`; nothing else is copied. Fails
    /// with an assertion and answers null for a subclass that does not override newInstance().
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
    /// Adds and removes constraints for the present state. The base calls the controller's updateConstraints().
    virtual void updateConstraints();
    /// Called after the view got another size or its subviews were laid out. The base calls the controller's layout().
    virtual void layoutSubviews();
    /// The subview may still be under construction.
    virtual void didAddSubview(QWidget *subview);
    /// The argument is null for a subview that is being destroyed.
    virtual void willRemoveSubview(QWidget *subview);
    /// Called before the view is painted.
    virtual void viewWillDraw();
    /// Draws in the view's coordinates. The base paints background and border unless there is a layer.
    virtual void drawRect(QPainter &painter, const QRect &dirtyRect);
    /// Whether drawRect draws more than background and border. The base assumes so for every subclass. A class that
    /// does not override drawRect may answer false for instances of exactly this class, which saves them a painter.
    virtual bool drawsContent() const;
    virtual std::unique_ptr<ZelBackingLayer> makeBackingLayer();

protected:
    /// Replaces the constraints in the member by others. Answers false if they are the same and nothing was done.
    bool replaceConstraints(QList<ZelLayoutConstraint::Ptr> &member,
                            const QList<ZelLayoutConstraint::Ptr> &constraints);
    /// An empty view of the same class, for copy().
    virtual ZelView *newInstance() const { return new ZelView; }
    /// To be called by destructors: if the view is installed, runs viewWillUninstall of this view and those below it.
    /// What the hooks throw is reported. The view is never installed again.
    void uninstall() noexcept;

    /// Gets the events that have a position, mapped to the view's coordinates. The base calls their handlers, such as
    /// mousePressEvent. Override this for events that have no handler: hovering, tool tips and What's This. In event()
    /// they are in the widget's coordinates, which differ where bounds are set.
    virtual bool positionedEvent(QEvent *event);

    bool handleEvent(QEvent *event) override;
    void childEvent(QChildEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void updateConstraintsForLayout() const;
    void scheduleUpdateConstraints();
    friend class ZelViewInstaller;
    friend class ZelSubviewGroup;
    struct Rare; // members that few views need
    Rare &rare();
    ZelResponderLink takeResponderLink();
    void leaveViewController();
    double hairlineWidth() const;
    bool hasScaledBounds() const;
    bool showsHelpForKey(QKeyEvent *event);
    bool deliverScaled(QEvent *event);
    void placeSubview(QWidget *view, QWidget *above);
    void removeSubviews(const QList<QPointer<QWidget>> &views);
    void showSubview(QWidget *view);
    void installAndShowSubviews();

    std::unique_ptr<Rare> m_rare;
    QPointer<ZelViewController> m_viewController;
    LayerContentsRedrawPolicy m_layerContentsRedrawPolicy = LayerContentsRedrawOnSetNeedsDisplay;
    bool m_flipped = false;
    bool m_opaque = false;
    bool m_installed = false;
    bool m_needsUpdateConstraints = true;
    bool m_isUpdateScheduled = false;
    bool m_shownAsWindow = false;
    bool m_destroying = false; // never installed again
    bool m_moving = false;     // the parent is changing, but nobody may conclude anything about the window yet
    bool m_grouping = false;   // a ZelSubviewGroup comes or goes, which does not count as a subview
};
