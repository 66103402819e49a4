// SPDX-License-Identifier: MIT
#include "Core/Binding/ZelEditor.h"
#include "Support/Failures.h"
#include "Support/TableRow.h"
#include "ViewController/HookLog.h"

namespace {
class FakeEditor : public QWidget, public ZelEditor
{
    Q_OBJECT
    Q_INTERFACES(ZelEditor)
public:
    using QWidget::QWidget;
    bool commitEditing() override { return ++commits, accepts; }
    void discardEditing() override { ++discards; }

    bool accepts = true;
    int commits = 0;
    int discards = 0;
};

class NamedController : public ZelViewController
{
    Q_OBJECT
public:
    using ZelViewController::ZelViewController;
};

QString usedMessage(const ZelViewController *controller)
{
    return QString::asprintf(
        "ViewController/ZelViewController: View controller %p(ZelViewController) will unload view but the view is "
        "still used",
        static_cast<const void *>(controller));
}
} // namespace

class tst_ZelViewController : public QObject
{
    Q_OBJECT
    QStringList takenLog() { return std::exchange(m_log, {}); }

    QStringList m_log;

private Q_SLOTS:
    void init() { m_log.clear(); }

    void loadsWhenAskedAndUnloadsWithTheView()
    {
        LoggingController controller(&m_log, "c");
        QVERIFY(!controller.isViewLoaded());
        const QPointer<ZelView> view = controller.view();
        QCOMPARE(controller.view(), view);
        QCOMPARE(view->viewController(), &controller);
        QCOMPARE(takenLog(), (QStringList{"c willLoad", "c load", "c didLoad"}));
        controller.setView(nullptr);
        QVERIFY(!controller.isViewLoaded() && !view->viewController());
        QCOMPARE(takenLog(), (QStringList{"c willUnload", "c didUnload"}));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!view);
        controller.setView(new ZelView);
        controller.setView(new ZelView); // replaced, not unloaded
        QCOMPARE(takenLog(), QStringList());
        delete controller.view();
        QVERIFY(!controller.isViewLoaded());
        QCOMPARE(takenLog(), QStringList{"c didUnload"});
        QVERIFY(controller.view());
    }

    void looksForItsViewUnderItsName()
    {
        NamedController controller;
        QCOMPARE(controller.nibName(), "NamedController");
        {
            const Failures failures;
            QVERIFY(!controller.view());
            QCOMPARE(failures.seen, QStringList{"ViewController/ZelViewController: Unable to load view"});
        }
        ZelViewController::registerViewLoader("NamedController", [](ZelViewController *) { return new ZelView; });
        QVERIFY(controller.view());
        ZelViewController::registerViewLoader("NamedController", {});
        for (const char *name : {"another name", "NamedController"}) {
            NamedController other(name);
            QVERIFY_EXCEPTION_THROWN(other.view(), ZelInternalInconsistencyException);
            QVERIFY(!other.isViewLoaded());
        }
    }

    void refusesAViewThatIsNoneOrInUse()
    {
        Failures failures;
        LoggingController controller(&m_log, "c");
        QPushButton button;
        controller.setView(&button);
        QCOMPARE(failures.taken().value(0).section(": ", 1),
                 QString("Invalid parameter not satisfying: !view || [view isKindOfClass:[ZelView class]]"));
        QVERIFY(!controller.isViewLoaded());
        QWidget window;
        ZelView *view = controller.view();
        view->setParent(&window);
        m_log.clear();
        ZelView other;
        for (ZelView *replacement : {static_cast<ZelView *>(nullptr), &other, view}) {
            controller.setView(replacement);
            QCOMPARE(failures.taken(), QStringList{usedMessage(&controller)});
            QCOMPARE(controller.view(), view);
        }
        QVERIFY(!m_log.contains("c willUnload"));
    }

    void endsInAnyOrder()
    {
        const QStringList viewFirst{"outer-", "inner-", "outer didUnload", "inner didUnload"};
        const QStringList controllerFirst{"outer-", "outer willUnload", "outer didUnload",
                                          "inner-", "inner willUnload", "inner didUnload"};
        const QStringList detached{"outer-", "inner-", "outer willUnload", "inner didUnload", "outer didUnload"};
        // Who dies: the view, the window with the controller behind or before the view, and the controller, also when
        // the user has closed the window.
        for (const auto &[way, log] : {std::pair("view", viewFirst),
                                       {"window", viewFirst},
                                       {"behind", viewFirst},
                                       {"before", controllerFirst},
                                       {"controller", controllerFirst},
                                       {"closed", controllerFirst},
                                       {"detached", detached}}) {
            const TableRow row(way);
            const QByteArray is(way);
            const Failures failures;
            const QPointer<QWidget> window = new QWidget;
            const QPointer<LoggingController> outer = new LoggingController(&m_log, "outer");
            const QString message = usedMessage(outer);
            auto *inner = new LoggingController(&m_log, "inner", outer);
            const QPointer<ZelView> view = outer->view();
            view->addSubview(inner->view());
            view->setParent(window);
            QVERIFY(outer->isViewInstalled() && inner->isViewInstalled());
            if (is == "closed") {
                window->show();
                window->close();
            }
            m_log.clear();
            if (is == "behind" || is == "before")
                outer->setParent(window);
            if (is == "before")
                view->raise();
            else if (is == "detached")
                view->removeFromSuperview();
            const bool staysUsed = is == "controller" || is == "closed"; // it stays with its parent
            delete (is == "view" ? view : staysUsed || is == "detached" ? outer : static_cast<QObject *>(window));
            QCOMPARE(!view.isNull(), staysUsed);
            if (staysUsed)
                QVERIFY(view->isInstalled() && !view->viewController());
            delete outer;
            delete window;
            QCOMPARE(m_log, log);
            QCOMPARE(failures.seen, is == "controller" ? QStringList{message} : QStringList());
        }
    }

    void followsTheInstallationOfAViewThatItGets()
    {
        ZelView shown;
        shown.show();
        auto *view = new ZelView;
        shown.addSubview(view);
        LoggingController controller(&m_log, "c");
        controller.makeView = [&] { return view; };
        controller.view();
        QCOMPARE(takenLog(), (QStringList{"c willLoad", "c load", "c didLoad", "c+"})); // not before it is loaded
        view->setViewController(nullptr);
        QVERIFY(!controller.isViewInstalled());
        view->setViewController(&controller);
        QVERIFY(controller.isViewInstalled());
        // It takes part in the layout.
        LoggingController window(&m_log, "w");
        window.view()->resize(100, 100);
        window.view()->show();
        QVERIFY(m_log.contains("w updateConstraints") && m_log.contains("w layout"));
        m_log.clear();
        window.view()->resize(120, 100);
        QCOMPARE(m_log, QStringList{"w layout"});
    }

    void commitsTheEditorsOfItsOwnView()
    {
        LoggingController outer(&m_log, "outer");
        LoggingController inner(&m_log, "inner");
        FakeEditor first(new QWidget(outer.view()));
        FakeEditor second(outer.view());
        outer.view()->addSubview(inner.view());
        FakeEditor foreign(inner.view());
        first.accepts = false;
        QVERIFY(outer.commitEditing()); // not installed
        outer.discardEditing();
        QCOMPARE(first.commits + first.discards, 0);
        outer.view()->show();
        QVERIFY(!outer.commitEditing());
        QCOMPARE(second.commits, 0); // the first refusal decides
        first.accepts = true;
        QVERIFY(outer.commitEditing());
        outer.discardEditing();
        QCOMPARE(std::tuple(first.commits, second.commits, first.discards, second.discards), std::tuple(2, 1, 1, 1));
        QCOMPARE(foreign.commits + foreign.discards, 0);
    }
};
QTEST_MAIN(tst_ZelViewController)
#include "tst_ZelViewController.moc"
