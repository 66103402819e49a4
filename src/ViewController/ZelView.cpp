// SPDX-License-Identifier: MIT
#include "ViewController/ZelView.h"

#include "Core/Errors/ZelAssertions.h"
#include "Core/Errors/ZelExceptionReporter.h"
#include "Core/Values/ZelValues.h"
#include "Core/Values/private/ZelAssign.h"
#include "Observation/ZelObservations.h"
#include "ViewController/ZelBackingLayer.h"
#include "ViewController/ZelInstalledContext.h"
#include "ViewController/ZelKeyedCoder.h"
#include "ViewController/ZelViewController.h"
#include "ViewController/private/ZelControlHelp.h"
#include "ViewController/private/ZelScaledEvent.h"
#include "ViewController/private/ZelViewInstaller.h"
#include "ViewController/private/ZelViewRare.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPaintEvent>
#include <QScopedValueRollback>
#include <QWhatsThis>

namespace {

const QString g_frameKey = QStringLiteral("ZelFrameKey");
const QString g_flippedKey = QStringLiteral("ZelIsFlippedKey");
const QString g_opaqueKey = QStringLiteral("ZelOpaqueKey");
const QString g_backgroundColorKey = QStringLiteral("ZelBackgroundColorKey");
const QString g_borderColorKey = QStringLiteral("ZelBorderColorKey");

} // namespace

ZelView::ZelView(QWidget *parent)
    : ZelGuarded(parent)
{
}

ZelView::ZelView(const QRectF &frame, QWidget *parent)
    : ZelGuarded(parent)
{
    setFrame(frame);
}

ZelView::ZelView(const ZelKeyedCoder &coder, QWidget *parent)
    : ZelGuarded(parent)
{
    if (coder.contains(g_frameKey))
        setFrame(coder.decode(g_frameKey).toRectF());
    setFlipped(coder.decodeBool(g_flippedKey));
    setOpaque(coder.decodeBool(g_opaqueKey));
    setBackgroundColor(ZelColor::fromVariant(coder.decode(g_backgroundColorKey)));
    setBorderColor(ZelColor::fromVariant(coder.decode(g_borderColorKey)));
}

ZelView::~ZelView()
{
    uninstall();
    if (ZelViewController *controller = std::exchange(m_viewController, nullptr))
        controller->viewWasDestroyed(this);
}

ZelView::Rare &ZelView::rare()
{
    if (!m_rare)
        m_rare = std::make_unique<Rare>();
    return *m_rare;
}

// Appearance

ZelColor ZelView::backgroundColor() const
{
    return m_rare ? m_rare->backgroundColor : ZelColor();
}

void ZelView::setBackgroundColor(const ZelColor &color)
{
    if (backgroundColor() == color)
        return;
    rare().backgroundColor = color;
    if (ZelBackingLayer *backing = layer())
        backing->setBackgroundColor(color);
    else
        update();
    Q_EMIT backgroundColorChanged();
}

ZelColor ZelView::borderColor() const
{
    return m_rare ? m_rare->borderColor : ZelColor();
}

void ZelView::setBorderColor(const ZelColor &color)
{
    if (borderColor() == color)
        return;
    rare().borderColor = color;
    if (ZelBackingLayer *backing = layer())
        backing->setBorderColor(color);
    update();
    Q_EMIT borderColorChanged();
}

void ZelView::setFlipped(bool flipped)
{
    if (ZelAssign(m_flipped, flipped))
        Q_EMIT flippedChanged();
}

void ZelView::setOpaque(bool opaque)
{
    if (!ZelAssign(m_opaque, opaque))
        return;
    update();
    Q_EMIT opaqueChanged();
}

void ZelView::setInstalled(bool installed)
{
    if (ZelAssign(m_installed, installed))
        Q_EMIT installedChanged();
}

void ZelView::setLayerContentsRedrawPolicy(LayerContentsRedrawPolicy policy)
{
    if (ZelAssign(m_layerContentsRedrawPolicy, policy))
        Q_EMIT layerContentsRedrawPolicyChanged();
}

ZelBackingLayer *ZelView::layer() const
{
    return m_rare ? m_rare->layer.get() : nullptr;
}

void ZelView::setWantsLayer(bool wants)
{
    if (wants == wantsLayer())
        return;
    rare().layer = wants ? makeBackingLayer() : nullptr;
    update();
}

