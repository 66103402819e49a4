// SPDX-License-Identifier: MIT
#include "Controls/Fields/ZelTextField.h"
#include "Inspector/ZelInspectorSection.h"
#include "Inspector/ZelLiveInspector.h"
#include "Models.h"
#include "PreviewWindow.h"
#include "Resources/ZelBundle.h"
#include "Support/User.h"

namespace {
QByteArray selected(const QByteArray &type, const QByteArray &key, const QByteArray &rest = {})
{
    return "<property type='" + type + "' keyPath='lamps.selection." + key + "' " + rest + "/>";
}
} // namespace

class tst_Preview : public QObject
{
    Q_OBJECT
    QUrl write(const QString &name, const QByteArray &text) { return m_folder->write(name, text); }
    void show(const QByteArray &text, PreviewWindow::Options options = {})
    {
        options.description = write("Main.xml", text);
        m_window = std::make_unique<PreviewWindow>(options);
        User::open(m_window.get());
    }
    QObject *panel() const { return m_window->findChild<ZelLiveInspector *>()->inspector(); }
    ZelInspectorProperty *editor(const QString &key) const
    {
        for (auto *property : panel()->findChildren<ZelInspectorProperty *>()) {
            if (property->keyPath().endsWith(u'.' + key))
                return property;
        }
        return nullptr;
    }
    ZelTextField *field(const QString &key) const { return editor(key)->view()->findChild<ZelTextField *>(); }
    QListWidget *objects() const
    {
        const QList<QListWidget *> lists = m_window->findChildren<QListWidget *>();
        return *std::ranges::find(lists, "Objects", &QWidget::accessibleName);
    }
    /// As a user chooses it.
    void select(const QString &title)
    {
        auto *selections = m_window->findChild<QToolBar *>()->findChild<QComboBox *>();
        selections->setCurrentText(title);
        Q_EMIT selections->activated(selections->currentIndex());
        QCoreApplication::processEvents();
    }
    /// The value at the key of each object, as the panel's editors see it.
    QString value(const QString &key) const
    {
        QCoreApplication::processEvents();
        return editor(key)->modelValue().toString();
    }

    std::unique_ptr<Folder> m_folder;
    std::unique_ptr<PreviewWindow> m_window;

private Q_SLOTS:
    void init()
    {
        m_folder = std::make_unique<Folder>();
        ZelBundle::mainBundle().setResourcePaths({m_folder->path()});
    }
    void cleanup()
    {
        m_window.reset();
        m_folder.reset();
    }

