// SPDX-License-Identifier: MIT
#include "Core/KeyValue/ZelClassRegistry.h"
#include "Inspector/Description/private/ZelDescriptionCheck.h"
#include "Inspector/Description/private/ZelDescriptionFiles.h"
#include "Inspector/Properties/ZelInspectorActionProperty.h"
#include "Inspector/Properties/ZelInspectorArrayProperty.h"
#include "Inspector/Properties/ZelInspectorAttributedStringProperty.h"
#include "Inspector/Properties/ZelInspectorBooleanProperty.h"
#include "Inspector/Properties/ZelInspectorBoundsProperty.h"
#include "Inspector/Properties/ZelInspectorColorProperty.h"
#include "Inspector/Properties/ZelInspectorCustomProperty.h"
#include "Inspector/Properties/ZelInspectorDateProperty.h"
#include "Inspector/Properties/ZelInspectorFlagsProperty.h"
#include "Inspector/Properties/ZelInspectorFontProperty.h"
#include "Inspector/Properties/ZelInspectorImageEnumerationProperty.h"
#include "Inspector/Properties/ZelInspectorMenuActionProperty.h"
#include "Inspector/Properties/ZelInspectorNumberProperty.h"
#include "Inspector/Properties/ZelInspectorNumbersProperty.h"
#include "Inspector/Properties/ZelInspectorPointProperty.h"
#include "Inspector/Properties/ZelInspectorResourceProperty.h"
#include "Inspector/Properties/ZelInspectorSizeProperty.h"
#include "Inspector/Properties/ZelInspectorStringProperty.h"
#include "Inspector/Properties/ZelInspectorTextEnumerationProperty.h"
#include "Inspector/Properties/private/ZelEditorAttributes.h"
#include "Inspector/Properties/private/ZelKnownOptions.h"
#include "Inspector/ZelDeclarativeInspectorGenerator.h"
#include "Inspector/ZelParagraphStyleInspector.h"
#include "Resources/ZelBundle.h"
#include "Resources/ZelNamedImages.h"

#include <algorithm>
#include <span>

// The part of the generator that makes editors from elements "property".

using Generator = ZelDeclarativeInspectorGenerator;
using Configuration = ZelInspectorConfiguration;

namespace {

/// Registers the class unless the application has registered one under its name.
template<typename Class> void registerMissing()
{
    if (!ZelClassRegistry::hasClass(QString::fromLatin1(Class::staticMetaObject.className())))
        ZelClassRegistry::registerClass<Class>();
}

} // namespace

/// One of the library's editor classes and the type of the elements from which it is made; the name is null if there is
/// no such type.
struct Generator::EditorType
{
    QStringView name;
    const QMetaObject *metaObject;
    void (*registerClass)();
    Builder<ZelInspectorProperty> build;

    template<typename Class>
    static constexpr EditorType of(QStringView name = {},
                                   Builder<ZelInspectorProperty> build = &Generator::makeEditor<Class>)
    {
        return {name, &Class::staticMetaObject, &registerMissing<Class>, build};
    }
};

template<typename Class> ZelInspectorProperty *Generator::makeEditor(const Configuration &configuration)
{
    auto editor = std::make_unique<Class>(m_owner);
    editor->configure(configuration);
    return editor.release();
}

