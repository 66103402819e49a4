// SPDX-License-Identifier: MIT
#include "ViewController/ZelViewController.h"

#include "Core/Binding/ZelEditor.h"
#include "Core/Errors/ZelAssertions.h"
#include "Core/Errors/ZelExceptionReporter.h"
#include "Core/RunLoop/ZelMemberScope.h"
#include "Core/Values/private/ZelAssign.h"
#include "Observation/ZelObservations.h"
#include "ViewController/ZelInstalledContext.h"
#include "ViewController/ZelView.h"

#include <QHash>

const char ZelInstalledContext = 0;

namespace {

QHash<QString, ZelViewController::ViewLoader> &viewLoaders()
{
    static QHash<QString, ZelViewController::ViewLoader> loaders;
    return loaders;
}

/// Calls the function with every editor below the widget that does not belong to another controller. Stops and answers
/// false when the function does. The function may add and delete widgets.
bool forEachEditor(QWidget *widget, const std::function<bool(ZelEditor *)> &function)
{
    QList<QPointer<QWidget>> children;
    for (QObject *child : widget->children())
        if (child->isWidgetType() && !static_cast<QWidget *>(child)->isWindow())
            children.append(static_cast<QWidget *>(child));
    for (const QPointer<QWidget> &child : std::as_const(children)) {
        const auto *view = qobject_cast<ZelView *>(child);
        if (!child || (view && view->viewController()))
            continue;
        if (auto *editor = qobject_cast<ZelEditor *>(child); editor && !function(editor))
            return false;
        if (child && !forEachEditor(child, function))
            return false;
    }
    return true;
}

QString stillUsedMessage(const ZelViewController *controller)
{
    return QStringLiteral("View controller %1(%2) will unload view but the view is still used")
        .arg(QString::asprintf("%p", static_cast<const void *>(controller)),
             QString::fromLatin1(controller->metaObject()->className()));
}

/// Whether the view is in a window that was hidden or closed: nobody sees what becomes of it.
bool isInClosedWindow(const QWidget *view)
{
    const QWidget *window = view->window();
    return window->isHidden() && window->testAttribute(Qt::WA_WState_ExplicitShowHide);
}

} // namespace

struct ZelViewController::Rare
{
    QString nibName;
    QString toolTip;
    QString whatsThis;
    ZelResponderLink next;
    QPointer<ZelView> respondingView; // the view whose next responder is behind this controller
};

ZelViewController::ZelViewController(QObject *parent)
    : ZelGuarded(parent)
{
}

ZelViewController::ZelViewController(const QString &nibName, QObject *parent)
    : ZelGuarded(parent)
{
    if (!nibName.isNull())
        rare().nibName = nibName;
}

ZelViewController::Rare &ZelViewController::rare()
{
    if (!m_rare)
        m_rare = std::make_unique<Rare>();
    return *m_rare;
}

ZelViewController::~ZelViewController()
{
    // Controls of a view that lives on may be connected to slots of derived classes, which do not exist any more.
    if (m_view) {
        m_view->disconnect(this);
        for (QObject *child : m_view->findChildren<QObject *>())
            child->disconnect(this);
    }
    uninstall();
}

void ZelViewController::setTitle(const QString &title)
{
    if (m_title == title && m_title.isNull() == title.isNull())
        return;
    m_title = title;
    const QPointer<ZelViewController> alive(this);
    titleDidChange();
    if (alive)
        Q_EMIT titleChanged();
}

const QString &ZelViewController::toolTip() const
{
    static const QString none;
    return m_rare ? m_rare->toolTip : none;
}

const QString &ZelViewController::whatsThis() const
{
    static const QString none;
    return m_rare ? m_rare->whatsThis : none;
}

void ZelViewController::setToolTip(const QString &toolTip)
{
    setHelp(&Rare::toolTip, toolTip, &ZelViewController::toolTipChanged);
}

void ZelViewController::setWhatsThis(const QString &whatsThis)
{
    setHelp(&Rare::whatsThis, whatsThis, &ZelViewController::whatsThisChanged);
}

void ZelViewController::setHelp(QString Rare::*text, const QString &value, void (ZelViewController::*changed)())
{
    if ((!m_rare && value.isNull()) || !ZelAssign(rare().*text, value))
        return;
    if (m_view)
        showHelp();
    Q_EMIT(this->*changed)();
}

void ZelViewController::showHelp()
{
    view()->setToolTip(toolTip());
    view()->setWhatsThis(whatsThis());
}

// Loading

QString ZelViewController::nibName() const
{
    return m_rare && !m_rare->nibName.isNull() ? m_rare->nibName : viewNibName();
}

QString ZelViewController::viewNibName() const
{
    return QString::fromLatin1(metaObject()->className());
}

void ZelViewController::registerViewLoader(const QString &nibName, const ViewLoader &loader)
{
    if (loader)
        viewLoaders().insert(nibName, loader);
    else
        viewLoaders().remove(nibName);
}

void ZelViewController::loadView()
{
    if (const ViewLoader loader = viewLoaders().value(nibName()))
        setView(loader(this));
}

ZelView *ZelViewController::view()
{
    if (!m_view && !m_loading)
        ZelExceptionReporter::passOn(this, [this] { makeView(); });
    return m_view;
}

