// SPDX-License-Identifier: MIT
#include "Models.h"
#include <QTest>

namespace {
struct Outcome
{
    int status = -1;
    QString output;
    QString errors;
};

const QString g_long = "The editor writes a single key, \"shade.price\" is longer: it can show the value but not "
                       "change it. Give the object a property for it, or its part a controller of its own, as in "
                       "\"shadeController.selection.price\"; enabled=\"no\" says that it is only shown";
} // namespace

class tst_Zel : public QObject
{
    Q_OBJECT
    struct Row
    {
        QByteArray text;
        QString lines;
    };
    using Rows = QList<Row>;
    std::unique_ptr<Folder> m_folder;

    void write(const QString &name, const QByteArray &text) { m_folder->write(name, text); }

    QByteArray read(const QString &name)
    {
        QFile file(m_folder->filePath(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    Outcome run(const QString &program, const QStringList &arguments)
    {
        QProcess process;
        process.setWorkingDirectory(m_folder->path());
        process.start(program, arguments);
        if (!process.waitForFinished(60000))
            qFatal("%s does not end", qPrintable(program));
        return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
                QString::fromUtf8(process.readAllStandardOutput()), QString::fromUtf8(process.readAllStandardError())};
    }

    Outcome zel(const QStringList &arguments) { return run(QStringLiteral(ZEL_PROGRAM), arguments); }

    /// Checks each text as a file of its own, with all lines that are to come for it.
    void checkRows(const Rows &rows, const QStringList &options)
    {
        QStringList files;
        QString expected;
        for (const auto &[text, lines] : rows) {
            files.append(QStringLiteral("%1.xml").arg(files.size(), 2, 10, QLatin1Char('0')));
            write(files.last(), text);
            for (const QString &line : lines.split(u'\n', Qt::SkipEmptyParts))
                expected += files.last() + u':' + line + u'\n';
        }
        const Outcome outcome = zel(QStringList{QStringLiteral("check")} + files + options);
        const QStringList actual = outcome.output.split(u'\n');
        const QStringList wanted = expected.split(u'\n');
        for (qsizetype i = 0; i < std::max(actual.size(), wanted.size()); ++i)
            QCOMPARE(actual.value(i), wanted.value(i));
        QCOMPARE(outcome.status, 1);
    }

private Q_SLOTS:
    void init() { m_folder = std::make_unique<Folder>(); }

    void mistakesInOneFile()
    {
        const auto property = [](const QByteArray &attributes) { return inSliver("<property " + attributes + "/>"); };
        const auto options = [](const QByteArray &attributes, const QByteArray &list) {
            return inSliver("<property type='enumeration' keyPath='k'" + attributes + "><option-group>" + list +
                            "</option-group></property>");
        };
        write("Pen.png", {});
        const Rows rows{
            // What is no description
            {"", "1:1: error: Unable to read file from URL file://" + m_folder->path() + "/00.xml: The file is empty."},
            {"<slice><section></slice>",
             "1:19: error: Unable to read file from URL file://" + m_folder->path() +
                 "/01.xml: Opening and ending tag mismatch: </slice> stands there. <section> of "
                 "line 1 is open."},
            {"<property type='string' keyPath='k'/>", "1:1: error: Expected inspector element: property; the root is "
                                                      "<panes>, <pane>, <inspector>, <slice> here"},
            // Elements
            {"<panes/>", "1:1: error: No panes in the configuration"},
            {"<pane/>", "1:1: error: No inspectors in the configuration"},
            {"<pane>\n<inspector/></pane>", "2:1: error: No slice in the configuration"},
            {"<slice>\n <sektion/></slice>",
             "2:2: error: Unknown element <sektion> in <slice>, did you mean \"section\"?"},
            {"<slice>\n<sliver/></slice>",
             "2:1: error: Unknown element <sliver> in <slice>, it belongs in <section> or <choice>"},
            {"<slice><section>\n<property type='string' keyPath='k'/></section></slice>",
             "2:1: error: Unsupported element property, it belongs in <sliver>"},
            {"<slice><section>\n<slivver/></section></slice>",
             "2:1: error: Unsupported element slivver, did you mean \"sliver\"?"},
            {inSliver("<property keyPath='k'/>"), "2:1: error: Property type not given"},
            {property("type='nubmer' keyPath='k'"), "2:11: error: Type not suppored: nubmer, did you mean \"number\"?"},
            {property("type='string'"), "2:1: error: <property type=\"string\"> has no keyPath"},
            // Attributes
            {property("type='string'\n  keypath='k'"), // which is enough: nothing is said of a missing one
             "3:3: error: Unknown attribute \"keypath\" of <property type=\"string\">, did you mean \"keyPath\"?"},
            {property("title='Größe' type='number' keyPath='k' slider='liniear'"),
             "2:51: error: Unsupported value: liniear, did you mean \"linear\"?"},
            {property("type='number' keyPath='k' formatStyle='Decimals'"),
             "2:37: error: Unsupported format style: Decimals, did you mean \"decimal\"?"},
            {property("type='enumeration' keyPath='k' style='Popup'"),
             "2:42: error: Unsupported style: Popup, did you mean \"popup\"?"},
            {property("type='string' keyPath='k' enabled='on'"), "2:37: error: enabled=\"on\" is neither yes nor no"},
            {property("type='number' keyPath='k' maximum='ten'"), "2:37: error: maximum=\"ten\" is no number"},
            {property("type='number' keyPath='k' minimum='9' maximum='1'"),
             "2:37: error: The minimum 9 is above the maximum 1"},
            {property("type='number' keyPath='k' increment='0'"), "2:37: error: increment=\"0\" is not above 0"},
            {property("type='boolean' keyPath='k' bits='one'"), "2:38: error: bits=\"one\" is no integer of 64 bits"},
            {property("type='boolean' keyPath='k' bits='0xZ'"), "2:38: error: Unabled to parse hex value: 0xZ"},
            {property("type='string' keyPath='a..b'"), "2:25: error: keyPath=\"a..b\" has an empty name in its path"},
            {property("type='string' keyPath='" + QByteArray("a.").repeated(64) + "a'"),
             "2:25: error: The key path has more than 64 keys"},
            {property("type='boolean' keyPath='lamps.selection.shade.price'"), "2:26: error: " + g_long},
            {property("type='boolean' enabled='no' keyPath='shade.price'"), {}},
            {property("type='number' keyPath='k' defaultValue='ten'"),
             "2:37: error: defaultValue=\"ten\" is no double"},
            {property("type='boolean' keyPath='k' defaultValue='on'"), "2:38: error: defaultValue=\"on\" is no bool"},
            {property("type='boolean' bits='1' keyPath='k' defaultValue='0x1'"), {}},
            {property("type='action' title='x'"),
             "2:1: warning: The button does nothing: it has neither actionSelector nor menuItemsKeyPath"},
            {property("type='number' keyPath='k' slider='linear' nonNilValueTitle='x'"),
             "2:37: warning: The slider goes up to 3.4e38: it has neither maximum nor maximumKeyPath\n"
             "2:53: warning: The checkbox cannot be switched on: it has no nonNilValueKeyPath"},
            {"<panes><pane title='x'><inspector><slice/></inspector></pane>\n"
             "<pane><inspector><slice/></inspector></pane></panes>",
             "2:1: warning: The tab shows nothing: the pane has neither image nor title"},
            // Colours
            {property("type='color' keyPath='k' defaultValue='rde'"), "2:36: error: defaultValue=\"rde\" is no QColor"},
            {property("type='color' keyPath='k' defaultColor='red'"),
             "2:36: error: Unsupported color space red, did you mean \"NSCalibratedRGBColorSpace 1 0 0 1\"?"},
            {property("type='color' keyPath='k' defaultColor='NSDeviceWhiteColorSpace 1'"),
             "2:36: error: defaultColor=\"NSDeviceWhiteColorSpace 1\" has 1 components instead of 2"},
            {property("type='color' keyPath='k' defaultColor='NSNamedColorSpace Crayons Rde'"),
             "2:36: error: No color found in color list Crayons with name Rde, did you mean "
             "\"NSNamedColorSpace Crayons Red\"?"},
            {property("type='color' keyPath='k' colorList='Crayon'"),
             "2:36: error: No color list found with name Crayon, did you mean \"Crayons\"?"},
            {property("type='color' keyPath='k' colorList='Brand'"), {}},
            // Options
            {options("", "<option value='1'/>\n<option value='1'/>"),
             "3:9: error: The value \"1\" is given to several elements <option>"},
            {options(" bitMask='0x30'", "\n<option value='0x41'/>"),
             "3:9: error: value=\"0x41\" has bits outside of the bitMask 0x30"},
            {"<slice><section><chooser>\n<choice value='a'/><choice value='a'/></chooser></section></slice>",
             "2:28: error: The value \"a\" is given to several elements <choice>"},
            // What is named
            {"<slice class='Slcie'/>", "1:8: error: Missing class Slcie, did you mean \"Slice\"?"},
            {"<slice class='ZelInspectorNumberProperty'/>",
             "1:8: error: Missing class ZelInspectorNumberProperty, it is no ZelInspectorSlice"},
            {"<slice visibleKeyPath='k' visibleValueTransformer='ZelNegateBoolean'/>",
             "1:27: error: Missing value transformer for name ZelNegateBoolean, did you mean "
             "\"ZelNegateBooleanTransformerName\"?"},
            {"<slice visibleKeyPath='k' visibleValueTransformer='ZelEquals'/>",
             "1:27: error: The value transformer ZelEquals needs an argument, as in ZelEquals(3)"},
            {"<slice visibleKeyPath='k' visibleValueTransformer='ZelEquals(5)'/>", {}},
            {property("type='string' keyPath='k' valueTransformer='Centuries'"),
             "2:37: error: Missing value transformer for name Centuries, did you mean \"Centuries1\"?"},
            {options("", "\n<option image='Pne'/>"), "3:9: error: Missing image with name Pne, did you mean \"Pen\"?"},
            {options("", "<option image='Pen'/><option image='Brush' value='1'/>"), {}},
            {property("type='rating' keyPath='k' own='x'"), {}},
        };
        checkRows(rows, {"--class", "Slice", "--transformer", "Centuries1", "--image", "Brush", "--color-list", "Brand",
                         "--property-type", "rating"});
    }

    void mistakesInKeyPathsAndSelectors()
    {
        const auto property = [](const QByteArray &attributes) { return inSliver("<property " + attributes + "/>"); };
        const auto lamp = [&](const QByteArray &type, const QByteArray &path, const QByteArray &more = {}) {
            return property("type='" + type + "' keyPath='lamps.selection." + path + "' " + more);
        };
        const auto section = [](const QByteArray &path, const QByteArray &condition) -> QByteArray {
            return "<slice>\n<section visibleKeyPath='" + path + "' visibleValueTransformer='" + condition +
                   "'/></slice>";
        };
        const auto silent = QStringLiteral("warning: The property \"heat\" of the class Lamp has no NOTIFY signal: "
                                           "changes that no inspector makes are not seen");
        const Rows rows{
            {lamp("number", "wats"),
             "2:25: error: No selected object has the property \"wats\" (Lamp), did you mean \"watts\"?"},
            {lamp("number", "shade.prize"),
             "2:25: error: The class Part has no property \"prize\", did you mean \"price\"?"},
            {lamp("number", "wattsPerHour"),
             "2:25: error: No selected object has the property \"wattsPerHour\" (Lamp), did you mean \"watts\"?"},
            {property("type='string' keyPath='bset.label'"),
             "2:25: error: The class Room has no property \"bset\", did you mean \"best\"?"},
            {property("type='string' keyPath='label'"),
             "2:25: error: The class Room has no property \"label\", did you mean \"lamps.selection.label\"?"},
            {"<slice visibleKeyPath='best.tnit'/>",
             "1:8: error: The class Lamp has no property \"tnit\", did you mean \"tint\"?"},
            {lamp("string", "label.length"), "2:25: error: The class QString has no property \"length\""},
            {lamp("number", "spot.z"), "2:25: error: The class QPointF has no property \"z\""},
            {lamp("number", "spot.x"), {}},
            {lamp("number", "parts.price"), {}},
            {property("type='string' keyPath='other.selection.label'"),
             "2:25: warning: The class of the objects that \"other\" selects is not known: keys below its selection "
             "are not checked (--selection other=Class; in CMake SELECTIONS other=Class)"},
            {property("type='string' types:selection='other=Part' keyPath='other.selection.lable'"),
             "2:54: error: No selected object has the property \"lable\" (Part), did you mean \"label\"?"},
            {"<slice types:selection='other=Part,Lamp'><section><sliver>\n"
             "<property type='number' keyPath='other.selection.watts'/></sliver></section></slice>",
             {}},
            {"<slice types:selection='Part'/>",
             "1:8: error: \"Part\" does not say which classes a controller selects, as path=Class does"},
            {"<slice types:owner='Lmap'/>",
             "1:8: error: The class Lmap is not among the types, did you mean \"Lamp\"?"},
            {"<slice types:owner='Lamp'><section><sliver>\n<property type='string' keyPath='price'/>"
             "</sliver></section></slice>",
             {}},
            // Editors and types
            {lamp("number", "tint"),
             "2:25: error: An editor of the type \"number\" does not fit QColor, the type of \"lamps.selection.tint\""},
            {lamp("color", "label"), "2:24: error: An editor of the type \"color\" does not fit QString, the type of "
                                     "\"lamps.selection.label\""},
            {lamp("string", "label", "attributed='yes'"),
             "2:25: error: An editor of the type \"string\" for rich text does not fit QString, the type of "
             "\"lamps.selection.label\""},
            {lamp("number", "tint", "valueTransformer='ZelPercentValueTransformerName'"), {}},
            {lamp("font", "note"), {}},
            {lamp("number", "serial"), "2:25: error: The property \"serial\" of the class Lamp cannot be written: it "
                                       "is read-only; enabled=\"no\" "
                                       "says that it is only shown"},
            {lamp("string", "serial"),
             "2:25: error: The property \"serial\" of the class Lamp cannot be written: it is read-only; "
             "editable=\"no\" says that it is only shown"},
            {lamp("string", "serial", "editable='no'"), {}},
            {lamp("number", "heat"), "2:25: " + silent},
            {lamp("number", "watts", "nonNilValueKeyPath='best.heat'"), {}},
            {inSliver("<property type='enumeration' keyPath='lamps.selection.kind'><option-group>\n"
                      "<option value='Desk'/><option value='Flor'/></option-group></property>"),
             "3:31: error: The value \"Flor\" of an option is no integer and no key of Lamp::Kind, did you mean "
             "\"Floor\"?"},
            {"<slice><section><chooser keyPath='lamps.selection.watts'>\n<choice "
             "value='x'/></chooser></section></slice>",
             "2:9: error: The value \"x\" of an option is no integer"},
            {"<slice visibleKeyPath='best.kind' visibleValueTransformer='ZelIsOneOf(Desk, Flor)'/>",
             "1:35: error: ZelIsOneOf(Desk, Flor) makes no sense for a value of Lamp::Kind, did you mean \"Floor\"?"},
            {lamp("flags", "kind"),
             "2:24: error: Lamp::Kind has one key at a time, several together are none (Q_ENUM): type=\"enumeration\" "
             "chooses it. Flags are declared with Q_FLAG"},
            {inSliver(
                 "<property type='enumeration'\nkeyPath='lamps.selection.kind'><option-group><option value='Desk'/>"
                 "<option value='Lamp::Floor' hidden='yes'/></option-group></property>"),
             "3:1: warning: No choice for Ceiling of Lamp::Kind: such a value looks like no selection; a choice with "
             "hidden=\"yes\" shows it"},
            {lamp("boolean", "watts"), "2:26: warning: The checkbox writes 1 and 0 into \"watts\", which is of the "
                                       "type int; with bits=\"0x1\", it "
                                       "changes a single bit"},
            {lamp("number", "label"),
             "2:25: warning: The numbers are written as texts into \"label\", which is of the type QString"},
            // Conditions
            {section("best.watts", "ZelEquals(two)"), "2:38: error: ZelEquals(two) makes no sense for a value of int"},
            {section("best.on", "ZelNotEquals(maybe)"),
             "2:35: error: ZelNotEquals(maybe) makes no sense for a value of bool"},
            {section("best.label", "ZelIsGreater(2)"),
             "2:38: error: ZelIsGreater(2) makes no sense for a value of QString"},
            {section("best.kind", "ZelIsKind(Lamp)"),
             "2:37: error: ZelIsKind(Lamp) makes no sense for a value of Lamp::Kind"},
            {section("best.kind", "ZelEquals(Wall)"),
             "2:37: error: ZelEquals(Wall) makes no sense for a value of Lamp::Kind; there are Desk, Floor, Ceiling"},
            {section("best.kind", "ZelIsGreater(0)"), {}},
            {section("best.watts", "ZelIsOneOf(40, 60)"), {}},
            {section("best.tint", "ZelEquals(#ff0000)"), {}},
            {section("best.note", "ZelIsGreater(2)"), {}},
            // Selectors
            {property("type='action' actionSelector='claen:'"),
             "2:25: error: Room has no slot or invokable method \"claen\", did you mean \"clean\"?"},
            {property("type='action' actionSelector='hide'"),
             "2:25: error: Room has no slot or invokable method \"hide\": it is not public"},
            {property("type='action' actionSelector='changed'"),
             "2:25: error: Room has no slot or invokable method \"changed\": it is a signal"},
            {property("type='action' actionSelector='paint'"),
             "2:25: error: Room has no slot or invokable method \"paint\": it takes more than the sender, a QObject *"},
            {property("type='action' actionSelector='deleteLater'"),
             "2:25: error: Room has no slot or invokable method \"deleteLater\""},
            {property("type='action' actionSelector='look:'"), {}},
            // Keys that no class declares
            {lamp("number", "age"), {}},
        };
        checkRows(rows,
                  {"--types", ZEL_METATYPES, "--owner", "Room", "--selection", "lamps=Lamp", "--key", "Lamp.age"});
    }

    /// What somebody writes who knows other systems, or has read half of the manual.
    void mistakesOfNewcomers()
    {
        QVERIFY(QDir(m_folder->path()).mkdir("data"));
        write("Rows.xml", "<slice/>");
        write("data/panel-2.xml", "<slice/>");
        write("data/pen.png", {});
        write("App.qrc", "<RCC><qresource prefix='/panels'><file alias='Panel.xml'>data/panel-2.xml</file>"
                         "<file alias='Pen.png'>data/pen.png</file></qresource></RCC>");
        const auto property = [](const QByteArray &attributes) { return inSliver("<property " + attributes + "/>"); };
        const auto lamp = [&](const QByteArray &type, const QByteArray &path, const QByteArray &more = {}) {
            return property("type='" + type + "' keyPath='lamps.selection." + path + "' " + more);
        };
        const auto section = [](const QByteArray &attributes) -> QByteArray {
            return "<slice>\n<section " + attributes + "/></slice>";
        };
        const auto unknown = [](const char *name, const char *type, const char *meant) {
            return QStringLiteral("error: Unknown attribute \"%1\" of <property type=\"%2\">, %3")
                .arg(name, type, meant);
        };
        const Rows rows{
            // Keys
            {property("type='string' keyPath='lamps.label'"), "2:25: error: \"lamps\" is a controller, it is its "
                                                              "selection that has the property \"label\", did you mean "
                                                              "\"lamps.selection.label\"?"},
            {lamp("boolean", "isOn"),
             "2:26: error: No selected object has the property \"isOn\" (Lamp), did you mean \"on\"?"},
            {property("type='string' keyPath='titel'"), "2:25: error: The class Room has no property \"titel\""},
            {lamp("string", ""), "2:25: error: keyPath=\"lamps.selection.\" has an empty name in its path"},
            {section("visibleKeyPath='!best.on'"),
             "2:10: error: visibleKeyPath=\"!best.on\" is no key path; a transformer turns a condition around: "
             "ZelNegateBooleanTransformerName"},
            {section("visibleKeyPath='best.on' visibleValueTransformer='ZelIsNotEmpty'"),
             "2:35: error: Missing value transformer for name ZelIsNotEmpty, did you mean "
             "\"ZelIsNotEmptyTransformerName\"?"},
            {section("visibleKeyPath='best.kind' visibleValueTransformer='ZelEquals=Desk'"),
             "2:37: error: Missing value transformer for name ZelEquals=Desk, did you mean \"ZelEquals(Desk)\"?"},
            {section("visibleKeyPath='best' visibleValueTransformer='ZelIsKind(Lmap)'"),
             "2:32: warning: The class Lmap is not among the types, did you mean \"Lamp\"?"},
            // Attributes
            {lamp("number", "watts", "min='1'"), "2:57: " + unknown("min", "number", "did you mean \"minimum\"?")},
            {lamp("string", "label", "label='x'"), "2:57: " + unknown("label", "string", "did you mean \"title\"?")},
            {lamp("string", "label", "readOnly='yes'"),
             "2:57: " + unknown("readOnly", "string", "did you mean \"editable\"?")},
            {lamp("string", "label", "slider='linear'"),
             "2:57: " + unknown("slider", "string", "it belongs in <property type=\"number\">")},
            {lamp("string", "label", "visibleKeyPath='best.on'"),
             "2:57: " + unknown("visibleKeyPath", "string",
                                "it belongs in <inspector> or <slice> or <section> or <chooser> or <sliver>")},
            {"<slice><section>\n<sliver keyPath='best.label'/></section></slice>",
             "2:9: error: Unknown attribute \"keyPath\" of <sliver>, it belongs in <chooser> or <property>"},
            {lamp("string", "label", "enabledValueTransformer='ZelIsApplicable'"),
             "2:57: warning: enabledValueTransformer has no effect without enabledKeyPath"},
            {lamp("string", "label", "enabled='no' enabledKeyPath='best.on'"),
             "2:57: warning: enabled has no effect beside enabledKeyPath"},
            {inSliver("<property type='enumeration' style='segmented' keyPath='lamps.selection.kind'><option-group>\n"
                      "<option value='Desk'/></option-group></property>"),
             "2:48: warning: No choice for Floor, Ceiling of Lamp::Kind: such a value looks like no selection; a "
             "choice with hidden=\"yes\" shows it\n3:1: warning: The segment shows nothing: the option has no image"},
            {"<slice types:selections='lamps=Lamp'/>",
             "1:8: error: Unknown attribute \"types:selections\", did you mean \"types:selection\"?"},
            // Values
            {lamp("number", "watts", "slider='yes'"),
             "2:57: error: Unsupported value: yes; there are none, circular, linear"},
            {lamp("color", "tint", "defaultColor='#ff8000'"),
             "2:55: error: Unsupported color space #ff8000, did you mean \"NSCalibratedRGBColorSpace 1 0.502 0 1\"?"},
            {lamp("date", "note", "defaultValue='6.5.2024'"),
             "2:54: error: defaultValue=\"6.5.2024\" is no date as in 2024-05-06"},
            {lamp("enumeration", "kind", "defaultValue='Flor'"),
             "2:61: error: defaultValue=\"Flor\" is no key of Lamp::Kind, did you mean \"Floor\"?"},
            {lamp("enumeration", "label"), "2:30: error: The editor has no options, and QString, the type of "
                                           "\"lamps.selection.label\", has no keys (Q_ENUM)"},
            {property("type='action' actionSelector='clean()'"),
             "2:25: error: Room has no slot or invokable method \"clean()\", did you mean \"clean\"?"},
            {"<slice title='Lamp & Co'/>", "1:21: error: Unable to read file from URL file://" + m_folder->path() +
                                               "/24.xml: The document is not well-formed. A plain ampersand is "
                                               "written as &amp;."},
            // Types and classes
            {lamp("bool", "on"), "2:11: error: Type not suppored: bool, did you mean \"boolean\"?"},
            {lamp("qqq", "on"), "2:11: error: Type not suppored: qqq; there are boolean, action, number, string, "
                                "enumeration, flags, color, date, font, resource, frame, size, point, margins, line, "
                                "vector, custom; one of the application's is named by --property-type, in CMake by "
                                "PROPERTY_TYPES"},
            {lamp("ZelInspectorArrayProperty", "parts"),
             "2:11: error: Type not suppored: ZelInspectorArrayProperty; a class is named by type=\"custom\" "
             "class=\"ZelInspectorArrayProperty\""},
            {lamp("custom", "label", "class='ZelInspectorArrayProperty'"),
             "2:25: error: An editor of the type \"ZelInspectorArrayProperty\" does not fit QString, the type of "
             "\"lamps.selection.label\""},
            {lamp("custom", "label"), "2:1: warning: The editor shows nothing: it has no class"},
            {lamp("resource", "label"), "2:1: warning: The editor offers no names: it has no resourcesKeyPath"},
            // Elements
            {"<tabs/>", "1:1: error: Expected inspector element: tabs, did you mean \"panes\"?"},
            {"<slice><section>\n<row/></section></slice>",
             "2:1: error: Unsupported element row, did you mean \"sliver\"?"},
            // Files
            {section("file=':/Row'"),
             "2:10: error: file=\":/Row\" is no resource of the application, did you mean \"Rows.xml\"?"},
            {section("file='Panels.xml'"),
             "2:10: error: file=\"Panels.xml\" is no resource of the application, did you mean \"Panel.xml\"?"},
            {"<pane\nimage=':/panels/Pen.png'><inspector><slice/></inspector></pane>",
             "2:1: error: Missing image with name :/panels/Pen.png, did you mean \"Pen\"?"},
            {"<pane image='Pen'><inspector><slice><section file='Panel.xml'/><section file='panels/Panel.xml'/>"
             "</slice></inspector></pane>",
             {}},
        };
        checkRows(rows,
                  {"--types", ZEL_METATYPES, "--owner", "Room", "--selection", "lamps=Lamp", "--resources", "App.qrc"});
        write("Broken.qrc", "<RCC>");
        QVERIFY(zel({"check", "Rows.xml", "--resources", "Broken.qrc"})
                    .output.startsWith("Broken.qrc: error: The resources cannot be read: "));
    }

    void includedFilesAreCheckedWhereTheyAreIncluded()
    {
        const QString folder = m_folder->path();
        QVERIFY(QDir(folder).mkdir(QStringLiteral("shared")));
        write("Main.xml", "<pane><inspector><slice>\n<section file='Rows.xml'/>\n<section file='Rows.xml'/>\n"
                          "<section file='Gone.xml'/>\n<section file='../Main.xml'/>\n"
                          "<section title='x' file='Pane.xml'/></slice>\n"
                          "<slice file='Loop.xml'/></inspector></pane>");
        write("Rows.xml", "<slice fullWidth='yes'>\n<sliver><property type='string' keyPath='k' x='1'/>"
                          "</sliver></slice>");
        write("Pane.xml", "\n<pane/>");
        write("shared/Loop.xml", "<slice><section>\n<sliver/></section>\n<section file='Loop.xml'/></slice>");
        const Outcome outcome = zel({"check", "Rows.xml", "Main.xml", "--resources", "shared"});
        QCOMPARE(outcome.output,
                 QStringLiteral("Rows.xml:2:45: error: Unknown attribute \"x\" of <property type=\"string\">\n"
                                "Main.xml:4:10: error: file=\"Gone.xml\" is no resource of the application\n"
                                "Main.xml:5:10: error: file=\"../Main.xml\" is no resource of the application\n"
                                "Pane.xml:2:1: error: Expected inspector element: pane; the root is <slice> here\n"
                                "shared/Loop.xml:3:10: error: Unable to read file from URL file://%1/shared/Loop.xml: "
                                "The file includes itself: Loop.xml > Loop.xml\n")
                     .arg(folder));
        QCOMPARE(outcome.status, 1);
        const Outcome complete = zel({"check", "Rows.xml", "Main.xml", "--resources", "shared", "--complete"});
        QCOMPARE(complete.output.split(u'\n').filter(QStringLiteral("not among")),
                 QStringList("Main.xml:6:20: error: The file \"Pane.xml\" is there, but not among the files that are "
                             "given"));
    }

    /// Names begin at the resources of the program, also in a file that lies in a subfolder of them.
    void includedFilesAreFoundAsTheProgramFindsThem()
    {
        QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("parts")));
        write("Main.xml", "<pane title='Main'><inspector><slice file='parts/Size.xml'/></inspector></pane>");
        write("parts/Size.xml", "<slice>\n<section file='parts/Row.xml'/>\n<section file='Row.xml'/></slice>");
        write("parts/Row.xml", "<slice><sliver><property type='enumeration' style='segmented' keyPath='k'>"
                               "<option-group>\n<option image='Pen' value='1'/>\n"
                               "<option image='parts/Pen' value='2'/></option-group></property></sliver></slice>");
        write("parts/Pen.png", {});
        const QString row =
            "parts/Size.xml:3:10: error: file=\"Row.xml\" is no resource of the application, did you mean "
            "\"parts/Row.xml\"?\n";
        const QString pen = "parts/Row.xml:2:9: error: Missing image with name Pen, did you mean \"parts/Pen\"?\n";
        const QStringList all{"check", "Main.xml", "parts/Size.xml", "parts/Row.xml"};
        QCOMPARE(zel({"check", "Main.xml"}).output, pen + row);
        QCOMPARE(zel(all).output, pen + row);
        // Of an image that nobody names, the program built of these files has nothing.
        const QString none = "; one of the application's is named by --image, in CMake by IMAGE_FILES or IMAGES\n";
        const QString noPen = "parts/Row.xml:2:9: error: Missing image with name Pen" + none +
                              "parts/Row.xml:3:9: error: Missing image with name parts/Pen" + none;
        QCOMPARE(zel(all + QStringList("--complete")).output, noPen + row);
    }

