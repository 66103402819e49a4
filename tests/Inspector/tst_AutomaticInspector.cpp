// SPDX-License-Identifier: MIT
#include "Inspector/Descriptions.h"
#include "Inspector/ZelAutomaticPane.h"
#include "Support/Figure.h"
#include "Support/ModelValue.h"

namespace {
/// What Figure lacks.
class Sample : public Figure
{
    Q_OBJECT
    Q_CLASSINFO("zel.title", "A <\"sample\"> & 'more'\n\x01")
    Q_CLASSINFO("zel.order", "angle, alignment,nothing")
    Q_CLASSINFO("zel.angle.unit", "°")
    Q_CLASSINFO("zel.angle.title", "Turned by")
    Q_CLASSINFO("zel.angle.toolTip", "Clockwise")
    Q_CLASSINFO("zel.angle.visibleKeyPath", "active")
    Q_CLASSINFO("zel.angle.minimum", "0")
    Q_CLASSINFO("zel.angle.maximum", "360")
    Q_CLASSINFO("zel.flags.unit", "pt")
    Q_CLASSINFO("zel.active.title", "In use")
    Q_CLASSINFO("zel.silent.hidden", "yes")
    Q_CLASSINFO("zel.inside.hidden", "no")
    Q_CLASSINFO("zel.angel.unit", "°")
    Q_CLASSINFO("zel.titel", "Sample")
    Q_CLASSINFO("zel.palette.type", "custom")
public:
    MODEL_VALUE(Qt::Alignment, alignment, Qt::AlignLeft | Qt::AlignTop)
    MODEL_VALUE(Qt::Orientation, axis, Qt::Horizontal)
    MODEL_VALUE(qlonglong, large, 9007199254740993)
    MODEL_VALUE(float, angle, 0.25F)
    MODEL_VALUE(QPoint, corner, -3, 4)
    MODEL_VALUE(QRect, area, 1, 2, 3, 4)
    MODEL_VALUE(QUuid, uuid, QUuid::createUuid())
    MODEL_VALUE(QKeySequence, shortcut, Qt::CTRL | Qt::Key_A)
    MODEL_VALUE(QPalette, palette, )
    Q_PROPERTY(bool inside MEMBER inside NOTIFY changed DESIGNABLE false)
    Q_PROPERTY(bool within MEMBER inside NOTIFY changed DESIGNABLE false)
    Q_PROPERTY(double height READ height CONSTANT)
    bool inside = false;
};

/// "title: type (attributes that matter)" of every editor in the description.
QStringList rowsOf(const ZelInspectorDescription &description)
{
    QStringList rows;
    const ZelInspectorConfiguration root(ZelXmlReader().readData(description.xml()));
    for (const auto &section : root.configurations()) {
        rows += section.stringValueNamed(u"title") + u':';
        for (const auto &sliver : section.configurations()) {
            for (const auto &property : sliver.configurations()) {
                const QString key = property.stringValueNamed(u"keyPath").section('.', -1);
                rows += key + u' ' + sliver.stringValueNamed(u"title", property.stringValueNamed(u"title")) + u' ' +
                        property.stringValueNamed(u"type");
            }
        }
    }
    return rows;
}

QStringList titlesOf(const ZelAutomaticPane &pane)
{
    QStringList titles;
    for (const ZelInspector *box : pane.inspectors())
        titles += box->title();
    return titles;
}
} // namespace

class tst_AutomaticInspector : public QObject
{
    Q_OBJECT
    using Slice = std::unique_ptr<ZelInspectorSlice>;
    Slice slice(const ZelInspectorDescription &description)
    {
        ZelDeclarativeInspectorGenerator generator;
        generator.setOwner(&m_owner);
        generator.setDescription(description);
        return Slice(generator.createSlice());
    }

    Descriptions m_files;
    EditorOwner m_owner;

private Q_SLOTS:
    void descriptionsInMemory()
    {
        m_files.write("Name.xml", "<slice title='Name'><property type='string'/></slice>");
        const auto made = slice({inSection("<sliver file='Name.xml'/>"), "Lamp"});
        QCOMPARE(made->sections().first()->sliversAndChoosers().first()->title(), "Name");
        QCOMPARE(made->place().file, "Lamp");
        Reports reports;
        for (const QByteArray &text : {inSection("<sliver file='Nope.xml' titel='x'/>"), QByteArray("<slice>\n<x>"),
                                       QByteArray("<pane/>"), inSection("<sliver file='Round.xml'/>")}) {
            m_files.write("Round.xml", "<slice><sliver file='Round.xml'/></slice>");
            reports.collect([&] { slice({text, "Lamp"}); });
        }
        QCOMPARE(reports.messages.size(), 5);
        QCOMPARE(reports.messages.at(0),
                 "WARNING: file=\"Nope.xml\" is no resource of the application (Lamp:3:1, <sliver>)");
        QCOMPARE(reports.messages.at(2),
                 "Unable to read description Lamp: Premature end of document. <x> of line 2 is open. (Lamp:2:4, <x>)");
        QCOMPARE(reports.messages.at(3), "Expected slice element: pane (Lamp:1:1, <pane>)");
    }

