// SPDX-License-Identifier: MIT
#include "ColorPopUpButton/ZelUsedColorList.h"
#include "Controls/Fields/ZelTextField.h"
#include "Controls/Menus/ZelMenuItem.h"
#include "Controls/ZelColorPanel.h"
#include "Core/Values/ZelValues.h"
#include "EditorWindow.h"
#include "Inspector/Properties/ZelInspectorColorProperty.h"
#include "Inspector/Properties/ZelInspectorDateProperty.h"
#include "Inspector/Properties/ZelInspectorResourceProperty.h"

#include <QColorDialog>
#include <QDateTime>
#include <QSpinBox>

namespace {

/// An application's model, with each type that the editors may meet.
class Meeting : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QColor plain MEMBER plain NOTIFY changed)
    Q_PROPERTY(ZelColor rich MEMBER rich NOTIFY changed)
    Q_PROPERTY(QVariant any MEMBER any NOTIFY changed)
    Q_PROPERTY(QDate day MEMBER day NOTIFY changed)
    Q_PROPERTY(QDateTime time MEMBER time NOTIFY changed)
    Q_PROPERTY(QString room MEMBER room NOTIFY changed)
public:
    QColor plain;
    ZelColor rich;
    QVariant any;
    QDate day;
    QDateTime time;
    QString room;

Q_SIGNALS:
    void changed();
};

/// Two meetings, and one editor of them.
class Window : public EditorWindow
{
public:
    Window()
        : EditorWindow(0)
    {
    }
    ~Window() override { editor.reset(); }
    void select(int count)
    {
        owner->controller.setSelectedObjects(count == 2 ? QList<QObject *>{&first, &second}
                                                        : QList<QObject *>{&first}.mid(0, count));
        QCoreApplication::processEvents();
    }
    template<typename Editor> Editor *edit(const char *key, const std::function<void(Editor *)> &prepare = {})
    {
        auto made = std::make_unique<Editor>(owner.get());
        made->setKeyPath(QStringLiteral("people.selection.") + QString::fromLatin1(key));
        made->setActionName(QStringLiteral("Change"));
        made->setActionSelector("noteAction");
        if (prepare)
            prepare(made.get());
        return install(std::move(made));
    }

    Meeting first;
    Meeting second;
};

ZelInspectorColorProperty *colorEditor(Window &window, const char *key)
{
    return window.edit<ZelInspectorColorProperty>(key, [](ZelInspectorColorProperty *editor) {
        editor->colorList = ZelColorList::colorListNamed(QStringLiteral("Crayons"));
    });
}

void choose(ZelInspectorColorProperty *editor, const QColor &color)
{
    editor->popUpButton()->cell()->menuItemForColor(color)->trigger();
    QCoreApplication::processEvents();
}

void typeDay(ZelDatePicker *picker, const char *keys)
{
    picker->setFocus();
    picker->setSelectedSection(QDateTimeEdit::DaySection);
    QTest::keyClicks(picker, QString::fromLatin1(keys));
}

} // namespace

