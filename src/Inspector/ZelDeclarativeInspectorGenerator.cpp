// SPDX-License-Identifier: MIT
#include "Inspector/ZelDeclarativeInspectorGenerator.h"

#include "Blocks/ZelNamedTransformers.h"
#include "Core/Errors/ZelAssertions.h"
#include "Core/Errors/ZelExceptionReporter.h"
#include "Core/KeyValue/ZelClassRegistry.h"
#include "Inspector/Description/private/ZelDescriptionCheck.h"
#include "Inspector/Description/private/ZelDescriptionFiles.h"
#include "Inspector/Properties/private/ZelKnownOptions.h"
#include "Inspector/ZelInspectorChooser.h"
#include "Inspector/ZelInspectorSliver.h"
#include "Inspector/ZelTabbedInspector.h"
#include "Resources/ZelBundle.h"

#include <typeinfo>

using Generator = ZelDeclarativeInspectorGenerator;
using Configuration = ZelInspectorConfiguration;

namespace {

const QString g_expectedElement = QStringLiteral("Expected inspector element: ");

QString withoutChildren(QStringView role)
{
    return ZelDescriptionSchema::element(role)->refusalWithoutChildren.toString();
}

void applyHelp(ZelViewController &controller, const Configuration &configuration)
{
    controller.setToolTip(configuration.localizedStringValueNamed(u"toolTip", controller.toolTip()));
    controller.setWhatsThis(configuration.localizedStringValueNamed(u"whatsThis", controller.whatsThis()));
}

void applyConditionAndHelp(ZelInspectorConditionalContainer &container, const Configuration &configuration)
{
    // The transformer is set first, since setting the key path may evaluate the condition at once.
    container.setVisibleValueTransformer(configuration.valueTransformerForAttributeNamed(
        u"visibleValueTransformer", container.visibleValueTransformer()));
    container.setVisibleKeyPath(configuration.keyPathValueNamed(u"visibleKeyPath", container.visibleKeyPath()));
    applyHelp(container, configuration);
}

void applyTitleConditionAndHelp(ZelInspectorConditionalContainer &container, const Configuration &configuration)
{
    container.setTitle(configuration.localizedStringValueNamed(u"title", container.title()));
    applyConditionAndHelp(container, configuration);
}

/// Titles of rows are taken as they are written, unless their file says that they are localized like all others.
void applyRowTitle(ZelInspectorConditionalContainer &row, const Configuration &configuration)
{
    if (!configuration.hasValueNamed(u"title"))
        return;
    const bool isLocalized = Configuration(configuration.element().root()).booleanValueNamed(u"localized");
    row.setTitle(isLocalized ? configuration.localizedStringValueNamed(u"title")
                             : configuration.stringValueNamed(u"title"));
}

/// What the element is called in a saved state, in every language.
void applyStateName(ZelInspectorContainer &container, const Configuration &configuration)
{
    if (configuration.hasValueNamed(u"title"))
        container.setStateName(configuration.stringValueNamed(u"title"));
    container.setStateKey(configuration.stringValueNamed(u"stateKey", container.stateKey()));
}

ZelDescriptionFiles::Opened openRoot(ZelDescriptionFiles &files, const ZelInspectorDescription &description,
                                     const QUrl &url)
{
    return description.isEmpty() ? files.open(ZelBundle::sourceOf(url)) : files.open(description);
}

/// The role (see ZelDescriptionSchema) of the elements from which objects of the class are made.
template<typename Class> constexpr QStringView roleOf = {};
template<> constexpr QStringView roleOf<ZelTabbedInspector> = u"panes";
template<> constexpr QStringView roleOf<ZelInspectorPane> = u"pane";
template<> constexpr QStringView roleOf<ZelInspector> = u"inspector";
template<> constexpr QStringView roleOf<ZelInspectorSlice> = u"slice";
template<> constexpr QStringView roleOf<ZelInspectorSection> = u"section";
template<> constexpr QStringView roleOf<ZelInspectorChooser> = u"chooser";
template<> constexpr QStringView roleOf<ZelInspectorChooserChoice> = u"choice";
template<> constexpr QStringView roleOf<ZelInspectorSliver> = u"sliver";
template<> constexpr QStringView roleOf<ZelInspectorProperty> = u"property";

} // namespace

template<typename Class> Class *Generator::buildPlaced(Builder<Class> build, const Configuration &configuration)
{
    Class *made = nullptr;
    ZelExceptionReporter::passOn(configuration.place(), [&] {
        descriptionCheck().check(configuration, roleOf<Class>);
        made = (this->*build)(configuration);
    });
    if (made && made->place().isEmpty()) // what an included file describes has its place there
        made->setPlace(configuration.place());
    return made;
}

