// SPDX-License-Identifier: MIT
#include "ColorPopUpButton/ZelColorMatrix.h"
#include "ColorPopUpButton/ZelColorMenuItemView.h"
#include "ColorPopUpButton/ZelColorPopUpButton.h"
#include "ColorPopUpButton/private/ZelColorMenuItem.h"
#include "ColorPopUpButton/private/ZelColorSwatch.h"
#include "Controls/Menus/ZelMenuItem.h"
#include "Controls/ZelColorPanel.h"
#include "Controls/ZelPopover.h"
#include "Core/Binding/ZelBinding.h"
#include "Core/Errors/ZelAssertions.h"
#include "Core/RunLoop/ZelNotificationCenter.h"
#include "Core/Undo/ZelUndoManager.h"
#include "Core/Values/ZelValues.h"
#include "Support/Person.h"

#include <QAccessible>
#include <QApplication>
#include <QColorDialog>
#include <QMenu>
#include <QRegularExpression>
#include <QTest>
#include <QVBoxLayout>

namespace {

QVariant color(const QColor &color)
{
    return ZelColor(color).toVariant();
}

QMenu *openMenu()
{
    return qobject_cast<QMenu *>(QApplication::activePopupWidget());
}

QColorDialog *dialog()
{
    return static_cast<QColorDialog *>(ZelColorPanel::sharedColorPanel()->window());
}

ZelColor lastUsed()
{
    return ZelUsedColorList::sharedUsedColorList()->colors().value(0);
}

/// A shown window with a colour button, which counts what the button reports.
class Window : public QWidget
{
public:
    Window()
    {
        ZelUndoManager::setForWindow(this, &undo);
        new QVBoxLayout(this);
        button = new ZelColorPopUpButton;
        layout()->addWidget(button);
        connect(button, &ZelColorPopUpButton::valueEdited, this, [this] {
            ++edits;
            undo.registerUndo([] {}, [] {});
        });
        connect(button, &ZelColorPopUpButton::action, this, [this] {
            ++actions;
            if (whenActing)
                whenActing();
        });
        show();
    }
    ~Window() override { delete button; }

    ZelUndoManager undo;
    QPointer<ZelColorPopUpButton> button;
    int edits = 0;
    int actions = 0;
    std::function<void()> whenActing;
};

} // namespace

class tst_ZelColorPopUpButton : public QObject
{
    Q_OBJECT

public Q_SLOTS:
    void deleteSender() const { delete sender(); }

private Q_SLOTS:
    void cleanup() { ZelColorPanel::sharedColorPanel()->close(); }

    void everyColorHasASpokenValue()
    {
        ZelColorPopUpButton button;
        QAccessibleInterface *spoken = QAccessible::queryAccessibleInterface(&button);
        button.setSelectedColor(color(QColor(1, 2, 3)));
        QCOMPARE(spoken->text(QAccessible::Value), QStringLiteral("#010203")); // it has no name
        button.setSelectedColor(QVariant::fromValue(ZelMultipleValuesMarker));
        QCOMPARE(spoken->text(QAccessible::Value), QStringLiteral("Multiple Values"));
    }

    void imagesOfNoSizeAreEmpty()
    {
        QTest::failOnWarning(QRegularExpression(QStringLiteral("QPainter")));
        QVERIFY(ZelColorSwatch::image(QColor(Qt::red)).pixmap(QSize(0, 0)).isNull());
    }

    void theMenuOffersAllKindsOfColours()
    {
        ZelColorPopUpButton button;
        ZelColorPopUpButtonCell *cell = button.cell();
        cell->makeMenu();
        const QList<QAction *> items = button.items();
        QStringList titles;
        for (const QAction *item : items)
            titles.append(item->isSeparator() ? QStringLiteral("-") : ZelMenuItem::titleOf(item));
        QCOMPARE(titles.mid(0, 8).join(u'|'),
                 QStringLiteral("Default|-|Current Color|-|Recently Used Colors|-|Black|Graphite"));
        QCOMPARE(titles.last(), QStringLiteral("Other..."));
        QCOMPARE(titles.size(), 6 + int(cell->colors().size()) + 2);
        QCOMPARE(static_cast<ZelMenuItem *>(items.at(7))->tag(), 3462765);
        const QList<QAction *> fixed{cell->defaultMenuItem(), cell->currentMenuItem(), cell->recentlyMenuItem(),
                                     cell->otherMenuItem()};
        button.setColorList(ZelColorList::colorListNamed(QStringLiteral("System")));
        QCOMPARE(ZelMenuItem::titleOf(button.items().at(6)), QStringLiteral("Alternate Selected Control Color"));
        for (QAction *item : fixed)
            QVERIFY(button.items().contains(item));
    }

