// SPDX-License-Identifier: MIT
#include "ColorPopUpButton/ZelColorMatrix.h"
#include "ColorPopUpButton/ZelColorMenuItemView.h"
#include "ColorPopUpButton/ZelColorPopUpButton.h"
#include "ColorPopUpButton/private/ZelColorFormatter.h"
#include "ColorPopUpButton/private/ZelColorMenuItem.h"
#include "ColorPopUpButton/private/ZelColorSwatch.h"
#include "Controls/Menus/ZelMenuItem.h"
#include "Controls/ZelColorPanel.h"
#include "Core/Errors/ZelAssertions.h"
#include "Core/Undo/ZelUndoManager.h"
#include "Core/Values/ZelValues.h"
#include "Observation/ZelObservations.h"
#include "Resources/ZelLocalizedString.h"
#include "Support/TableRow.h"
#include <QSignalSpy>
#include <QtWidgets>
#include <thread>

namespace {
QVariant color(const QColor &color)
{
    return ZelColor(color).toVariant();
}

QMenu *openMenu()
{
    return qobject_cast<QMenu *>(QApplication::activePopupWidget());
}

ZelColor lastUsed()
{
    return ZelUsedColorList::sharedUsedColorList()->colors().value(0);
}

/// A shown window with a colour button, which counts what the button reports.
struct Window : QWidget
{
    Window()
    {
        ZelUndoManager::setForWindow(this, &undo);
        (new QVBoxLayout(this))->addWidget(button);
        connect(button, &ZelColorPopUpButton::valueEdited, this, [this] {
            ++edits;
            undo.registerUndo([] {}, [] {});
        });
        connect(button, &ZelColorPopUpButton::action, this, [this] {
            ++actions;
            whenActing();
        });
        show();
    }
    ~Window() override { delete button; }

    ZelUndoManager undo;
    QPointer<ZelColorPopUpButton> button = new ZelColorPopUpButton;
    int edits = 0;
    int actions = 0;
    std::function<void()> whenActing = [] {};
};

ZelColor grey(int level)
{
    return ZelColor(QColor(level, level, level));
}

/// Notes which part of the widget is painted.
struct PaintLog : QObject
{
    explicit PaintLog(QWidget *widget) { widget->installEventFilter(this); }
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Paint)
            painted += static_cast<QPaintEvent *>(event)->region();
        return false;
    }
    QRegion painted;
};
} // namespace

class tst_ZelColorPopUpButton : public QObject
{
    Q_OBJECT
    ZelUsedColorList *list = ZelUsedColorList::sharedUsedColorList();

public Q_SLOTS:
    void deleteSender() const { delete sender(); }

private Q_SLOTS:
    /// Fills the list: 23 is the latest, 0 the oldest.
    void init()
    {
        for (int i = 0; i < ZelUsedColorListMax; ++i)
            list->usedColor(grey(i));
    }
    void cleanup() { ZelColorPanel::sharedColorPanel()->close(); }

    void theMenuOffersAllKindsOfColours()
    {
        QTest::failOnWarning(QRegularExpression("QPainter"));
        QVERIFY(ZelColorSwatch::image(QColor(Qt::red)).pixmap(QSize(0, 0)).isNull());
        ZelColorPopUpButton button;
        ZelColorPopUpButtonCell *cell = button.cell();
        cell->makeMenu();
        const QList<QAction *> items = button.items();
        QStringList titles;
        for (const QAction *item : items)
            titles.append(item->isSeparator() ? "-" : ZelMenuItem::titleOf(item));
        QCOMPARE(titles.mid(0, 8).join(u'|'), "Default|-|Current Color|-|Recently Used Colors|-|Black|Graphite");
        QCOMPARE(titles.last(), "Other...");
        QCOMPARE(titles.size(), 6 + int(cell->colors().size()) + 2);
        QCOMPARE(static_cast<ZelMenuItem *>(items.at(7))->tag(), 3462765);
        const QList<QAction *> fixed{cell->defaultMenuItem(), cell->currentMenuItem(), cell->recentlyMenuItem(),
                                     cell->otherMenuItem()};
        button.setColorList(ZelColorList::colorListNamed("System"));
        QCOMPARE(ZelMenuItem::titleOf(button.items().at(6)), "Alternate Selected Control Color");
        for (QAction *item : fixed)
            QVERIFY(button.items().contains(item));
    }