std::unique_ptr<ZelBackingLayer> ZelView::makeBackingLayer()
{
    auto made = std::make_unique<ZelBackingLayer>(this);
    made->setBackgroundColor(backgroundColor());
    made->setBorderColor(borderColor());
    return made;
}

// Controller and responders

ZelViewController *ZelView::viewController() const
{
    return m_viewController;
}

ZelResponderLink ZelView::takeResponderLink()
{
    return m_rare ? std::exchange(m_rare->next, {}) : ZelResponderLink();
}

void ZelView::setViewController(ZelViewController *controller)
{
    if (m_viewController == controller)
        return;
    leaveViewController();
    m_viewController = controller;
    if (controller) {
        controller->setNextLink(takeResponderLink());
        controller->setRespondingView(this);
        // A controller that is just loading its view gets viewDidInstall when the load is complete.
        if (m_installed && !controller->m_loading && !controller->isViewInstalled()) {
            ZelExceptionReporter::passOn(controller, [controller] { controller->viewDidInstall(); });
        }
    }
    Q_EMIT viewControllerChanged();
}

/// Takes the controller out of the responder chain: its next responder is set on the view again.
void ZelView::leaveViewController()
{
    const QPointer<ZelViewController> old = m_viewController;
    if (old && old->isViewInstalled())
        old->viewWillUninstall();
    if (!old || old->respondingView() != this)
        return;
    old->setRespondingView(nullptr);
    if (const ZelResponderLink link = old->takeNextLink(); link.isSet)
        rare().next = link;
}

ZelSourcePlace ZelView::place() const
{
    return ZelSourcePlace::ofObject(m_viewController);
}

QObject *ZelView::nextResponder() const
{
    if (m_viewController)
        return m_viewController;
    return m_rare && m_rare->next.isSet ? m_rare->next.responder.data() : parentWidget();
}

void ZelView::setNextResponder(QObject *responder)
{
    if (m_viewController)
        m_viewController->setNextResponder(responder);
    else
        rare().next = {true, responder};
}

// Installation

void ZelView::viewDidInstall()
{
    setInstalled(true);
}

void ZelView::viewWillUninstall()
{
    setInstalled(false);
    ZelObservations(this).removeAllObservationsForContext(&ZelInstalledContext);
}

void ZelView::uninstall() noexcept
{
    m_destroying = true;
    if (!m_installed)
        return;
    ZelViewInstaller installer(false);
    installer.visit(this);
    ZelExceptionReporter::run(this, [&installer] { installer.errors().rethrow(); });
}

// Events

bool ZelView::handleEvent(QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Enter:
    case QEvent::HoverEnter:
    case QEvent::HoverMove:
    case QEvent::HoverLeave:
    case QEvent::Wheel:
    case QEvent::TabletPress:
    case QEvent::TabletMove:
    case QEvent::TabletRelease:
    case QEvent::ContextMenu:
    case QEvent::ToolTip:
    case QEvent::WhatsThis:
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
        return hasScaledBounds() ? deliverScaled(event) : positionedEvent(event);
    case QEvent::LayoutRequest:
        updateConstraintsIfNeeded();
        break;
    case QEvent::ShortcutOverride:
    case QEvent::KeyPress:
        if (showsHelpForKey(static_cast<QKeyEvent *>(event)))
            return true;
        break;
    default:
        break;
    }
    const bool handled = QWidget::event(event);
    switch (event->type()) {
    case QEvent::Show:
        m_shownAsWindow = m_shownAsWindow || isWindow();
        ZelViewInstaller::windowMayHaveChanged(this);
        break;
    case QEvent::ParentChange:
        m_shownAsWindow = m_shownAsWindow && isWindow();
        takeResponderLink();
        if (m_viewController && m_viewController->respondingView() == this)
            m_viewController->setNextLink({});
        if (!m_moving)
            ZelViewInstaller::windowMayHaveChanged(this);
        break;
    case QEvent::PolishRequest:
        ZelViewInstaller::windowMayHaveChanged(this);
        break;
    case QEvent::LayoutRequest:
    case QEvent::Resize:
        layoutSubviews();
        break;
    default:
        break;
    }
    return handled;
}

void ZelView::childEvent(QChildEvent *event)
{
    QWidget::childEvent(event);
    if (m_grouping)
        return;
    auto *child = qobject_cast<QWidget *>(event->child());
    if (event->added() && child && !child->isWindow())
        didAddSubview(child);
    else if (event->removed() && child && !child->isWindow())
        willRemoveSubview(child);
    else if (event->removed() && event->child()->metaObject() == &QObject::staticMetaObject)
        willRemoveSubview(nullptr); // a dying widget has been destroyed down to its QObject by now
}

