// SPDX-License-Identifier: MIT
#include "ColorPopUpButton/private/ZelScreenColorPicker.h"
#include "FigureSheet.h"

namespace {
using Texts = QStringList;
using Steps = QList<std::function<void()>>;

const QByteArray g_rows = Sheet::row("fill", "color", "colorList='Crayons'") +
                          Sheet::row("stroke", "color", "colorList='Crayons'") + Sheet::row("rich", "color") +
                          "<sliver title='Words'><property type='custom' class='ZelInspectorArrayProperty' "
                          "keyPath='people.selection.tags'/></sliver>";

struct Place
{
    QWidget *widget;
    QPoint position;
};

/// What the mouse does from a press to its release. A drag has its own event loop, in which the steps are done.
void drag(const Place &from, const Place &to, const std::function<void()> &beforeDrop = {})
{
    QWidget *window = to.widget->window();
    const auto global = [](const Place &place) { return place.widget->mapToGlobal(place.position); };
    const QPoint end = global(to);
    QWindow *source = from.widget->window()->windowHandle();
    const QPoint start = source->mapFromGlobal(global(from));
    QTest::mousePress(source, Qt::LeftButton, {}, start);
    QTest::mouseMove(source, start + QPoint(3, 0));
    const auto moveTo = [=](const QPoint &place) {
        QTest::mouseMove(window->windowHandle(), window->mapFromGlobal(place));
    };
    const QPointer<QWidget> alive(window);
    bool isDone = false;
    Steps steps{[=] { moveTo(end + QPoint(1, 1)); }, [=] { moveTo(end); }, beforeDrop,
                [&] {
                    if (alive)
                        QTest::mouseRelease(alive->windowHandle(), Qt::LeftButton, {}, alive->mapFromGlobal(end));
                    else
                        QTest::keyClick(QGuiApplication::topLevelWindows().value(0), Qt::Key_Escape);
                    isDone = true;
                }};
    QTimer clock;
    clock.callOnTimeout([&] {
        if (!steps.isEmpty())
            if (const auto step = steps.takeFirst())
                step();
    });
    clock.start(5);
    QTest::mouseMove(source, start - QPoint(0, 5 * QApplication::startDragDistance()));
    QTRY_VERIFY(isDone);
    Sheet::settle();
}

struct Window : Sheet
{
    Window()
        : Sheet(g_rows)
    {
        set(1, "fill", QColor(Qt::green));
        for (int i : {0, 1}) {
            set(i, "stroke", stroke);
            set(i, "tags", Texts{"a", "b", "c", "d"});
        }
        select({0, 1});
    }

    ZelColorPopUpButton *button(const char *key) const { return editor<ZelInspectorColorProperty>(key)->popUpButton(); }
    static Place middle(QWidget *widget) { return {widget, widget->rect().center()}; }
    Place of(const char *key) const { return middle(button(key)); }
    QColor color(int index, const char *key) const { return value(index, key).value<QColor>(); }
    ZelInspectorArrayProperty *list() const { return editor<ZelInspectorArrayProperty>("tags"); }
    /// The upper half of the row, which stands for the gap above it.
    Place row(int row) const
    {
        QTableView *table = list()->tableView();
        const QRect rect = table->visualRect(table->model()->index(row, 0));
        return {table->viewport(), {30, rect.y() + rect.height() / 4}};
    }
    void selectRows(const QList<int> &rows) const
    {
        for (int row : rows)
            clickRow(list(), row, row == rows.first() ? Qt::NoModifier : Qt::ControlModifier);
    }
    QString selectedTexts() const
    {
        QString texts;
        for (const QModelIndex &index : list()->tableView()->selectionModel()->selectedRows())
            texts += index.data().toString();
        std::sort(texts.begin(), texts.end());
        return texts;
    }
    QString tags(int index) const { return value(index, "tags").toStringList().join(QString()); }