    void titleAndItemFollowTheColour_data()
    {
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("item");
        const auto row = [](const char *name, const QVariant &value, const char *title, const char *item) {
            QTest::newRow(name) << value << QString::fromLatin1(title) << QString::fromLatin1(item);
        };
        row("default", color(Qt::transparent), "Default", "Default");
        row("listed", color(Qt::red), "Red", "Red");
        row("QColor", QColor(Qt::red), "Red", "Red");
        row("other space", ZelColor(ZelColor::CalibratedRGB, {1, 0, 0, 1}).toVariant(), "Red", "Red");
        row("elsewhere", color(QColor(1, 2, 3)), "", "Current Color");
        row("none", QVariant(), "", "Current Color");
        row("no QColor", QColor(), "", "Current Color");
        row("no ZelColor", QVariant::fromValue(ZelColor()), "", "Current Color");
        row("multiple", QVariant::fromValue(ZelMultipleValuesMarker), "Multiple Values", "Current Color");
        row("no selection", QVariant::fromValue(ZelNoSelectionMarker), "No Selection", "Current Color");
        row("not applicable", QVariant::fromValue(ZelNotApplicableMarker), "", "Current Color");
    }
    void titleAndItemFollowTheColour()
    {
        QFETCH(QVariant, value);
        QFETCH(QString, title);
        QFETCH(QString, item);
        ZelColorPopUpButton button; // before and after its menu is made
        for (int round = 0; round < 2; ++round) {
            button.setSelectedColor(color(QColor(9, 9, 9)));
            button.setSelectedColor(value);
            QCOMPARE(button.cell()->title(), title);
            QCOMPARE(button.shownText(), title);
            button.cell()->makeMenu();
            QCOMPARE(ZelMenuItem::titleOf(button.selectedItem()), item);
        }
        const bool isColor = ZelColor::isColor(value);
        QCOMPARE(button.cell()->currentMenuItem()->image().isNull(), !isColor);
    }

    /// A model that holds QColors answers what was chosen in their own space.
    void lookingLikeTheDefaultIsBeingIt()
    {
        Window window;
        window.button->setDefaultColor(ZelColor(ZelColor::CalibratedRGB, {0.2, 0.4, 0.6, 1}));
        window.button->setSelectedColor(QColor::fromRgbF(0.2F, 0.4F, 0.6F));
        QCOMPARE(window.button->shownText(), QStringLiteral("Default"));
        ZelMenuItem *item = window.button->cell()->defaultMenuItem();
        QCOMPARE(window.button->selectedItem(), item);
        item->trigger();
        QCOMPARE(window.actions, 0);
    }

    void listsNameTheirOwnColours()
    {
        const QString name = QStringLiteral("Prints");
        const ZelColor cyan(ZelColor::DeviceCMYK, {1, 0, 0, 0, 1}); // "Cyan" in another list
        ZelColorPopUpButton button;
        button.setSelectedColor(cyan.toVariant());
        button.cell()->makeMenu();
        for (const QString &key : {QStringLiteral("Ink"), QStringLiteral("Dye")}) {
            button.setColorList(ZelColorListPtr::create(name, QList<ZelColorList::Entry>{{key, cyan}}));
            QCOMPARE(button.shownText(), key);
            QCOMPARE(ZelMenuItem::titleOf(button.selectedItem()), key);
        }
    }

    void wrongValuesAreAssertions()
    {
        ZelColorPopUpButton button;
        button.setSelectedColor(color(Qt::red));
        QVERIFY_EXCEPTION_THROWN(button.setSelectedColor(QStringLiteral("red")), ZelInternalInconsistencyException);
        QVERIFY_EXCEPTION_THROWN(button.setDefaultColor(ZelColor()), ZelInternalInconsistencyException);
        QVERIFY_EXCEPTION_THROWN(button.setColorList({}), ZelInternalInconsistencyException);
        QCOMPARE(button.selectedColor(), color(Qt::red));
    }

