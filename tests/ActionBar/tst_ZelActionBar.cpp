// SPDX-License-Identifier: MIT
#include "ActionBar/ZelActionBar.h"
#include "ActionBar/ZelActionBarCheckboxButton.h"
#include "ActionBar/ZelActionBarPopupButton.h"
#include "ActionBar/ZelActionBarSeparator.h"
#include "Observation/ZelDelayedInvocation.h"
#include "Resources/ZelNamedImages.h"
#include "ViewController/ZelViewController.h"

#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>

namespace {

/// What an application's own object looks like.
class Receiver : public QObject
{
    Q_OBJECT
public:
    Q_INVOKABLE void add(QObject *sender)
    {
        ++added;
        lastSender = sender;
        if (react)
            react();
    }

    int added = 0;
    QPointer<QObject> lastSender;
    std::function<void()> react;
};

/// One that has a say in what can be done.
class StrictReceiver : public QObject
{
    Q_OBJECT
public:
    Q_INVOKABLE void add() {}
    Q_INVOKABLE bool validateUserInterfaceItem(QObject *item)
    {
        asked = item;
        return allows;
    }

    bool allows = false;
    QObject *asked = nullptr;
};

class Controller : public ZelViewController
{
    Q_OBJECT
public:
    ~Controller() override { uninstall(); }
    void loadView() override { setView(new ZelView); }
    Q_INVOKABLE void add() { ++added; }
    int added = 0;
};

QIcon square(const QColor &color)
{
    QPixmap pixmap(14, 14);
    pixmap.fill(color);
    return QIcon(pixmap);
}

/// A bar in a shown, active window that can take the focus elsewhere.
class Window : public QWidget
{
public:
    Window()
    {
        auto *layout = new QVBoxLayout(this);
        field = new QLineEdit;
        layout->addWidget(field);
        bar = new ZelActionBar;
        layout->addWidget(bar);
        show();
        activateWindow();
        ready = QTest::qWaitForWindowActive(this);
    }

    ZelActionBarItem *addItem(quint32 type = ZelActionBarItem::Button)
    {
        auto *item = new ZelActionBarItem(square(Qt::red), &receiver, "add", bar);
        item->setType(type);
        bar->setItems(bar->items() << nullptr << item);
        return item;
    }
    template<typename Control> Control *control(qsizetype index) const
    {
        return qobject_cast<Control *>(bar->itemViews().value(index));
    }
    void letLayOut() const
    {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
    }

    Receiver receiver;
    QLineEdit *field = nullptr;
    ZelActionBar *bar = nullptr;
    bool ready = false;
};

} // namespace

class tst_ZelActionBar : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void controlsFollowTheItems();
    void itemsMayGoWithABarThatHadNoWindow();
    void theRowIsLaidOut_data();
    void theRowIsLaidOut();
    void templateImagesTakeTheBarsColors();
    void anEmptyBarIsAsWideAsItsInsets();
    void clicksSendTheAction();
    void checkboxesKeepTheirItemsState();
    void aViewIsShownAsItIs();
    void menusOpenAboveAFaceOfTheirOwn();
    void keysClick();
    void validation_data();
    void validation();
    void actionsWithoutTargetFindTheirWay();
    void validatesOnceAfterTheUserDidSomething();
    void survivesTheDeathOfEverything();
};

