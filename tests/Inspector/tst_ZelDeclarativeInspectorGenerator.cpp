// SPDX-License-Identifier: MIT
#include "Inspector/Descriptions.h"
#include "Inspector/Properties/ZelInspectorAttributedStringProperty.h"
#include "Inspector/Properties/ZelInspectorEnumerationProperty.h"
#include "Resources/ZelColorList.h"
#include "Resources/ZelNamedImages.h"
#include "Support/Failures.h"

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

/// The titles of the object and of what it holds, as "title(child|child)".
QString titles(const QObject *object)
{
    QStringList children;
    for (const char *list :
         {"panes", "inspectors", "slices", "sections", "sliversAndChoosers", "properties", "choices"}) {
        for (const QVariant &child : object->property(list).toList())
            children += titles(child.value<QObject *>());
    }
    const QString title = object->property("title").toString();
    return children.isEmpty() ? title : title + '(' + children.join('|') + ')';
}

/// What the expected text tells of the object, as "key=value|key=value". Transformers and images are told as "set".
QString values(const QObject *object, const QString &expected)
{
    QStringList texts;
    for (const QString &part : expected.split('|')) {
        const QString key = part.section('=', 0, 0);
        const QVariant value = object->property(key.toLatin1());
        QString text = value.toString();
        if (key == "class")
            text = object->metaObject()->className();
        else if (const auto list = value.value<ZelColorListPtr>())
            text = list->name();
        else if (value.metaType() == QMetaType::fromType<ZelColor>())
            text = value.value<ZelColor>().toQColor().name(QColor::HexArgb);
        else if (value.metaType() == QMetaType::fromType<ZelSelector>())
            text = value.value<ZelSelector>().name();
        else if (value.value<ZelValueTransformerPtr>() || !value.value<QIcon>().isNull())
            text = "set";
        texts += key + '=' + text;
    }
    return texts.join('|');
}

QString text(const ZelSourcePlace &place)
{
    const QString file = QFileInfo(place.file).fileName();
    return QStringLiteral("%1 %2:%3 %4").arg(file).arg(place.line).arg(place.column).arg(place.element);
}