class tst_ColorDateResourceProperties : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany)); }

    void aColourIsWrittenAsTheModelHoldsIt_data()
    {
        QTest::addColumn<QByteArray>("key");
        QTest::addColumn<QVariant>("old");
        QTest::addColumn<bool>("isQColor");
        const QVariant red = QColor(Qt::red);
        QTest::newRow("QColor") << QByteArray("plain") << red << true;
        QTest::newRow("no QColor") << QByteArray("plain") << QVariant() << true;
        QTest::newRow("ZelColor") << QByteArray("rich") << red << false;
        QTest::newRow("no ZelColor") << QByteArray("rich") << QVariant() << false;
        QTest::newRow("QColor in a variant") << QByteArray("any") << red << true;
        QTest::newRow("ZelColor in a variant") << QByteArray("any") << ZelColor(Qt::red).toVariant() << false;
    }
    void aColourIsWrittenAsTheModelHoldsIt()
    {
        QFETCH(QByteArray, key);
        QFETCH(QVariant, old);
        QFETCH(bool, isQColor);
        Window window;
        window.first.setProperty(key, old);
        window.second.setProperty(key, old);
        ZelInspectorColorProperty *editor = colorEditor(window, key);
        QVERIFY(!editor->popUpButton()->isEnabled());
        window.select(2);
        QCOMPARE(editor->popUpButton()->shownText(), old.isValid() ? QStringLiteral("Red") : QString());
        choose(editor, Qt::blue);
        const QVariant written = window.second.property(key);
        QCOMPARE(written.typeId() == QMetaType::QColor, isQColor);
        QCOMPARE(ZelColor::fromVariant(written).toQColor(), QColor(Qt::blue));
        QCOMPARE(window.undo.stack()->undoText(), QStringLiteral("Change"));
        QCOMPARE(window.owner->actions, 1);
        window.undo.undo();
        QCoreApplication::processEvents();
        QCOMPARE(editor->popUpButton()->shownText(), old.isValid() ? QStringLiteral("Red") : QString());
    }

    void coloursInVariantsKeepTheirClasses_data()
    {
        QTest::addColumn<QVariant>("first");
        QTest::addColumn<QVariant>("second");
        QTest::addColumn<bool>("firstIsPlain");
        QTest::addColumn<bool>("secondIsPlain");
        const QVariant plain = QColor(Qt::red);
        const QVariant rich = ZelColor(Qt::green).toVariant();
        QTest::newRow("plain and none") << plain << QVariant() << true << true;
        QTest::newRow("rich and none") << rich << QVariant() << false << false;
        QTest::newRow("plain and rich") << plain << rich << true << false;
        QTest::newRow("none and none") << QVariant() << QVariant() << true << true;
    }
    void coloursInVariantsKeepTheirClasses()
    {
        QFETCH(QVariant, first);
        QFETCH(QVariant, second);
        Window window;
        window.first.any = first;
        window.second.any = second;
        ZelInspectorColorProperty *editor = colorEditor(window, "any");
        window.select(2);
        choose(editor, Qt::blue);
        QTEST(window.first.any.typeId() == QMetaType::QColor, "firstIsPlain");
        QTEST(window.second.any.typeId() == QMetaType::QColor, "secondIsPlain");
        QCOMPARE(ZelColor::fromVariant(window.first.any).toQColor(), QColor(Qt::blue));
        QCOMPARE(ZelColor::fromVariant(window.second.any).toQColor(), QColor(Qt::blue));
        QCOMPARE(window.undo.stack()->count(), 1);
    }

    void severalColoursStayEnabledAndBecomeOne()
    {
        Window window;
        window.first.any = QColor(Qt::red);
        window.second.any = QColor(Qt::green);
        ZelInspectorColorProperty *editor = colorEditor(window, "any");
        window.select(2);
        QVERIFY(editor->popUpButton()->isEnabled());
        QCOMPARE(editor->popUpButton()->shownText(), QStringLiteral("Multiple Values"));
        editor->popUpButton()->cell()->currentMenuItem()->trigger(); // there is none
        QCOMPARE(window.undo.stack()->count(), 0);
        choose(editor, Qt::blue);
        QCOMPARE(window.second.any, QVariant(QColor(Qt::blue)));
        choose(editor, Qt::blue);
        QCOMPARE(window.undo.stack()->count(), 1);
    }

    void theSameColourAgainIsNoStep()
    {
        Window window;
        auto *editor = window.edit<ZelInspectorColorProperty>("plain"); // which keeps no name
        window.select(1);
        const auto grid = ZelColor::named(QStringLiteral("System"), QStringLiteral("gridColor"));
        for (int i = 0; i < 2; ++i) {
            editor->popUpButton()->cell()->menuItemForColor(grid.toVariant())->trigger();
            QCoreApplication::processEvents();
            QCOMPARE(window.first.plain, grid.toQColor());
        }
        QCOMPARE(window.undo.stack()->count(), 1);
    }

    void aColourOfThePaletteKeepsItsName()
    {
        Window window;
        auto *editor = window.edit<ZelInspectorColorProperty>("rich");
        window.select(1);
        ZelColorPopUpButtonCell *cell = editor->popUpButton()->cell();
        cell->menuItemForColor(ZelColor::named(QStringLiteral("System"), QStringLiteral("gridColor")).toVariant())
            ->trigger();
        QCOMPARE(window.first.rich.key(), QStringLiteral("gridColor"));
        QCOMPARE(editor->popUpButton()->shownText(), QStringLiteral("Grid Color"));
    }

    void thePanelIsLetGoWithTheEditor()
    {
        Window window;
        ZelInspectorColorProperty *editor = colorEditor(window, "plain");
        window.select(1);
        editor->popUpButton()->cell()->activateColorPanel();
        auto *dialog = static_cast<QColorDialog *>(ZelColorPanel::sharedColorPanel()->window());
        dialog->setCurrentColor(QColor(1, 2, 3));
        QCOMPARE(window.first.plain, QColor(1, 2, 3));
        ZelView::removeFromSuperview(editor->view());
        dialog->setCurrentColor(QColor(4, 5, 6));
        QCOMPARE(window.first.plain, QColor(1, 2, 3));
        QCOMPARE(ZelUsedColorList::sharedUsedColorList()->colors().first(), ZelColor(QColor(1, 2, 3)));
        dialog->close();
    }

    void thePanelUndoesInTheWindowThatItEdits()
    {
        Window window;
        window.first.plain = Qt::red;
        ZelInspectorColorProperty *editor = colorEditor(window, "plain");
        window.select(1);
        editor->popUpButton()->cell()->activateColorPanel();
        auto *dialog = static_cast<QColorDialog *>(ZelColorPanel::sharedColorPanel()->window());
        QVERIFY(QTest::qWaitForWindowActive(dialog));
        dialog->setCurrentColor(QColor(1, 2, 3));
        QCOMPARE(window.first.plain, QColor(1, 2, 3));
        auto *field = dialog->findChild<QSpinBox *>(); // which would keep the key for itself
        field->setFocus();
        QTest::keyClick(dialog->windowHandle(), Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(window.first.plain, QColor(Qt::red));
        QTest::keyClick(dialog->windowHandle(), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(window.first.plain, QColor(1, 2, 3));
        dialog->close();
    }

    void aDayStaysADayAndATimeATime_data()
    {
        QTest::addColumn<QByteArray>("key");
        QTest::addColumn<QVariant>("old");
        QTest::addColumn<QVariant>("edited");
        const QDate day(2024, 5, 6);
        const QDate edited(2024, 5, 9);
        const QTime noon(12, 0, 7);
        QTest::newRow("QDate") << QByteArray("day") << QVariant(day) << QVariant(edited);
        QTest::newRow("QDateTime") << QByteArray("time") << QVariant(day.startOfDay()) << QVariant(edited.startOfDay());
        QTest::newRow("QDate in a variant") << QByteArray("any") << QVariant(day) << QVariant(edited);
        QTest::newRow("QDateTime in a variant") << QByteArray("any") << QVariant(QDateTime(day, noon, Qt::UTC))
                                                << QVariant(QDateTime(edited, noon, Qt::UTC));
    }
    void aDayStaysADayAndATimeATime()
    {
        QFETCH(QByteArray, key);
        QFETCH(QVariant, old);
        Window window;
        window.first.setProperty(key, old);
        auto *editor = window.edit<ZelInspectorDateProperty>(key);
        QVERIFY(!editor->datePicker()->isEditable());
        window.select(1);
        typeDay(editor->datePicker(), "09");
        QTest::keyClick(editor->datePicker(), Qt::Key_Return);
        QTEST(window.first.property(key), "edited");
        QCOMPARE(window.undo.stack()->undoText(), QStringLiteral("Change"));
        QCOMPARE(window.owner->actions, 1);
        typeDay(editor->datePicker(), "09");
        QTest::keyClick(editor->datePicker(), Qt::Key_Return);
        QCOMPARE(window.owner->actions, 1);
        window.undo.undo();
        QCOMPARE(window.first.property(key), old);
    }

    void severalDatesShowNone()
    {
        Window window;
        window.first.day = QDate(2024, 5, 6);
        auto *editor = window.edit<ZelInspectorDateProperty>("day");
        window.select(2);
        QVERIFY(editor->datePicker()->isEnabled() && editor->datePicker()->isEditable());
        QCOMPARE(editor->datePicker()->objectValue(), QVariant());
        QCOMPARE(editor->datePicker()->text(), QStringLiteral("Multiple Values"));
        editor->datePicker()->stepBy(1);
        QCOMPARE(window.first.day, QDate::currentDate());
        QCOMPARE(window.second.day, QDate::currentDate());
        QCOMPARE(window.undo.stack()->count(), 1);
    }

    void typingOutlivesAChangeOfTheModel_data()
    {
        QTest::addColumn<Qt::Key>("key");
        QTest::addColumn<QDate>("day");
        QTest::newRow("committed") << Qt::Key_Return << QDate(2024, 5, 8);
        QTest::newRow("discarded") << Qt::Key_Escape << QDate(1999, 1, 1);
    }
    void typingOutlivesAChangeOfTheModel()
    {
        QFETCH(Qt::Key, key);
        Window window;
        window.first.day = QDate(2024, 5, 6);
        auto *editor = window.edit<ZelInspectorDateProperty>("day");
        window.select(1);
        typeDay(editor->datePicker(), "08");
        window.first.day = QDate(2024, 5, 7);
        Q_EMIT window.first.changed();
        QCoreApplication::processEvents();
        QCOMPARE(editor->datePicker()->text(), QStringLiteral("08.05.2024"));
        window.first.day = QDate(1999, 1, 1);
        Q_EMIT window.first.changed();
        QCoreApplication::processEvents();
        QTest::keyClick(editor->datePicker(), key);
        QTEST(window.first.day, "day");
        QCOMPARE(editor->datePicker()->date(), window.first.day);
    }

    void aResourceIsTypedOrChosen()
    {
        Window window;
        window.owner->names = {QStringLiteral("Attic"), QStringLiteral("Cellar")};
        window.first.room = QStringLiteral("Attic");
        auto *editor = window.edit<ZelInspectorResourceProperty>("room", [](ZelInspectorResourceProperty *property) {
            property->resourcesKeyPath = QStringLiteral("names");
            property->placeholder = QStringLiteral("Anywhere");
        });
        ZelComboBox *box = editor->comboBox();
        QVERIFY(!box->isValueEditable());
        window.select(1);
        QVERIFY(box->isValueEditable());
        QCOMPARE(box->currentIndex(), 0);
        box->textField()->setFocus();
        QTest::keyClick(box->textField(), Qt::Key_Down);
        QCOMPARE(window.first.room, QStringLiteral("Cellar"));
        QCOMPARE(window.owner->actions, 1);
        window.owner->names.append(QStringLiteral("Garden"));
        Q_EMIT window.owner->valuesChanged();
        QCOMPARE(box->count(), 3);
        box->textField()->selectAll();
        QTest::keyClicks(box->textField(), QStringLiteral("ga"));
        window.first.room = QStringLiteral("Hall");
        Q_EMIT window.first.changed();
        QCoreApplication::processEvents();
        QCOMPARE(box->currentText().toLower(), QStringLiteral("garden"));
        QTest::keyClick(box->textField(), Qt::Key_Return);
        QCOMPARE(window.first.room, QStringLiteral("Garden"));
        QCOMPARE(window.owner->actions, 2);
        box->textField()->clear();
        QTest::keyClick(box->textField(), Qt::Key_Return);
        QVERIFY(window.first.room.isNull());
        QCOMPARE(box->textField()->placeholderText(), QStringLiteral("Anywhere"));
        window.undo.undo();
        QCOMPARE(window.first.room, QStringLiteral("Garden"));
        window.select(2);
        QVERIFY(ZelIsMarker(box->objectValue(), ZelMultipleValuesMarker));
        QVERIFY(box->isValueEditable());
    }
};

QTEST_MAIN(tst_ColorDateResourceProperties)
#include "tst_ColorDateResourceProperties.moc"