    void titlesOfRowsAreLocalizedForAWholeFile()
    {
        const auto former = ZelSetLocalizationFunction([](const QString &key) { return u"de " + key; });
        const auto restore = qScopeGuard([&] { ZelSetLocalizationFunction(former); });
        m_files.write("Row.xml", "<slice title='C'/>");
        m_files.write("LocalizedRow.xml", "<slice title='C' localized='yes'/>");
        const QByteArray rows = "<sliver title='A'/><chooser title='B'><choice/></chooser><sliver file='Row.xml'/>"
                                "<sliver file='LocalizedRow.xml'/><sliver title='D' file='LocalizedRow.xml'/>";
        const auto titles = [&](const QByteArray &root) {
            QStringList texts;
            const auto made = slice(QByteArray(root + "<section>" + rows + "</section></slice>"));
            for (const auto *row : made->sections().first()->sliversAndChoosers())
                texts += row->title();
            return texts.join(',');
        };
        QCOMPARE(titles("<slice>"), "A,B,C,de C,D");
        QCOMPARE(titles("<slice localized='yes'>"), "de A,de B,C,de C,de D");
    }

    void classesAreDescribed()
    {
        Reports reports;
        const auto description = ZelInspectorDescription::forMetaObject(&Sample::staticMetaObject, {.keyPath = "a.b"});
        ZelInspectorDescription::forMetaObject(&Sample::staticMetaObject);
        QCOMPARE(reports.messages.join('\n'),
                 "WARNING: Q_CLASSINFO \"zel.angel.unit\" of Sample: there is no property \"angel\", did you mean "
                 "\"angle\"?\nWARNING: Q_CLASSINFO \"zel.titel\" of Sample: there is no \"titel\" of a class, did you "
                 "mean \"title\"?\nWARNING: Q_CLASSINFO \"zel.order\" of Sample: the class declares no property "
                 "\"nothing\"");
        const QString expected =
            "Object:|objectName Object Name string|Person:|name Name string|height Height number"
            "|flags Flags number|active In use boolean|frame Frame frame|nameLength Name Length number"
            "|role Role enumeration|tags Tags custom|Figure:|fill Fill color|stroke Stroke color"
            "|rich Rich color|day Day date|time Time date|hour Hour string|pattern Pattern string"
            "|address Address string|place Place point|size Size size|font Font font|text Text string"
            "|byte Byte number|A <\"sample\"> & 'more'\n:|angle Turned by number"
            "|alignment Alignment boolean|axis Axis enumeration|large Large number|corner Corner point"
            "|area Area frame|uuid Uuid string|shortcut Shortcut string|palette Palette custom"
            "|inside Inside boolean";
        QStringList rows = rowsOf(description);
        QCOMPARE(rows.removeAll("alignment Alignment boolean"), 9); // one for each flag of a single bit
        rows.insert(rows.indexOf("angle Turned by number") + 1, "alignment Alignment boolean");
        QCOMPARE(rows.join(u'|'), expected);
        QCOMPARE(description.propertiesWithoutEditor(), QStringList({"note (QVariant)", "friendOf (Person*)"}));
        const QByteArray &xml = description.xml();
        QVERIFY(xml.contains("<sliver title=\"Turned by\" toolTip=\"Clockwise\" visibleKeyPath=\"a.b.active\">"));
        for (const char *part : {"formatUnit=\"°\"", "formatUnit=\" pt\"", "increment=\"2\"", "keyPath=\"a.b.role\"",
                                 "<option title=\"Admin\" value=\"2\"/>", "bits=\"0x80\""})
            QVERIFY2(xml.contains(part), part);
        const ZelInspectorDescription own = ZelInspectorDescription::forMetaObject(
            &Sample::staticMetaObject, {.keyPath = "", .declaredBy = &Person::staticMetaObject});
        QCOMPARE(own.properties().first() + own.properties().last() + own.name(), "nametagsPerson");
        QVERIFY(own.xml().contains("keyPath=\"name\""));
        using Titles = QList<std::pair<const char *, const char *>>;
        for (const auto &[name, title] : Titles{{"lineWidth", "Line Width"},
                                                {"zel::URLField", "URL Field"},
                                                {"line_width", "Line Width"},
                                                {"x", "X"},
                                                {"HTML", "HTML"},
                                                {"m_x1Offset", "M X1 Offset"},
                                                {"font2D", "Font2D"},
                                                {"_", ""}})
            QCOMPARE(ZelInspectorDescription::titleForName(name), title);
    }