void tst_ZelActionBar::controlsFollowTheItems()
{
    Window window;
    ZelActionBarItem *item = window.addItem();
    auto *button = window.control<ZelActionBarButton>(0);
    QVERIFY(button);
    QVERIFY(!button->icon().isNull());
    QCOMPARE(button->title(), QString()); // no label
    item->setLabel(QStringLiteral("Cut & Paste"));
    item->setToolTip(QStringLiteral("tip"));
    item->setTag(7);
    item->setEnabled(false);
    item->setState(1);
    item->setKeyEquivalent(QStringLiteral("N"));
    item->setKeyEquivalentModifierMask(Qt::ControlModifier);
    QCOMPARE(button->title(), QStringLiteral("Cut & Paste"));
    QCOMPARE(button->toolTip(), QStringLiteral("tip"));
    QCOMPARE(button->tag(), 7);
    QVERIFY(!button->isEnabled());
    QCOMPARE(button->state(), 1);
    QCOMPARE(button->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_N));
    QCOMPARE(button->accessibleName(), QStringLiteral("Cut & Paste"));

    item->setType(ZelActionBarItem::Separator);
    QVERIFY(window.control<ZelActionBarSeparator>(0));
    window.bar->setStyle(1);
    QCOMPARE(window.control<ZelActionBarSeparator>(0)->style(), 1u);
    item->setType(ZelActionBarItem::Checkbox);
    QVERIFY(window.control<ZelActionBarCheckboxButton>(0));
    item->setType(17);
    QVERIFY(window.control<ZelActionBarButton>(0));

    // Taken out of the window the bar lets go of its items, and takes them up again.
    window.layout()->removeWidget(window.bar);
    window.bar->removeFromSuperview();
    const std::unique_ptr<ZelActionBar> owned(window.bar);
    item->setLabel(QStringLiteral("late"));
    item->setType(ZelActionBarItem::Checkbox);
    QVERIFY(!window.control<ZelActionBarCheckboxButton>(0));
    window.layout()->addWidget(window.bar);
    QVERIFY(window.control<ZelActionBarCheckboxButton>(0));
    QCOMPARE(window.control<ZelActionBarButton>(0)->title(), QStringLiteral("late"));
}

void tst_ZelActionBar::itemsMayGoWithABarThatHadNoWindow()
{
    auto bar = std::make_unique<ZelActionBar>();
    const QPointer<ZelActionBarItem> item = new ZelActionBarItem;
    bar->setItems({item});
    bar->updateItemViews();
    QCOMPARE(bar->itemViews().size(), 1);
    bar.reset();
    QVERIFY(!item); // which told nobody
}

void tst_ZelActionBar::theRowIsLaidOut_data()
{
    QTest::addColumn<QSizeF>("minSize");
    QTest::addColumn<QSizeF>("maxSize");
    QTest::addColumn<QSize>("size");
    const int height = ZelActionBarButton().sizeHint().height();
    QTest::newRow("natural") << QSizeF() << QSizeF() << QSize(20, height);
    QTest::newRow("minimum") << QSizeF(30, height + 4) << QSizeF() << QSize(30, height + 4);
    QTest::newRow("a maximum pins to the minimum") << QSizeF(20, 9) << QSizeF(40, 30) << QSize(20, 9);
    QTest::newRow("both") << QSizeF(19, 16) << QSizeF(19, 0) << QSize(19, height);
}

void tst_ZelActionBar::theRowIsLaidOut()
{
    QFETCH(QSizeF, minSize);
    QFETCH(QSizeF, maxSize);
    QFETCH(QSize, size);
    const int width = size.width();
    Window window;
    window.bar->setEdgeInsets({5, 1, 7, 2});
    for (int i = 0; i < 2; ++i) {
        ZelActionBarItem *item = window.addItem();
        item->setMinSize(minSize);
        item->setMaxSize(maxSize);
        item->setEdgeInsets({3, 1, 4, 0});
    }
    QCOMPARE(window.bar->sizeHint().width(), 5 + 3 + width + 4 + 3 + width + 4 + 7);
    window.bar->setFixedSize(window.bar->sizeHint());
    window.letLayOut();
    const QRect first = window.bar->itemViews().at(0)->geometry();
    const QRect second = window.bar->itemViews().at(1)->geometry();
    QCOMPARE(first.x(), 8);
    QCOMPARE(first.size(), size);
    QCOMPARE(second.x(), 8 + width + 7);
    QCOMPARE(second.width(), width);
    QVERIFY(first.top() >= 2 && first.bottom() < window.bar->height() - 2);
    const auto former = window.bar->stackConstraints();
    window.bar->items().first()->setEdgeInsets({10, 0, 0, 0});
    window.letLayOut();
    QCOMPARE(window.bar->itemViews().at(0)->x(), 15);
    for (const auto &constraint : former)
        QVERIFY(!window.bar->constraints().contains(constraint));
}