    /// Every editor gets something that it can show, whatever is selected; what the application would have is stood
    /// for.
    void inventsWhatEditorsNeed()
    {
        write("Row.xml", "<slice type='number' keyPath='lamps.selection.included' maximumKeyPath='most'/>");
        show("<slice class='BandedSlice' visibleKeyPath='isOpen'><section visibleKeyPath='lamps.selectedObjects'"
             " visibleValueTransformer='ZelIsNotEmptyTransformerName'>"
             "<sliver title='A'>" +
             selected("number", "watts", "minimum='5' maximum='9'") +
             selected("number", "price", "minimum='-1e308' maximum='1.7e308'") +
             selected("boolean", "bold", "bits='0x4'") + selected("string", "label", "allowsNilValues='yes'") +
             selected("string", "rich", "attributed='yes'") + selected("color", "tint") + selected("date", "made") +
             selected("font", "font") + selected("resource", "pattern", "resourcesKeyPath='document.names'") +
             selected("size", "size") +
             selected("frame", "frame", "showOriginSelector='yes' flippedKeyPath='document.isFlipped'") +
             selected("custom", "swatch", "class='SwatchEditor' valueTransformer='Inches'") +
             selected("knob", "angle") + "<property type='included' file='Row.xml'/>" +
             selected("custom", "tags", "class='ZelInspectorArrayProperty'") +
             "<property type='enumeration' keyPath='lamps.selection.kind'><option-group><option title='B' value='beta'"
             " image='Beta'/></option-group></property>"
             "<property type='enumeration' style='segmented' bitMask='0x30' keyPath='lamps.selection.style'>"
             "<option-group><option image='Beta' value='0x10'/><option image='Beta' "
             "value='0x20'/></option-group></property>"
             "<property type='action' title='Reset' actionSelector='reset:' enabledKeyPath='canReset'/>"
             "<property type='action' title='More' menuItemsKeyPath='actions'/>"
             "</sliver><chooser title='C' keyPath='lamps.selection.shape'><choice title='One' value='7'/></chooser>"
             "</section></slice>");
        const QStringList ofApplication = {"Of the application: class BandedSlice",
                                           "Of the application: class SwatchEditor", "Of the application: image Beta",
                                           "Of the application: transformer Inches", "Of the application: type knob"};
        for (const char *selection : {"None", "One", "Equal", "Different"}) {
            select(selection);
            QTest::qWait(30);
            QCOMPARE(m_window->complaints(), ofApplication);
        }
        select("One");
        QTRY_COMPARE(value("watts"), "6");
        QTRY_COMPARE(value("price"), "10"); // the limits of a type tell nothing
        QTRY_COMPARE(value("kind"), "beta");
        QTRY_COMPARE(value("style"), "16");
        QTRY_COMPARE(value("shape"), "7");
        QTRY_COMPARE(value("label"), "Label 1");
        QVERIFY(editor("included") && editor("included")->isWritable());
        select("Equal");
        QTRY_COMPARE(value("label"), "Label 1");
        const QList<QPushButton *> buttons = m_window->findChildren<QPushButton *>();
        const auto reset = std::ranges::find(buttons, "Reset", &QPushButton::text);
        QVERIFY(reset != buttons.end());
        QTest::mouseClick(*reset, Qt::LeftButton);
        QTRY_VERIFY(m_window->complaints().contains("The owner was sent \"reset\""));
    }

    /// Objects and what was edited stay while the description changes, which may also change the type of a key.
    void growsWithTheDescription()
    {
        show(inSliver(selected("number", "watts") + selected("string", "label")));
        select("Equal");
        ZelTextField *watts = field("watts");
        watts->setFocus();
        watts->selectAll();
        QTest::keyClicks(watts, "42");
        QTest::keyClick(watts, Qt::Key_Return);
        QTRY_COMPARE(value("watts"), "42");
        write("Main.xml",
              inSliver(selected("number", "watts") + selected("color", "label") + selected("date", "made")));
        QTRY_VERIFY(editor("made"));
        QTRY_COMPARE(value("watts"), "42");
        QVERIFY(editor("label")->modelValue().value<QColor>().isValid());
        QCOMPARE(m_window->complaints(), QStringList());
        const auto click = [this](int row) {
            const QRect place = objects()->visualItemRect(objects()->item(row));
            QTest::mouseClick(objects()->viewport(), Qt::LeftButton, {}, place.center());
        };
        click(1);
        QTRY_COMPARE(value("watts"), "20");
        click(2);
        QTRY_COMPARE(value("watts"), "42");
        QTest::keyClick(m_window.get(), Qt::Key_Z, Qt::ControlModifier);
        QTRY_COMPARE(value("watts"), "10");
        write("Main.xml", inSliver(selected("strin", "label") + "<property type='number' minium='3'/>"));
        QTRY_VERIFY(m_window->complaints().join(u'\n').contains("did you mean \"minimum\"?"));
    }