    /// Every editor is one for its property's type: it takes over another object's value as it is, and undo brings each
    /// object's own back.
    void describedEditorsEdit()
    {
        Sample one;
        Sample two;
        Sample source;
        source.setName("Source");
        source.setFlags(-5);
        source.alignment = Qt::AlignRight | Qt::AlignBottom;
        source.large = -9007199254740993;
        source.axis = Qt::Vertical;
        source.hour = QTime(1, 2, 3, 4);
        source.time = QDateTime(QDate(2020, 1, 2), QTime(3, 4));
        source.angle = 0.1F;
        source.area = QRect(-1, -2, 30, 40);
        source.setRole(Person::Admin);
        source.shortcut = QKeySequence();
        source.fill = QColor(1, 2, 3, 4);
        two.large = 5;
        two.alignment = Qt::AlignHCenter;
        ZelObjectController selection;
        ZelAutomaticPane pane(&selection);
        QUndoStack stack;
        QWidget window;
        ZelWindow::attach(&window, &stack);
        auto *container = new ZelView(&window);
        container->addSubview(pane.view());
        window.show();
        selection.setSelectedObjects({&one, &two});
        QCoreApplication::processEvents();
        QSet<QString> edited;
        for (auto *editor : pane.findChildren<ZelInspectorProperty *>()) {
            const QString key = editor->keyPath().section('.', -1);
            const auto *flag = qobject_cast<ZelInspectorBooleanProperty *>(editor);
            if (!editor->keyPath().startsWith("selectionController.selection.") || !editor->isWritable() ||
                key == "palette" || (flag && key == "alignment"))
                continue;
            edited.insert(key);
            const QVariant before[] = {one.property(key.toLatin1()), two.property(key.toLatin1())};
            const QVariant value = source.property(key.toLatin1());
            QCOMPARE(editor->pasteValue(value), QString());
            for (const Sample *sample : {&one, &two})
                QVERIFY2(sample->property(key.toLatin1()) == value, qPrintable(key));
            const bool changed = before[0] != value || before[1] != value;
            QCOMPARE(stack.count(), changed ? 1 : 0);
            stack.undo();
            QVERIFY2(one.property(key.toLatin1()) == before[0] && two.property(key.toLatin1()) == before[1],
                     qPrintable(key));
            stack.clear();
        }
        QCOMPARE(edited.size(), 28);
        QVERIFY(!edited.contains("height") && !edited.contains("nameLength")); // shown, but read-only
        // A flag of both objects, by its checkbox.
        for (auto *editor : pane.findChildren<ZelInspectorBooleanProperty *>()) {
            if (editor->title() == "Align Bottom")
                editor->checkbox()->click();
        }
        QCOMPARE(one.alignment, Qt::AlignLeft | Qt::AlignTop | Qt::AlignBottom);
        QCOMPARE(two.alignment, Qt::AlignHCenter | Qt::AlignBottom);
        stack.undo();
        QCOMPARE(two.alignment, Qt::AlignHCenter);
    }

    void thePaneFollowsTheSelection()
    {
        Reports reports;
        auto selection = std::make_unique<ZelObjectController>();
        ZelAutomaticPane pane(selection.get());
        QWidget window;
        ZelWindow::attach(&window);
        auto *container = new ZelView(&window);
        container->addSubview(pane.view());
        window.show();
        QVERIFY(titlesOf(pane).isEmpty() && pane.note() == "No Selection" && !pane.shownClass());
        auto label = std::make_unique<QLabel>("Text");
        QPushButton button("Push");
        QCheckBox check("Check");
        Figure figure("Figure");
        const auto select = [&](const QObjectList &objects) -> QString {
            selection->setSelectedObjects(objects);
            QCoreApplication::processEvents();
            return titlesOf(pane).join(',');
        };
        QCOMPARE(select({&button}), "Object,Widget,Abstract Button,Push Button");
        QVERIFY(pane.note().isEmpty());
        ZelInspector *widgetBox = pane.inspectors().at(1);
        widgetBox->setExpanded(false);
        pane.inspectors().at(0)->setExpanded(false);
        QCOMPARE(select({&check}), "Object,Widget,Abstract Button,Check Box");
        QCOMPARE(pane.inspectors().at(1), widgetBox);
        QCOMPARE(select({&check, &button}), "Object,Widget,Abstract Button");
        QCOMPARE(select({label.get(), &button}), "Object,Widget");
        QCOMPARE(pane.shownClass(), &QWidget::staticMetaObject);
        QCOMPARE(select({label.get()}), "Object,Widget,Frame,Label");
        QVERIFY(!pane.inspectors().at(1)->isExpanded());
        label.reset();
        QCoreApplication::processEvents();
        QVERIFY(titlesOf(pane).isEmpty() && pane.note() == "No Selection");
        QCOMPARE(select({&figure, &button}), "Object");
        QCOMPARE(select({&figure}), "Object,Person,Figure");
        // What is being typed goes to the objects for which it was meant.
        for (auto *editor : pane.findChildren<ZelInspectorProperty *>()) {
            if (editor->keyPath().endsWith(".hour"))
                editor->controlsNamedByRow().value(0)->setFocus();
        }
        window.activateWindow();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(QApplication::focusWidget(), "08:15");
        select({&button});
        QCOMPARE(figure.hour, QTime(8, 15));
        QCOMPARE(button.text(), "Push");
        selection.reset();
        QCoreApplication::processEvents();
        QVERIFY(titlesOf(pane).isEmpty());
        QCOMPARE(reports.messages.join('\n'), QString());
    }
};
QTEST_MAIN(tst_AutomaticInspector)
#include "tst_AutomaticInspector.moc"