void tst_ZelActionBar::templateImagesTakeTheBarsColors()
{
    Window window;
    QPalette palette = window.bar->palette();
    palette.setColor(QPalette::WindowText, Qt::blue);
    palette.setColor(QPalette::Highlight, Qt::green);
    window.bar->setPalette(palette);
    window.bar->setStyle(2); // without a background
    ZelActionBarItem *item = window.addItem();
    const auto color = [&] {
        auto *button = window.control<ZelActionBarButton>(0);
        window.letLayOut();
        const QColor background = palette.color(QPalette::Window);
        QImage image(button->size(), QImage::Format_ARGB32);
        image.fill(background);
        button->render(&image, {}, {}, QWidget::DrawChildren);
        return image.pixelColor(image.rect().center());
    };
    QCOMPARE(color(), QColor(Qt::red));
    item->setImage(ZelNamedImages::templateImage(square(Qt::red)));
    QVERIFY(color().blue() > color().red() + 100 && color().blue() > color().green() + 100);
    item->setState(1);
    QCOMPARE(color(), QColor(Qt::green));
}

void tst_ZelActionBar::anEmptyBarIsAsWideAsItsInsets()
{
    Window window;
    window.bar->setEdgeInsets({5, 0, 7, 0});
    QCOMPARE(window.bar->sizeHint().width(), 12);
    window.addItem();
    QVERIFY(window.bar->sizeHint().width() > 12);
    window.bar->setItems({});
    QCOMPARE(window.bar->sizeHint().width(), 12);
}

void tst_ZelActionBar::clicksSendTheAction()
{
    Window window;
    ZelActionBarItem *item = window.addItem();
    window.letLayOut();
    QPointer<ZelActionBarButton> button = window.control<ZelActionBarButton>(0);
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(window.receiver.added, 1);
    QCOMPARE(window.receiver.lastSender, button);
    // An answer that makes another button of the item, while the click is being handled.
    window.receiver.react = [item] { item->setType(ZelActionBarItem::Checkbox); };
    QTest::mouseClick(button, Qt::LeftButton);
    QVERIFY(window.control<ZelActionBarCheckboxButton>(0));
    window.receiver.react = [&window] { delete window.bar; };
    window.letLayOut();
    QTest::mouseClick(window.control<ZelActionBarButton>(0), Qt::LeftButton);
    QCOMPARE(window.receiver.added, 3);
}

void tst_ZelActionBar::checkboxesKeepTheirItemsState()
{
    Window window;
    ZelActionBarItem *item = window.addItem(ZelActionBarItem::Checkbox);
    item->setAction({});
    window.letLayOut();
    auto *checkbox = window.control<ZelActionBarCheckboxButton>(0);
    QTest::mouseClick(checkbox, Qt::LeftButton);
    QCOMPARE(item->state(), 1);
    QVERIFY(checkbox->isChecked());
    QTest::keyClick(checkbox, Qt::Key_Space);
    QCOMPARE(item->state(), 0);
    item->setState(5);
    QVERIFY(checkbox->isChecked());
    QTest::mouseClick(checkbox, Qt::LeftButton);
    QCOMPARE(item->state(), 0);
}