    /// Descriptions are tried with the classes and values of the application, where there are files of them.
    void takesTypesAndData()
    {
        PreviewWindow::Options options;
        QVERIFY(options.model.types.read(ZEL_METATYPES).isNull());
        options.model.owner = "Room";
        options.model.selections = {{"lamps", {"Lamp"}}};
        options.model.data = QJsonObject{
            {"lamps", QJsonArray{QJsonObject{{"label", "Ada"}, {"tint", "#ff0000"}, {"watts", 40}}, QJsonObject{}}}};
        show(inSliver(selected("string", "label") + selected("number", "watts") + selected("color", "tint") +
                      selected("number", "serial") + selected("enumeration", "kind", "defaultValue='Desk'") +
                      selected("string", "nobody")),
             options);
        QCOMPARE(objects()->count(), 2);
        select("One");
        QTRY_COMPARE(value("label"), "Ada");
        QTRY_COMPARE(value("watts"), "40");
        QCOMPARE(editor("tint")->modelValue(), QVariant(QColor(Qt::red)));
        const QVariant kind = editor("kind")->modelValue();
        QCOMPARE(QMetaEnum(kind.metaType().metaObject()->enumerator(0)).valueToKey(kind.toInt()), "Desk");
        QVERIFY(editor("label")->isWritable() && !editor("serial")->isWritable());
        QTRY_VERIFY(m_window->complaints().join(u'\n').contains("nobody"));
        ZelTextField *watts = field("watts");
        watts->setFocus();
        watts->selectAll();
        QTest::keyClicks(watts, "1.5"); // an int
        QTest::keyClick(watts, Qt::Key_Return);
        QTRY_COMPARE(value("watts"), "40");
        QTest::keyClick(watts, Qt::Key_Escape);
    }

    /// Objects of every class that is selected, be it named or only told apart by conditions.
    void inventsObjectsOfSeveralClasses()
    {
        const QByteArray text =
            "<slice><section visibleKeyPath='lamps.selection' visibleValueTransformer='ZelIsKind(Lamp)'><sliver>" +
            selected("number", "watts") +
            "</sliver></section><section visibleKeyPath='lamps.selection' visibleValueTransformer='ZelIsKind(Star)'>"
            "<sliver>" +
            selected("flags", "edges") + selected("margins", "gap") + "</sliver></section></slice>";
        for (const bool hasTypes : {true, false}) {
            PreviewWindow::Options options;
            QVERIFY(options.model.types.read(hasTypes ? ZEL_METATYPES : "none").isNull() == hasTypes);
            options.model.selections = {{"lamps", {"Lamp", "Star"}}};
            show(text, options);
            QCOMPARE(objects()->count(), 8);
            QCOMPARE(objects()->item(6)->text(), "Star 3, equal to 1");
            const auto shows = [this](int section) {
                return panel()->findChildren<ZelInspectorSection *>().at(section)->isVisible();
            };
            for (const int row : {0, 4}) {
                const QRect place = objects()->visualItemRect(objects()->item(row));
                QTest::mouseClick(objects()->viewport(), Qt::LeftButton, {}, place.center());
                QTRY_VERIFY(shows(0) == (row == 0) && shows(1) == (row == 4));
            }
            QVERIFY(!m_window->complaints().join(u'\n').contains("Of the application"));
            QVERIFY(!hasTypes || value("edges") == "1");
            m_window.reset();
        }
        PreviewWindow::Options options;
        QVERIFY(options.model.types.read(ZEL_METATYPES).isNull());
        options.model.selections = {{"lamps", {"Lamp", "Star"}}};
        show(QByteArray(text).replace("ZelIsKind(Lamp)", "ZelIsKind(Part)"), options); // the base of both
        QTRY_VERIFY(panel()->findChildren<ZelInspectorSection *>().first()->isVisible());
    }