    void titleAndItemFollowTheColour()
    {
        const std::tuple<QVariant, QString, QString> rows[] = {
            {color(Qt::transparent), "Default", "Default"},
            {QColor(Qt::red), "Red", "Red"},
            {ZelColor(ZelColor::CalibratedRGB, {1, 0, 0, 1}).toVariant(), "Red", "Red"},
            {color(QColor(1, 2, 3)), "", "Current Color"},
            {QVariant(), "", "Current Color"},
            {QVariant::fromValue(ZelColor()), "", "Current Color"},
            {QVariant::fromValue(ZelMultipleValuesMarker), "Multiple Values", "Current Color"},
            {QVariant::fromValue(ZelNoSelectionMarker), "No Selection", "Current Color"},
            {QVariant::fromValue(ZelNotApplicableMarker), "", "Current Color"}};
        for (const auto &[value, title, item] : rows) {
            const TableRow row(QStringLiteral("%1, %2").arg(&value - &std::get<0>(rows[0])).arg(title));
            ZelColorPopUpButton button; // before and after its menu is made
            for (int round = 0; round < 2; ++round) {
                button.setSelectedColor(color(QColor(9, 9, 9)));
                button.setSelectedColor(value);
                QCOMPARE(button.cell()->title(), title);
                QCOMPARE(button.shownText(), title);
                button.cell()->makeMenu();
                QCOMPARE(ZelMenuItem::titleOf(button.selectedItem()), item);
            }
            QCOMPARE(button.cell()->currentMenuItem()->image().isNull(), !ZelColor::isColor(value));
        }
        ZelColorPopUpButton button;
        button.setSelectedColor(color(QColor(1, 2, 3)));
        QAccessibleInterface *spoken = QAccessible::queryAccessibleInterface(&button);
        QCOMPARE(spoken->text(QAccessible::Value), "#010203"); // it has no name
        button.setSelectedColor(QVariant::fromValue(ZelMultipleValuesMarker));
        QCOMPARE(spoken->text(QAccessible::Value), "Multiple Values");
        const ZelColor cyan(ZelColor::DeviceCMYK, {1, 0, 0, 0, 1}); // "Cyan" in another list
        button.setSelectedColor(cyan.toVariant());
        button.cell()->makeMenu();
        for (const char *key : {"Ink", "Dye"}) { // lists name their own colours
            button.setColorList(ZelColorListPtr::create("Prints", QList<ZelColorList::Entry>{{key, cyan}}));
            QCOMPARE(button.shownText(), key);
            QCOMPARE(ZelMenuItem::titleOf(button.selectedItem()), key);
        }
        // A model that holds QColors answers what was chosen in their own space.
        const QColor plain = QColor::fromRgbF(0.2F, 0.4F, 0.6F);
        button.setSelectedColor(plain);
        button.setDefaultColor(ZelColor(ZelColor::CalibratedRGB, {0.2, 0.4, 0.6, 1}));
        QCOMPARE(button.shownText(), "Default");
        QCOMPARE(button.selectedItem(), button.cell()->defaultMenuItem());
        button.cell()->defaultMenuItem()->trigger(); // is the same
        QVERIFY_EXCEPTION_THROWN(button.setSelectedColor("red"), ZelInternalInconsistencyException);
        QVERIFY_EXCEPTION_THROWN(button.setDefaultColor(ZelColor()), ZelInternalInconsistencyException);
        QVERIFY_EXCEPTION_THROWN(button.setColorList({}), ZelInternalInconsistencyException);
        QCOMPARE(button.selectedColor(), color(plain));
    }

