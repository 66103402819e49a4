// SPDX-License-Identifier: MIT
#include "ActionBar/ZelActionBar.h"
#include "ActionBar/ZelActionBarCheckboxButton.h"
#include "ActionBar/ZelActionBarPopupButton.h"
#include "ActionBar/ZelActionBarSeparator.h"
#include "Observation/ZelDelayedInvocation.h"
#include "Resources/ZelNamedImages.h"
#include "Support/TableRow.h"
#include "Support/User.h"
#include "ViewController/ZelViewController.h"

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
        react();
    }

    int added = 0;
    QPointer<QObject> lastSender;
    std::function<void()> react = [] {};
};

/// One that has a say in what can be done.
class StrictReceiver : public Receiver
{
    Q_OBJECT
public:
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
struct Window : QWidget
{
    Window()
    {
        auto *layout = new QVBoxLayout(this);
        layout->addWidget(field);
        layout->addWidget(bar);
        User::open(this);
    }
    ZelActionBarItem *addItem(quint32 type = ZelActionBarItem::Button)
    {
        auto *item = new ZelActionBarItem(square(Qt::red), &receiver, "add", bar);
        item->setType(type);
        bar->setItems(bar->items() << nullptr << item);
        letLayOut();
        return item;
    }
    template<typename Control = ZelActionBarButton> Control *control() const
    {
        return qobject_cast<Control *>(bar->itemViews().value(0));
    }
    static void letLayOut()
    {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
    }

    Receiver receiver;
    QLineEdit *field = new QLineEdit;
    ZelActionBar *bar = new ZelActionBar;
};
} // namespace