void ZelViewController::makeView()
{
    {
        const ZelMemberScope loading(this, m_loading, true);
        viewWillLoad();
        if (!m_view)
            loadView();
        if (!ZelCheck(m_view, QStringLiteral("Unable to load view")))
            return;
        viewDidLoad();
        if (!loading.isOwnerAlive())
            return;
        if (m_view && !(toolTip().isEmpty() && whatsThis().isEmpty()))
            showHelp();
    }
    if (m_view && m_view->isInstalled() && !m_viewInstalled)
        viewDidInstall();
}

void ZelViewController::setView(QWidget *widget)
{
    auto *newView = qobject_cast<ZelView *>(widget);
    if (!ZelRequire(!widget || newView, "!view || [view isKindOfClass:[ZelView class]]"))
        return;
    if (m_view && m_view->parentWidget()) {
        ZelFail(stillUsedMessage(this));
        return;
    }
    if (newView == m_view)
        return;
    const bool unloads = m_view && !newView;
    if (unloads)
        viewWillUnload();
    if (ZelView *oldView = m_view) {
        oldView->setViewController(nullptr);
        oldView->hide();
        oldView->deleteLater(); // one of its own controls may have caused the change
    }
    m_view = newView;
    if (newView)
        newView->setViewController(this);
    if (unloads)
        viewDidUnload();
    Q_EMIT viewChanged();
}

void ZelViewController::viewWasDestroyed(const ZelView *view)
{
    if (respondingView() == view) {
        setRespondingView(nullptr);
        setNextLink({});
    }
    if (m_view != view)
        return;
    m_view = nullptr;
    ZelExceptionReporter::run(this, [this] {
        setViewInstalled(false);
        viewDidUnload();
        Q_EMIT viewChanged();
    });
}

// Installation

void ZelViewController::setViewInstalled(bool installed)
{
    if (ZelAssign(m_viewInstalled, installed))
        Q_EMIT viewInstalledChanged();
}

void ZelViewController::viewDidInstall()
{
    setViewInstalled(true);
}

void ZelViewController::viewWillUninstall()
{
    setViewInstalled(false);
    ZelObservations(this).removeAllObservationsForContext(&ZelInstalledContext);
}

/// Whether Qt is deleting the controller together with its view: a widget around the view owns both, or a dying
/// controller owns this one.
bool ZelViewController::diesWithView() const
{
    for (const QObject *owner = parent(); owner && !m_diesWithParent; owner = owner->parent())
        if (owner->isWidgetType() && static_cast<const QWidget *>(owner)->isAncestorOf(m_view))
            return true;
    return m_diesWithParent;
}

void ZelViewController::uninstall() noexcept
{
    const ZelPlaceScope scope(this);
    if (m_viewInstalled)
        ZelExceptionReporter::run(this, [this] { viewWillUninstall(); });
    m_viewInstalled = false;
    for (QObject *child : children())
        if (auto *controller = qobject_cast<ZelViewController *>(child))
            // QObject's destructor is going to delete the child controllers.
            controller->m_diesWithParent = true;
    if (ZelView *other = respondingView(); other && other != m_view)
        ZelExceptionReporter::run(this, [other] { other->setViewController(nullptr); });
    if (!m_view)
        return;
    if (m_view->parentWidget() && !diesWithView() && !isInClosedWindow(m_view))
        ZelReportFailure(stillUsedMessage(this));
    ZelExceptionReporter::run(this, [this] { viewWillUnload(); });
    if (ZelView *oldView = std::exchange(m_view, nullptr)) {
        ZelExceptionReporter::run(this, [&] { oldView->setViewController(nullptr); });
        if (!oldView->parentWidget())
            ZelEventScope::dispose(oldView);
    }
    ZelExceptionReporter::run(this, [this] { viewDidUnload(); });
}

// Responders

ZelView *ZelViewController::respondingView() const
{
    return m_rare ? m_rare->respondingView.data() : nullptr;
}

void ZelViewController::setRespondingView(ZelView *view)
{
    if (m_rare || view)
        rare().respondingView = view;
}

void ZelViewController::setNextLink(const ZelResponderLink &link)
{
    if (m_rare || link.isSet)
        rare().next = link;
}

ZelResponderLink ZelViewController::takeNextLink()
{
    return m_rare ? std::exchange(m_rare->next, {}) : ZelResponderLink();
}

QObject *ZelViewController::nextResponder() const
{
    if (m_rare && m_rare->next.isSet)
        return m_rare->next.responder;
    const ZelView *view = respondingView();
    return view ? view->parentWidget() : nullptr;
}

void ZelViewController::setNextResponder(QObject *responder)
{
    setNextLink({true, responder});
}

// Editing

bool ZelViewController::commitEditing()
{
    if (!m_viewInstalled || !m_view)
        return true;
    const ZelPlaceScope scope(this);
    return forEachEditor(m_view, [](ZelEditor *editor) { return editor->commitEditing(); });
}

void ZelViewController::discardEditing()
{
    if (!m_viewInstalled || !m_view)
        return;
    const ZelPlaceScope scope(this);
    forEachEditor(m_view, [](ZelEditor *editor) {
        editor->discardEditing();
        return true;
    });
}
