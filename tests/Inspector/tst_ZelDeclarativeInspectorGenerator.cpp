// SPDX-License-Identifier: MIT
#include "Inspector/Descriptions.h"

#include "Controls/Menus/ZelMenuItem.h"
#include "Core/KeyValue/ZelClassRegistry.h"
#include "Inspector/Properties/ZelInspectorAttributedStringProperty.h"
#include "Inspector/Properties/ZelInspectorBoundsProperty.h"
#include "Inspector/Properties/ZelInspectorColorProperty.h"
#include "Inspector/Properties/ZelInspectorEnumerationProperty.h"
#include "Inspector/Properties/ZelInspectorMenuActionProperty.h"
#include "Inspector/Properties/ZelInspectorNumberProperty.h"
#include "Inspector/Properties/ZelInspectorResourceProperty.h"
#include "Inspector/Properties/ZelInspectorSizeProperty.h"
#include "Inspector/Properties/ZelInspectorStringProperty.h"
#include "Inspector/ZelInspectorChooser.h"
#include "Inspector/ZelInspectorSliver.h"
#include "Inspector/ZelTabbedInspector.h"
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

/// The names of the children's titles, as "a b c".
template<typename Child> QString titles(const QList<Child *> &children)
{
    QStringList texts;
    for (const Child *child : children)
        texts.append(child->title());
    return texts.join(u' ');
}

QByteArray inSection(const QByteArray &text)
{
    return "<slice>\n<section>\n" + text + "\n</section>\n</slice>";
}

QByteArray inSliver(const QByteArray &property)
{
    return inSection("<sliver>" + property + "</sliver>");
}

} // namespace

class tst_ZelDeclarativeInspectorGenerator : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void theTreeFollowsTheDescription();
    void choosersHoldTheirChoices();
    void typesChooseTheEditor_data();
    void typesChooseTheEditor();
    void commonAttributesReachTheEditor();
    void numbersHaveTheirOwnAttributes();
    void richTextsHaveTheirOwnAttributes();
    void coloursAndResourcesHaveTheirOwnAttributes();
    void framesHaveTheirOwnAttributes();
    void sizesHaveTitlesOfTheirComponents();
    void enumerationsHaveGroupsOfOptions();
    void classesAreFoundByName();
    void includedSettingsHoldUnlessOverridden();
    void childrenFollowThoseOfTheFile();
    void anInspectorsSlicesReplaceThoseOfTheFile();
    void aPaneFromAFileIgnoresTheIncludingElement();
    void propertiesOfAFileAreOfItsType();
    void theDelegateMakesTypesOfTheApplication();
    void imagesAreNamed();
    void faultsAreAssertionsWithTheirPlace_data();
    void faultsAreAssertionsWithTheirPlace();
    void whereAssertionsReturnTheRestIsBuilt_data();
    void whereAssertionsReturnTheRestIsBuilt();
    void rootsMustFit();
    void unreadableFilesAreExceptions_data();
    void unreadableFilesAreExceptions();
    void filesThatIncludeThemselvesAreExceptions_data();
    void filesThatIncludeThemselvesAreExceptions();
    void whatIncludesTooMuchEndsSoon_data();
    void whatIncludesTooMuchEndsSoon();
    void allElementsCountEachTimeTheirFileIsIncluded();
    void afterAFailureTheGeneratorWorksAsBefore();

private:
    using Tree = std::unique_ptr<ZelInspectorSlice>;
    Tree slice(const QByteArray &text)
    {
        m_generator->setUrl(m_files.write(QStringLiteral("Slice.xml"), text));
        return Tree(m_generator->createSlice());
    }
    template<typename Class> Class *onlyProperty(const Tree &tree)
    {
        const auto found = tree->findChildren<ZelInspectorProperty *>();
        return found.size() == 1 ? qobject_cast<Class *>(found.first()) : nullptr;
    }

    Descriptions m_files;
    EditorOwner m_owner;
    std::unique_ptr<ZelDeclarativeInspectorGenerator> m_generator;
};

void tst_ZelDeclarativeInspectorGenerator::initTestCase()
{
    ZelClassRegistry::registerClass<NotingSlice>();
    ZelClassRegistry::registerClass<NotingProperty>();
    ZelSetLocalizationFunction([](const QString &key) { return key == u"Size" ? QStringLiteral("Größe") : QString(); });
}

void tst_ZelDeclarativeInspectorGenerator::init()
{
    m_generator = std::make_unique<ZelDeclarativeInspectorGenerator>();
    m_generator->setOwner(&m_owner);
    m_generator->setUrl(m_files.write(QStringLiteral("Empty.xml"), "<slice/>"));
}

// Structure