class tst_ZelActionBar : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void controlsFollowTheItems()
    {
        Window window;
        ZelActionBarItem *item = window.addItem();
        auto *button = window.control();
        QVERIFY(button && !button->icon().isNull() && button->title().isEmpty());
        item->setLabel("Cut & Paste");
        item->setToolTip("tip");
        item->setTag(7);
        item->setEnabled(false);
        item->setState(1);
        item->setKeyEquivalent("N");
        item->setKeyEquivalentModifierMask(Qt::ControlModifier);
        QCOMPARE(std::tuple(button->title(), button->toolTip(), button->tag(), button->isEnabled(), button->state()),
                 std::tuple(QString("Cut & Paste"), QString("tip"), 7, false, 1));
        QCOMPARE(button->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_N));
        QCOMPARE(button->accessibleName(), "Cut & Paste");
        item->setType(ZelActionBarItem::Separator);
        window.bar->setStyle(1);
        QVERIFY(window.control<ZelActionBarSeparator>());
        QCOMPARE(window.control<ZelActionBarSeparator>()->style(), 1u);
        item->setType(17);
        QVERIFY(window.control());
        // Taken out of the window the bar lets go of its items, and takes them up again.
        window.bar->removeFromSuperview();
        item->setLabel("late");
        item->setType(ZelActionBarItem::Checkbox);
        QVERIFY(!window.control<ZelActionBarCheckboxButton>());
        window.layout()->addWidget(window.bar);
        QVERIFY(window.control<ZelActionBarCheckboxButton>());
        QCOMPARE(window.control()->title(), "late");
        const auto search = std::make_unique<QLineEdit>(); // a view is shown as it is
        search->setFixedWidth(60);
        item->setView(search.get());
        QCOMPARE(window.bar->itemViews(), QList<QWidget *>{search.get()});
        window.letLayOut();
        QCOMPARE(search->width(), 60);
        item->setView(nullptr); // it comes back to its owner
        QVERIFY(!search->parentWidget() && window.control());
        item->setView(search.get());
        window.bar->setItems({});
        QVERIFY(!search->parentWidget());
        auto bar = std::make_unique<ZelActionBar>(); // that never had a window
        const QPointer<ZelActionBarItem> going = new ZelActionBarItem;
        bar->setItems({going});
        bar->updateItemViews();
        QCOMPARE(bar->itemViews().size(), 1);
        bar.reset();
        QVERIFY(!going); // which told nobody
    }

    void theRowIsLaidOut()
    {
        const int height = ZelActionBarButton().sizeHint().height();
        const std::tuple<QSizeF, QSizeF, QSize> rows[] = {{{}, {}, {20, height}}, // natural
                                                          {{30, height + 4.0}, {}, {30, height + 4}},
                                                          {{20, 9}, {40, 30}, {20, 9}}, // a maximum pins to the minimum
                                                          {{19, 16}, {19, 0}, {19, height}}};
        for (const auto &[minSize, maxSize, size] : rows) {
            const int width = size.width();
            Window window;
            window.bar->setEdgeInsets({5, 1, 7, 2});
            QCOMPARE(window.bar->sizeHint().width(), 12); // empty
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
            QCOMPARE(first, QRect(QPoint(8, first.y()), size));
            QCOMPARE(window.bar->itemViews().at(1)->geometry(), first.translated(width + 7, 0));
            QVERIFY(first.top() >= 2 && first.bottom() < window.bar->height() - 2);
            const auto former = window.bar->stackConstraints();
            window.bar->items().first()->setEdgeInsets({10, 0, 0, 0});
            window.letLayOut();
            QCOMPARE(window.bar->itemViews().at(0)->x(), 15);
            for (const auto &constraint : former)
                QVERIFY(!window.bar->constraints().contains(constraint));
        }
    }

    void templateImagesTakeTheBarsColors()
    {
        Window window;
        QPalette palette = window.bar->palette();
        palette.setColor(QPalette::WindowText, Qt::blue);
        palette.setColor(QPalette::Highlight, Qt::green);
        window.bar->setPalette(palette);
        window.bar->setStyle(2); // without a background
        ZelActionBarItem *item = window.addItem();
        const auto color = [&] {
            window.letLayOut();
            return window.control()->grab().toImage().pixelColor(window.control()->rect().center());
        };
        QCOMPARE(color(), QColor(Qt::red));
        item->setImage(ZelNamedImages::templateImage(square(Qt::red)));
        QVERIFY(color().blue() > color().red() + 100 && color().blue() > color().green() + 100);
        item->setState(1);
        QCOMPARE(color(), QColor(Qt::green));
        palette.setColor(QPalette::Window, Qt::yellow);
        ZelActionBar bar;
        bar.setPalette(palette);
        bar.resize(100, 20);
        // The colours of the bar itself and of its upper edge, above white.
        const std::tuple<int, QColor, QColor> rows[] = {{0, QColor(242, 242, 255), QColor(181, 181, 255)},
                                                        {1, QColor(242, 242, 13), QColor(181, 181, 74)},
                                                        {2, Qt::white, Qt::white}};
        for (const auto &[style, below, edge] : rows) {
            bar.setStyle(style);
            QImage image(bar.size(), QImage::Format_RGB32);
            image.fill(Qt::white);
            bar.render(&image, {}, {}, QWidget::DrawChildren);
            QCOMPARE(image.pixelColor(0, image.height() - 1), below);
            QCOMPARE(image.pixelColor(0, 0), edge);
        }
    }

    void clicksSendTheAction()
    {
        Window window;
        ZelActionBarItem *item = window.addItem();
        QPointer<ZelActionBarButton> button = window.control();
        QTest::mouseClick(button, Qt::LeftButton);
        QCOMPARE(window.receiver.added, 1);
        QCOMPARE(window.receiver.lastSender, button);
        item->setKeyEquivalent("N");
        item->setKeyEquivalentModifierMask(Qt::ControlModifier | Qt::ShiftModifier);
        item->setLabel("&Other"); // no mnemonic
        window.letLayOut();
        window.field->setFocus();
        QTest::keyClick(window.field, Qt::Key_N, Qt::ControlModifier | Qt::ShiftModifier);
        QTRY_COMPARE(window.receiver.added, 2);
        // An answer that makes another button of the item, while the click is being handled.
        window.receiver.react = [item] { item->setType(ZelActionBarItem::Checkbox); };
        QTest::mouseClick(button, Qt::LeftButton);
        QVERIFY(window.control<ZelActionBarCheckboxButton>());
        window.receiver.react = [&window] { delete window.bar; };
        window.letLayOut();
        QTest::mouseClick(window.control(), Qt::LeftButton);
        QCOMPARE(window.receiver.added, 4);
    }

    void checkboxesKeepTheirItemsState()
    {
        Window window;
        ZelActionBarItem *item = window.addItem(ZelActionBarItem::Checkbox);
        item->setAction({});
        window.letLayOut();
        auto *checkbox = window.control<ZelActionBarCheckboxButton>();
        for (const int before : {0, 5, 1}) {
            item->setState(before);
            QCOMPARE(checkbox->isChecked(), before != 0);
            QTest::mouseClick(checkbox, Qt::LeftButton);
            QCOMPARE(item->state(), before ? 0 : 1);
        }
        item->setImage({});
        const int width = checkbox->sizeHint().width();
        item->setLabel("Box");
        QCOMPARE(checkbox->sizeHint().width() - width, checkbox->fontMetrics().horizontalAdvance("Box") + 4);
    }

    void menusOpenAboveAFaceOfTheirOwn()
    {
        Window window;
        window.move(200, 300);
        QMenu menu;
        int chosen = 0;
        QAction *first = menu.addAction(square(Qt::green), "First", [&chosen] { ++chosen; });
        menu.addAction("Second");
        ZelActionBarItem *item = window.addItem();
        item->setMenu(&menu);
        window.letLayOut();
        auto *button = window.control<ZelActionBarPopupButton>();
        QVERIFY(button);
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
        QTest::keyClick(button, Qt::Key_Space);
        QVERIFY(button->isMenuOpen());
        delete window.bar; // with its menu open
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!QApplication::activePopupWidget());
    }

    void validation()
    {
        Window window;
        StrictReceiver strict;
        ZelActionBarItem *item = window.addItem();
        QObject *const plain = &window.receiver;
        const std::tuple<QObject *, QString, bool, bool, bool> rows[] = {
            // target, action, autovalidates, enabled before and after
            {nullptr, "", true, false, true},    {plain, "add:", true, false, true},
            {plain, "fly", true, true, false},   {nullptr, "fly", true, true, false},
            {&strict, "add", true, true, false}, {plain, "add", false, false, false}}; // the last is left alone
        for (const auto &[target, action, autovalidates, wasEnabled, isEnabled] : rows) {
            const TableRow row(action);
            item->setTarget(target);
            item->setAction(action);
            item->setAutovalidates(autovalidates);
            item->setEnabled(wasEnabled);
            window.bar->validateItems();
            QCOMPARE(item->isEnabled(), isEnabled);
            QCOMPARE(std::exchange(strict.asked, nullptr), target == &strict ? item : nullptr);
        }
        // Without a target the action finds its way.
        Controller controller;
        controller.setView(new ZelView);
        auto *inner = new QLineEdit(controller.view());
        window.layout()->addWidget(controller.view());
        item->setAutovalidates(true);
        item->setTarget(nullptr);
        window.letLayOut();
        const std::tuple<QLineEdit *, QString, bool> ways[] = {{window.field, "add", false},
                                                               {inner, "add", true},
                                                               {inner, "quit", true}}; // the application object is last
        for (const auto &[focus, action, isEnabled] : ways) {
            item->setAction(action);
            focus->setFocus();
            window.bar->validateItems();
            QCOMPARE(item->isEnabled(), isEnabled);
        }
        item->setAction("add");
        QTest::mouseClick(window.control(), Qt::LeftButton); // leaves the focus where it is
        QCOMPARE(controller.added, 1);
        QVERIFY(inner->hasFocus());
        // By itself, when something changes and after the user did something.
        item->setTarget(&strict);
        QTRY_VERIFY(!item->isEnabled());
        strict.allows = true;
        QTest::keyClicks(inner, "ab");
        QVERIFY(!item->isEnabled()); // a little later
        QTRY_VERIFY(item->isEnabled());
    }

    void survivesTheDeathOfEverything()
    {
        Window window;
        ZelActionBarItem *first = window.addItem();
        ZelActionBarItem *second = window.addItem();
        auto receiver = std::make_unique<Receiver>();
        second->setTarget(receiver.get());
        delete first;
        QCOMPARE(window.bar->itemViews().size(), 1);
        receiver.reset();
        window.bar->validateItems(); // nobody else can
        QVERIFY(!second->isEnabled());
        for (const bool isOpening : {false, true}) {
            QPointer<QMenu> menu = new QMenu;
            connect(menu, &QMenu::aboutToShow, menu, [menu] { delete menu; });
            second->setMenu(menu);
            if (!isOpening)
                delete menu;
            second->setEnabled(true);
            QTest::keyClick(window.control<ZelActionBarPopupButton>(), Qt::Key_Space);
            QVERIFY(!menu && !QApplication::activePopupWidget());
        }
        auto view = std::make_unique<QLineEdit>();
        second->setView(view.get());
        view.reset();
        window.letLayOut();
        window.bar->validateItemsInvocation().schedule();
        delete window.bar;
        QTest::qWait(150);
    }
};
QTEST_MAIN(tst_ZelActionBar)
#include "tst_ZelActionBar.moc"
