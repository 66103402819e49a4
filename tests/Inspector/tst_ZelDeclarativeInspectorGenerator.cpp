// SPDX-License-Identifier: MIT
#include "Inspector/Descriptions.h"

#include "Controls/Menus/ZelMenuItem.h"
#include "Core/KeyValue/ZelClassRegistry.h"
#include "Inspector/Properties/ZelInspectorAttributedStringProperty.h"
#include "Inspector/Properties/ZelInspectorEnumerationProperty.h"
#include "Inspector/Properties/ZelInspectorNumberProperty.h"
#include "Inspector/ZelInspectorChooser.h"
#include "Inspector/ZelInspectorSliver.h"
#include "Inspector/ZelTabbedInspector.h"
#include "Resources/ZelColorList.h"
#include "Resources/ZelLocalizedString.h"
#include "Resources/ZelNamedImages.h"
#include "Support/EditorOwner.h"

#include <QElapsedTimer>
#include <QScopeGuard>

namespace {

class NotingSlice : public ZelInspectorSlice
{
    Q_OBJECT
public:
    using ZelInspectorSlice::ZelInspectorSlice;
};

class Delegate : public QObject, public ZelDeclarativeInspectorGeneratorDelegate
{
    Q_OBJECT
public:
    ZelInspectorProperty *
    declarativeInspectorGeneratorCreatePropertyForConfiguration(ZelDeclarativeInspectorGenerator *generator,
                                                                const ZelInspectorConfiguration &element) override
    {
        asked.append(element.stringValueNamed(u"type"));
        return asked.last() == u"mine" ? new NotingProperty(generator->owner()) : nullptr;
    }
    QStringList asked;
};

/// The titles of all, as "a b c".
template<typename Child> QString titles(const QList<Child *> &children)
{
    QStringList texts;
    for (const Child *child : children)
        texts.append(child->title());
    return texts.join(u' ');
}

/// The properties that the expected text tells, as "key=value|key=value". Transformers and images are told as "set".
QString values(const QObject *object, const QString &expected)
{
    QStringList texts;
    for (const QString &part : expected.split('|')) {
        const QString key = part.section('=', 0, 0);
        const QVariant value = object->property(key.toLatin1());
        if (const auto list = value.value<ZelColorListPtr>())
            texts += key + '=' + list->name();
        else if (value.metaType() == QMetaType::fromType<ZelColor>())
            texts += key + '=' + value.value<ZelColor>().toQColor().name(QColor::HexArgb);
        else if (value.metaType() == QMetaType::fromType<ZelSelector>())
            texts += key + '=' + value.value<ZelSelector>().name();
        else if (value.value<ZelValueTransformerPtr>() || !value.value<QIcon>().isNull())
            texts += key + "=set";
        else
            texts += key + '=' + value.toString();
    }
    return texts.join('|');
}

QByteArray inSection(const QByteArray &text)
{
    return "<slice>\n<section>\n" + text + "\n</section>\n</slice>";
}

QByteArray inSliver(const QByteArray &property)
{
    return inSection("<sliver>" + property + "</sliver>");
}

QString text(const ZelSourcePlace &place)
{
    const QString file = QFileInfo(place.file).fileName();
    return QStringLiteral("%1 %2:%3 %4").arg(file).arg(place.line).arg(place.column).arg(place.element);
}

const QByteArray g_noting = "<property type='custom' class='NotingProperty'/>";

} // namespace

class tst_ZelDeclarativeInspectorGenerator : public QObject
{
    Q_OBJECT

    using Tree = std::unique_ptr<ZelInspectorSlice>;
    Tree slice(const QByteArray &text)
    {
        m_generator->setUrl(m_files.write("Slice.xml", text));
        return Tree(m_generator->createSlice());
    }
    /// The editor of a property with these attributes.
    ZelInspectorProperty *property(const QByteArray &attributes)
    {
        m_tree = slice(inSliver("<property " + attributes + "/>"));
        const auto found = m_tree->findChildren<ZelInspectorProperty *>();
        if (found.size() != 1)
            qFatal("not one editor: %s", attributes.constData());
        return found.first();
    }