const QString g_here = "Inspector/ZelDeclarativeInspectorGenerator: ";
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
        return m_tree->findChild<ZelInspectorProperty *>();
    }

    /// Looks for an object for each text: the first, second... of its class in what the description makes.
    void checkMade(const QByteArray &description, const QStringList &expected)
    {
        m_tree = slice(description);
        for (const auto *editor : m_tree->findChildren<ZelInspectorEnumerationProperty *>())
            (void)editor->optionGroups(); // whose objects are made now
        QHash<QString, int> met;
        for (const QString &text : expected) {
            QObjectList objects = m_tree->findChildren<QObject *>();
            objects.removeIf([&](QObject *object) {
                return text.section('|', 0, 0) != QString("class=") + object->metaObject()->className();
            });
            const QObject *object = objects.value(met[text.section('|', 0, 0)]++);
            QVERIFY2(object, qPrintable(text));
            QCOMPARE(values(object, text), text);
            QVERIFY(!object->inherits("ZelInspectorProperty") ||
                    object->property("owner").value<QObject *>() == &m_owner);
        }
    }
    /// The reason for which the work is given up, behind the file's name, and the place.
    template<typename Work> static QString thrown(Work work)
    {
        try {
            work();
        } catch (const ZelGenericException &exception) {
            const bool names = exception.reason().startsWith("Unable to read file from URL file:");
            return (names ? exception.reason().section(": ", 1) : exception.reason()) + " @ " + text(exception.place());
        }
        return "nothing";
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

    void attributesReachEditors()
    {
        const std::pair<const char *, const char *> rows[] = {
            {"type='boolean'", "class=ZelInspectorBooleanProperty"},
            {"type='action'", "class=ZelInspectorActionProperty"},
            {"type='action' menuItemsKeyPath=''", "class=ZelInspectorMenuActionProperty"},
            {"type='enumeration'", "class=ZelInspectorTextEnumerationProperty"},
            {"type='enumeration' style='segmented'", "class=ZelInspectorImageEnumerationProperty"},
            {"type='date'", "class=ZelInspectorDateProperty"},
            {"type='font'", "class=ZelInspectorFontProperty"},
            {"type='custom' class='NotingProperty'", "class=NotingProperty"},
            // The library's own editors need not be registered.
            {"type='custom' class='ZelInspectorArrayProperty'", "class=ZelInspectorArrayProperty"},
            {"type='custom' class='ZelInspectorPointProperty'", "class=ZelInspectorPointProperty"},
            {"type='custom' class='ZelInspectorStringProperty' placeholder='No'",
             "class=ZelInspectorStringProperty|placeholder="},
            {R"(type="custom" title="Size" titleKeyPath="a" keyPath="b" enabled="off" enabledKeyPath="c"
                valueTransformer="ZelPercentValueTransformerName" actionSelector="noteAction:" actionName="Size"
                enabledValueTransformer="ZelNegateBooleanTransformerName")",
             "class=ZelInspectorCustomProperty|title=Größe|titleKeyPath=a|keyPath=b|enabled=false|enabledKeyPath=c|"
             "valueTransformer=set|enabledValueTransformer=set|actionSelector=noteAction:|actionName=Größe"},
            {"type='number'", "class=ZelInspectorNumberProperty|minimum=0|maximum=3.4028234663852886e+38|increment=1|"
                              "nilValueControlIsOffWhenNil=true|"
                              "formatStyle=0|sliderType=0|nonNilValueTitle=|placeholder="},
            {R"(type="number" placeholder="Size" minimum="-2.5" minimumKeyPath="a" maximum="9" maximumKeyPath="b"
                increment="0.5" incrementKeyPath="c" nilValueControlIsOffWhenNil="no" nonNilValueKeyPath="d"
                nonNilValueTitle="Size" formatStyle="DECIMAL" formatUnit=" pt" slider="Linear")",
             "class=ZelInspectorNumberProperty|placeholder=Größe|minimum=-2.5|minimumKeyPath=a|maximum=9|"
             "maximumKeyPath=b|increment=0.5|incrementKeyPath=c|nilValueControlIsOffWhenNil=false|"
             "nonNilValueKeyPath=d|nonNilValueTitle=Größe|formatStyle=1|formatUnit= pt|sliderType=2"},
            {"type='string' attributed='no' placeholder='Size'", "class=ZelInspectorStringProperty|placeholder=Größe"},
            {"type='string' attributed='yes' placeholder='Size' allowsNilValues='1' keyPath='note'",
             "class=ZelInspectorAttributedStringProperty|placeholder=Größe|allowsNilValues=true|keyPath=note"},
            {"type='color'", "class=ZelInspectorColorProperty|colorList=System|defaultColor=#ff000000"},
            {"type='color' colorList='Crayons' defaultColor='NSDeviceRGBColorSpace 1 0 0 0'",
             "class=ZelInspectorColorProperty|colorList=Crayons|defaultColor=#00ff0000"},
            {"type='resource' placeholder='Size' resourcesKeyPath='names'",
             "class=ZelInspectorResourceProperty|placeholder=Größe|resourcesKeyPath=names"},
            {"type='frame'",
             "class=ZelInspectorBoundsProperty|flipped=true|increment=1|showOriginSelector=false|formatStyle=0"},
            {R"(type="frame" formatStyle="decimal" formatUnit=" pt" increment="0.5" incrementKeyPath="a" flipped="no"
                flippedKeyPath="b" showOriginSelector="yes" enabledKeyPath="missing")",
             "class=ZelInspectorBoundsProperty|formatStyle=1|formatUnit= pt|increment=0.5|incrementKeyPath=a|"
             "flipped=false|flippedKeyPath=b|showOriginSelector=true"},
            {"type='size' title='No' titleKeyPath='no'",
             "class=ZelInspectorSizeProperty|title=|titleKeyPath=|widthTitle=Width|heightTitle=Height|"
             "nilValueControlIsOffWhenNil=true|increment=1|formatStyle=0"},
            {R"(type="point" widthTitle="Size" widthTitleKeyPath="a" heightTitle="" heightTitleKeyPath="b"
                nilValueControlIsOffWhenNil="no" nonNilValueKeyPath="c" formatStyle="decimal" formatUnit=" pt"
                increment="2" incrementKeyPath="d")",
             "class=ZelInspectorSizeProperty|widthTitle=Größe|widthTitleKeyPath=a|heightTitle=|heightTitleKeyPath=b|"
             "formatStyle=1|formatUnit= pt|nilValueControlIsOffWhenNil=false|nonNilValueKeyPath=c|increment=2|"
             "incrementKeyPath=d"},
        };
        for (const auto &[attributes, expected] : rows)
            checkMade(inSliver(QByteArray("<property ") + attributes + "/>"), {expected});
        QVERIFY(ZelInspectorAttributedStringProperty::paragraphStyleInspectorMaker());
        const auto slides = [this](const QByteArray &attributes) {
            return static_cast<ZelInspectorNumberProperty *>(property("type='number'" + attributes))->slidesInSteps;
        };
        QVERIFY(slides(" increment='1'") && !slides("")); // no step was asked for
    }

    void attributesReachRowsChoicesAndOptions()
    {
        QPixmap pixmap(8, 8);
        pixmap.fill(Qt::red);
        QVERIFY(pixmap.save(m_files.write("Mark.png", {}).toLocalFile()));
        ZelNamedImages::setImageForName(pixmap, "Registered");
        m_files.write("Row.xml", R"(<slice title="File" fullWidth="yes" visibleKeyPath="a" keyPath="k" actionName="Act"
            visibleValueTransformer="ZelNegateBooleanTransformerName" actionSelector="s"/>)");
        checkMade(inSection(R"(<chooser title="Kind" keyPath="extra" actionSelector="noteAction" actionName="Size"
                      visibleKeyPath="unlocked"><choice title="Size" value="0x10" hidden="yes" enabled="no"
                      image="Registered"/><choice image="Mark"/><choice image=""/></chooser>)"),
                  {"class=ZelInspectorChooser|title=Kind|keyPath=extra|visibleKeyPath=unlocked|"
                   "actionSelector=noteAction|actionName=Größe",
                   "class=ZelInspectorChooserChoice|title=Größe|value=16|text=0x10|hidden=true|enabled=false|image=set",
                   "class=ZelInspectorChooserChoice|title=|value=0|text=|hidden=false|enabled=true|image=set",
                   "class=ZelInspectorChooserChoice|title=|value=0|text=|hidden=false|enabled=true|image="});
        checkMade(inSliver(R"(<property type="enumeration" editable="no" bitMask="0xF0"
                      enumeratedValuesKeyPath="values" enumeratedDisplayValuesKeyPath="names"><option-group>
                      <option title="Size" value="16"/><option value="12abc" hidden="yes" enabled="no"/></option-group>
                      <option-group enumeratedValuesKeyPath="v" enumeratedDisplayValuesKeyPath="d"/></property>)"),
                  {"class=ZelInspectorTextEnumerationProperty|editable=false|bitMask=240|"
                   "enumeratedValuesKeyPath=values|enumeratedDisplayValuesKeyPath=names",
                   "class=ZelOption|title=Größe|value=16|text=16|enabled=true|hidden=false",
                   "class=ZelOption|title=|value=12|text=12abc|enabled=false|hidden=true",
                   "class=ZelOptionGroup|enumeratedValuesKeyPath=|enumeratedDisplayValuesKeyPath=",
                   "class=ZelOptionGroup|enumeratedValuesKeyPath=v|enumeratedDisplayValuesKeyPath=d"});
        // What an included file sets holds unless it is overridden.
        checkMade(inSection(R"(<sliver file="Row.xml"/><sliver file="Row.xml" title="Here" fullWidth="no"
                      visibleKeyPath="b"/><chooser file="Row.xml"/>
                      <chooser file="Row.xml" title="" keyPath="l" actionSelector="t"/>)"),
                  {"class=ZelInspectorSliver|title=File|fullWidth=true|visibleKeyPath=a|visibleValueTransformer=set",
                   "class=ZelInspectorSliver|title=Here|fullWidth=false|visibleKeyPath=b|visibleValueTransformer=set",
                   "class=ZelInspectorChooser|title=File|keyPath=k|actionName=Act|actionSelector=s",
                   "class=ZelInspectorChooser|title=|keyPath=l|actionName=Act|actionSelector=t"});
    }

    void editorsWithTheSameOptionsHaveObjectsOfTheirOwn()
    {
        const QByteArray row = "<sliver><property type='enumeration'><option-group><option title='Size' value='1'/>"
                               "</option-group></property></sliver>";
        const Tree tree = slice(inSection(row + row));
        const auto editors = tree->findChildren<ZelInspectorEnumerationProperty *>();
        QCOMPARE(editors.size(), 2);
        QCOMPARE(editors.first()->searchTexts(), QStringList{"Größe"});
        editors.first()->optionGroups().first()->options().first()->title = "Mine";
        QCOMPARE(editors.first()->searchTexts(), QStringList{"Mine"});
        QCOMPARE(editors.last()->searchTexts(), QStringList{"Größe"});
        editors.last()->setOptionGroups({});
        QVERIFY(editors.last()->optionGroups().isEmpty());
    }

    void theDelegateMakesTypesOfTheApplication()
    {
        auto delegate = std::make_unique<Delegate>();
        m_generator->setDelegate(delegate.get());
        const Failures failures;
        Tree tree =
            slice(inSliver("<property type='mine' title='a'/><property type='number'/><property type='theirs'/>"));
        QCOMPARE(delegate->asked, QStringList({"mine", "theirs"}));
        QCOMPARE(tree->findChildren<ZelInspectorProperty *>().size(), 2);
        QVERIFY(tree->findChild<NotingProperty *>()->title().isNull());
        QCOMPARE(failures.seen,
                 QStringList({g_here + "Type not suppored: theirs", g_here + "Expected inspector property class"}));
        delegate.reset();
        tree = slice(inSliver("<property type='mine'/>"));
        QVERIFY(!tree->findChild<ZelInspectorProperty *>());
    }

    void faultsAreAssertionsWithTheirPlace()
    {
        m_files.write("Wrong.xml", "\n <property type='number'/>");
        const char *wrong = "Expected inspector element: property";
        const std::tuple<QByteArray, const char *, const char *> rows[] = {
            {"<panes/>", "No panes in the configuration", "1:1 panes"},
            {"<panes>\n <pane/></panes>", "No inspectors in the configuration", "2:2 pane"},
            {"<panes><pane>\n<inspector/></pane></panes>", "No slice in the configuration", "2:1 inspector"},
            {inSection("<property/>"), "Unsupported element property", "3:1 property"},
            {inSection("<chooser><choice><section/></choice></chooser>"), "Unsupported element section",
             "3:18 section"},
            {"<slice class='Unknown'/>", "Missing class Unknown", "1:1 slice"},
            {"<slice class='NotingProperty'/>", "Missing class NotingProperty", "1:1 slice"},
            {inSliver("<property type='custom' class='QObject'/>"), "Missing class QObject", "3:1 property"},
            {inSection("<chooser><choice image='Nowhere'/></chooser>"), "Missing image with name Nowhere",
             "3:10 choice"},
            {inSliver("<property/>"), "Property type not given", "3:1 property"},
            {inSliver("<property type=''/>"), "Property type not given", "3:1 property"},
            {inSliver("<property type='Number'/>"), "Type not suppored: Number", "3:1 property"},
            {inSliver("<property type='color' colorList='None'/>"), "No color list found with name None",
             "3:1 property"},
            {inSliver("<property type='number' formatStyle='real'/>"), "Unsupported format style: real",
             "3:1 property"},
            {inSliver("<property type='number' slider='round'/>"), "Unsupported value: round", "3:1 property"},
            {inSliver("<property type='enumeration' style='Popup'/>"), "Unsupported style: Popup", "3:1 property"},
            {"<slice><section file='Wrong.xml'/></slice>", wrong, "2:2 property"},
            {inSection("<sliver file='Wrong.xml'/>"), wrong, "2:2 property"},
            {inSection("<chooser file='Wrong.xml'/>"), wrong, "2:2 property"},
            {inSliver("<property type='file' file='Wrong.xml'/>"), wrong, "2:2 property"},
        };
        for (const auto &[description, message, place] : rows) {
            QByteArray xml = description;
            if (description.count('<') > 1)
                xml.insert(xml.lastIndexOf("</"), xml.startsWith("<panes")
                                                      ? "<pane title='end'><inspector><slice/></inspector></pane>"
                                                      : "<section title='end'/>");
            m_generator->setUrl(m_files.write("Faulty.xml", xml));
            const auto make = [&] {
                if (xml.startsWith("<panes"))
                    return std::unique_ptr<QObject>(m_generator->createTabbedInspector());
                return std::unique_ptr<QObject>(m_generator->createSlice());
            };
            QVERIFY_EXCEPTION_THROWN(make(), ZelInternalInconsistencyException);
            const Failures failures;
            const auto made = make();
            QCOMPARE(failures.seen.value(0), g_here + message);
            QCOMPARE(text(failures.places.first()), (message == wrong ? "Wrong.xml " : "Faulty.xml ") + QString(place));
            QVERIFY2(xml == description || titles(made.get()).contains("end"), description); // what follows is built
        }
    }

    void rootsMustFit()
    {
        Failures failures;
        m_generator->setUrl(m_files.write("Other.xml", "<other/>"));
        QVERIFY(!m_generator->createTabbedInspector() && !m_generator->createPane() && !m_generator->createSlice());
        m_generator->setOwner(nullptr);
        QVERIFY(!m_generator->createSlice());
        m_generator->setUrl({});
        QVERIFY(!m_generator->createPane());
        QCOMPARE(failures.taken().join('|').remove(g_here),
                 "Expected inspector element: other|Expected inspector element: other|Expected slice element: other|"
                 "Missing owner|Missing URL");
    }

    void unreadableFilesAreExceptions()
    {
        // A.xml includes what is written to B.xml and C.xml. Exactly what lives at the fault is taken down.
        const QByteArray live = "<sliver>" + g_noting + "</sliver>";
        const QByteArray includesB = inSection(live + "<sliver file='B.xml'/>");
        const std::pair<QByteArrayList, const char *> rows[] = {
            {{}, "The file does not exist. @ Missing.xml 0:0 "},
            {{includesB, "<slice>\n<section>\n</slice>"},
             "Opening and ending tag mismatch: </slice> stands there. <section> of line 2 is open. @ B.xml 3:3 "
             "section"},
            {{includesB, ""}, "The file is empty. @ B.xml 1:1 "},
            {{includesB, "<!DOCTYPE a [<!ENTITY e 'e'>]><slice/>"},
             "A document type declaration is not allowed. @ B.xml 1:1 "},
            {{inSection(live + "<sliver file='A.xml'/>")},
             "The file includes itself: A.xml > A.xml @ A.xml 3:66 sliver"},
            {{includesB, "<slice file='x'>\n <property type='f' file='C.xml'/></slice>",
              "<slice type='g' file='A.xml'/>"},
             "The file includes itself: A.xml > B.xml > C.xml > A.xml @ C.xml 1:1 slice"},
            {{"<slice>\n<section file='B.xml'/></slice>", "<slice>" + live + "<chooser file='C.xml'/></slice>",
              "<slice><choice>\n<sliver file='B.xml'/></choice></slice>"},
             "The file includes itself: B.xml > C.xml > B.xml @ C.xml 2:1 sliver"},
            {{inSliver("<property type='f' file='B.xml'/>"), "<slice type='f' file='B.xml'/>"},
             "The file includes itself: B.xml > B.xml @ B.xml 1:1 slice"},
        };
        for (const auto &[files, expected] : rows) {
            m_generator->setUrl(QUrl("file:/nowhere/Missing.xml"));
            for (qsizetype i = files.size() - 1; i >= 0; --i)
                m_generator->setUrl(m_files.write(QString("ABC").mid(i, 1) + ".xml", files.at(i)));
            QCOMPARE(thrown([this] { m_generator->createSlice(); }), expected);
            QCOMPARE(NotingProperty::alive, 0);
        }
        // After a failure the generator works as before, and reads the file anew.
        for (const QByteArray &xml : {inSliver(g_noting + "<property type='?'/>"),
                                      inSliver(g_noting + "<property type='boolean' bits='0xZZ'/>"),
                                      QByteArray("<slice visibleValueTransformer='none'/>"),
                                      QByteArray("<slice visibleKeyPath='" + QByteArray("a.").repeated(64) + "a'/>")})
            QVERIFY_EXCEPTION_THROWN(slice(xml), ZelInternalInconsistencyException);
        QCOMPARE(NotingProperty::alive, 0);
        const Tree tree = slice(inSliver(g_noting + g_noting));
        QCOMPARE(NotingProperty::alive, 2);
    }

    void whatIncludesTooMuchEndsSoon()
    {
        // @ is the next file's number: each file includes the next twice, one below the other, one after the other.
        for (const QByteArray body :
             {"<slice><sliver/><chooser file='F@.xml'/><chooser file='F@.xml'/>"
              "<choice><chooser file='F@.xml'/><chooser file='F@.xml'/></choice></slice>",
              "<slice><choice><chooser file='F@.xml'/></choice></slice>", "<slice file='F@.xml'/>"}) {
            for (int i = 0; i < 100; ++i)
                m_files.write(QString("F%1.xml").arg(i), QByteArray(body).replace('@', QByteArray::number(i + 1)));
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
        QCOMPARE(thrown([&] { slice(inSliver(include.repeated(3))); }),
                 "More than 50 elements are described. @ Slice.xml 6:1 property");
    }
};
QTEST_MAIN(tst_ZelDeclarativeInspectorGenerator)
#include "moc_Descriptions.cpp"
#include "tst_ZelDeclarativeInspectorGenerator.moc"