/// A type that has a virtual operation of its own names it here, so that subclasses may override the operation.
std::span<const Generator::EditorType> Generator::editorTypes()
{
    static constexpr EditorType types[] = {
        EditorType::of<ZelInspectorBooleanProperty>(u"boolean", &Generator::createBooleanPropertyForConfiguration),
        EditorType::of<ZelInspectorActionProperty>(u"action", &Generator::createActionPropertyForConfiguration),
        EditorType::of<ZelInspectorMenuActionProperty>(),
        EditorType::of<ZelInspectorNumberProperty>(u"number", &Generator::createNumberPropertyForConfiguration),
        EditorType::of<ZelInspectorStringProperty>(u"string", &Generator::createStringPropertyForConfiguration),
        EditorType::of<ZelInspectorAttributedStringProperty>(),
        EditorType::of<ZelInspectorTextEnumerationProperty>(u"enumeration",
                                                            &Generator::createEnumerationPropertyForConfiguration),
        EditorType::of<ZelInspectorImageEnumerationProperty>(),
        EditorType::of<ZelInspectorFlagsProperty>(u"flags", &Generator::createFlagsProperty),
        EditorType::of<ZelInspectorColorProperty>(u"color", &Generator::createColorPropertyForConfiguration),
        EditorType::of<ZelInspectorDateProperty>(u"date", &Generator::createDatePropertyForConfiguration),
        EditorType::of<ZelInspectorFontProperty>(u"font", &Generator::createFontPropertyForConfiguration),
        EditorType::of<ZelInspectorResourceProperty>(u"resource", &Generator::createResourcePropertyForConfiguration),
        EditorType::of<ZelInspectorBoundsProperty>(u"frame", &Generator::createFrameProperty),
        EditorType::of<ZelInspectorSizeProperty>(u"size", &Generator::createSizeProperty),
        EditorType::of<ZelInspectorSizeProperty>(u"point", &Generator::createSizeProperty),
        EditorType::of<ZelInspectorPointProperty>(),
        {u"margins", &ZelInspectorNumbersProperty::staticMetaObject, [] {}, &Generator::createNumbersProperty},
        {u"line", &ZelInspectorNumbersProperty::staticMetaObject, [] {}, &Generator::createNumbersProperty},
        {u"vector", &ZelInspectorNumbersProperty::staticMetaObject, [] {}, &Generator::createNumbersProperty},
        EditorType::of<ZelInspectorArrayProperty>(),
        EditorType::of<ZelInspectorCustomProperty>(u"custom", &Generator::createCustomPropertyForConfiguration),
    };
    return types;
}

void Generator::registerEditors()
{
    for (const EditorType &type : editorTypes())
        type.registerClass();
}

ZelInspectorProperty *Generator::createPropertyForConfiguration(const Configuration &configuration)
{
    const QString name = configuration.stringValueNamed(u"type");
    if (name.isEmpty()) {
        ZelEditorAttributes::fail(QStringLiteral("Property type not given"), configuration);
        return nullptr;
    }
    const auto types = editorTypes();
    const auto type = std::find_if(types.begin(), types.end(), [&](const auto &known) { return known.name == name; });
    if (type != types.end())
        return (this->*type->build)(configuration);
    const QUrl url = includedFile(configuration);
    if (!url.isEmpty())
        return buildIncludedProperty(url, configuration);
    ZelDeclarativeInspectorGeneratorDelegate *maker = delegate();
    ZelInspectorProperty *property =
        maker ? maker->declarativeInspectorGeneratorCreatePropertyForConfiguration(this, configuration) : nullptr;
    if (property)
        return property;
    descriptionCheck().checkFile(configuration);
    ZelEditorAttributes::fail(u"Type not suppored: " + name, configuration);
    return nullptr;
}

ZelInspectorProperty *Generator::createBooleanPropertyForConfiguration(const Configuration &configuration)
{
    return makeEditor<ZelInspectorBooleanProperty>(configuration);
}

ZelInspectorProperty *Generator::createActionPropertyForConfiguration(const Configuration &configuration)
{
    return configuration.hasValueNamed(u"menuItemsKeyPath") ? createMenuActionPropertyForConfiguration(configuration)
                                                            : createSimpleActionPropertyForConfiguration(configuration);
}

ZelInspectorProperty *Generator::createSimpleActionPropertyForConfiguration(const Configuration &configuration)
{
    return makeEditor<ZelInspectorActionProperty>(configuration);
}

ZelInspectorProperty *Generator::createMenuActionPropertyForConfiguration(const Configuration &configuration)
{
    return makeEditor<ZelInspectorMenuActionProperty>(configuration);
}

ZelInspectorProperty *Generator::createNumberPropertyForConfiguration(const Configuration &configuration)
{
    return makeEditor<ZelInspectorNumberProperty>(configuration);
}

