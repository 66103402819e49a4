// SPDX-License-Identifier: MIT
#include "ViewController/ZelViewController.h"

#include "Core/Binding/ZelEditor.h"
#include "ViewController/HookLog.h"

#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>

namespace {

class FakeEditor : public QWidget, public ZelEditor
{
    Q_OBJECT
    Q_INTERFACES(ZelEditor)
public:
    explicit FakeEditor(QWidget *parent)
        : QWidget(parent)
    {
    }
    bool commitEditing() override
    {
        ++commits;
        return accepts;
    }
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

} // namespace

class tst_ZelViewController : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { m_log.clear(); }

    void loadsWhenAskedAndUnloadsWithTheView()
    {
        LoggingController controller(&m_log, "c");
        QVERIFY(!controller.isViewLoaded());
        const QPointer<ZelView> view = controller.view();
        QCOMPARE(controller.view(), view);
        QCOMPARE(view->viewController(), &controller);
        QCOMPARE(m_log, (QStringList{"c willLoad", "c load", "c didLoad"}));
        m_log.clear();
        controller.setView(nullptr);
        QVERIFY(!controller.isViewLoaded());
        QVERIFY(!view->viewController());
        QCOMPARE(m_log, (QStringList{"c willUnload", "c didUnload"}));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!view);
        m_log.clear();
        controller.setView(new ZelView);
        controller.setView(new ZelView); // replaced, not unloaded
        QCOMPARE(m_log, QStringList());
        delete controller.view();
        QVERIFY(!controller.isViewLoaded());
        QCOMPARE(m_log, QStringList{"c didUnload"});
        QVERIFY(controller.view());
    }

    void looksForItsViewUnderItsName()
    {
        NamedController controller;
        QCOMPARE(controller.nibName(), "NamedController");
        {
            FailureLog failures;
            QVERIFY(!controller.view());
            QCOMPARE(failures.messages, QStringList{"Unable to load view"});
            QCOMPARE(failures.locations, QStringList{"ViewController/ZelViewController"});
        }
        ZelViewController::registerViewLoader("NamedController", [](ZelViewController *) { return new ZelView; });
        QVERIFY(controller.view());
        ZelViewController::registerViewLoader("NamedController", {});
        NamedController other("another name");
        QVERIFY_EXCEPTION_THROWN(other.view(), ZelInternalInconsistencyException);
        QVERIFY(!other.isViewLoaded());
    }

    void refusesAViewThatIsNoneOrInUse()
    {
        FailureLog failures;
        LoggingController controller(&m_log, "c");
        QPushButton button;
        controller.setView(&button);
        QCOMPARE(failures.messages,
                 QStringList{"Invalid parameter not satisfying: !view || [view isKindOfClass:[ZelView class]]"});
        QVERIFY(!controller.isViewLoaded());
        QWidget window;
        ZelView *view = controller.view();
        view->setParent(&window);
        m_log.clear();
        ZelView other;
        for (ZelView *replacement : {static_cast<ZelView *>(nullptr), &other, view}) {
            failures.messages.clear();
            controller.setView(replacement);
            QCOMPARE(failures.messages, QStringList{QString::asprintf(
                                            "View controller %p(%s) will unload view but the view is still used",
                                            static_cast<void *>(&controller), controller.metaObject()->className())});
            QCOMPARE(controller.view(), view);
        }
        QVERIFY(!m_log.contains("c willUnload"));
    }

    void endsInAnyOrder_data()
    {
        using Way = std::function<void(QWidget * window, LoggingController * outer)>;
        QTest::addColumn<Way>("way");
        QTest::addColumn<QStringList>("log");
        QTest::addColumn<bool>("isMistake"); // the view is still used
        QTest::newRow("view first") << Way([](QWidget *window, LoggingController *outer) {
            delete outer->view();
            delete outer;
            delete window;
        }) << QStringList{"outer-", "inner-", "outer didUnload", "inner didUnload"}
                                    << false;
        QTest::newRow("window first") << Way([](QWidget *window, LoggingController *outer) {
            delete window;
            delete outer;
        }) << QStringList{"outer-", "inner-", "outer didUnload", "inner didUnload"}
                                      << false;
        QTest::newRow("window with the controller in it") << Way([](QWidget *window, LoggingController *outer) {
            outer->setParent(window); // behind the view
            delete window;
        }) << QStringList{"outer-", "inner-", "outer didUnload", "inner didUnload"}
                                                          << false;
        QTest::newRow("window with the controller before the view")
            << Way([](QWidget *window, LoggingController *outer) {
                   outer->setParent(window);
                   outer->view()->raise();
                   delete window;
               })
            << QStringList{"outer-", "outer willUnload", "outer didUnload",
                           "inner-", "inner willUnload", "inner didUnload"}
            << false;
        QTest::newRow("controller first") << Way([](QWidget *window, LoggingController *outer) {
            const QPointer<ZelView> view = outer->view();
            delete outer;
            QVERIFY(view && view->isInstalled() && !view->viewController()); // it stays with its parent
            delete window;
        }) << QStringList{"outer-", "outer willUnload", "outer didUnload",
                          "inner-", "inner willUnload", "inner didUnload"}
                                          << true;
        QTest::newRow("controller of a view without parent") << Way([](QWidget *window, LoggingController *outer) {
            const QPointer<ZelView> view = outer->view();
            view->removeFromSuperview();
            delete outer;
            QVERIFY(!view);
            delete window;
        }) << QStringList{"outer-", "inner-", "outer willUnload", "inner didUnload", "outer didUnload"}
                                                             << false;
    }
    void endsInAnyOrder()
    {
        using Way = std::function<void(QWidget *, LoggingController *)>;
        QFETCH(Way, way);
        QFETCH(QStringList, log);
        QFETCH(bool, isMistake);
        FailureLog failures;
        auto *window = new QWidget;
        auto *outer = new LoggingController(&m_log, "outer");
        auto *inner = new LoggingController(&m_log, "inner", outer);
        outer->view()->addSubview(inner->view());
        outer->view()->setParent(window);
        QVERIFY(outer->isViewInstalled() && inner->isViewInstalled());
        m_log.clear();
        way(window, outer);
        QCOMPARE(m_log, log);
        const QString message =
            QString::asprintf("View controller %p(ZelViewController) will unload view but the view is "
                              "still used",
                              static_cast<void *>(outer));
        QCOMPARE(failures.messages, isMistake ? QStringList{message} : QStringList());
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
        QCOMPARE(m_log, (QStringList{"c willLoad", "c load", "c didLoad", "c+"})); // not before it is loaded
        view->setViewController(nullptr);
        QVERIFY(!controller.isViewInstalled());
        view->setViewController(&controller);
        QVERIFY(controller.isViewInstalled());
    }

    void takesPartInTheLayout()
    {
        LoggingController controller(&m_log, "c");
        controller.view()->resize(100, 100);
        m_log.clear();
        controller.view()->show();
        QVERIFY(m_log.contains("c updateConstraints"));
        QVERIFY(m_log.contains("c layout"));
        m_log.clear();
        controller.view()->resize(120, 100);
        QCOMPARE(m_log, QStringList{"c layout"});
    }

    void commitsTheEditorsOfItsOwnView()
    {
        LoggingController outer(&m_log, "outer");
        LoggingController inner(&m_log, "inner");
        auto *box = new QWidget(outer.view());
        FakeEditor *first = new FakeEditor(box);
        FakeEditor *second = new FakeEditor(outer.view());
        outer.view()->addSubview(inner.view());
        FakeEditor *foreign = new FakeEditor(inner.view());
        first->accepts = false;
        QVERIFY(outer.commitEditing()); // not installed
        QCOMPARE(first->commits, 0);
        outer.view()->show();
        QVERIFY(!outer.commitEditing());
        QCOMPARE(second->commits, 0); // the first refusal decides
        first->accepts = true;
        QVERIFY(outer.commitEditing());
        QCOMPARE(second->commits, 1);
        outer.discardEditing();
        QCOMPARE(first->discards + second->discards, 2);
        QCOMPARE(foreign->commits + foreign->discards, 0);
    }

private:
    QStringList m_log;
};

QTEST_MAIN(tst_ZelViewController)
#include "tst_ZelViewController.moc"