void ZelView::didAddSubview(QWidget *) {}

void ZelView::willRemoveSubview(QWidget *) {}

/// Shift+F1 shows the help at the widget that has the focus, since Qt would show that of a widget around it in the
/// middle of that one. The key belongs to the help here even if the application has a shortcut for What's This mode.
bool ZelView::showsHelpForKey(QKeyEvent *event)
{
    const bool isHelpKey = event->key() == Qt::Key_F1 && event->modifiers() == Qt::ShiftModifier;
    if (!isHelpKey || whatsThis().isEmpty())
        return false;
    event->accept();
    if (event->type() == QEvent::ShortcutOverride)
        return true;
    QWidget *focus = QApplication::focusWidget();
    QWidget *subject = focus && isAncestorOf(focus) ? focus : this;
    QWhatsThis::showText(subject->mapToGlobal(subject->rect().center()), whatsThis(), subject);
    return true;
}

bool ZelView::positionedEvent(QEvent *event)
{
    if (event->type() == QEvent::ToolTip && m_viewController && ZelControlHelp::showToolTip(event, this))
        return true;
    return QWidget::event(event);
}

bool ZelView::deliverScaled(QEvent *event)
{
    return ZelScaledEvent::deliver(event, boundsTransform().inverted(),
                                   [this](QEvent *scaled) { return positionedEvent(scaled); });
}

// Drawing

void ZelView::viewWillDraw()
{
    ZelBackingLayer *backing = layer();
    if (!backing)
        return;
    const double width = borderColor().isValid() ? hairlineWidth() : 0;
    if (backing->borderWidth() != width)
        backing->setBorderWidth(width);
}

bool ZelView::drawsContent() const
{
    return typeid(*this) != typeid(ZelView);
}

void ZelView::paintEvent(QPaintEvent *event)
{
    viewWillDraw();
    const bool hasColors = m_rare && (m_rare->backgroundColor.isValid() || m_rare->borderColor.isValid());
    if (!hasColors && !wantsLayer() && !drawsContent())
        return;
    QPainter painter(this);
    QRect dirtyRect = event->rect();
    if (hasScaledBounds()) {
        painter.setTransform(boundsTransform());
        dirtyRect = boundsTransform().inverted().mapRect(QRectF(dirtyRect)).toAlignedRect();
    }
    if (const ZelBackingLayer *backing = layer())
        backing->draw(painter, bounds());
    drawRect(painter, dirtyRect);
}

void ZelView::drawRect(QPainter &painter, const QRect &dirtyRect)
{
    if (!m_rare || wantsLayer())
        return;
    if (const QColor background = m_rare->backgroundColor.toQColor(); background.isValid()) {
        const bool copies = m_opaque || Rare::isPlainColor(m_rare->backgroundColor);
        painter.setCompositionMode(copies ? QPainter::CompositionMode_Source : QPainter::CompositionMode_SourceOver);
        painter.fillRect(dirtyRect, background);
        painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    }
    if (const QColor border = m_rare->borderColor.toQColor(); border.isValid())
        ZelBackingLayer::drawFrame(painter, bounds(), hairlineWidth(), border);
}

// Archiving

void ZelView::encodeWithCoder(ZelKeyedCoder &coder) const
{
    coder.encode(g_frameKey, frame());
    coder.encode(g_flippedKey, m_flipped);
    coder.encode(g_opaqueKey, m_opaque);
    if (const ZelColor color = backgroundColor(); color.isValid())
        coder.encode(g_backgroundColorKey, color.toVariant());
    if (const ZelColor color = borderColor(); color.isValid())
        coder.encode(g_borderColorKey, color.toVariant());
}

ZelView *ZelView::copy() const
{
    ZelView *view = newInstance();
    if (typeid(*view) != typeid(*this)) {
        delete view;
        ZelFail(QStringLiteral("%1 cannot be copied: it does not override newInstance()")
                    .arg(QString::fromLatin1(metaObject()->className())));
        return nullptr;
    }
    view->setFrame(frame());
    view->setFlipped(m_flipped);
    view->setOpaque(m_opaque);
    view->setBackgroundColor(backgroundColor());
    view->setBorderColor(borderColor());
    return view;
}