ZelInspectorProperty *Generator::createStringPropertyForConfiguration(const Configuration &configuration)
{
    return configuration.booleanValueNamed(u"attributed")
               ? createAttributedStringPropertyForConfiguration(configuration)
               : makeEditor<ZelInspectorStringProperty>(configuration);
}

ZelInspectorProperty *Generator::createAttributedStringPropertyForConfiguration(const Configuration &configuration)
{
    ZelParagraphStyleInspector::useForEditors();
    return makeEditor<ZelInspectorAttributedStringProperty>(configuration);
}

ZelInspectorProperty *Generator::createColorPropertyForConfiguration(const Configuration &configuration)
{
    return makeEditor<ZelInspectorColorProperty>(configuration);
}

ZelInspectorProperty *Generator::createDatePropertyForConfiguration(const Configuration &configuration)
{
    return makeEditor<ZelInspectorDateProperty>(configuration);
}

ZelInspectorProperty *Generator::createFontPropertyForConfiguration(const Configuration &configuration)
{
    return makeEditor<ZelInspectorFontProperty>(configuration);
}

ZelInspectorProperty *Generator::createResourcePropertyForConfiguration(const Configuration &configuration)
{
    return makeEditor<ZelInspectorResourceProperty>(configuration);
}

ZelInspectorProperty *Generator::createFrameProperty(const Configuration &configuration)
{
    return makeEditor<ZelInspectorBoundsProperty>(configuration);
}

ZelInspectorProperty *Generator::createSizeProperty(const Configuration &configuration)
{
    return makeEditor<ZelInspectorSizeProperty>(configuration);
}

ZelInspectorProperty *Generator::createNumbersProperty(const Configuration &configuration)
{
    using Numbers = ZelInspectorNumbersProperty;
    const QString type = configuration.stringValueNamed(u"type");
    uint count = 1;
    ZelEditorAttributes::storeWord(count, configuration, u"components",
                                   {QStringLiteral("3"), QStringLiteral("2"), QStringLiteral("4")},
                                   QStringLiteral("Unsupported number of components: "));
    constexpr Numbers::Kind vectors[] = {Numbers::Vector3, Numbers::Vector2, Numbers::Vector4};
    const Numbers::Kind kind = type == u"margins" ? Numbers::Margins : type == u"line" ? Numbers::Line : vectors[count];
    auto editor = std::make_unique<Numbers>(m_owner, kind);
    editor->configure(configuration);
    return editor.release();
}

ZelInspectorProperty *Generator::createPointProperty(const Configuration &configuration)
{
    return makeEditor<ZelInspectorPointProperty>(configuration);
}

/// An editor of the library that is named by its class reads only the attributes that all editors have.
ZelInspectorProperty *Generator::createCustomPropertyForConfiguration(const Configuration &configuration)
{
    std::unique_ptr<QObject> made(createOfClass(configuration, QStringLiteral("ZelInspectorCustomProperty"),
                                                &ZelInspectorProperty::staticMetaObject));
    if (!made)
        return nullptr;
    auto &editor = static_cast<ZelInspectorProperty &>(*made);
    const auto types = editorTypes();
    const bool isOurs = std::any_of(types.begin(), types.end(),
                                    [&](const auto &type) { return type.metaObject == editor.metaObject(); });
    if (isOurs)
        editor.ZelInspectorProperty::configure(configuration);
    else
        editor.configure(configuration);
    return static_cast<ZelInspectorProperty *>(made.release());
}

// Enumerations

ZelInspectorProperty *Generator::createEnumerationPropertyForConfiguration(const Configuration &configuration)
{
    const QString style = configuration.stringValueNamed(u"style", QStringLiteral("popup"));
    std::unique_ptr<ZelInspectorEnumerationProperty> property;
    if (style == u"popup")
        property.reset(createTextEnumerationPropertyForConfiguration(configuration));
    else if (style == u"segmented")
        property.reset(createImageEnumerationPropertyForConfiguration(configuration));
    else
        ZelEditorAttributes::fail(u"Unsupported style: " + style, configuration);
    return configured(property.release(), configuration);
}