/// Keeps the files of a description while the outermost building operation runs.
class Generator::Build
{
public:
    explicit Build(Generator *generator)
        : m_generator(generator->m_files ? nullptr : generator)
    {
        if (!m_generator)
            return;
        m_generator->m_files = std::make_unique<ZelDescriptionFiles>();
        m_generator->m_knownOptions = std::make_unique<ZelKnownOptions>();
    }
    ~Build()
    {
        if (!m_generator)
            return;
        m_generator->m_paths = m_generator->m_files->paths();
        m_generator->m_files.reset();
        m_generator->m_knownOptions.reset();
    }
    Q_DISABLE_COPY_MOVE(Build)

private:
    Generator *m_generator;
};

Generator::ZelDeclarativeInspectorGenerator(QObject *parent)
    : QObject(parent)
{
    if (!ZelClassRegistry::hasClass(QStringLiteral("ZelInspectorSlice")))
        ZelClassRegistry::registerClass<ZelInspectorSlice>();
    registerEditors();
    ZelRegisterTransformers(); // a static library's initialisers may have been left out
}

Generator::~ZelDeclarativeInspectorGenerator() = default;

ZelDeclarativeInspectorGeneratorDelegate *Generator::delegate() const
{
    return m_delegate;
}

void Generator::setDelegate(ZelDeclarativeInspectorGeneratorDelegate *delegate)
{
    m_delegate = delegate;
}

// Roots

bool Generator::canBuild() const
{
    return ZelCheck(!m_url.isEmpty() || !m_description.isEmpty(), QStringLiteral("Missing URL")) &&
           ZelCheck(m_owner, QStringLiteral("Missing owner"));
}

template<typename Class>
Class *Generator::createRoot(QStringView rootName, const QString &mismatch, Builder<Class> build)
{
    if (!canBuild())
        return nullptr;
    const Build building(this);
    const ZelDescriptionFiles::Opened file = openRoot(*m_files, m_description, m_url);
    if (file.root().name() != rootName) {
        ZelFail(mismatch + file.root().name(), file.root().place());
        return nullptr;
    }
    return buildPlaced(build, file.root());
}

ZelTabbedInspector *Generator::createTabbedInspector()
{
    return createRoot(u"panes", g_expectedElement, &Generator::createTabbedInspectorForConfiguration);
}

ZelInspectorPane *Generator::createPane()
{
    return createRoot(u"pane", g_expectedElement, &Generator::createPaneForConfiguration);
}

ZelInspectorSlice *Generator::createSlice()
{
    return createRoot(u"slice", QStringLiteral("Expected slice element: "), &Generator::createSliceForConfiguration);
}

ZelInspectorContainer *Generator::createContainer()
{
    if (!canBuild())
        return nullptr;
    const Build building(this);
    const ZelDescriptionFiles::Opened file = openRoot(*m_files, m_description, m_url);
    const Configuration &root = file.root();
    if (root.name() == roleOf<ZelTabbedInspector>)
        return buildPlaced(&Generator::createTabbedInspectorForConfiguration, root);
    if (root.name() == roleOf<ZelInspectorPane>)
        return buildPlaced(&Generator::createPaneForConfiguration, root);
    if (root.name() == roleOf<ZelInspector>)
        return buildPlaced(&Generator::createInspectorForConfiguration, root);
    if (root.name() == roleOf<ZelInspectorSlice>)
        return buildPlaced(&Generator::createSliceForConfiguration, root);
    ZelFail(g_expectedElement + root.name(), root.place());
    return nullptr;
}

/// The check is open for subclasses of the generator, which may read attributes that this class does not know.
ZelDescriptionCheck Generator::descriptionCheck() const
{
    const auto report = [this](const ZelDescriptionMistake &mistake) {
        if (m_knownOptions)
            m_knownOptions->noteMistake();
        if (m_files)
            m_files->warnOnce(mistake.message, mistake.place);
        else
            ZelLogWarning(mistake.message, mistake.place);
    };
    const auto hasFlawlessOptions = [this](const Configuration &property) {
        return m_knownOptions && m_knownOptions->isFlawless(property.element());
    };
    return {report, {.isOpen = typeid(*this) != typeid(Generator), .hasFlawlessOptions = hasFlawlessOptions}};
}

// Included files and children

template<typename Class>
Class *Generator::buildIncluded(const QUrl &url, QStringView rootName, Builder<Class> build, const Configuration &from)
{
    const Build building(this);
    const ZelDescriptionFiles::Opened file = m_files->open(url, from.place());
    if (file.root().name() != rootName) {
        ZelFail(g_expectedElement + file.root().name(), file.root().place());
        return nullptr;
    }
    return buildPlaced(build, file.root());
}