void tst_ZelActionBar::aViewIsShownAsItIs()
{
    Window window;
    QPointer<QLineEdit> search = new QLineEdit;
    search->setFixedWidth(60);
    ZelActionBarItem *item = window.addItem();
    item->setView(search);
    QCOMPARE(window.bar->itemViews(), QList<QWidget *>{search});
    window.letLayOut();
    QCOMPARE(search->width(), 60);
    item->setView(nullptr); // it comes back to its owner
    QVERIFY(search && !search->parentWidget());
    QVERIFY(window.control<ZelActionBarButton>(0));
    item->setView(search);
    window.bar->setItems({});
    QVERIFY(search && !search->parentWidget());
    delete search;
}

void tst_ZelActionBar::menusOpenAboveAFaceOfTheirOwn()
{
    Window window;
    window.move(200, 300);
    QMenu menu;
    int chosen = 0;
    QAction *first = menu.addAction(square(Qt::green), QStringLiteral("First"), [&chosen] { ++chosen; });
    menu.addAction(QStringLiteral("Second"));
    ZelActionBarItem *item = window.addItem();
    item->setMenu(&menu);
    window.letLayOut();
    auto *button = window.control<ZelActionBarPopupButton>(0);
    QVERIFY(button);
    QCOMPARE(button->icon().cacheKey(), item->image().cacheKey());
    QTest::mousePress(button, Qt::LeftButton);
    auto *open = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    QVERIFY(open);
    QCOMPARE(open->actions(), menu.actions());
    QVERIFY(open->geometry().bottom() <= button->mapToGlobal(QPoint()).y());
    QCOMPARE(window.receiver.added, 0);
    open->setActiveAction(first);
    QTest::keyClick(open, Qt::Key_Return);
    QCOMPARE(chosen, 1);
    QVERIFY(!button->isMenuOpen());
    QTRY_COMPARE(window.receiver.added, 1);
    QCOMPARE(button->icon().cacheKey(), item->image().cacheKey());
    QVERIFY(!first->isCheckable());

    QTest::keyClick(button, Qt::Key_Space);
    QVERIFY(button->isMenuOpen());
    delete window.bar; // with its menu open
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!QApplication::activePopupWidget());
}

void tst_ZelActionBar::keysClick()
{
    Window window;
    ZelActionBarItem *item = window.addItem();
    item->setKeyEquivalent(QStringLiteral("N"));
    item->setKeyEquivalentModifierMask(Qt::ControlModifier | Qt::ShiftModifier);
    item->setLabel(QStringLiteral("&Other")); // no mnemonic
    window.letLayOut();
    window.field->setFocus();
    QTest::keyClick(window.field, Qt::Key_N, Qt::ControlModifier | Qt::ShiftModifier);
    QTRY_COMPARE(window.receiver.added, 1);
}

void tst_ZelActionBar::validation_data()
{
    QTest::addColumn<QByteArray>("target");
    QTest::addColumn<QString>("action");
    QTest::addColumn<bool>("autovalidates");
    QTest::addColumn<bool>("enabledBefore");
    QTest::addColumn<bool>("enabled");
    QTest::newRow("no action") << QByteArray() << QString() << true << false << true;
    QTest::newRow("a target that can") << QByteArray("plain") << QStringLiteral("add:") << true << false << true;
    QTest::newRow("a target that cannot") << QByteArray("plain") << QStringLiteral("fly") << true << true << false;
    QTest::newRow("nobody can") << QByteArray() << QStringLiteral("fly") << true << true << false;
    QTest::newRow("the target objects") << QByteArray("strict") << QStringLiteral("add") << true << true << false;
    QTest::newRow("left alone, off") << QByteArray("plain") << QStringLiteral("add") << false << false << false;
    QTest::newRow("left alone, on") << QByteArray() << QStringLiteral("fly") << false << true << true;
}