ZelInspectorProperty *Generator::createFlagsProperty(const Configuration &configuration)
{
    const QString style = configuration.stringValueNamed(u"style", QStringLiteral("checkboxes"));
    if (style == u"checkboxes")
        return configured(new ZelInspectorFlagsProperty(m_owner), configuration);
    if (style == u"popup")
        return configured(createTextEnumerationPropertyForConfiguration(configuration), configuration, true);
    ZelEditorAttributes::fail(u"Unsupported style: " + style, configuration);
    return nullptr;
}

ZelInspectorProperty *Generator::configured(ZelInspectorEnumerationProperty *made, const Configuration &configuration,
                                            bool choosesSeveral) const
{
    std::unique_ptr<ZelInspectorEnumerationProperty> property(made);
    if (!property)
        return nullptr;
    if (choosesSeveral)
        property->setChoosesSeveral(true);
    property->configure(configuration);
    describeOptions(property.get(), configuration);
    return property.release();
}

ZelInspectorEnumerationProperty *Generator::createTextEnumerationPropertyForConfiguration(const Configuration &)
{
    return new ZelInspectorTextEnumerationProperty(m_owner);
}

ZelInspectorEnumerationProperty *Generator::createImageEnumerationPropertyForConfiguration(const Configuration &)
{
    return new ZelInspectorImageEnumerationProperty(m_owner);
}

/// Elements with the same options share them.
void Generator::describeOptions(ZelInspectorEnumerationProperty *editor, const Configuration &configuration) const
{
    const ZelXmlElement &element = configuration.element();
    if (element.elementCount() < 2)
        return;
    ZelDescribedOptions::Ptr options = m_knownOptions ? m_knownOptions->find(element) : ZelDescribedOptions::Ptr();
    if (!options) {
        options = new ZelDescribedOptions(readOptions(configuration));
        if (m_knownOptions)
            m_knownOptions->add(element, options);
    }
    if (!options->groups.isEmpty())
        editor->setDescribedOptions(options);
}

ZelDescribedOptions Generator::readOptions(const Configuration &configuration) const
{
    ZelDescribedOptions described;
    for (const Configuration &element : configuration.configurationsNamed(u"option-group")) {
        ZelDescribedOptions::Group group;
        group.enumeratedValuesKeyPath = element.keyPathValueNamed(u"enumeratedValuesKeyPath");
        group.enumeratedDisplayValuesKeyPath = element.keyPathValueNamed(u"enumeratedDisplayValuesKeyPath");
        for (const Configuration &option : element.configurationsNamed(u"option")) {
            group.options.append({.title = option.localizedStringValueNamed(u"title"),
                                  .image = imageValue(option),
                                  .hidden = option.booleanValueNamed(u"hidden"),
                                  .enabled = option.booleanValueNamed(u"enabled", true),
                                  .value = option.integerValueNamed(u"value"),
                                  .text = option.stringValueNamed(u"value"),
                                  .place = option.place()});
        }
        described.groups.append(group);
    }
    return described;
}

// Images

/// Looks for the image among the application's images, by name or by file, then in the bundle of the generator's class.
QIcon Generator::imageValue(const Configuration &configuration) const
{
    const QString name = configuration.stringValueNamed(u"image");
    if (name.isEmpty())
        return {};
    const ZelPlaceScope scope(configuration.place());
    QIcon image = ZelNamedImages::imageNamed(name);
    if (image.isNull()) {
        // If neither bundle has the image, it counts as missing from the application's.
        const QUrl url = ZelBundle::mainBundle().urlForImageResource(name);
        if (m_files)
            m_files->note(url);
        const bool isOfClass =
            url.isEmpty() && !ZelBundle::bundleForClass(metaObject()).urlForImageResource(name).isEmpty();
        image = ZelNamedImages::imageNamedInBundleForClass(name, isOfClass ? metaObject() : &QObject::staticMetaObject);
    }
    if (image.isNull())
        ZelEditorAttributes::fail(u"Missing image with name " + name, configuration);
    return image;
}