/// The file that the element includes; empty if it includes none, or one that does not exist.
QUrl Generator::includedFile(const Configuration &from) const
{
    const QUrl url = from.urlValueNamed(u"file");
    if (url.isEmpty() && m_files)
        m_files->noteMissing(from.stringValueNamed(u"file"));
    return url;
}

/// Builds what the file that the element includes describes; null if it includes none.
template<typename Class>
std::unique_ptr<Class> Generator::buildFromFile(QStringView rootName, Builder<Class> build, const Configuration &from)
{
    const QUrl url = includedFile(from);
    return std::unique_ptr<Class>(url.isEmpty() ? nullptr : buildIncluded(url, rootName, build, from));
}

template<typename Child>
Child *Generator::buildChild(Builder<Child> build, const Configuration &configuration, QObject *parent)
{
    const ZelDescriptionFiles::Entered entered(m_files.get(), configuration);
    Child *child = buildPlaced(build, configuration);
    if (child)
        child->setParent(parent); // now, so that the parent deletes it if a later child fails
    return child;
}

template<typename Child>
QList<Child *> Generator::buildChildren(QStringView name, Builder<Child> build, const Configuration &configuration,
                                        QObject *parent)
{
    QList<Child *> children;
    for (const Configuration &element : configuration.configurationsNamed(name)) {
        if (Child *child = buildChild(build, element, parent))
            children.append(child);
    }
    return children;
}

QList<ZelInspectorConditionalContainer *> Generator::buildSliversAndChoosers(const Configuration &configuration,
                                                                             QObject *parent)
{
    QList<ZelInspectorConditionalContainer *> children;
    for (const Configuration &element : configuration.configurations()) {
        ZelInspectorConditionalContainer *child = nullptr;
        const QString name = element.name();
        if (name == u"sliver")
            child = buildChild(&Generator::createSliverForConfiguration, element, parent);
        else if (name == u"chooser")
            child = buildChild(&Generator::createChooserForConfiguration, element, parent);
        else
            ZelFail(u"Unsupported element " + name, element.place());
        if (child)
            children.append(child);
    }
    return children;
}

/// Makes an object of the class that the element names. A class that is not registered or does not derive from the base
/// is an assertion, and null.
QObject *Generator::createOfClass(const Configuration &configuration, const QString &defaultName,
                                  const QMetaObject *base) const
{
    const QString name = configuration.stringValueNamed(u"class", defaultName);
    std::unique_ptr<QObject> object;
    if (ZelClassRegistry::hasClass(name, base))
        object.reset(ZelClassRegistry::create(name, m_owner));
    if (object && object->metaObject()->inherits(base))
        return object.release();
    ZelFail(u"Missing class " + name, configuration.place());
    return nullptr;
}

ZelInspectorProperty *Generator::buildIncludedProperty(const QUrl &url, const Configuration &from)
{
    return buildIncluded(url, u"slice", &Generator::createPropertyForConfiguration, from);
}

// Containers

ZelTabbedInspector *Generator::createTabbedInspectorForConfiguration(const Configuration &configuration)
{
    auto inspector = std::make_unique<ZelTabbedInspector>(m_owner);
    applyStateName(*inspector, configuration);
    inspector->setEnabled(configuration.booleanValueNamed(u"enabled", true));
    inspector->setEnabledValueTransformer(configuration.valueTransformerForAttributeNamed(u"enabledValueTransformer"));
    inspector->setEnabledKeyPath(configuration.keyPathValueNamed(u"enabledKeyPath"));
    inspector->setSearchEnabled(configuration.booleanValueNamed(u"search"));
    if (configuration.configurationsNamed(u"pane").isEmpty())
        ZelFail(withoutChildren(u"panes"), configuration.place());
    inspector->setPanes(buildChildren(u"pane", &Generator::createPaneForConfiguration, configuration, inspector.get()));
    return inspector.release();
}

ZelInspectorPane *Generator::createPaneForConfiguration(const Configuration &configuration)
{
    const QUrl url = includedFile(configuration);
    if (!url.isEmpty())
        return buildIncluded(url, u"pane", &Generator::createPaneForConfiguration, configuration);
    auto pane = std::make_unique<ZelInspectorPane>(m_owner);
    applyStateName(*pane, configuration);
    pane->setTitle(configuration.localizedStringValueNamed(u"title"));
    pane->setImage(imageValue(configuration));
    applyHelp(*pane, configuration);
    if (configuration.configurationsNamed(u"inspector").isEmpty())
        ZelFail(withoutChildren(u"pane"), configuration.place());
    pane->setInspectors(
        buildChildren(u"inspector", &Generator::createInspectorForConfiguration, configuration, pane.get()));
    return pane.release();
}