    /// A class that a condition names while the preview runs gets objects; what was edited stays.
    void followsTheClassesOfConditions()
    {
        const auto section = [](const QByteArray &kind) -> QByteArray {
            return "<section visibleKeyPath='lamps.selection' visibleValueTransformer='ZelIsKind(" + kind +
                   ")'><sliver>" + selected("number", kind.toLower()) + selected("string", "shade.label") +
                   "</sliver></section>";
        };
        show("<slice>" + section("Lamp") + "</slice>");
        select("One");
        ZelTextField *field = this->field("lamp");
        field->setFocus();
        field->selectAll();
        QTest::keyClicks(field, "42");
        QTest::keyClick(field, Qt::Key_Return);
        write("Main.xml", "<slice>" + section("Star") + section("Lamp") + "</slice>");
        QTRY_COMPARE(objects()->count(), 8);
        QTRY_VERIFY(editor("star"));
        const auto shows = [this](const char *key) { return editor(key)->view()->isVisible(); };
        QVERIFY(shows("star") && !shows("lamp")); // the first row is selected as before
        QTRY_COMPARE(value("star"), "10");
        QTRY_COMPARE(value("label"), "Label 1");
        const QRect place = objects()->visualItemRect(objects()->item(4));
        QTest::mouseClick(objects()->viewport(), Qt::LeftButton, {}, place.center());
        QTRY_VERIFY(!shows("star") && shows("lamp"));
        QTRY_COMPARE(value("lamp"), "42");
        QCOMPARE(m_window->complaints(), QStringList());
    }

    void showsLooksAndLanguages()
    {
        PreviewWindow::Options options;
        options.isDark = options.isRightToLeft = true;
        options.language = 1;
        options.textSize = 200;
        options.width = 500;
        const int usual = QFontInfo(QApplication::font()).pixelSize();
        show("<slice><section title='Notes'><sliver/></section></slice>", options);
        auto *live = m_window->findChild<ZelLiveInspector *>();
        QCOMPARE(live->width(), 500);
        QVERIFY(live->palette().color(QPalette::Window).lightness() < 100);
        QCOMPARE(live->layoutDirection(), Qt::RightToLeft);
        QVERIFY(QFontInfo(live->font()).pixelSize() >= 2 * usual - 1);
        QCOMPARE(panel()->findChild<ZelInspectorSection *>()->title(), "Ñötéš~~~");
        auto *languages = m_window->findChild<QToolBar *>()->findChildren<QComboBox *>().at(1);
        languages->setCurrentIndex(0);
        QTRY_COMPARE(panel()->findChild<ZelInspectorSection *>()->title(), "Notes");
        m_window.reset();
        QCOMPARE(QFontInfo(QApplication::font()).pixelSize(), usual);
    }

    void takesPictures()
    {
        const auto zel = [this](const QStringList &arguments) {
            QProcess process;
            process.setWorkingDirectory(m_folder->path());
            process.start(ZEL_PROGRAM, QStringList("preview") + arguments);
            return process.waitForFinished(60000) ? process.exitCode() : -1;
        };
        write("Main.xml", inSliver(selected("string", "label")));
        write("Wrong.xml", "<slice><section><sliver><property type='strin'/></sliver></section>");
        QCOMPARE(zel({"Main.xml", "--screenshot", "right.png", "--width", "300", "--dark"}), 0);
        const QImage right(m_folder->filePath("right.png"));
        QVERIFY(right.width() > 300 && right.height() > 300);
        QVERIFY(right.pixelColor(2, 2).lightness() < 100);
        QCOMPARE(zel({"Wrong.xml", "--screenshot", "wrong.png"}), 1);
        QVERIFY(QFile::exists(m_folder->filePath("wrong.png")));
        QCOMPARE(zel({"Main.xml", "--screenshot", "nowhere/x.png"}), 1);
        QCOMPARE(zel({"Main.xml", "--data", "Main.xml", "--screenshot", "x.png"}), 2);
        QCOMPARE(zel({"Main.xml", "--width", "9", "--screenshot", "x.png"}), 2);
        QCOMPARE(zel({"Main.xml", "Wrong.xml"}), 2);
    }
};
QTEST_MAIN(tst_Preview)
#include "tst_Preview.moc"