    void formatsAndExitStatus()
    {
        write("Good.xml", "<slice/>");
        write("Bad.xml", "<slice>\n<section tilte='50% of, all'/></slice>");
        write("Warned.xml", "<slice types:owner='Room'><section><sliver><property type='string' "
                            "keyPath='other.selection.a'/></sliver></section></slice>");
        write("broken.json", "{");
        QCOMPARE(zel({"check", "Good.xml"}).output, QString());
        QCOMPARE(zel({"check", "Good.xml"}).status, 0);
        QCOMPARE(zel({"check", "Bad.xml", "--format", "github"}).output,
                 "::error file=Bad.xml,line=2,col=10::Unknown attribute \"tilte\" of <section>, did you mean "
                 "\"title\"?\n");
        const Outcome json = zel({"check", "Bad.xml", "--format=json"});
        QCOMPARE(json.status, 1);
        QCOMPARE(QJsonDocument::fromJson(json.output.toUtf8()).array().first().toObject(),
                 (QJsonObject{{"file", "Bad.xml"},
                              {"line", 2},
                              {"column", 10},
                              {"severity", "error"},
                              {"element", "section"},
                              {"attribute", "tilte"},
                              {"suggestion", "title"},
                              {"message", "Unknown attribute \"tilte\" of <section>, did you mean \"title\"?"}}));
        QCOMPARE(zel({"check", "Warned.xml", "--types", ZEL_METATYPES}).status, 0);
        QCOMPARE(zel({"check", "Warned.xml", "--types", ZEL_METATYPES, "--werror"}).status, 1);
        QVERIFY(zel({"check", "Good.xml", "--types", "broken.json"}).output.startsWith("broken.json: error: "));
        for (const QStringList &wrong : {QStringList{},
                                         {"chekc"},
                                         {"check"},
                                         {"check", "Good.xml", "--tpyes", "x"},
                                         {"schema", "Good.xml"},
                                         {"check", "Good.xml", "--format", "xml"},
                                         {"check", "Good.xml", "--selection", "lamps"},
                                         {"schema", "--rng", "--xsd"},
                                         {"strings", "Good.xml"}})
            QCOMPARE(zel(wrong).status, 2);
    }