    void choicesAreReportedOnce()
    {
        Window window;
        ZelColorPopUpButtonCell *cell = window.button->cell();
        ZelMenuItem *red = cell->menuItemForColor(QColor(Qt::red));
        const std::tuple<ZelMenuItem *, QVariant, int, int> choices[] = {
            // and how many edits and actions
            {red, color(Qt::red), 1, 1},
            {red, color(Qt::red), 1, 1},                     // again
            {cell->currentMenuItem(), color(Qt::red), 1, 2}, // the same, applied again
            {cell->defaultMenuItem(), color(Qt::transparent), 2, 3},
            {cell->defaultMenuItem(), color(Qt::transparent), 2, 3}};
        for (const auto &[item, chosen, edits, actions] : choices) {
            item->trigger();
            QCOMPARE(window.button->selectedColor(), chosen);
            QCOMPARE(std::pair(window.edits, window.actions), std::pair(edits, actions));
            QCOMPARE(lastUsed().toVariant(), chosen);
        }
        QCOMPARE(window.button->shownText(), "Default");
        window.button->setSelectedColor(color(Qt::blue)); // not by a user
        QCOMPARE(window.actions, 3);
        window.button->setSelectedColor(color(Qt::transparent));
        const std::pair<Qt::Key, QString> keys[] = {// none reaches "Other..."
                                                    {Qt::Key_Down, "Black"},
                                                    {Qt::Key_O, "Orange"},
                                                    {Qt::Key_Home, "Default"}};
        for (const auto &[key, shown] : keys) {
            QTest::keyClick(window.button, key);
            QCOMPARE(window.button->shownText(), shown);
        }
        QCOMPARE(window.edits, 5);
        QVERIFY(!ZelColorPanel::sharedColorPanel()->isVisible());
    }

    void buttonsMayDieOfAnyNotice()
    {
        const std::function<void(ZelColorPopUpButton *)> acts[] = {
            [](auto *button) { button->setSelectedColor(color(Qt::red)); },
            [](auto *button) { button->cell()->menuItemForColor(QColor(Qt::red))->trigger(); },
            [](auto *button) { button->setColorList(ZelColorList::colorListNamed("System")); },
            [](auto *button) {
                button->showMenu();
                auto *matrix = openMenu()->findChild<ZelColorMatrix *>();
                QTest::mouseClick(matrix, Qt::LeftButton, {}, matrix->rectOfCell(1).center());
            }};
        for (const char *notice :
             {SIGNAL(selectedColorChanged()), SIGNAL(objectValueChanged()), SIGNAL(selectedItemChanged()),
              SIGNAL(colorListChanged()), SIGNAL(valueEdited()), SIGNAL(action())}) {
            bool hasDied = false;
            for (const auto &act : acts) {
                const Window window;
                window.button->setSelectedColor(color(QColor(77, 0, 77)));
                window.button->cell()->makeMenu();
                connect(window.button, notice, this, SLOT(deleteSender()));
                act(window.button);
                hasDied = hasDied || !window.button;
                QVERIFY(!openMenu());
                QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            }
            QVERIFY2(hasDied, notice);
        }
    }