void tst_ZelActionBar::validation()
{
    QFETCH(QByteArray, target);
    QFETCH(QString, action);
    QFETCH(bool, autovalidates);
    QFETCH(bool, enabledBefore);
    Window window;
    StrictReceiver strict;
    ZelActionBarItem *item = window.addItem();
    item->setTarget(target == "plain"    ? &window.receiver
                    : target == "strict" ? static_cast<QObject *>(&strict)
                                         : nullptr);
    item->setAction(action);
    item->setAutovalidates(autovalidates);
    item->setEnabled(enabledBefore);
    window.bar->validateItems();
    QTEST(item->isEnabled(), "enabled");
    if (target == "strict") {
        QCOMPARE(strict.asked, item);
        strict.allows = true;
        window.bar->validateItems();
        QVERIFY(item->isEnabled());
    }
}

void tst_ZelActionBar::actionsWithoutTargetFindTheirWay()
{
    Window window;
    Controller controller;
    auto *inner = new QLineEdit(controller.view());
    window.layout()->addWidget(controller.view());
    ZelActionBarItem *item = window.addItem();
    item->setTarget(nullptr);
    window.letLayOut();
    window.field->setFocus();
    window.bar->validateItems();
    QVERIFY(!item->isEnabled());
    inner->setFocus(); // the field's parent's controller can
    window.bar->validateItems();
    QVERIFY(item->isEnabled());
    QTest::mouseClick(window.control<ZelActionBarButton>(0), Qt::LeftButton); // leaves the focus where it is
    QCOMPARE(controller.added, 1);
    QVERIFY(inner->hasFocus());
    item->setAction("quit"); // the application object, last
    window.bar->validateItems();
    QVERIFY(item->isEnabled());
}

void tst_ZelActionBar::validatesOnceAfterTheUserDidSomething()
{
    Window window;
    ZelActionBarItem *item = window.addItem();
    QTRY_VERIFY(!window.bar->validateItemsInvocation().isPending());
    QVERIFY(item->isEnabled());
    item->setAction("fly");
    QTRY_VERIFY(!item->isEnabled());
    StrictReceiver strict;
    strict.allows = true;
    item->setTarget(&strict);
    item->setAction("add");
    QTRY_VERIFY(item->isEnabled());
    strict.allows = false;
    QTest::qWait(150);
    QVERIFY(item->isEnabled()); // nothing happened that could have changed it
    strict.asked = nullptr;
    QElapsedTimer timer;
    timer.start();
    QTest::keyClick(window.field, Qt::Key_A);
    QTest::keyClick(window.field, Qt::Key_B);
    QVERIFY(!strict.asked);
    QTRY_VERIFY(!item->isEnabled());
    QVERIFY(timer.elapsed() >= 90);
}

void tst_ZelActionBar::survivesTheDeathOfEverything()
{
    Window window;
    ZelActionBarItem *first = window.addItem();
    ZelActionBarItem *second = window.addItem();
    auto *receiver = new Receiver;
    second->setTarget(receiver);
    second->setEnabled(true);
    delete first;
    QCOMPARE(window.bar->itemViews().size(), 1);
    delete receiver;
    window.bar->validateItems(); // nobody else can
    QVERIFY(!second->isEnabled());
    QPointer<QMenu> menu = new QMenu;
    second->setMenu(menu);
    second->setEnabled(true);
    delete menu;
    QTest::keyClick(window.control<ZelActionBarPopupButton>(0), Qt::Key_Space);
    menu = new QMenu;
    connect(menu, &QMenu::aboutToShow, menu, [menu] { delete menu; });
    second->setMenu(menu);
    second->setEnabled(true);
    QTest::keyClick(window.control<ZelActionBarPopupButton>(0), Qt::Key_Space);
    QVERIFY(!menu);
    QVERIFY(!QApplication::activePopupWidget());
    auto *view = new QLineEdit;
    second->setView(view);
    delete view;
    window.letLayOut();
    window.bar->validateItemsInvocation().schedule();
    delete window.bar;
    QTest::qWait(150);
}

QTEST_MAIN(tst_ZelActionBar)
#include "tst_ZelActionBar.moc"
