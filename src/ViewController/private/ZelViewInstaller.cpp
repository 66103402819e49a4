// SPDX-License-Identifier: MIT
#include "ViewController/private/ZelViewInstaller.h"

#include "Core/Errors/ZelExceptionReporter.h"
#include "Layout/private/ZelLayoutTurn.h"
#include "ViewController/ZelView.h"
#include "ViewController/ZelViewController.h"

#include <QCoreApplication>
#include <QEvent>
#include <QScopedValueRollback>

namespace {

/// Watches for new parents of widgets that are not views but have views below them. One object serves all.
class AncestorWatcher : public QObject
{
public:
    static AncestorWatcher *instance()
    {
        static auto *watcher = new AncestorWatcher; // never deleted, because widgets may outlive static objects
        return watcher;
    }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::ParentChange)
            ZelViewInstaller::windowMayHaveChanged(static_cast<QWidget *>(watched));
        return false;
    }
};

} // namespace

bool ZelViewInstaller::hasWindow(const QWidget *widget)
{
    for (const QWidget *ancestor = widget; ancestor; ancestor = ancestor->parentWidget()) {
        const auto *view = qobject_cast<const ZelView *>(ancestor);
        if (view && ancestor->isWindow())
            return view->m_shownAsWindow;
        if (view && ancestor != widget)
            return view->m_installed;
        if (ancestor->isWindow())
            return true;
    }
    return false;
}

void ZelViewInstaller::watchAncestors(const QWidget *widget)
{
    if (widget->isWindow())
        return;
    for (QWidget *ancestor = widget->parentWidget(); ancestor && !qobject_cast<ZelView *>(ancestor);
         ancestor = ancestor->parentWidget()) {
        ancestor->installEventFilter(AncestorWatcher::instance());
        if (ancestor->isWindow())
            break;
    }
}

void ZelViewInstaller::windowMayHaveChanged(QWidget *widget)
{
    watchAncestors(widget);
    ZelViewInstaller installer(hasWindow(widget));
    // A view that is added to an installed view waits for the next layout, because more may be added.
    const auto *parent = qobject_cast<ZelView *>(widget->parentWidget());
    installer.m_updatesConstraints = !parent || !parent->m_installed;
    installer.walk([widget](ZelViewInstaller &walk) { walk.visit(widget); });
}

void ZelViewInstaller::willLoseWindow(QWidget *widget)
{
    ZelViewInstaller(false).walk([widget](ZelViewInstaller &walk) { walk.visit(widget); });
}

void ZelViewInstaller::installSubviews(ZelView *view)
{
    if (view->m_installed)
        ZelViewInstaller(true).walk([view](ZelViewInstaller &walk) { walk.visitChildren(view); });
}

template<typename Visit> void ZelViewInstaller::walk(Visit visit)
{
    static int depth = 0; // hooks that add views start a walk within a walk; only the outermost updates constraints
    {
        const QScopedValueRollback walking(depth, depth + 1);
        visit(*this);
    }
    if (m_installing && m_updatesConstraints && depth == 0)
        m_errors.run([] { ZelLayoutTurn::instance().perform(ZelLayoutTurn::Constraints); });
    m_errors.rethrow();
}

void ZelViewInstaller::visit(QWidget *widget)
{
    auto *view = qobject_cast<ZelView *>(widget);
    if (view ? view->m_installed == m_installing || (m_installing && view->m_destroying) : widget->children().isEmpty())
        return;
    const QPointer<QWidget> guard(widget);
    if (view)
        runHooks(view);
    if (guard)
        visitChildren(widget);
}

void ZelViewInstaller::runHooks(ZelView *view)
{
    const QPointer<ZelView> guard(view);
    const auto run = [&](auto hook) { m_errors.run([&] { ZelExceptionReporter::passOn(view, hook); }); };
    run([&] { m_installing ? view->viewDidInstall() : view->viewWillUninstall(); });
    if (!guard || view->m_installed != m_installing)
        return;
    ZelViewController *controller = view->viewController();
    if (controller && controller->isViewInstalled() != m_installing)
        run([&] { m_installing ? controller->viewDidInstall() : controller->viewWillUninstall(); });
    if (guard && m_installing && view->m_needsUpdateConstraints)
        view->scheduleUpdateConstraints();
}

bool ZelViewInstaller::appliesTo(const QWidget *widget) const
{
    if (const auto *view = qobject_cast<const ZelView *>(widget))
        return view->m_installed == m_installing;
    return !m_installing || hasWindow(widget);
}

void ZelViewInstaller::visitChildren(QWidget *parent)
{
    if (parent->children().isEmpty())
        return;
    const QPointer<QWidget> guard(parent);
    for (qsizetype i = 0; i < parent->children().size();) {
        QObject *child = parent->children().at(i);
        if (child->isWidgetType() && !static_cast<QWidget *>(child)->isWindow())
            visit(static_cast<QWidget *>(child));
        if (!guard || !appliesTo(parent))
            return;
        // If a hook has changed the list, the loop starts again. Views that are done are skipped.
        const bool unchanged = i < parent->children().size() && parent->children().at(i) == child;
        i = unchanged ? i + 1 : 0;
    }
}