    void choicesAreReportedOnce()
    {
        Window window;
        ZelColorPopUpButtonCell *cell = window.button->cell();
        ZelMenuItem *red = cell->menuItemForColor(QColor(Qt::red));
        red->trigger();
        QCOMPARE(window.button->selectedColor(), color(Qt::red));
        QCOMPARE(window.edits, 1);
        QCOMPARE(window.actions, 1);
        QCOMPARE(lastUsed(), ZelColor(Qt::red));
        red->trigger(); // again
        QCOMPARE(window.actions, 1);
        cell->currentMenuItem()->trigger(); // the same, applied again
        QCOMPARE(window.edits, 1);
        QCOMPARE(window.actions, 2);
        cell->defaultMenuItem()->trigger();
        cell->defaultMenuItem()->trigger();
        QCOMPARE(window.edits, 2);
        QCOMPARE(window.button->shownText(), QStringLiteral("Default"));
        window.button->setSelectedColor(color(Qt::blue)); // not by a user
        QCOMPARE(window.actions, 3);
    }

    void keysStepThroughTheColours()
    {
        Window window;
        window.button->setSelectedColor(color(Qt::transparent));
        QTest::keyClick(window.button, Qt::Key_Down);
        QCOMPARE(window.button->shownText(), QStringLiteral("Black"));
        QTest::keyClick(window.button, Qt::Key_O); // not "Other..."
        QCOMPARE(window.button->shownText(), QStringLiteral("Orange"));
        QTest::keyClick(window.button, Qt::Key_Home);
        QCOMPARE(window.button->shownText(), QStringLiteral("Default"));
        QCOMPARE(window.edits, 3);
        QVERIFY(!ZelColorPanel::sharedColorPanel()->isVisible());
    }

    void aUsedColourIsChosenInTheStrip()
    {
        Window window;
        ZelUsedColorList::sharedUsedColorList()->usedColor(ZelColor(QColor(10, 20, 30)));
        window.button->showMenu();
        QVERIFY(openMenu());
        auto *view = openMenu()->findChild<ZelColorMenuItemView *>();
        QVERIFY(view && view->isInstalled());
        QTest::mouseClick(view->matrix(), Qt::LeftButton, {}, view->matrix()->rectOfCell(0).center());
        QVERIFY(!openMenu());
        QCOMPARE(window.button->selectedColor(), color(QColor(10, 20, 30)));
        QCOMPARE(window.edits, 1);
        QCOMPARE(window.button->selectedItem(), window.button->cell()->currentMenuItem());
    }