    void theProgramDescribesItself()
    {
        const QString help = zel({"--help"}).output;
        const QString page = zel({"manual", "--man"}).output;
        for (const char *command : {"check", "describe", "schema", "strings"}) {
            QVERIFY(help.contains(QLatin1String(command)));
            QVERIFY(zel({QLatin1String(command), "--help"}).output.startsWith("Usage: zel "));
        }
        QVERIFY(page.contains("\\-\\-selection PATH=CLASS"));
        write("zel.bash", zel({"manual", "--completion"}).output.toUtf8());
        const auto completed = [&](const QString &words) {
            const QString script =
                QStringLiteral(". ./zel.bash; COMP_WORDS=(zel %1); COMP_CWORD=$((${#COMP_WORDS[@]} - 1));"
                               " _zel; echo ${COMPREPLY[@]}");
            return run(QStringLiteral("bash"), {"-c", script.arg(words)}).output.trimmed();
        };
        QCOMPARE(completed("che"), "check");
        QCOMPARE(completed("check --sel"), "--selection");
        QCOMPARE(completed("check --format j"), "json");
        QCOMPARE(completed("describe --root p"), "pane");
        QCOMPARE(completed("check zel.b"), "zel.bash");
    }

    void classesAreDescribed()
    {
        const QStringList star{"describe", "Star", "--types", ZEL_METATYPES};
        const Outcome described = zel(star);
        const auto editor = [](const char *type, const char *key, const char *title, const char *more = "/>") {
            return QStringLiteral(
                       "<property type=\"%1 keyPath=\"selectionController.selection.%2\" actionName=\"Change "
                       "%3\"%4")
                .arg(type, key, title, more);
        };
        const QStringList expected{
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>",
            "<slice xmlns:types=\"urn:zel:types\" types:selection=\"selectionController=Star\" localized=\"yes\" "
            "editsMultipleValues=\"yes\">",
            "<section title=\"Object\">",
            editor("string\"", "objectName", "Object Name"),
            "<section title=\"Part\">",
            editor("string\"", "label", "Label", " editable=\"no\"/>"),
            "<section title=\"A star\">",
            editor("number\"", "tips", "Tips", " formatUnit=\" pt\"/>"),
            editor("flags\"", "edges", "Edges"),
            editor("enumeration\"", "axis", "Axis", ">"),
            "<option title=\"Horizontal\" value=\"1\"/>",
            "<option title=\"Vertical\" value=\"2\"/>",
            editor("enumeration\"", "kind", "Kind", ">"),
            "<option title=\"Desk\" value=\"Desk\"/>",
            "<option title=\"Floor\" value=\"Floor\"/>",
            "<option title=\"Ceiling\" value=\"Ceiling\"/>",
            editor("number\" formatStyle=\"decimal\" increment=\"0.1\"", "heat", "Heat", " types:keys=\"Star.heat\"/>"),
        };
        QStringList lines;
        for (const QString &line : described.output.split(u'\n')) {
            static const QRegularExpression frame("^( *</.*| *<sliver.*| *<option-group>|)$");
            if (!frame.match(line).hasMatch())
                lines.append(line.trimmed());
        }
        for (qsizetype i = 0; i < std::max(lines.size(), expected.size()); ++i)
            QCOMPARE(lines.value(i), expected.value(i));
        QCOMPARE(described.errors,
                 "zel: WARNING: Q_CLASSINFO \"zel.tipz.unit\" of Star: there is no property \"tipz\", did you mean "
                 "\"tips\"?\nzel: There is no editor for: note (QVariant)\nzel: No NOTIFY signal, so that changes "
                 "that no inspector makes are not seen: Star.heat\n");
        // What is described passes the check with the same types, wherever the objects are.
        const QStringList lamp{"describe", "Lamp", "--types", ZEL_METATYPES};
        for (const QStringList &command :
             {star, star + QStringList{"--key-path", ""}, lamp + QStringList{"--owner", "Room", "--key-path", "best"},
              star + QStringList{"--root", "pane", "--owner", "Room", "--key-path", "lamps.selection"}}) {
            QCOMPARE(zel(command + QStringList{"-o", "Star.xml"}).status, 0);
            const Outcome checked = zel({"check", "Star.xml", "--werror", "--types", ZEL_METATYPES});
            QCOMPARE(checked.output, QString());
            QCOMPARE(checked.status, 0);
        }
        const Outcome unknown = zel({"describe", "Lmap", "--types", ZEL_METATYPES});
        QCOMPARE(unknown.errors, "zel: The class Lmap is not among the types, did you mean \"Lamp\"?\n");
        QCOMPARE(unknown.status, 1);
        QCOMPARE(zel({"describe", "Lamp"}).status, 2);
    }