    void buttonsMayDieOfTheItemThatIsSelectedWhenItIsMade()
    {
        const std::function<void(ZelColorPopUpButton *)> ways[] = {
            [](auto *button) { button->showMenu(); },
            [](auto *button) { QTest::keyClick(button, Qt::Key_Down); },
            [](auto *button) {
                QWheelEvent wheel({}, {}, {}, {0, -120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
                QCoreApplication::sendEvent(button, &wheel);
            },
            [](auto *button) { QVERIFY(!button->cell()->menuItemForColor(QColor(Qt::red))); },
            [](auto *button) { QVERIFY(!button->cell()->otherMenuItem()); },
        };
        for (const auto &way : ways) {
            Window window;
            const QPointer<ZelColorPopUpButton> button = window.button;
            window.show();
            window.activateWindow();
            button->setFocus();
            QTRY_VERIFY(button->hasFocus());
            button->setSelectedColor(color(QColor(77, 0, 77)));
            connect(button, SIGNAL(selectedItemChanged()), this, SLOT(deleteSender()));
            way(button);
            QVERIFY(!button && !openMenu());
        }
    }

    void colorsAreReadFromDigitsAndNames()
    {
        const ZelColor ink(ZelColor::DeviceCMYK, {0.1, 0.2, 0.3, 0.4, 1});
        const ZelColorFormatter formatter(
            ZelColorListPtr::create("Prints", QList<ZelColorList::Entry>{{"Ink", ink}, {"fad", ink}}));
        const ZelLocalizationFunction former = ZelSetLocalizationFunction(
            [](const QString &key) { return key == "Pink" ? QStringLiteral("Rosa") : QString(); });
        const std::pair<QString, QVariant> rows[] = {
            {"#0a141e", color(QColor(10, 20, 30))},
            {" 0A141E ", color(QColor(10, 20, 30))},
            {"#fa0", color(QColor(255, 170, 0))},
            {"0a141e80", color(QColor(10, 20, 30, 128))}, // the alpha is the last
            {"fad", ink.toVariant()},
            {"INK", ink.toVariant()},
            {"rosa", color(QColor(0xFF, 0x9E, 0xC4))},
            {"pink", color(QColor(0xFF, 0x9E, 0xC4))}, // not SVG's
            {"Text Color", ZelColor::named("System", "textColor").toVariant()},
            {"dark slate blue", color(QColor(72, 61, 139))},
            {"#fa0f", "A color has 3, 6 or 8 hexadecimal digits."},
            {"#ink", "A color has 3, 6 or 8 hexadecimal digits."},
            {"#80102030f", "A color has 3, 6 or 8 hexadecimal digits."},
            {"", "A color has 3, 6 or 8 hexadecimal digits."},
            {"nothing", "There is no color of this name."}};
        for (const auto &[text, expected] : rows) {
            const TableRow row(text);
            QVariant value;
            QString error;
            const bool isRead = formatter.objectValueForString(text, &value, &error);
            QCOMPARE(isRead ? value : error, expected);
        }
        ZelSetLocalizationFunction(former);
        QCOMPARE(formatter.stringForObjectValue(color(QColor(1, 2, 3, 4))), "#01020304");
        QCOMPARE(formatter.stringForObjectValue(QVariant::fromValue(ZelMultipleValuesMarker)), QString());
    }

    /// No pixel is blurred: there are two colours inside of the outline, in squares of the same size.
    void swatchesAreSharpAtAnyScale()
    {
        for (const double scale : {1.0, 1.25, 1.5, 1.75, 2.0}) {
            const TableRow row(QString::number(scale));
            QImage image(QSize(60, 60), QImage::Format_RGB32);
            image.setDevicePixelRatio(scale);
            image.fill(Qt::white);
            QPainter painter(&image);
            ZelColorSwatch::paint(&painter, QRect(3, 5, 14, 14), QColor(255, 0, 0, 128), QPalette());
            painter.end();
            QSet<QRgb> colors;
            const QRect inside(qRound(3 * scale) + qRound(scale), qRound(5 * scale) + qRound(scale), int(9 * scale),
                               int(9 * scale));
            for (int y = inside.top(); y <= inside.bottom(); ++y) {
                for (int x = inside.left(); x <= inside.right(); ++x)
                    colors.insert(image.pixel(x, y));
            }
            QCOMPARE(colors.size(), 2);
            const int side = qRound(4 * scale);
            const QPoint first = QPoint(qRound(3 * scale), qRound(5 * scale)) + QPoint(side, side);
            for (const QPoint &corner : {first, first + QPoint(side, 0), first + QPoint(side, side)}) {
                QVERIFY(image.pixel(corner) != image.pixel(corner - QPoint(1, 0)));
                QVERIFY(image.pixel(corner) != image.pixel(corner - QPoint(0, 1)));
            }
        }
    }

    void theLatestComesFirst()
    {
        QObject owner;
        int changes = 0;
        ZelObservations(&owner).addObservationWithObject(
            list, "colors", ZelKeyValueObservingOptionEqualCheck,
            [&](ZelBlockObservation *, const ZelKeyValueChange &) { ++changes; }, this);
        const QSignalSpy announced(list, &ZelUsedColorList::colorsChanged);
        const std::tuple<int, int, int, int> rows[] = {// used, second, last, and changes that observers heard of
                                                       {23, 22, 0, 0},
                                                       {3, 23, 0, 1},
                                                       {200, 3, 1, 2}};
        for (const auto &[used, second, last, heard] : rows) {
            list->usedColor(grey(used));
            const QList<ZelColor> colors = list->colors();
            QCOMPARE(colors.size(), ZelUsedColorListMax);
            QCOMPARE(colors[0], grey(used));
            QCOMPARE(colors[1], grey(second));
            QCOMPARE(colors.last(), grey(last));
            QCOMPARE(colors.count(grey(used)), 1);
            QCOMPARE(changes, heard);
        }
        QCOMPARE(announced.count(), 3);
        ZelObservations(&owner).removeAllObservationsForContext(this);
        QVERIFY_EXCEPTION_THROWN(list->usedColor(ZelColor()), ZelInternalInconsistencyException);
        QCOMPARE(list->colors().first(), grey(200));
        {
            std::vector<std::jthread> threads(4); // may use colours at once
            for (std::jthread &thread : threads)
                thread = std::jthread([this] {
                    for (int i = 0; i < 2000; ++i)
                        list->usedColor(grey(i % 256));
                });
        }
        QCOMPARE(list->colors().size(), ZelUsedColorListMax);
    }

    void theStripKeepsItsMeasuresAndRepaintsOnlyWhatIsAnother()
    {
        QWidget window;
        auto *view = new ZelColorMenuItemView(&window);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QVERIFY(view->isInstalled());
        ZelColorMatrix *matrix = view->matrix();
        QCOMPARE(matrix->colorAtIndex(0), grey(23));
        QCoreApplication::processEvents();
        const PaintLog log(matrix);
        list->usedColor(grey(21)); // 23 22 21 20 becomes 21 23 22 20
        QTRY_VERIFY(!log.painted.isEmpty());
        QCOMPARE(matrix->colorAtIndex(0), grey(21));
        for (int i = 0; i < ZelColorMatrix::numberOfCells; ++i)
            QCOMPARE(log.painted.intersects(matrix->rectOfCell(i)), i < 3);
        QCOMPARE(view->sizeHint().width(), 273);
        QCOMPARE(matrix->size(), QSize(227, 40));
        QCOMPARE(matrix->x(), 19);
        QCOMPARE(matrix->geometry().bottom() + 2, view->height());
        QCOMPARE(matrix->rectOfCell(13), QRect(19, 22, 18, 18));
        QCOMPARE(matrix->cellAtPosition({18, 5}), -1); // between two
        const int height = view->height();
        view->setControlSize(ZelControlSize::Mini);
        QVERIFY(view->height() < height);
        QCOMPARE(matrix->geometry().bottom() + 2, view->height());
        view->setLayoutDirection(Qt::RightToLeft);
        QCOMPARE(matrix->geometry().right(), view->width() - 20);
        QCOMPARE(matrix->rectOfCell(0).right(), 226);
    }

    void thePanelIsFollowedWhileItIsOpen()
    {
        Window window;
        window.button->setSelectedColor(QVariant::fromValue(ZelMultipleValuesMarker));
        window.button->setShowsAlpha(true);
        ZelColorPopUpButtonCell *cell = window.button->cell();
        cell->otherMenuItem()->trigger();
        auto *dialog = static_cast<QColorDialog *>(ZelColorPanel::sharedColorPanel()->window());
        QVERIFY(cell->isColorPanelActive() && ZelColorPanel::sharedColorPanel()->showsAlpha());
        QCOMPARE(dialog->currentColor(), QColor(Qt::black));
        QCOMPARE(window.actions, 0);
        const ZelColor chosen(QColor(1, 2, 200));
        dialog->setCurrentColor(chosen.toQColor());
        QVERIFY(lastUsed() != chosen);
        window.button->setEnabled(false);
        dialog->setCurrentColor(Qt::yellow);
        window.button->setEnabled(true);
        window.button->setEditable(false);
        dialog->setCurrentColor(Qt::cyan);
        QCOMPARE(window.button->selectedColor(), chosen.toVariant());
        QCOMPARE(window.edits, 1);
        ZelNotificationCenter::defaultCenter()->post(ZelColorPopUpButtonDidBecomeActiveNotification, this);
        QVERIFY(!cell->isColorPanelActive()); // an application's own has taken over
        QCOMPARE(lastUsed(), chosen);
    }
};
QTEST_MAIN(tst_ZelColorPopUpButton)
#include "tst_ZelColorPopUpButton.moc"