ZelInspector *Generator::createInspectorForConfiguration(const Configuration &configuration)
{
    auto inspector = buildFromFile(u"inspector", &Generator::createInspectorForConfiguration, configuration);
    if (!inspector) {
        inspector = std::make_unique<ZelInspector>(m_owner);
        inspector->setStateName(QStringLiteral("")); // not the localized standard title
    }
    applyStateName(*inspector, configuration);
    applyTitleConditionAndHelp(*inspector, configuration);
    if (configuration.configurationsNamed(u"slice").isEmpty()) {
        ZelFail(withoutChildren(u"inspector"), configuration.place());
        return inspector.release();
    }
    // The slices of this element replace those of the included file.
    const QList<ZelInspectorSlice *> ofFile = inspector->slices();
    inspector->setSlices(
        buildChildren(u"slice", &Generator::createSliceForConfiguration, configuration, inspector.get()));
    qDeleteAll(ofFile);
    return inspector.release();
}

ZelInspectorSlice *Generator::createSliceForConfiguration(const Configuration &configuration)
{
    auto slice = buildFromFile(u"slice", &Generator::createSliceForConfiguration, configuration);
    if (!slice)
        slice.reset(static_cast<ZelInspectorSlice *>(
            createOfClass(configuration, QStringLiteral("ZelInspectorSlice"), &ZelInspectorSlice::staticMetaObject)));
    if (!slice)
        return nullptr;
    applyTitleConditionAndHelp(*slice, configuration);
    slice->setSections(slice->sections() + buildChildren(u"section", &Generator::createSectionForConfiguration,
                                                         configuration, slice.get()));
    return slice.release();
}

ZelInspectorSection *Generator::createSectionForConfiguration(const Configuration &configuration)
{
    auto section = buildFromFile(u"slice", &Generator::createSectionForConfiguration, configuration);
    if (!section)
        section = std::make_unique<ZelInspectorSection>(m_owner);
    applyTitleConditionAndHelp(*section, configuration);
    section->setSliversAndChoosers(section->sliversAndChoosers() +
                                   buildSliversAndChoosers(configuration, section.get()));
    return section.release();
}

ZelInspectorChooser *Generator::createChooserForConfiguration(const Configuration &configuration)
{
    auto chooser = buildFromFile(u"slice", &Generator::createChooserForConfiguration, configuration);
    if (!chooser)
        chooser = std::make_unique<ZelInspectorChooser>(m_owner);
    applyRowTitle(*chooser, configuration);
    chooser->setKeyPath(configuration.keyPathValueNamed(u"keyPath", chooser->keyPath()));
    applyConditionAndHelp(*chooser, configuration);
    chooser->setActionSelector(configuration.selectorValueNamed(u"actionSelector", chooser->actionSelector()));
    chooser->setActionName(configuration.localizedStringValueNamed(u"actionName", chooser->actionName()));
    chooser->setChoices(chooser->choices() + buildChildren(u"choice", &Generator::createChooserChoiceForConfiguration,
                                                           configuration, chooser.get()));
    return chooser.release();
}

ZelInspectorChooserChoice *Generator::createChooserChoiceForConfiguration(const Configuration &configuration)
{
    auto choice = std::make_unique<ZelInspectorChooserChoice>(m_owner);
    choice->setTitle(configuration.localizedStringValueNamed(u"title"));
    choice->setImage(imageValue(configuration));
    applyHelp(*choice, configuration);
    choice->setHidden(configuration.booleanValueNamed(u"hidden"));
    choice->setEnabled(configuration.booleanValueNamed(u"enabled", true));
    choice->setValue(configuration.integerValueNamed(u"value"));
    choice->setText(configuration.stringValueNamed(u"value"));
    choice->setSliversAndChoosers(buildSliversAndChoosers(configuration, choice.get()));
    return choice.release();
}

ZelInspectorSliver *Generator::createSliverForConfiguration(const Configuration &configuration)
{
    auto sliver = buildFromFile(u"slice", &Generator::createSliverForConfiguration, configuration);
    if (!sliver)
        sliver = std::make_unique<ZelInspectorSliver>(m_owner);
    applyRowTitle(*sliver, configuration);
    sliver->setFullWidth(configuration.booleanValueNamed(u"fullWidth", sliver->isFullWidth()));
    applyConditionAndHelp(*sliver, configuration);
    QList<ZelInspectorProperty *> properties = sliver->properties();
    for (const Configuration &element : configuration.configurationsNamed(u"property")) {
        auto *property = buildChild(&Generator::createPropertyForConfiguration, element, sliver.get());
        if (property)
            properties.append(property);
        else
            ZelFail(QStringLiteral("Expected inspector property class"), element.place());
    }
    sliver->setProperties(properties);
    return sliver.release();
}