    void descriptionsMatchTheSchemas_data()
    {
        QTest::addColumn<QStringList>("command");
        QTest::addColumn<bool>("knowsTypes"); // whether the attributes of a property depend on its type
        QTest::newRow("RELAX NG") << QStringList{"xmllint", "--noout", "--relaxng", "schema.rng"} << true;
        QTest::newRow("RELAX NG by another program") << QStringList{"jing", "schema.rng"} << true;
        QTest::newRow("XML Schema") << QStringList{"xmllint", "--noout", "--schema", "schema.xsd"} << false;
    }

    void descriptionsMatchTheSchemas()
    {
        QFETCH(QStringList, command);
        QFETCH(bool, knowsTypes);
        const QString program = QStandardPaths::findExecutable(command.takeFirst());
        if (program.isEmpty())
            QSKIP("xmllint (libxml2-utils) or jing is not installed");
        QCOMPARE(zel({"schema", "--rng", "-o", "schema.rng"}).status, 0);
        QCOMPARE(zel({"schema", "--xsd", "-o", "schema.xsd"}).status, 0);
        QStringList files;
        for (const char *folder : {"examples", "docs", "tests/install", "tests/storm", "tools"}) {
            QDirIterator found(QStringLiteral(ZEL_SOURCES "/") + folder, {"*.xml"}, QDir::Files,
                               QDirIterator::Subdirectories);
            while (found.hasNext())
                files.append(found.next());
        }
        QVERIFY(files.size() > 10);
        const auto add = [&](const QByteArray &text) {
            files.append(QStringLiteral("%1.xml").arg(files.size()));
            write(files.last(), text);
        };
        for (const char *good :
             {"type='custom' pattern='x'", "type='rating' stars='5' file='x'", "type='string' returnAdvances='YES'",
              "type='number' minimum='-1e3' slider='LINEAR'", "type='boolean' bits='0x1F' xmlns:a='a' a:b='c'",
              "type='flags' style='checkboxes'", "type='enumeration' style='segmented'"})
            add(inSliver(QByteArray("<property ") + good + "/>"));
        add("<slice type='number' keyPath='k' editsMultipleValues='yes'/>");
        const Outcome all = run(program, command + files);
        QVERIFY2(all.status == 0, qPrintable(all.output + all.errors));
        QByteArrayList bad{"<slice><option/></slice>", "<panes><pane returnAdvances='yes'/></panes>",
                           "<slice><section><sliver titel='x'/></section></slice>", "<section/>"};
        QByteArrayList attributes{"",
                                  "type='number' minimum='x'",
                                  "type='number' increment='0'",
                                  "type='boolean' bits='1x'",
                                  "type='string' enabled='on'",
                                  "type='custom' enabled='on'",
                                  "type='string' keyPath='a..b'",
                                  "type='color' defaultColor='red'",
                                  "type='flags' style='checkbox'"};
        if (knowsTypes)
            attributes +=
                {"type='string' keypath='x'", "type='string' slider='linear'", "type='enumeration' style='checkboxes'"};
        for (const QByteArray &wrong : std::as_const(attributes))
            bad.append(inSliver("<property " + wrong + "/>"));
        files.clear();
        for (const QByteArray &text : std::as_const(bad))
            add(text);
        const Outcome none = run(program, command + files);
        const QString said = none.output + none.errors;
        for (qsizetype i = 0; i < bad.size(); ++i)
            QVERIFY2(said.contains(files.at(i) + u':'), bad.at(i).constData());
    }