    Descriptions m_files;
    EditorOwner m_owner;
    std::unique_ptr<ZelDeclarativeInspectorGenerator> m_generator;
    Tree m_tree;

private Q_SLOTS:
    void initTestCase()
    {
        ZelClassRegistry::registerClass<NotingSlice>();
        ZelClassRegistry::registerClass<NotingProperty>();
        ZelSetLocalizationFunction([](const QString &key) { return key == u"Size" ? u"Größe"_qs : QString(); });
    }
    void init()
    {
        m_generator = std::make_unique<ZelDeclarativeInspectorGenerator>();
        m_generator->setOwner(&m_owner);
        m_generator->setUrl(m_files.write("Empty.xml", "<slice/>"));
    }
    void cleanup()
    {
        m_tree.reset();
        QCOMPARE(NotingProperty::alive, 0);
    }

    void theTreeFollowsTheDescription()
    {
        m_generator->setUrl(m_files.write("Tabs.xml", R"(<panes enabled="no" enabledKeyPath="unlocked">
            <pane title="Size"><inspector title="A" visibleKeyPath="unlocked"><slice/><other/><slice title="Size"/>
            </inspector><inspector><slice/></inspector></pane>
            <unknown/>
            <pane title="Two"><inspector><slice><section title="Size"><sliver title="Size" fullWidth="yes"/>
                <chooser title="Size"/><sliver/></section></slice></inspector></pane></panes>)"));
        const std::unique_ptr<ZelTabbedInspector> tabs(m_generator->createTabbedInspector());
        QCOMPARE(titles(tabs->panes()), "Größe Two");
        QVERIFY(!tabs->isEnabled() && tabs->enabledKeyPath() == u"unlocked");
        const QList<ZelInspector *> inspectors = tabs->panes().first()->inspectors();
        QCOMPARE(titles(inspectors), "A No title");
        QCOMPARE(inspectors.first()->visibleKeyPath(), "unlocked");
        QCOMPARE(titles(inspectors.first()->slices()), " Größe");
        const auto *section = tabs->panes().last()->inspectors().first()->slices().first()->sections().first();
        QCOMPARE(section->title(), "Größe");
        const auto rows = section->sliversAndChoosers();
        QCOMPARE(titles(rows), "Size Size "); // these are not translated
        QVERIFY(rows.at(0)->property("fullWidth").toBool() && qobject_cast<ZelInspectorChooser *>(rows.at(1)));
        for (const ZelInspectorContainer *container : tabs->findChildren<ZelInspectorContainer *>())
            QVERIFY(container->owner() == &m_owner && !const_cast<ZelInspectorContainer *>(container)->isViewLoaded());
        tabs->selectInspector(1);
        QCOMPARE(tabs->currentInspector(), tabs->panes().last());
        QVERIFY(!tabs->isViewLoaded());
    }

    void choosersHoldTheirChoices()
    {
        QPixmap pixmap(8, 8);
        pixmap.fill(Qt::red);
        QVERIFY(pixmap.save(m_files.write("Mark.png", {}).toLocalFile()));
        ZelNamedImages::setImageForName(pixmap, "Registered");
        const Tree tree = slice(inSection(R"(<chooser title="Kind" keyPath="extra" actionSelector="noteAction"
            actionName="Size" visibleKeyPath="unlocked"><choice title="Size" value="0x10" hidden="yes" enabled="no"
            image="Registered"><sliver/><chooser title="Inner"><choice/></chooser></choice><choice image="Mark"/>
            <choice image=""/></chooser>)"));
        auto *chooser = tree->findChild<ZelInspectorChooser *>();
        const QString expected =
            "title=Kind|keyPath=extra|visibleKeyPath=unlocked|actionSelector=noteAction|actionName=Größe";
        QCOMPARE(values(chooser, expected), expected);
        auto *item = new ZelMenuItem("Several");
        chooser->setProperty("multipleValuesMenuItem", QVariant::fromValue(item));
        QCOMPARE(chooser->multipleValuesMenuItem(), item);
        const QStringList choices{"title=Größe|value=16|text=0x10|hidden=true|enabled=false|image=set",
                                  "title=|value=0|text=|hidden=false|enabled=true|image=set",
                                  "title=|value=0|text=|hidden=false|enabled=true|image="};
        QCOMPARE(chooser->choices().size(), 3);
        for (int i = 0; i < 3; ++i)
            QCOMPARE(values(chooser->choices().at(i), choices.at(i)), choices.at(i));
        QCOMPARE(chooser->choices().first()->sliversAndChoosers().size(), 2);
    }

    void typesChooseTheEditor()
    {
        const std::pair<const char *, const char *> rows[] = {
            {"type='boolean'", "ZelInspectorBooleanProperty"},
            {"type='action'", "ZelInspectorActionProperty"},
            {"type='action' menuItemsKeyPath=''", "ZelInspectorMenuActionProperty"},
            {"type='number'", "ZelInspectorNumberProperty"},
            {"type='string' attributed='no'", "ZelInspectorStringProperty"},
            {"type='string' attributed='1'", "ZelInspectorAttributedStringProperty"},
            {"type='enumeration'", "ZelInspectorTextEnumerationProperty"},
            {"type='enumeration' style='segmented'", "ZelInspectorImageEnumerationProperty"},
            {"type='color'", "ZelInspectorColorProperty"},
            {"type='date'", "ZelInspectorDateProperty"},
            {"type='font'", "ZelInspectorFontProperty"},
            {"type='resource'", "ZelInspectorResourceProperty"},
            {"type='frame'", "ZelInspectorBoundsProperty"},
            {"type='frame' flipped='no' enabledKeyPath='missing'", "ZelInspectorBoundsProperty"}, // not evaluated
            {"type='size'", "ZelInspectorSizeProperty"},
            {"type='point'", "ZelInspectorSizeProperty"},
            {"type='custom'", "ZelInspectorCustomProperty"},
            {"type='custom' class='NotingProperty'", "NotingProperty"},
            // The library's own editors need not be registered.
            {"type='custom' class='ZelInspectorArrayProperty'", "ZelInspectorArrayProperty"},
            {"type='custom' class='ZelInspectorPointProperty'", "ZelInspectorPointProperty"},
            {"type='custom' class='ZelInspectorStringProperty'", "ZelInspectorStringProperty"},
            {"type='custom' class='ZelInspectorCustomProperty' file='Slice.xml'", "ZelInspectorCustomProperty"},
        };
        for (const auto &[attributes, className] : rows) {
            const auto *made = property(attributes);
            QCOMPARE(made->metaObject()->className(), className);
            QCOMPARE(made->owner(), &m_owner);
        }
        QVERIFY(ZelInspectorAttributedStringProperty::paragraphStyleInspectorMaker());
        QVERIFY(qobject_cast<NotingSlice *>(slice("<slice class='NotingSlice'/>").get()));
        // A class that is no slice is as good as none.
        const QuietHandler handler;
        QVERIFY(!slice("<slice class='NotingProperty'/>"));
        QCOMPARE(handler.messages, QStringList("Missing class NotingProperty"));
    }

    void attributesReachTheEditor()
    {
        const std::pair<const char *, const char *> rows[] = {
            {R"(type="custom" title="Size" titleKeyPath="a" keyPath="b" enabled="off" enabledKeyPath="c"
                valueTransformer="ZelPercentValueTransformerName" actionSelector="noteAction:" actionName="Size"
                enabledValueTransformer="ZelNegateBooleanTransformerName")",
             "title=Größe|titleKeyPath=a|keyPath=b|enabled=false|enabledKeyPath=c|valueTransformer=set|"
             "enabledValueTransformer=set|actionSelector=noteAction:|actionName=Größe"},
            {"type='number'", "minimum=0|maximum=3.4028234663852886e+38|increment=1|nilValueControlIsOffWhenNil=true|"
                              "formatStyle=0|sliderType=0|nonNilValueTitle=|placeholder="},
            {R"(type="number" placeholder="Size" minimum="-2.5" minimumKeyPath="a" maximum="9" maximumKeyPath="b"
                increment="0.5" incrementKeyPath="c" nilValueControlIsOffWhenNil="no" nonNilValueKeyPath="d"
                nonNilValueTitle="Size" formatStyle="DECIMAL" formatUnit=" pt" slider="Linear")",
             "placeholder=Größe|minimum=-2.5|minimumKeyPath=a|maximum=9|maximumKeyPath=b|increment=0.5|"
             "incrementKeyPath=c|nilValueControlIsOffWhenNil=false|nonNilValueKeyPath=d|nonNilValueTitle=Größe|"
             "formatStyle=1|formatUnit= pt|sliderType=2"},
            {"type='string' attributed='yes' placeholder='Size' allowsNilValues='1' keyPath='note'",
             "placeholder=Größe|allowsNilValues=true|keyPath=note"},
            {"type='color'", "colorList=System|defaultColor=#ff000000"},
            {"type='color' colorList='Crayons' defaultColor='NSDeviceRGBColorSpace 1 0 0 0'",
             "colorList=Crayons|defaultColor=#00ff0000"},
            {"type='resource' placeholder='Size' resourcesKeyPath='names'", "placeholder=Größe|resourcesKeyPath=names"},
            {"type='frame'", "flipped=true|increment=1|showOriginSelector=false|formatStyle=0"},
            {R"(type="frame" formatStyle="decimal" formatUnit=" pt" increment="0.5" incrementKeyPath="a" flipped="no"
                flippedKeyPath="b" showOriginSelector="yes")",
             "formatStyle=1|formatUnit= pt|increment=0.5|incrementKeyPath=a|flipped=false|flippedKeyPath=b|"
             "showOriginSelector=true"},
            {"type='size' title='No' titleKeyPath='no'", "title=|titleKeyPath=|widthTitle=Width|heightTitle=Height|"
                                                         "nilValueControlIsOffWhenNil=true|increment=1|formatStyle=0"},
            {R"(type="point" widthTitle="Size" widthTitleKeyPath="a" heightTitle="" heightTitleKeyPath="b"
                nilValueControlIsOffWhenNil="no" nonNilValueKeyPath="c" formatStyle="decimal" formatUnit=" pt"
                increment="2" incrementKeyPath="d")",
             "widthTitle=Größe|widthTitleKeyPath=a|heightTitle=|heightTitleKeyPath=b|formatStyle=1|formatUnit= pt|"
             "nilValueControlIsOffWhenNil=false|nonNilValueKeyPath=c|increment=2|incrementKeyPath=d"},
        };
        for (const auto &[attributes, expected] : rows)
            QCOMPARE(values(property(attributes), expected), expected);
        const auto slides = [this](const QByteArray &attributes) {
            return static_cast<ZelInspectorNumberProperty *>(property("type='number'" + attributes))->slidesInSteps;
        };
        QVERIFY(slides(" increment='1'") && !slides("")); // no step was asked for
    }

    void enumerationsHaveGroupsOfOptions()
    {
        const Tree tree = slice(inSliver(R"(<property type="enumeration" editable="no" bitMask="0xF0"
            enumeratedValuesKeyPath="values" enumeratedDisplayValuesKeyPath="names"><option-group>
            <option title="Size" value="16"/><option value="12abc" hidden="yes" enabled="no"/></option-group>
            <option-group enumeratedValuesKeyPath="v" enumeratedDisplayValuesKeyPath="d"/></property>)"));
        const auto *property = tree->findChild<ZelInspectorEnumerationProperty *>();
        const auto groups = property->optionGroups();
        QCOMPARE(groups.size(), 2);
        QCOMPARE(groups.first()->options().size(), 2);
        const std::pair<const QObject *, const char *> rows[] = {
            {property,
             "editable=false|bitMask=240|enumeratedValuesKeyPath=values|enumeratedDisplayValuesKeyPath=names"},
            {groups.first()->options().first(), "title=Größe|value=16|text=16|enabled=true|hidden=false"},
            {groups.first()->options().last(), "title=|value=12|text=12abc|enabled=false|hidden=true"},
            {groups.last(), "enumeratedValuesKeyPath=v|enumeratedDisplayValuesKeyPath=d"},
        };
        for (const auto &[object, expected] : rows)
            QCOMPARE(values(object, expected), expected);
    }

    void includedSettingsHoldUnlessOverridden()
    {
        m_files.write("Row.xml", R"(<slice title="File" fullWidth="yes" visibleKeyPath="a" keyPath="k" actionName="Act"
            visibleValueTransformer="ZelNegateBooleanTransformerName" actionSelector="s"/>)");
        const Tree tree = slice(inSection(R"(<sliver file="Row.xml"/>
            <sliver file="Row.xml" title="Here" fullWidth="no" visibleKeyPath="b"/>
            <chooser file="Row.xml"/><chooser file="Row.xml" title="" keyPath="l" actionSelector="t"/>)"));
        const auto children = tree->sections().first()->sliversAndChoosers();
        const QStringList rows{"title=File|fullWidth=true|visibleKeyPath=a|visibleValueTransformer=set",
                               "title=Here|fullWidth=false|visibleKeyPath=b|visibleValueTransformer=set",
                               "title=File|keyPath=k|actionName=Act|actionSelector=s",
                               "title=|keyPath=l|actionName=Act|actionSelector=t"};
        for (int i = 0; i < 4; ++i)
            QCOMPARE(values(children.at(i), rows.at(i)), rows.at(i));
    }

    void childrenFollowThoseOfTheFile()
    {
        m_files.write("S.xml", "<slice class='NotingSlice'><section title='1'/><section title='2'/></slice>");
        m_files.write("T.xml", "<slice title='T'><sliver title='a'/></slice>");
        m_files.write("C.xml", "<slice><choice title='x'/></slice>");
        m_files.write("P.xml", "<slice><property type='custom' title='p'/></slice>");
        const Tree tree = slice(R"(<slice file="S.xml" class="ZelInspectorSlice"><section file="T.xml">
            <chooser title="b"/><sliver title="c" file="P.xml"><property type="custom" title="q"/></sliver>
            <chooser file="C.xml"><choice title="y"/></chooser></section></slice>)");
        QVERIFY(qobject_cast<NotingSlice *>(tree.get()));
        QCOMPARE(titles(tree->sections()), "1 2 T");
        const auto rows = tree->sections().last()->sliversAndChoosers();
        QCOMPARE(titles(rows), "a b c ");
        QCOMPARE(titles(qobject_cast<ZelInspectorSliver *>(rows.at(2))->properties()), "p q");
        QCOMPARE(titles(qobject_cast<ZelInspectorChooser *>(rows.at(3))->choices()), "x y");
    }

    void whatFilesReplace()
    {
        // An inspector's own slices replace those of the file.
        m_files.write("I.xml", "<inspector title='File'><slice title='old'/><slice/></inspector>");
        m_generator->setUrl(
            m_files.write("Pane.xml", "<pane><inspector file='I.xml'><slice title='new'/></inspector></pane>"));
        const std::unique_ptr<ZelInspectorPane> pane(m_generator->createPane());
        QCOMPARE(titles(pane->inspectors()) + titles(pane->inspectors().first()->slices()), "Filenew");
        QCOMPARE(pane->findChildren<ZelInspectorSlice *>().size(), 1);
        // A pane from a file ignores the including element; a file that does not exist is no file.
        m_files.write("Pane.xml", "<pane title='File'><inspector><slice/></inspector></pane>");
        m_generator->setUrl(m_files.write("Tabs.xml", R"(<panes><pane file="Pane.xml" title="Here" image="none"/>
            <pane file="None.xml" title="Own"><inspector><slice/></inspector></pane></panes>)"));
        const std::unique_ptr<ZelTabbedInspector> tabs(m_generator->createTabbedInspector());
        QCOMPARE(titles(tabs->panes()), "File Own");
        // A property of a file is of its type, but a known type has no file.
        m_files.write("P.xml", "<slice type='string' title='File'/>");
        const auto *other = property("type='other' file='P.xml' title='Here'");
        QCOMPARE(say(other->metaObject()->className(), other->title()), "ZelInspectorStringProperty \"File\"");
        QVERIFY(qobject_cast<ZelInspectorNumberProperty *>(property("type='number' file='P.xml'")));
    }

    void theDelegateMakesTypesOfTheApplication()
    {
        auto delegate = std::make_unique<Delegate>();
        m_generator->setDelegate(delegate.get());
        const QuietHandler handler;
        Tree tree =
            slice(inSliver("<property type='mine' title='a'/><property type='number'/><property type='theirs'/>"));
        QCOMPARE(delegate->asked, QStringList({"mine", "theirs"}));
        QCOMPARE(tree->findChildren<ZelInspectorProperty *>().size(), 2);
        QVERIFY(tree->findChild<NotingProperty *>()->title().isNull());
        QCOMPARE(handler.messages, QStringList({"Type not suppored: theirs", "Expected inspector property class"}));
        delegate.reset();
        tree = slice(inSliver("<property type='mine'/>"));
        QVERIFY(!tree->findChild<ZelInspectorProperty *>());
    }

    /// The message, with the place, of the assertion; where it returns, what follows is built.
    void faultsAreAssertionsWithTheirPlace()
    {
        m_files.write("Wrong.xml", "\n <property type='number'/>");
        const char *wrong = "Expected inspector element: property";
        const struct
        {
            QByteArray text;
            const char *message;
            const char *place;
        } rows[] = {
            {"<panes/>", "No panes in the configuration", "1:1 panes"},
            {"<panes>\n <pane/></panes>", "No inspectors in the configuration", "2:2 pane"},
            {"<panes><pane>\n<inspector/></pane></panes>", "No slice in the configuration", "2:1 inspector"},
            {inSection("<property/>"), "Unsupported element property", "3:1 property"},
            {inSection("<chooser><choice><section/></choice></chooser>"), "Unsupported element section",
             "3:18 section"},
            {"<slice class='Unknown'/>", "Missing class Unknown", "1:1 slice"},
            {inSliver("<property type='custom' class='QObject'/>"), "Missing class QObject", "3:9 property"},
            {inSection("<chooser><choice image='Nowhere'/></chooser>"), "Missing image with name Nowhere",
             "3:10 choice"},
            {inSliver("<property/>"), "Property type not given", "3:9 property"},
            {inSliver("<property type=''/>"), "Property type not given", "3:9 property"},
            {inSliver("<property type='Number'/>"), "Type not suppored: Number", "3:9 property"},
            {inSliver("<property type='color' colorList='None'/>"), "No color list found with name None",
             "3:9 property"},
            {inSliver("<property type='number' formatStyle='real'/>"), "Unsupported format style: real",
             "3:9 property"},
            {inSliver("<property type='number' slider='round'/>"), "Unsupported value: round", "3:9 property"},
            {inSliver("<property type='enumeration' style='Popup'/>"), "Unsupported style: Popup", "3:9 property"},
            {"<slice visibleValueTransformer='none'/>", "Missing value transformer for name none", "1:1 slice"},
            {"<slice visibleKeyPath='" + QByteArray("a.").repeated(64) + "a'/>", "The key path has more than 64 keys",
             "1:1 slice"},
            {inSliver("<property type='boolean' bits='0xZZ'/>"), "Unabled to parse hex value: 0xZZ", "3:9 property"},
            {"<slice><section file='Wrong.xml'/></slice>", wrong, "2:2 property"},
            {inSection("<sliver file='Wrong.xml'/>"), wrong, "2:2 property"},
            {inSection("<chooser file='Wrong.xml'/>"), wrong, "2:2 property"},
            {inSliver("<property type='file' file='Wrong.xml'/>"), wrong, "2:2 property"},
        };
        for (const auto &[description, message, place] : rows) {
            const bool isTabs = description.startsWith("<panes");
            const bool isEmptyRoot = description.count('<') == 1;
            const auto make = [&](const QByteArray &xml) {
                m_generator->setUrl(m_files.write("Faulty.xml", xml));
                return std::unique_ptr<ZelInspectorContainer>(
                    isTabs ? static_cast<ZelInspectorContainer *>(m_generator->createTabbedInspector())
                           : m_generator->createSlice());
            };
            try {
                make(description);
                QFAIL(message);
            } catch (const ZelInternalInconsistencyException &exception) {
                QCOMPARE(exception.reason(), message);
                const QString file = message == wrong ? "Wrong.xml " : "Faulty.xml ";
                QCOMPARE(text(exception.place()), file + place);
                const bool isOfConfiguration =
                    QByteArray(message).contains("value") || QByteArray(message).contains("key path");
                if (!isOfConfiguration || QByteArray(message).startsWith("Unsupported"))
                    QCOMPARE(exception.location(), "Inspector/ZelDeclarativeInspectorGenerator");
            }
            const QuietHandler handler;
            QByteArray more = description;
            if (!isEmptyRoot)
                more.insert(more.lastIndexOf("</"), isTabs ? "<pane title='end'><inspector><slice/></inspector></pane>"
                                                           : "<section title='end'/>");
            const auto made = make(more);
            QVERIFY2(handler.messages.contains(message), message);
            if (const auto *tabs = qobject_cast<ZelTabbedInspector *>(made.get()); tabs && !isEmptyRoot)
                QCOMPARE(tabs->panes().last()->title(), "end");
            else if (!isEmptyRoot)
                QCOMPARE(qobject_cast<ZelInspectorSlice *>(made.get())->sections().last()->title(), "end");
        }
    }

    void rootsMustFit()
    {
        const QuietHandler handler;
        m_generator->setUrl(m_files.write("Other.xml", "<other/>"));
        QVERIFY(!m_generator->createTabbedInspector() && !m_generator->createPane() && !m_generator->createSlice());
        m_generator->setOwner(nullptr);
        QVERIFY(!m_generator->createSlice());
        m_generator->setUrl({});
        QVERIFY(!m_generator->createPane());
        const QString expected = "Expected inspector element: other";
        QCOMPARE(handler.messages,
                 QStringList({expected, expected, "Expected slice element: other", "Missing owner", "Missing URL"}));
    }

    void unreadableFilesAreExceptions()
    {
        // A.xml includes what is written to B.xml and C.xml. Exactly what lives at the fault is taken down.
        const QByteArray live = "<sliver>" + g_noting + "</sliver>";
        const QByteArray includesB = inSection(live + "<sliver file='B.xml'/>");
        const struct
        {
            QByteArrayList files;
            const char *reason; // its end
            const char *place;  // its beginning
        } rows[] = {
            {{}, "The file does not exist.", "Missing.xml 0:0 "},
            {{includesB, "<slice>\n<section>\n</slice>"}, "tag mismatch.", "B.xml 3:"},
            {{includesB, ""}, "The file is empty.", "B.xml 1:1 "},
            {{includesB, "<!DOCTYPE a [<!ENTITY e 'e'>]><slice/>"}, "not allowed.", "B.xml 1:1 "},
            {{inSection(live + "<sliver file='A.xml'/>")}, ": A.xml > A.xml", "A.xml 3:66 sliver"},
            {{includesB, "<slice file='x'>\n <property type='f' file='C.xml'/></slice>",
              "<slice type='g' file='A.xml'/>"},
             ": A.xml > B.xml > C.xml > A.xml",
             "C.xml 1:1 slice"},
            {{"<slice>\n<section file='B.xml'/></slice>", "<slice>" + live + "<chooser file='C.xml'/></slice>",
              "<slice><choice>\n<sliver file='B.xml'/></choice></slice>"},
             ": B.xml > C.xml > B.xml",
             "C.xml 2:1 sliver"},
            {{inSliver("<property type='f' file='B.xml'/>"), "<slice type='f' file='B.xml'/>"},
             ": B.xml > B.xml",
             "B.xml 1:1 slice"},
        };
        for (const auto &[files, reason, place] : rows) {
            m_generator->setUrl(QUrl("file:/nowhere/Missing.xml"));
            for (qsizetype i = files.size() - 1; i >= 0; --i)
                m_generator->setUrl(m_files.write(QString("ABC").mid(i, 1) + ".xml", files.at(i)));
            try {
                m_generator->createSlice();
                QFAIL(reason);
            } catch (const ZelGenericException &exception) {
                QVERIFY(exception.reason().startsWith("Unable to read file from URL file:"));
                QVERIFY2(exception.reason().endsWith(reason), qPrintable(exception.reason()));
                QVERIFY2(text(exception.place()).startsWith(place), qPrintable(text(exception.place())));
            }
            QCOMPARE(NotingProperty::alive, 0);
        }
        // After a failure the generator works as before, and reads the file anew.
        QVERIFY_EXCEPTION_THROWN(slice(inSliver(g_noting + "<property type='?'/>")), ZelInternalInconsistencyException);
        QCOMPARE(NotingProperty::alive, 0);
        const Tree tree = slice(inSliver(g_noting + g_noting));
        QCOMPARE(NotingProperty::alive, 2);
    }

    void whatIncludesTooMuchEndsSoon()
    {
        const QByteArray bodies[] = {
            // @ is the next file
            "<slice><sliver/><chooser file='@'/><chooser file='@'/>"
            "<choice><chooser file='@'/><chooser file='@'/></choice></slice>", // each file twice the next
            "<slice><choice><chooser file='@'/></choice></slice>",             // one below the other
            "<slice file='@'/>",                                               // one after the other
        };
        for (const QByteArray &body : bodies) {
            for (int i = 0; i < 100; ++i)
                m_files.write(QStringLiteral("F%1.xml").arg(i),
                              QByteArray(body).replace('@', QByteArray("F" + QByteArray::number(i + 1) + ".xml")));
            m_files.write("F100.xml", "<slice/>");
            QElapsedTimer timer;
            timer.start();
            const bool isSlice = body.startsWith("<slice file");
            QVERIFY_EXCEPTION_THROWN(slice(isSlice ? "<slice file='F0.xml'/>" : inSection("<chooser file='F0.xml'/>")),
                                     ZelGenericException);
            QVERIFY(timer.elapsed() < 60'000);
        }
        // All elements count each time their file is included.
        m_files.write("Many.xml", "<slice type='enumeration'><option-group>" + QByteArray("<option/>").repeated(18) +
                                      "</option-group></slice>");
        const ZelXmlReader::Limits former = ZelInspectorConfiguration::limits();
        ZelInspectorConfiguration::setLimits({.elements = 50});
        const auto restore = qScopeGuard([&] { ZelInspectorConfiguration::setLimits(former); });
        const QByteArray include = "\n<property type='many' file='Many.xml'/>";
        QVERIFY(slice(inSliver(include.repeated(2))));
        try {
            slice(inSliver(include.repeated(3)));
            QFAIL("nothing was thrown");
        } catch (const ZelGenericException &exception) {
            QVERIFY(exception.reason().endsWith("More than 50 elements are described."));
            QCOMPARE(exception.place().line, 6);
        }
    }
};

QTEST_MAIN(tst_ZelDeclarativeInspectorGenerator)
#include "moc_Descriptions.cpp"
#include "tst_ZelDeclarativeInspectorGenerator.moc"