    void buttonsMayDieWhileTheirMenuIsOpen_data()
    {
        QTest::addColumn<QString>("way");
        for (const char *way : {"from outside", "by a colour", "by the strip"})
            QTest::newRow(way) << QString::fromLatin1(way);
    }
    void buttonsMayDieWhileTheirMenuIsOpen()
    {
        QFETCH(QString, way);
        Window window;
        window.whenActing = [&window] { delete window.button; };
        window.button->setSelectedColor(color(QColor(77, 0, 77)));
        window.button->showMenu();
        QMenu *menu = openMenu();
        QVERIFY(menu);
        if (way == u"from outside") {
            delete window.button;
        } else if (way == u"by a colour") {
            menu->setActiveAction(window.button->cell()->menuItemForColor(QColor(Qt::red)));
            QTest::keyClick(menu, Qt::Key_Return);
        } else {
            auto *matrix = menu->findChild<ZelColorMatrix *>();
            QTest::mouseClick(matrix, Qt::LeftButton, {}, matrix->rectOfCell(1).center());
        }
        QVERIFY(!window.button);
        QVERIFY(!openMenu());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    void buttonsMayDieOfAnyNotice_data()
    {
        QTest::addColumn<QByteArray>("signal");
        QTest::addColumn<bool>("hasMenu");
        for (const char *notice : {SIGNAL(selectedColorChanged()), SIGNAL(objectValueChanged())})
            QTest::addRow("%s, no menu yet", notice) << QByteArray(notice) << false;
        for (const char *notice : {SIGNAL(selectedColorChanged()), SIGNAL(objectValueChanged()),
                                   SIGNAL(selectedItemChanged()), SIGNAL(colorListChanged())})
            QTest::addRow("%s", notice) << QByteArray(notice) << true;
    }
    void buttonsMayDieOfAnyNotice()
    {
        QFETCH(QByteArray, signal);
        QFETCH(bool, hasMenu);
        Window window;
        QPointer<ZelColorPopUpButton> button = window.button;
        button->setSelectedColor(color(QColor(77, 0, 77)));
        if (hasMenu)
            button->cell()->makeMenu();
        ZelMenuItem *red = hasMenu ? button->cell()->menuItemForColor(QColor(Qt::red)) : nullptr;
        connect(button, signal, this, SLOT(deleteSender()));
        if (signal == SIGNAL(colorListChanged()))
            button->setColorList(ZelColorList::colorListNamed(QStringLiteral("System")));
        else if (red)
            red->trigger();
        else
            button->setSelectedColor(color(Qt::red));
        QVERIFY(!button);
    }

    void theStripLeavesThePopoverAroundItsMenuOpen()
    {
        QWidget window;
        window.show();
        ZelPopover popover;
        auto *button = new ZelColorPopUpButton;
        popover.setContentWidget(button);
        popover.showRelativeToRect({}, &window);
        button->showMenu();
        QVERIFY(openMenu());
        auto *matrix = openMenu()->findChild<ZelColorMatrix *>();
        QTest::mouseClick(matrix, Qt::LeftButton, {}, matrix->rectOfCell(0).center());
        QVERIFY(!openMenu());
        QVERIFY(popover.isShown());
    }

    void thePanelIsFollowedWhileItIsOpen()
    {
        Window window;
        window.button->setSelectedColor(QVariant::fromValue(ZelMultipleValuesMarker));
        window.button->setShowsAlpha(true);
        ZelColorPopUpButtonCell *cell = window.button->cell();
        cell->otherMenuItem()->trigger();
        QVERIFY(cell->isColorPanelActive());
        QVERIFY(ZelColorPanel::sharedColorPanel()->showsAlpha());
        QCOMPARE(dialog()->currentColor(), QColor(Qt::black));
        QCOMPARE(window.actions, 0);
        dialog()->setCurrentColor(QColor(1, 2, 200));
        QCOMPARE(window.button->selectedColor(), color(QColor(1, 2, 200)));
        QCOMPARE(window.edits, 1);
        QVERIFY(lastUsed() != ZelColor(QColor(1, 2, 200)));

        window.button->setSelectedColor(color(Qt::green)); // another selection
        QCOMPARE(dialog()->currentColor(), QColor(Qt::green));
        window.button->setEnabled(false);
        dialog()->setCurrentColor(Qt::yellow);
        window.button->setEnabled(true);
        window.button->setEditable(false);
        dialog()->setCurrentColor(Qt::cyan);
        QCOMPARE(window.button->selectedColor(), color(Qt::green));
        Window other;
        other.button->cell()->activateColorPanel();
        QVERIFY(!cell->isColorPanelActive());
        QCOMPARE(lastUsed(), ZelColor(Qt::green));
        QCOMPARE(window.edits, 1);
        ZelNotificationCenter::defaultCenter()->post(ZelColorPopUpButtonDidBecomeActiveNotification, this);
        QVERIFY(!other.button->cell()->isColorPanelActive()); // an application's own has taken over
    }

    void aButtonMayDieOfWhatThePanelChanges()
    {
        Window window;
        window.whenActing = [&window] { delete window.button; };
        window.button->cell()->activateColorPanel();
        dialog()->setCurrentColor(QColor(30, 3, 3));
        QVERIFY(!window.button);
        QCOMPARE(lastUsed(), ZelColor(QColor(30, 3, 3)));
        dialog()->setCurrentColor(QColor(31, 3, 3));
    }

    void aBindingHandsOverTheColour()
    {
        Window window;
        Person person;
        person.setNote(QColor(Qt::red));
        ZelBind(window.button, ZelValueBinding, &person, "note");
        QCOMPARE(window.button->shownText(), QStringLiteral("Red"));
        window.button->cell()->menuItemForColor(color(Qt::blue))->trigger();
        QCOMPARE(person.note().value<QColor>(), QColor(Qt::blue));
    }
};

QTEST_MAIN(tst_ZelColorPopUpButton)
#include "tst_ZelColorPopUpButton.moc"