    void stringsKeepTranslations()
    {
        write("Main.xml", "<pane title='Lamp &amp; Co'>\n<inspector title='All'><slice>\n"
                          "<section file='Rows.xml' title='Light'/></slice></inspector></pane>");
        write("Rows.xml",
              "<slice title='Rest' localized='yes'>\n<sliver title='Label'><property type='string' title='Name' "
              "keyPath='a'\nplaceholder='None' formatUnit='x' hint='Hint'/></sliver>\n<sliver><property "
              "type='enumeration' keyPath='b' actionName='Name'><option-group><option title=''/><option title='New' "
              "value='1'/></option-group></property></sliver></slice>");
        write(
            "de.ts",
            "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<!DOCTYPE TS>\n<TS version=\"2.1\" language=\"de_DE\">\n"
            "<context>\n    <name>Other</name>\n    <message>\n        <source>Old</source>\n"
            "        <translation>Alt</translation>\n    </message>\n</context>\n"
            "<context>\n    <name>Application</name>\n"
            "    <message>\n        <location filename=\"x\" line=\"1\"/>\n        <source>Name</source>\n"
            "        <translatorcomment>Of the lamp</translatorcomment>\n"
            "        <translation>Name &lt;de&gt;</translation>\n    </message>\n"
            "    <message>\n        <source>Gone</source>\n        <translation>Weg</translation>\n    </message>\n"
            "    <message>\n        <source>Todo</source>\n        <translation type=\"unfinished\"></translation>\n"
            "    </message>\n"
            "    <message>\n        <source>None</source>\n        <translation type=\"vanished\">Keine</translation>\n"
            "    </message>\n</context>\n</TS>\n");
        const QStringList arguments{"strings", "Main.xml", "-o", "de.ts", "--also", "*@hint"};
        QCOMPARE(zel(arguments).status, 0);
        const auto message = [](const char *file, int line, const char *source, const char *rest) -> QByteArray {
            const QByteArray place =
                QByteArray("        <location filename=\"") + file + "\" line=\"" + QByteArray::number(line) + "\"/>\n";
            return QByteArray("    <message>\n") + (line ? place : QByteArray()) + "        <source>" + source +
                   "</source>\n" + rest + "    </message>\n";
        };
        const char *unfinished = "        <translation type=\"unfinished\"></translation>\n";
        const QByteArray expected =
            "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<!DOCTYPE TS>\n<TS version=\"2.1\" language=\"de_DE\">\n"
            "<context>\n    <name>Other</name>\n    <message>\n        <source>Old</source>\n"
            "        <translation>Alt</translation>\n    </message>\n</context>\n"
            "<context>\n    <name>Application</name>\n" +
            message("Main.xml", 2, "All", unfinished) +
            message("", 0, "Gone", "        <translation type=\"vanished\">Weg</translation>\n") +
            message("Rows.xml", 3, "Hint", unfinished) + message("Rows.xml", 2, "Label", unfinished) +
            message("Main.xml", 1, "Lamp &amp; Co", unfinished) + message("Main.xml", 3, "Light", unfinished) +
            QByteArray(message("Rows.xml", 2, "Name",
                               "        <translatorcomment>Of the lamp</translatorcomment>\n"
                               "        <translation>Name &lt;de&gt;</translation>\n"))
                .replace("        <source>Name", "        <location filename=\"Rows.xml\" line=\"4\"/>\n"
                                                 "        <source>Name") +
            message("Rows.xml", 4, "New", unfinished) +
            message("Rows.xml", 3, "None", "        <translation>Keine</translation>\n") +
            message("Rows.xml", 1, "Rest", unfinished) + "</context>\n</TS>\n";
        QCOMPARE(read("de.ts"), expected);
        QCOMPARE(zel(arguments).status, 0);
        QCOMPARE(read("de.ts"), expected); // again changes nothing
        // Editors without options offer what the classes say.
        write("Kinds.xml", "<slice types:selection='lamps=Lamp'><section><sliver>"
                           "<property type='enumeration' keyPath='best.kind'/>"
                           "<property type='flags' keyPath='lamps.selection.watts'/>"
                           "</sliver></section></slice>");
        QCOMPARE(zel({"strings", "Kinds.xml", "-o", "kinds.ts", "--types", ZEL_METATYPES, "--owner", "Room"}).status,
                 0);
        QCOMPARE(read("kinds.ts").count("<source>"), 3);
        QVERIFY(read("kinds.ts").contains("<source>Ceiling</source>"));
        write("Main.xml", "<pane>");
        QCOMPARE(zel(arguments).status, 1);
        QCOMPARE(read("de.ts"), expected); // a file that cannot be read does not make its texts vanish
    }
};
QTEST_GUILESS_MAIN(tst_Zel)
#include "tst_Zel.moc"