    const QColor stroke = QColor(0, 128, 255, 100);
};

bool canDrag()
{
    return QGuiApplication::platformName() != "offscreen";
}
} // namespace

/// What is dragged, pasted, typed as digits and picked from the screen is an edit like any other.
class tst_Dragging : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void aColorIsDraggedFromButtonToButton()
    {
        if (!canDrag())
            QSKIP("this platform has no drags");
        Window window;
        QImage look = window.button("fill")->grab().toImage();
        drag(window.of("stroke"), window.of("fill"), [&] {
            QVERIFY(window.button("fill")->grab().toImage() != look);
            QVERIFY(!window.button("stroke")->isMenuOpen());
        });
        QCOMPARE(window.color(0, "fill"), window.stroke);
        QCOMPARE(window.color(1, "fill"), window.stroke);
        QCOMPARE(window.stack.undoText(), "Change fill");
        QCOMPARE(window.owner->actions, 1);
        QCOMPARE(window.stack.count(), 1);
        window.undo();
        QCOMPARE(window.color(0, "fill"), QColor(Qt::red));
        QCOMPARE(window.color(1, "fill"), QColor(Qt::green));
        window.stack.clear();
        drag(window.of("stroke"), window.of("stroke"), [&] { // another one by now
            window.set(0, "stroke", QColor(Qt::yellow));
            window.set(1, "stroke", QColor(Qt::yellow));
        });
        drag(window.of("stroke"), window.of("fill"), [&] { window.button("fill")->setEnabled(false); });
        window.button("fill")->setEnabled(true);
        drag(window.of("stroke"), window.of("fill"), [&] { window.button("fill")->setEditable(false); });
        window.button("fill")->setEditable(true);
        QCOMPARE(window.stack.count(), 0);
        look = window.button("fill")->grab().toImage();
        window.set(0, "fill", QColor(Qt::blue)); // now there are two
        QTest::mousePress(window.windowHandle(), Qt::LeftButton, {},
                          window.button("fill")->mapTo(&window, QPoint(20, 8)));
        QVERIFY(window.button("fill")->isMenuOpen());
        Sheet::closePopups();
        drag(window.of("stroke"), window.of("fill"), [&] { window.inspector.reset(); });
    }

    void aPressThatStaysOpensTheMenu()
    {
        Window window;
        ZelColorPopUpButton *button = window.button("stroke");
        const QPoint place = button->mapTo(&window, button->rect().center());
        QTest::mousePress(window.windowHandle(), Qt::LeftButton, {}, place);
        QVERIFY(!button->isMenuOpen());
        QTRY_VERIFY(button->isMenuOpen()); // it was held
        Sheet::closePopups();
        QTest::mouseRelease(window.windowHandle(), Qt::LeftButton, {}, place);
        QTest::mousePress(window.windowHandle(), Qt::LeftButton, {},
                          button->mapTo(&window, QPoint(button->width() - 8, button->height() / 2)));
        QVERIFY(button->isMenuOpen()); // on the arrow
        Sheet::closePopups();
        QCOMPARE(window.stack.count(), 0);
    }

    void aColorIsDraggedOutOfTheMenu()
    {
        if (!canDrag())
            QSKIP("this platform has no drags");
        Window window;
        const QColor recent(200, 30, 90);
        ZelUsedColorList::sharedUsedColorList()->usedColor(recent);
        QMenu *menu = Sheet::openMenu(window.button("fill"));
        auto *matrix = menu->findChild<ZelColorMatrix *>();
        drag({matrix, matrix->rectOfCell(0).center()}, window.of("stroke"),
             [&] { QVERIFY(!QApplication::activePopupWidget()); });
        QCOMPARE(window.color(1, "stroke"), recent);
        QCOMPARE(window.stack.undoText(), "Change stroke");
    }

    void colorsOfOtherProgramsAreTaken()
    {
        Window window;
        ZelColorPopUpButton *button = window.button("fill");
        const std::pair<QString, QColor> texts[] = {{"#102030", QColor(0x10, 0x20, 0x30)},
                                                    {" #80AB2030\n", QColor(0xAB, 0x20, 0x30, 0x80)},
                                                    {"red", QColor()},
                                                    {"#123", QColor()},
                                                    {"#1020304", QColor()},
                                                    {"102030", QColor()},
                                                    {"", QColor()}};
        for (const auto &[text, expected] : texts) {
            const TableRow inRow(text);
            for (bool isDropped : {true, false}) {
                window.set(0, "fill", QColor(Qt::red));
                window.stack.clear();
                auto *data = new QMimeData;
                data->setText(text);
                button->setFocus();
                if (isDropped) {
                    const auto send = [&, expected = expected](QDropEvent &&event) {
                        QCoreApplication::sendEvent(button, &event);
                        QCOMPARE(event.isAccepted(), expected.isValid());
                        QCOMPARE(event.dropAction(), Qt::CopyAction);
                    };
                    send(QDragEnterEvent({5, 5}, Qt::CopyAction, data, Qt::LeftButton, {}));
                    send(QDragMoveEvent({5, 5}, Qt::CopyAction, data, Qt::LeftButton, {}));
                    send(QDropEvent({5, 5}, Qt::CopyAction, data, Qt::LeftButton, {}));
                    delete data;
                } else {
                    QGuiApplication::clipboard()->setMimeData(data);
                    Sheet::press(Qt::Key_V, Qt::ControlModifier);
                }
                QCOMPARE(window.color(0, "fill"), expected.isValid() ? expected : QColor(Qt::red));
                QCOMPARE(window.stack.count(), expected.isValid() ? 1 : 0);
            }
        }
        window.button("stroke")->setFocus();
        Sheet::press(Qt::Key_C, Qt::ControlModifier);
        const QMimeData *copied = QGuiApplication::clipboard()->mimeData();
        QCOMPARE(qvariant_cast<QColor>(copied->colorData()), window.stroke);
        QCOMPARE(copied->text(), "#640080ff");
        button->setFocus();
        Sheet::press(Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(window.color(1, "fill"), window.stroke);
        const ZelColor text = ZelColor::named("System", "textColor");
        const auto rich = [&] { return ZelColor::fromVariant(window.value(1, "rich")); };
        const auto setRich = [&](const ZelColor &color) {
            window.set(0, "rich", color.toVariant());
            window.set(1, "rich", color.toVariant());
        };
        setRich(text);
        window.button("rich")->setFocus();
        Sheet::press(Qt::Key_C, Qt::ControlModifier);
        setRich(ZelColor(ZelColor::DeviceCMYK, {1, 0, 0, 0, 1}));
        Sheet::press(Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(rich(), text); // by its name
    }

    void digitsAreTypedInTheMenu()
    {
        Window window;
        const auto open = [&](const char *key) {
            QMenu *menu = Sheet::openMenu(window.button(key));
            auto *field = menu->findChild<ZelTextField *>();
            Sheet::press(Qt::Key_Home);
            for (int i = 0; i < 5 && !field->hasFocus(); ++i) // it is above the colours of the list
                Sheet::press(Qt::Key_Down);
            return field;
        };
        ZelTextField *field = open("stroke");
        QVERIFY(field->hasFocus());
        QCOMPARE(field->text(), "#0080ff64");
        Sheet::press(Qt::Key_Return);
        QVERIFY(!QApplication::activePopupWidget());
        QCOMPARE(window.stack.count(), 0);
        field = open("fill");
        QCOMPARE(field->placeholderText(), "Multiple Values");
        Sheet::type("fff0");
        Sheet::press(Qt::Key_Return);
        QCOMPARE(field->errorText(), "A color has 3, 6 or 8 hexadecimal digits.");
        Sheet::press(Qt::Key_Escape);
        QVERIFY(field->text().isEmpty() && field->errorText().isEmpty());
        Sheet::type("fff");
        Sheet::press(Qt::Key_Up); // to another item
        QCOMPARE(window.stack.count(), 0);
        Sheet::press(Qt::Key_Down);
        Sheet::type("#FFF");
        Sheet::press(Qt::Key_Return);
        QVERIFY(!QApplication::activePopupWidget());
        QCOMPARE(window.color(1, "fill"), QColor(Qt::white));
        QCOMPARE(window.stack.undoText(), "Change fill");
        window.undo();
        QCOMPARE(window.color(1, "fill"), QColor(Qt::green));
        QCOMPARE(window.color(0, "fill"), QColor(Qt::red));
        connect(window.button("stroke"), &ZelColorPopUpButton::action, this, [&] { delete window.button("stroke"); });
        (void)open("stroke");
        Sheet::type("12");
        Sheet::press(Qt::Key_A, Qt::ControlModifier);
        Sheet::type("red");
        Sheet::press(Qt::Key_Return);
        QCOMPARE(window.color(0, "stroke"), QColor(Qt::red));
    }

    void aColorIsPickedFromTheScreen()
    {
        Window window;
        ZelColorPopUpButton *button = window.button("fill");
        QWidget paper;
        paper.setPalette(QColor(10, 200, 30));
        paper.setGeometry(window.geometry().right() + 50, 200, 100, 100);
        paper.show();
        QVERIFY(QTest::qWaitForWindowExposed(&paper));
        QVERIFY(ZelScreenColorPicker::isPossible(&paper));
        QWidget nothing; // as some platforms show
        nothing.setPalette(QColor(Qt::black));
        nothing.setGeometry(paper.x(), 400, 100, 100);
        nothing.show();
        QVERIFY(QTest::qWaitForWindowExposed(&nothing));
        QVERIFY(!ZelScreenColorPicker::isPossible(&nothing));
        nothing.hide();
        const auto pick = [&] {
            Sheet::choose(button, "Pick Screen Color");
            QTRY_COMPARE(QWidget::mouseGrabber(), button);
        };
        const QPoint place = window.mapFromGlobal(paper.mapToGlobal(QPoint(50, 50)));
        for (const std::function<void()> &giveUp :
             Steps{[&] { QTest::keyClick(window.windowHandle(), Qt::Key_Escape); },
                   [&] { QTest::mouseClick(window.windowHandle(), Qt::RightButton, {}, place); },
                   [&] {
                       button->setEnabled(false);
                       button->setEnabled(true);
                   }}) {
            pick();
            giveUp();
            QVERIFY(!QWidget::mouseGrabber() && !QWidget::keyboardGrabber());
        }
        QCOMPARE(window.stack.count(), 0);
        pick();
        QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, place);
        QVERIFY(!QWidget::mouseGrabber());
        QCOMPARE(window.color(1, "fill"), QColor(10, 200, 30));
        QCOMPARE(window.stack.undoText(), "Change fill");
        pick();
        window.inspector.reset();
        QVERIFY(!QWidget::mouseGrabber());
    }

    void rowsAreDragged()
    {
        if (!canDrag())
            QSKIP("this platform has no drags");
        Window window;
        const std::tuple<QList<int>, int, QString, QString> drags[] = {
            // rows, the gap, what comes of it, and what is selected then
            {{0, 2}, 3, "bacd", "ac"},
            {{3}, 0, "dabc", "d"},
            {{1, 2}, 2, "abcd", "bc"}, // as they are
        };
        for (const auto &[rows, gap, expected, selected] : drags) {
            const TableRow inRow(expected);
            window.stack.clear();
            window.selectRows(rows);
            const QImage look = window.list()->tableView()->grab().toImage();
            drag(window.row(rows.last()), window.row(gap),
                 [&] { QVERIFY(window.list()->tableView()->grab().toImage() != look); });
            QCOMPARE(window.tags(0), expected);
            QCOMPARE(window.tags(1), expected);
            QCOMPARE(window.selectedTexts(), selected);
            const bool isMoved = expected != "abcd";
            QCOMPARE(window.stack.undoText(), isMoved ? "Move Words" : "");
            if (isMoved)
                window.undo();
            QCOMPARE(window.tags(1), "abcd");
        }
        window.selectRows({0});
        drag(window.row(0), window.of("fill")); // no colour
        QCOMPARE(window.tags(0), "abcd");
        drag(window.of("stroke"), window.row(1)); // no row
        QCOMPARE(window.stack.count(), 0);
        window.selectRows({1});
        drag(window.row(1), window.row(3), [&] { window.inspector.reset(); });
        QCOMPARE(window.tags(0), "abcd");
    }

    /// Also where the window has a command for the same key.
    void keysRemoveRows()
    {
        Window window;
        for (int i : {0, 1})
            window.set(i, "tags", Texts{"a", "b", "c", "d"});
        int deletions = 0;
        const QShortcut shortcut(QKeySequence::Delete, window.list()->view()->window(), [&] { ++deletions; });
        window.selectRows({1, 2});
        Sheet::press(Qt::Key_Delete);
        QCOMPARE(window.tags(0), "ad");
        QCOMPARE(window.tags(1), "ad");
        QCOMPARE(window.stack.count(), 1);
        QCOMPARE(window.selectedTexts(), "d");
        Sheet::press(Qt::Key_Backspace);
        QCOMPARE(window.tags(1), "a");
        window.list()->tableView()->clearSelection();
        Sheet::press(Qt::Key_Delete);
        QCOMPARE(window.tags(1), "a");
        QCOMPARE(deletions, 0);
        window.undo();
        window.undo();
        QCOMPARE(window.tags(0), "abcd");
    }

    void keysMoveRows()
    {
        Window window;
        for (int i : {0, 1})
            window.set(i, "tags", Texts{"a", "b", "c", "d", "e"});
        const auto move = [](Qt::Key key) { Sheet::press(key, Qt::AltModifier); };
        window.selectRows({1, 3});
        const std::tuple<Qt::Key, QString, int> presses[] = {{Qt::Key_Up, "badce", 1},   {Qt::Key_Up, "badce", 1},
                                                             {Qt::Key_Down, "abcde", 2}, {Qt::Key_Down, "acbed", 3},
                                                             {Qt::Key_Down, "acbed", 3}, {Qt::Key_Up, "abcde", 4}};
        for (const auto &[key, expected, steps] : presses) {
            const TableRow inRow(QString("%1 %2").arg(expected).arg(steps));
            move(key);
            QCOMPARE(window.tags(1), expected);
            QCOMPARE(window.stack.count(), steps);
            QCOMPARE(window.selectedTexts(), "bd");
        }
        QCOMPARE(window.list()->tableView()->accessibleDescription(), "Row 2 of 5");
        Sheet::press(Qt::Key_End);
        QCOMPARE(window.selectedTexts(), "e");
        Sheet::press(Qt::Key_Home, Qt::ShiftModifier);
        QCOMPARE(window.selectedTexts(), "abcde");
        window.selectRows({1, 3});
        window.stack.clear();
        window.set(1, "tags", Texts{"x", "y"});
        move(Qt::Key_Up); // there are two lists now
        window.select({0});
        window.list()->setReadOnly(true);
        window.list()->updateView();
        window.selectRows({1});
        move(Qt::Key_Up);
        window.list()->setReadOnly(false);
        window.list()->updateView();
        QCOMPARE(window.stack.count(), 0);
        Sheet::doubleClick(window.list()->tableView(), Sheet::placeOfRow(window.list(), 1));
        Sheet::type("typed");
        move(Qt::Key_Up); // in a cell
        QCOMPARE(window.tags(0), "atypedcde");
    }
};
QTEST_MAIN(tst_Dragging)
#include "tst_Dragging.moc"