void tst_ZelDeclarativeInspectorGenerator::theTreeFollowsTheDescription()
{
    m_generator->setUrl(m_files.write(QStringLiteral("Tabs.xml"), R"(<panes enabled="no" enabledKeyPath="unlocked">
        <pane title="Size"><inspector title="A" visibleKeyPath="unlocked"><slice/><other/><slice title="Size"/></inspector>
            <inspector><slice/></inspector></pane>
        <unknown/>
        <pane title="Two"><inspector><slice><section title="Size"><sliver title="Size" fullWidth="yes"/>
            <chooser title="Size"/><sliver/></section></slice></inspector></pane></panes>)"));
    const std::unique_ptr<ZelTabbedInspector> tabs(m_generator->createTabbedInspector());
    QCOMPARE(titles(tabs->panes()), QStringLiteral("Größe Two"));
    QVERIFY(!tabs->isEnabled() && tabs->enabledKeyPath() == u"unlocked");
    ZelInspectorPane *pane = tabs->panes().first();
    QCOMPARE(titles(pane->inspectors()), QStringLiteral("A No title"));
    QCOMPARE(pane->inspectors().first()->visibleKeyPath(), QStringLiteral("unlocked"));
    QCOMPARE(titles(pane->inspectors().first()->slices()), QStringLiteral(" Größe"));
    const ZelInspectorSection *section =
        tabs->panes().last()->inspectors().first()->slices().first()->sections().first();
    QCOMPARE(section->title(), QStringLiteral("Größe"));
    QCOMPARE(titles(section->sliversAndChoosers()), QStringLiteral("Size Size ")); // these are not translated
    const auto *sliver = qobject_cast<ZelInspectorSliver *>(section->sliversAndChoosers().first());
    QVERIFY(sliver && sliver->isFullWidth());
    QVERIFY(qobject_cast<ZelInspectorChooser *>(section->sliversAndChoosers().at(1)));
    for (const ZelInspectorContainer *container : tabs->findChildren<ZelInspectorContainer *>())
        QVERIFY(container->owner() == &m_owner && !const_cast<ZelInspectorContainer *>(container)->isViewLoaded());
    tabs->selectInspector(1);
    QCOMPARE(tabs->currentInspector(), tabs->panes().last());
    QVERIFY(!tabs->isViewLoaded());
}

void tst_ZelDeclarativeInspectorGenerator::choosersHoldTheirChoices()
{
    const Tree tree = slice(inSection(R"(<chooser title="Kind" keyPath="extra" actionSelector="noteAction"
        actionName="Size" visibleKeyPath="unlocked"><choice title="Size" value="0x10" hidden="yes" enabled="no">
        <sliver/><chooser title="Inner"><choice/></chooser></choice><choice/></chooser>)"));
    auto *chooser = tree->findChild<ZelInspectorChooser *>();
    QCOMPARE(chooser->keyPath(), QStringLiteral("extra"));
    QCOMPARE(chooser->actionSelector(), ZelSelector("noteAction"));
    QCOMPARE(chooser->actionName(), QStringLiteral("Größe"));
    QCOMPARE(chooser->visibleKeyPath(), QStringLiteral("unlocked"));
    auto *item = new ZelMenuItem(QStringLiteral("Several"));
    chooser->setProperty("multipleValuesMenuItem", QVariant::fromValue(item));
    QCOMPARE(chooser->multipleValuesMenuItem(), item);
    const ZelInspectorChooserChoice *first = chooser->choices().first();
    QCOMPARE(first->title(), QStringLiteral("Größe"));
    QCOMPARE(first->value(), QVariant(16));
    QVERIFY(first->isHidden() && !first->isEnabled());
    QCOMPARE(first->sliversAndChoosers().size(), 2);
    const ZelInspectorChooserChoice *second = chooser->choices().last();
    QVERIFY(!second->isHidden() && second->isEnabled());
    QCOMPARE(second->value(), QVariant(0));
}

void tst_ZelDeclarativeInspectorGenerator::typesChooseTheEditor_data()
{
    QTest::addColumn<QByteArray>("className");
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
        {"type='custom' class='ZelInspectorArrayProperty'", "ZelInspectorArrayProperty"},
        {"type='custom' class='ZelInspectorCustomProperty' file='Slice.xml'", "ZelInspectorCustomProperty"},
    };
    for (const auto &[attributes, className] : rows)
        QTest::newRow(attributes) << QByteArray(className);
}

void tst_ZelDeclarativeInspectorGenerator::typesChooseTheEditor()
{
    QFETCH(QByteArray, className);
    const Tree tree = slice(inSliver(QByteArray("<property ") + QTest::currentDataTag() + "/>"));
    const auto *property = onlyProperty<ZelInspectorProperty>(tree);
    QVERIFY(property);
    QCOMPARE(property->metaObject()->className(), className.constData());
    QCOMPARE(property->owner(), &m_owner);
}

void tst_ZelDeclarativeInspectorGenerator::commonAttributesReachTheEditor()
{
    const Tree tree = slice(inSliver(R"(<property type="custom" title="Size" titleKeyPath="a" keyPath="b" enabled="off"
        valueTransformer="ZelNegateBooleanTransformerName" enabledValueTransformer="ZelNegateBooleanTransformerName"
        enabledKeyPath="c" actionSelector="noteAction:" actionName="Size"/>)"));
    const auto *property = onlyProperty<ZelInspectorProperty>(tree);
    QCOMPARE(property->title(), QStringLiteral("Größe"));
    QCOMPARE(property->titleKeyPath() + property->keyPath() + property->enabledKeyPath(), QStringLiteral("abc"));
    QVERIFY(!property->isEnabled());
    QVERIFY(property->valueTransformer() && property->valueTransformer() == property->enabledValueTransformer());
    QCOMPARE(property->actionSelector().name(), QStringLiteral("noteAction:"));
    QCOMPARE(property->actionName(), QStringLiteral("Größe"));
}

void tst_ZelDeclarativeInspectorGenerator::numbersHaveTheirOwnAttributes()
{
    const Tree plain = slice(inSliver("<property type='number'/>"));
    const auto *number = onlyProperty<ZelInspectorNumberProperty>(plain);
    QCOMPARE(number->minimum, std::optional<double>(0));
    QCOMPARE(number->maximum, std::optional<double>(3.4028234663852886e38));
    QCOMPARE(number->increment, std::optional<double>(1));
    QVERIFY(number->nilValueControlIsOffWhenNil && number->nonNilValueTitle.isNull() && number->placeholder.isNull());
    QCOMPARE(number->formatStyle + number->sliderType, 0U);
    QVERIFY(!number->slidesInSteps); // no step was asked for

    const Tree full = slice(inSliver(R"(<property type="number" placeholder="Size" minimum="-2.5" minimumKeyPath="a"
        maximum="9" maximumKeyPath="b" increment="0.5" incrementKeyPath="c" nilValueControlIsOffWhenNil="no"
        nonNilValueKeyPath="d" nonNilValueTitle="Size" formatStyle="DECIMAL" formatUnit=" pt" slider="Linear"/>)"));
    number = onlyProperty<ZelInspectorNumberProperty>(full);
    QCOMPARE(number->placeholder + number->nonNilValueTitle, QStringLiteral("GrößeGröße"));
    QCOMPARE(number->minimum, std::optional<double>(-2.5));
    QCOMPARE(number->maximum, std::optional<double>(9));
    QCOMPARE(number->increment, std::optional<double>(0.5));
    QVERIFY(number->slidesInSteps);
    QCOMPARE(number->minimumKeyPath + number->maximumKeyPath + number->incrementKeyPath + number->nonNilValueKeyPath,
             QStringLiteral("abcd"));
    QVERIFY(!number->nilValueControlIsOffWhenNil);
    QCOMPARE(number->formatStyle, uint(ZelInspectorNumberProperty::DecimalStyle));
    QCOMPARE(number->sliderType, uint(ZelInspectorNumberProperty::LinearSlider));
    QCOMPARE(number->formatUnit, QStringLiteral(" pt"));
}

void tst_ZelDeclarativeInspectorGenerator::richTextsHaveTheirOwnAttributes()
{
    const Tree tree = slice(inSliver("<property type='string' attributed='yes' placeholder='Size' allowsNilValues='1' "
                                     "keyPath='note'/>"));
    const auto *property = onlyProperty<ZelInspectorAttributedStringProperty>(tree);
    QCOMPARE(property->placeholder + property->keyPath(), QStringLiteral("Größenote"));
    QVERIFY(property->allowsNilValues);
    QVERIFY(ZelInspectorAttributedStringProperty::paragraphStyleInspectorMaker());
}

void tst_ZelDeclarativeInspectorGenerator::coloursAndResourcesHaveTheirOwnAttributes()
{
    Tree tree = slice(inSliver("<property type='color'/>"));
    const auto *color = onlyProperty<ZelInspectorColorProperty>(tree);
    QCOMPARE(color->colorList->name(), QStringLiteral("System"));
    QVERIFY(!color->defaultColor.isValid());
    tree = slice(inSliver("<property type='color' colorList='Crayons' defaultColor='NSDeviceRGBColorSpace 1 0 0 1'/>"));
    color = onlyProperty<ZelInspectorColorProperty>(tree);
    QCOMPARE(color->colorList->name(), QStringLiteral("Crayons"));
    QCOMPARE(color->defaultColor.toQColor(), QColor(Qt::red));
    tree = slice(inSliver("<property type='resource' placeholder='Size' resourcesKeyPath='names'/>"));
    const auto *resource = onlyProperty<ZelInspectorResourceProperty>(tree);
    QCOMPARE(resource->placeholder + resource->resourcesKeyPath, QStringLiteral("Größenames"));
}

void tst_ZelDeclarativeInspectorGenerator::framesHaveTheirOwnAttributes()
{
    Tree tree = slice(inSliver("<property type='frame'/>"));
    const auto *frame = onlyProperty<ZelInspectorBoundsProperty>(tree);
    QCOMPARE(frame->flipped(), QVariant(true));
    QCOMPARE(frame->increment, std::optional<double>(1));
    QVERIFY(!frame->showOriginSelector && frame->formatStyle == ZelInspectorNumberProperty::IntegerStyle);
    tree = slice(inSliver(R"(<property type="frame" formatStyle="decimal" formatUnit=" pt" increment="0.5"
        incrementKeyPath="a" flipped="no" flippedKeyPath="b" showOriginSelector="yes"/>)"));
    frame = onlyProperty<ZelInspectorBoundsProperty>(tree);
    QCOMPARE(frame->flipped(), QVariant(false));
    QCOMPARE(frame->increment, std::optional<double>(0.5));
    QCOMPARE(frame->formatUnit + frame->incrementKeyPath + frame->flippedKeyPath, QStringLiteral(" ptab"));
    QVERIFY(frame->showOriginSelector && frame->formatStyle == ZelInspectorNumberProperty::DecimalStyle);
}

void tst_ZelDeclarativeInspectorGenerator::sizesHaveTitlesOfTheirComponents()
{
    Tree tree = slice(inSliver("<property type='size' title='No' titleKeyPath='no'/>"));
    const auto *size = onlyProperty<ZelInspectorSizeProperty>(tree);
    QCOMPARE(size->title() + size->titleKeyPath(), QString());
    QCOMPARE(size->widthTitle + size->heightTitle, QStringLiteral("WidthHeight"));
    QVERIFY(size->nilValueControlIsOffWhenNil);
    tree = slice(inSliver(R"(<property type="point" widthTitle="Size" widthTitleKeyPath="a" heightTitle=""
        heightTitleKeyPath="b" nilValueControlIsOffWhenNil="no" nonNilValueKeyPath="c" formatStyle="decimal"
        formatUnit=" pt" increment="2" incrementKeyPath="d"/>)"));
    size = onlyProperty<ZelInspectorSizeProperty>(tree);
    QCOMPARE(size->widthTitle + size->heightTitle, QStringLiteral("Größe"));
    QCOMPARE(size->widthTitleKeyPath + size->heightTitleKeyPath + size->nonNilValueKeyPath + size->incrementKeyPath,
             QStringLiteral("abcd"));
    QVERIFY(!size->nilValueControlIsOffWhenNil && size->increment == 2 && size->formatUnit == u" pt");
    QCOMPARE(size->formatStyle, uint(ZelInspectorNumberProperty::DecimalStyle));
}

void tst_ZelDeclarativeInspectorGenerator::enumerationsHaveGroupsOfOptions()
{
    const Tree tree = slice(inSliver(R"(<property type="enumeration" editable="no" bitMask="0xF0"
        enumeratedValuesKeyPath="values" enumeratedDisplayValuesKeyPath="names">
        <option-group><option title="Size" value="16"/><option value="12abc" hidden="yes" enabled="no"/></option-group>
        <option-group enumeratedValuesKeyPath="v" enumeratedDisplayValuesKeyPath="d"/></property>)"));
    const auto *property = onlyProperty<ZelInspectorEnumerationProperty>(tree);
    QVERIFY(!property->isEditable());
    QCOMPARE(property->bitMask(), std::optional<quint64>(0xF0));
    QCOMPARE(property->enumeratedValuesKeyPath(), QStringLiteral("values"));
    QCOMPARE(property->enumeratedDisplayValuesKeyPath(), QStringLiteral("names"));
    QCOMPARE(property->optionGroups().size(), 2);
    const QList<ZelOption *> options = property->optionGroups().first()->options();
    QCOMPARE(options.first()->title, QStringLiteral("Größe"));
    QVERIFY(options.first()->value == 16 && options.first()->enabled && !options.first()->hidden);
    QVERIFY(options.last()->value == 12 && !options.last()->enabled && options.last()->hidden);
    QCOMPARE(property->optionGroups().last()->enumeratedValuesKeyPath, QStringLiteral("v"));
    QCOMPARE(property->optionGroups().last()->enumeratedDisplayValuesKeyPath, QStringLiteral("d"));
}

void tst_ZelDeclarativeInspectorGenerator::classesAreFoundByName()
{
    QVERIFY(qobject_cast<NotingSlice *>(slice("<slice class='NotingSlice'/>").get()));
    // The library's own editors need not be registered.
    const Tree own = slice(inSection("<sliver><property type='custom' class='ZelInspectorPointProperty'/>"
                                     "<property type='custom' class='ZelInspectorStringProperty'/></sliver>"));
    QCOMPARE(own->findChildren<ZelInspectorProperty *>().size(), 2);
    // A class that is no slice is as good as none.
    QuietHandler handler;
    QVERIFY(!slice("<slice class='NotingProperty'/>"));
    QCOMPARE(handler.messages, QStringList(QStringLiteral("Missing class NotingProperty")));
}

// Included files

void tst_ZelDeclarativeInspectorGenerator::includedSettingsHoldUnlessOverridden()
{
    m_files.write(QStringLiteral("Row.xml"), R"(<slice title="File" fullWidth="yes" visibleKeyPath="a"
        visibleValueTransformer="ZelNegateBooleanTransformerName" keyPath="k" actionName="Act" actionSelector="s"/>)");
    const Tree tree = slice(inSection(R"(<sliver file="Row.xml"/>
        <sliver file="Row.xml" title="Here" fullWidth="no" visibleKeyPath="b"/>
        <chooser file="Row.xml"/><chooser file="Row.xml" title="" keyPath="l" actionSelector="t"/>)"));
    const auto slivers = tree->findChildren<ZelInspectorSliver *>();
    QCOMPARE(titles(slivers), QStringLiteral("File Here"));
    QVERIFY(slivers.first()->isFullWidth() && !slivers.last()->isFullWidth());
    QCOMPARE(slivers.first()->visibleKeyPath() + slivers.last()->visibleKeyPath(), QStringLiteral("ab"));
    QVERIFY(slivers.last()->visibleValueTransformer());
    const auto choosers = tree->findChildren<ZelInspectorChooser *>();
    QCOMPARE(choosers.first()->keyPath() + choosers.last()->keyPath(), QStringLiteral("kl"));
    QCOMPARE(choosers.first()->actionSelector().name() + choosers.last()->actionSelector().name(),
             QStringLiteral("st"));
    QCOMPARE(choosers.last()->actionName(), QStringLiteral("Act"));
    QCOMPARE(choosers.first()->title() + u'|' + choosers.last()->title(), QStringLiteral("File|"));
}

void tst_ZelDeclarativeInspectorGenerator::childrenFollowThoseOfTheFile()
{
    m_files.write(QStringLiteral("S.xml"),
                  "<slice class='NotingSlice'><section title='1'/><section title='2'/></slice>");
    m_files.write(QStringLiteral("T.xml"), "<slice title='T'><sliver title='a'/></slice>");
    m_files.write(QStringLiteral("C.xml"), "<slice><choice title='x'/></slice>");
    m_files.write(QStringLiteral("P.xml"), "<slice><property type='custom' title='p'/></slice>");
    const Tree tree = slice(R"(<slice file="S.xml" class="ZelInspectorSlice"><section file="T.xml"><chooser title="b"/>
        <sliver title="c" file="P.xml"><property type="custom" title="q"/></sliver>
        <chooser file="C.xml"><choice title="y"/></chooser></section></slice>)");
    QVERIFY(qobject_cast<NotingSlice *>(tree.get()));
    QCOMPARE(titles(tree->sections()), QStringLiteral("1 2 T"));
    const auto rows = tree->sections().last()->sliversAndChoosers();
    QCOMPARE(titles(rows), QStringLiteral("a b c "));
    QCOMPARE(titles(qobject_cast<ZelInspectorSliver *>(rows.at(2))->properties()), QStringLiteral("p q"));
    QCOMPARE(titles(qobject_cast<ZelInspectorChooser *>(rows.at(3))->choices()), QStringLiteral("x y"));
}

void tst_ZelDeclarativeInspectorGenerator::anInspectorsSlicesReplaceThoseOfTheFile()
{
    m_files.write(QStringLiteral("I.xml"), "<inspector title='File'><slice title='old'/><slice/></inspector>");
    m_generator->setUrl(m_files.write(QStringLiteral("Pane.xml"),
                                      "<pane><inspector file='I.xml'><slice title='new'/></inspector></pane>"));
    const std::unique_ptr<ZelInspectorPane> pane(m_generator->createPane());
    ZelInspector *inspector = pane->inspectors().first();
    QCOMPARE(inspector->title(), QStringLiteral("File"));
    QCOMPARE(titles(inspector->slices()), QStringLiteral("new"));
    QCOMPARE(inspector->findChildren<ZelInspectorSlice *>().size(), 1);
}

void tst_ZelDeclarativeInspectorGenerator::aPaneFromAFileIgnoresTheIncludingElement()
{
    m_files.write(QStringLiteral("Pane.xml"), "<pane title='File'><inspector><slice/></inspector></pane>");
    m_generator->setUrl(
        m_files.write(QStringLiteral("Tabs.xml"),
                      "<panes><pane file='Pane.xml' title='Here' image='none'/><pane file='None.xml' title='Own'>"
                      "<inspector><slice/></inspector></pane></panes>"));
    const std::unique_ptr<ZelTabbedInspector> tabs(m_generator->createTabbedInspector());
    QCOMPARE(titles(tabs->panes()), QStringLiteral("File Own")); // a file that does not exist is no file
}

void tst_ZelDeclarativeInspectorGenerator::propertiesOfAFileAreOfItsType()
{
    m_files.write(QStringLiteral("P.xml"), "<slice type='string' title='File'/>");
    Tree tree = slice(inSliver("<property type='other' file='P.xml' title='Here'/>"));
    QCOMPARE(onlyProperty<ZelInspectorStringProperty>(tree)->title(), QStringLiteral("File"));
    tree = slice(inSliver("<property type='number' file='P.xml'/>")); // a known type has no file
    QVERIFY(onlyProperty<ZelInspectorNumberProperty>(tree));
}

void tst_ZelDeclarativeInspectorGenerator::theDelegateMakesTypesOfTheApplication()
{
    auto delegate = std::make_unique<Delegate>();
    m_generator->setDelegate(delegate.get());
    const QuietHandler handler;
    Tree tree = slice(inSliver("<property type='mine' title='a'/><property type='number'/><property type='theirs'/>"));
    QCOMPARE(delegate->asked, QStringList({QStringLiteral("mine"), QStringLiteral("theirs")}));
    QCOMPARE(tree->findChildren<ZelInspectorProperty *>().size(), 2);
    QVERIFY(tree->findChild<NotingProperty *>()->title().isNull());
    const QString expected = QStringLiteral("Expected inspector property class");
    QCOMPARE(handler.messages, QStringList({QStringLiteral("Type not suppored: theirs"), expected}));
    delegate.reset();
    tree = slice(inSliver("<property type='mine'/>"));
    QVERIFY(!tree->findChild<ZelInspectorProperty *>());
}

void tst_ZelDeclarativeInspectorGenerator::imagesAreNamed()
{
    QPixmap pixmap(8, 8);
    pixmap.fill(Qt::red);
    const QUrl file = m_files.write(QStringLiteral("Mark.png"), {});
    QVERIFY(pixmap.save(file.toLocalFile()));
    ZelNamedImages::setImageForName(pixmap, QStringLiteral("Registered"));
    const Tree tree =
        slice(inSection("<chooser><choice image='Registered'/><choice image='Mark'/><choice image=''/></chooser>"));
    const auto choices = tree->findChild<ZelInspectorChooser *>()->choices();
    QVERIFY(!choices.at(0)->image().isNull() && !choices.at(1)->image().isNull() && choices.at(2)->image().isNull());
}

// Faults

void tst_ZelDeclarativeInspectorGenerator::faultsAreAssertionsWithTheirPlace_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("place"); // line:column element
    const auto row = [](const char *name, const QByteArray &text, const char *message, const char *place) {
        QTest::newRow(name) << text << QString::fromLatin1(message) << QString::fromLatin1(place);
    };
    m_files.write(QStringLiteral("Wrong.xml"), "\n <property type='number'/>");
    row("panes", "<panes/>", "No panes in the configuration", "1:1 panes");
    row("pane", "<panes>\n <pane/></panes>", "No inspectors in the configuration", "2:2 pane");
    row("inspector", "<panes><pane>\n<inspector/></pane></panes>", "No slice in the configuration", "2:1 inspector");
    row("section", inSection("<property/>"), "Unsupported element property", "3:1 property");
    row("choice", inSection("<chooser><choice><section/></choice></chooser>"), "Unsupported element section",
        "3:18 section");
    row("class", "<slice class='Unknown'/>", "Missing class Unknown", "1:1 slice");
    row("custom", inSliver("<property type='custom' class='QObject'/>"), "Missing class QObject", "3:9 property");
    row("image", inSection("<chooser><choice image='Nowhere'/></chooser>"), "Missing image with name Nowhere",
        "3:10 choice");
    row("type", inSliver("<property/>"), "Property type not given", "3:9 property");
    row("empty", inSliver("<property type=''/>"), "Property type not given", "3:9 property");
    row("unknown", inSliver("<property type='Number'/>"), "Type not suppored: Number", "3:9 property");
    row("list", inSliver("<property type='color' colorList='None'/>"), "No color list found with name None",
        "3:9 property");
    row("format", inSliver("<property type='number' formatStyle='real'/>"), "Unsupported format style: real",
        "3:9 property");
    row("slider", inSliver("<property type='number' slider='round'/>"), "Unsupported value: round", "3:9 property");
    row("style", inSliver("<property type='enumeration' style='Popup'/>"), "Unsupported style: Popup", "3:9 property");
    row("transformer", "<slice visibleValueTransformer='none'/>", "Missing value transformer for name none",
        "1:1 slice");
    row("long key path", inSliver("<property type='string' keyPath='" + QByteArray(4097, 'a') + "'/>"),
        "The key path has more than 4096 characters", "3:9 property");
    row("many keys", "<slice visibleKeyPath='" + QByteArray("a.").repeated(64) + "a'/>",
        "The key path has more than 64 keys", "1:1 slice");
    row("bits", inSliver("<property type='boolean' bits='0xZZ'/>"), "Unabled to parse hex value: 0xZZ", "3:9 property");
    for (const char *element : {"section", "sliver", "chooser", "property"}) {
        const QByteArray text = QByteArray("<") + element + " type='file' file='Wrong.xml'/>";
        row(element,
            element == QByteArray("section")    ? "<slice>" + text + "</slice>"
            : element == QByteArray("property") ? inSliver(text)
                                                : inSection(text),
            "Expected inspector element: property", "2:2 property");
    }
}

void tst_ZelDeclarativeInspectorGenerator::faultsAreAssertionsWithTheirPlace()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, message);
    QFETCH(QString, place);
    m_generator->setUrl(m_files.write(QStringLiteral("Faulty.xml"), text));
    try {
        if (text.startsWith("<panes"))
            m_generator->createTabbedInspector();
        else
            m_generator->createSlice();
        QFAIL("nothing was thrown");
    } catch (const ZelInternalInconsistencyException &exception) {
        QCOMPARE(exception.reason(), message);
        const ZelSourcePlace &found = exception.place();
        QCOMPARE(QStringLiteral("%1:%2 %3").arg(found.line).arg(found.column).arg(found.element), place);
        QVERIFY(found.file.endsWith(found.element == u"property" && found.line == 2 ? u"/Wrong.xml" : u"/Faulty.xml"));
        if (!message.startsWith(u"Missing value") && !message.startsWith(u"Unabled") && !message.contains(u"key path"))
            QCOMPARE(exception.location(), QStringLiteral("Inspector/ZelDeclarativeInspectorGenerator"));
    }
}

void tst_ZelDeclarativeInspectorGenerator::whereAssertionsReturnTheRestIsBuilt_data()
{
    faultsAreAssertionsWithTheirPlace_data();
}

void tst_ZelDeclarativeInspectorGenerator::whereAssertionsReturnTheRestIsBuilt()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, message);
    const QuietHandler handler;
    // The faulty element is followed by one that is right.
    const bool isTabs = text.startsWith("<panes");
    const QByteArray more =
        isTabs ? "<pane title='end'><inspector><slice/></inspector></pane>" : "<section title='end'/>";
    QByteArray whole = text;
    const bool isEmptyRoot = whole.count('<') == 1;
    if (!isEmptyRoot)
        whole.insert(whole.lastIndexOf("</"), more);
    m_generator->setUrl(m_files.write(QStringLiteral("Faulty.xml"), whole));
    QObject *tree = isTabs ? static_cast<QObject *>(m_generator->createTabbedInspector()) : m_generator->createSlice();
    const std::unique_ptr<QObject> owned(tree);
    QVERIFY(handler.messages.contains(message));
    if (isEmptyRoot)
        return;
    QVERIFY(tree);
    QCOMPARE(isTabs ? qobject_cast<ZelTabbedInspector *>(tree)->panes().last()->title()
                    : qobject_cast<ZelInspectorSlice *>(tree)->sections().last()->title(),
             QStringLiteral("end"));
}

void tst_ZelDeclarativeInspectorGenerator::rootsMustFit()
{
    const QuietHandler handler;
    m_generator->setUrl(m_files.write(QStringLiteral("Other.xml"), "<other/>"));
    QVERIFY(!m_generator->createTabbedInspector() && !m_generator->createPane() && !m_generator->createSlice());
    m_generator->setOwner(nullptr);
    QVERIFY(!m_generator->createSlice());
    m_generator->setUrl({});
    QVERIFY(!m_generator->createPane());
    const QString expected = QStringLiteral("Expected inspector element: other");
    QCOMPARE(handler.messages, QStringList({expected, expected, QStringLiteral("Expected slice element: other"),
                                            QStringLiteral("Missing owner"), QStringLiteral("Missing URL")}));
}

void tst_ZelDeclarativeInspectorGenerator::unreadableFilesAreExceptions_data()
{
    QTest::addColumn<QByteArray>("included"); // null: no top-level file either
    QTest::addColumn<QString>("place");
    QTest::newRow("missing") << QByteArray() << QStringLiteral("0:0 ");
    QTest::newRow("unclosed") << QByteArray("<slice>\n<section>\n</slice>") << QStringLiteral("3:");
    QTest::newRow("empty") << QByteArray("") << QStringLiteral("");
    QTest::newRow("entity") << QByteArray("<!DOCTYPE a [<!ENTITY e 'e'>]><slice/>") << QStringLiteral("1:");
}

void tst_ZelDeclarativeInspectorGenerator::unreadableFilesAreExceptions()
{
    QFETCH(QByteArray, included);
    QFETCH(QString, place);
    QUrl url = m_files.write(QStringLiteral("Included.xml"), included);
    const QUrl main =
        m_files.write(QStringLiteral("Main.xml"), inSliver("<property type='custom' class='NotingProperty'/></sliver>"
                                                           "<sliver file='Included.xml'>"));
    if (included.isNull())
        url = QUrl::fromLocalFile(QStringLiteral("/nowhere/Main.xml"));
    m_generator->setUrl(included.isNull() ? url : main);
    try {
        m_generator->createSlice();
        QFAIL("nothing was thrown");
    } catch (const ZelGenericException &exception) {
        const QString start = QStringLiteral("Unable to read file from URL %1: ").arg(url.toString());
        QVERIFY(exception.reason().startsWith(start) && exception.reason().size() > start.size());
        const ZelSourcePlace &found = exception.place();
        const QString where = QStringLiteral("%1:%2 %3").arg(found.line).arg(found.column).arg(found.element);
        QVERIFY2(where.startsWith(place), qPrintable(where));
    }
    QCOMPARE(NotingProperty::alive, 0);
}

void tst_ZelDeclarativeInspectorGenerator::filesThatIncludeThemselvesAreExceptions_data()
{
    QTest::addColumn<QByteArrayList>("files"); // A.xml, B.xml, C.xml
    QTest::addColumn<QString>("way");
    QTest::addColumn<QString>("place");
    const QByteArray live = "<sliver><property type='custom' class='NotingProperty'/></sliver>";
    QTest::newRow("itself") << QByteArrayList{inSection(live + "<sliver file='A.xml'/>")}
                            << QStringLiteral("A.xml > A.xml") << QStringLiteral("A.xml 3:66 sliver");
    QTest::newRow("through two others")
        << QByteArrayList{inSection(live + "<sliver file='B.xml'/>"),
                          "<slice file='x'>\n <property type='f' file='C.xml'/></slice>",
                          "<slice type='g' file='A.xml'/>"}
        << QStringLiteral("A.xml > B.xml > C.xml > A.xml") << QStringLiteral("C.xml 1:1 slice");
    QTest::newRow("below the top") << QByteArrayList{"<slice>\n" + QByteArray("<section file='B.xml'/></slice>"),
                                                     "<slice>" + live + "<chooser file='C.xml'/></slice>",
                                                     "<slice><choice>\n<sliver file='B.xml'/></choice></slice>"}
                                   << QStringLiteral("B.xml > C.xml > B.xml") << QStringLiteral("C.xml 2:1 sliver");
    QTest::newRow("property") << QByteArrayList{inSliver("<property type='f' file='B.xml'/>"),
                                                "<slice type='f' file='B.xml'/>"}
                              << QStringLiteral("B.xml > B.xml") << QStringLiteral("B.xml 1:1 slice");
}

void tst_ZelDeclarativeInspectorGenerator::filesThatIncludeThemselvesAreExceptions()
{
    QFETCH(QByteArrayList, files);
    QFETCH(QString, way);
    QFETCH(QString, place);
    for (qsizetype i = files.size() - 1; i >= 0; --i)
        m_generator->setUrl(m_files.write(QString(QChar(char16_t(u'A' + i))) + u".xml", files.at(i)));
    try {
        m_generator->createSlice();
        QFAIL("nothing was thrown");
    } catch (const ZelGenericException &exception) {
        QVERIFY(exception.reason().startsWith(u"Unable to read file from URL file:"));
        QVERIFY2(exception.reason().endsWith(way), qPrintable(exception.reason()));
        const ZelSourcePlace &found = exception.place();
        QCOMPARE(QStringLiteral("%1 %2:%3 %4")
                     .arg(QFileInfo(found.file).fileName())
                     .arg(found.line)
                     .arg(found.column)
                     .arg(found.element),
                 place);
    }
    QCOMPARE(NotingProperty::alive, 0);
}

void tst_ZelDeclarativeInspectorGenerator::whatIncludesTooMuchEndsSoon_data()
{
    QTest::addColumn<QByteArray>("body"); // @ is the next file
    QTest::newRow("each file twice the next")
        << QByteArray("<slice><sliver/><chooser file='@'/><chooser file='@'/>"
                      "<choice><chooser file='@'/><chooser file='@'/></choice></slice>");
    QTest::newRow("one below the other") << QByteArray("<slice><choice><chooser file='@'/></choice></slice>");
    QTest::newRow("one after the other") << QByteArray("<slice file='@'/>");
}

void tst_ZelDeclarativeInspectorGenerator::whatIncludesTooMuchEndsSoon()
{
    QFETCH(QByteArray, body);
    for (int i = 0; i < 100; ++i)
        m_files.write(QStringLiteral("F%1.xml").arg(i),
                      QByteArray(body).replace('@', QByteArray("F" + QByteArray::number(i + 1) + ".xml")));
    m_files.write(QStringLiteral("F100.xml"), "<slice/>");
    m_generator->setUrl(m_files.write(QStringLiteral("Main.xml"), inSection("<chooser file='F0.xml'/>")));
    QElapsedTimer timer;
    timer.start();
    if (body.contains("<slice file"))
        m_generator->setUrl(m_files.write(QStringLiteral("Main.xml"), "<slice file='F0.xml'/>"));
    QVERIFY_EXCEPTION_THROWN(m_generator->createSlice(), ZelGenericException);
    QVERIFY(timer.elapsed() < 60'000);
}

void tst_ZelDeclarativeInspectorGenerator::allElementsCountEachTimeTheirFileIsIncluded()
{
    m_files.write(QStringLiteral("Many.xml"), "<slice type='enumeration'><option-group>" +
                                                  QByteArray("<option/>").repeated(18) + "</option-group></slice>");
    const ZelXmlReader::Limits former = ZelInspectorConfiguration::limits();
    ZelInspectorConfiguration::setLimits({.elements = 50});
    const auto restore = qScopeGuard([&] { ZelInspectorConfiguration::setLimits(former); });
    const QByteArray include = "\n<property type='many' file='Many.xml'/>";
    QVERIFY(slice(inSliver(include.repeated(2))));
    try {
        slice(inSliver(include.repeated(3)));
        QFAIL("nothing was thrown");
    } catch (const ZelGenericException &exception) {
        QVERIFY(exception.reason().endsWith(u"More than 50 elements are described."));
        QCOMPARE(exception.place().line, 6);
    }
}

void tst_ZelDeclarativeInspectorGenerator::afterAFailureTheGeneratorWorksAsBefore()
{
    const QByteArray live = "<property type='custom' class='NotingProperty'/>";
    QVERIFY_EXCEPTION_THROWN(slice(inSliver(live + "<property type='unknown'/>")), ZelInternalInconsistencyException);
    QCOMPARE(NotingProperty::alive, 0);
    // The file is read anew.
    const Tree tree = slice(inSliver(live + live));
    QCOMPARE(NotingProperty::alive, 2);
}

QTEST_MAIN(tst_ZelDeclarativeInspectorGenerator)
#include "moc_Descriptions.cpp"
#include "tst_ZelDeclarativeInspectorGenerator.moc"
