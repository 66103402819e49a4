// SPDX-License-Identifier: MIT
#include "Inspector/Properties/ZelInspectorActionProperty.h"
#include "Inspector/Properties/ZelInspectorArrayProperty.h"
#include "Inspector/Properties/ZelInspectorAttributedStringProperty.h"
#include "Inspector/Properties/ZelInspectorBooleanProperty.h"
#include "Inspector/Properties/ZelInspectorBoundsProperty.h"
#include "Inspector/Properties/ZelInspectorColorProperty.h"
#include "Inspector/Properties/ZelInspectorCustomProperty.h"
#include "Inspector/Properties/ZelInspectorDateProperty.h"
#include "Inspector/Properties/ZelInspectorFontProperty.h"
#include "Inspector/Properties/ZelInspectorImageEnumerationProperty.h"
#include "Inspector/Properties/ZelInspectorMenuActionProperty.h"
#include "Inspector/Properties/ZelInspectorNumberProperty.h"
#include "Inspector/Properties/ZelInspectorPointProperty.h"
#include "Inspector/Properties/ZelInspectorResourceProperty.h"
#include "Inspector/Properties/ZelInspectorSizeProperty.h"
#include "Inspector/Properties/ZelInspectorStringProperty.h"
#include "Inspector/Properties/ZelInspectorTextEnumerationProperty.h"
#include "Inspector/Properties/ZelOptionValue.h"
#include "Inspector/ZelDeclarativeInspectorGenerator.h"
#include "Inspector/ZelDescriptionCheck.h"
#include "Inspector/ZelParagraphStyleInspector.h"
#include "Platform/Resources/ZelBundle.h"
#include "Platform/Resources/ZelNamedImages.h"
#include "Platform/Runtime/ZelAssertions.h"
#include "Platform/Runtime/ZelClassRegistry.h"

#include <limits>

// The part of the generator that makes editors from elements "property".

using Generator = ZelDeclarativeInspectorGenerator;
using Configuration = ZelInspectorConfiguration;

namespace {

/// What the application has registered stays.
template<typename... Classes> void registerMissing()
{
    const auto registerOne = []<typename Class>(Class *) {
        if (!ZelClassRegistry::hasClass(QString::fromLatin1(Class::staticMetaObject.className())))
            ZelClassRegistry::registerClass<Class>();
    };
    (registerOne(static_cast<Classes *>(nullptr)), ...);
}

/// Reports at the generator, of which this file is a part.
void fail(const QString &message, const Configuration &configuration)
{
    ZelFail(message, configuration.place(), "src/Inspector/ZelDeclarativeInspectorGenerator.cpp");
}

void applyCommonAttributes(ZelInspectorProperty &property, const Configuration &configuration)
{
    property.setTitle(configuration.localizedStringValueNamed(u"title"));
    property.setTitleKeyPath(configuration.keyPathValueNamed(u"titleKeyPath"));
    property.setKeyPath(configuration.keyPathValueNamed(u"keyPath"));
    property.setValueTransformer(configuration.valueTransformerForAttributeNamed(u"valueTransformer"));
    property.setEnabled(configuration.booleanValueNamed(u"enabled", true));
    property.setEnabledValueTransformer(configuration.valueTransformerForAttributeNamed(u"enabledValueTransformer"));
    property.setEnabledKeyPath(configuration.keyPathValueNamed(u"enabledKeyPath"));
    property.setActionSelector(configuration.selectorValueNamed(u"actionSelector"));
    property.setActionName(configuration.localizedStringValueNamed(u"actionName"));
}

std::optional<quint64> bitsValue(const Configuration &configuration, QStringView name)
{
    if (!configuration.hasValueNamed(name))
        return std::nullopt;
    return configuration.unsignedIntegerValueNamed(name);
}

/// One of the texts that an attribute may have, in any case, and what it stands for.
struct Word
{
    const char *text;
    uint value;
};

/// Stores what the text stands for. Any other text is an assertion, and stores nothing.
void applyWord(uint &value, const QString &text, std::initializer_list<Word> words, const QString &message,
               const Configuration &configuration)
{
    for (const Word &word : words) {
        if (text.compare(QLatin1String(word.text), Qt::CaseInsensitive) == 0) {
            value = word.value;
            return;
        }
    }
    fail(message + text, configuration);
}

void applyFormatStyle(uint &style, const Configuration &configuration)
{
    applyWord(
        style, configuration.stringValueNamed(u"formatStyle", QStringLiteral("integer")),
        {{"integer", ZelInspectorNumberProperty::IntegerStyle}, {"decimal", ZelInspectorNumberProperty::DecimalStyle}},
        QStringLiteral("Unsupported format style: "), configuration);
}

void applySlider(uint &type, const Configuration &configuration)
{
    applyWord(type, configuration.stringValueNamed(u"slider", QStringLiteral("none")),
              {{"none", ZelInspectorNumberProperty::NoSlider},
               {"circular", ZelInspectorNumberProperty::CircularSlider},
               {"linear", ZelInspectorNumberProperty::LinearSlider}},
              QStringLiteral("Unsupported value: "), configuration);
}

void applyNumberFormat(ZelInspectorCompositeProperty &property, const Configuration &configuration)
{
    applyFormatStyle(property.formatStyle, configuration);
    property.formatUnit = configuration.stringValueNamed(u"formatUnit");
    property.increment = configuration.doubleValueNamed(u"increment", 1);
    property.incrementKeyPath = configuration.keyPathValueNamed(u"incrementKeyPath");
}

/// A component keeps its usual title unless the description gives another.
void applyComponentTitle(QString &title, QString &titleKeyPath, const QString &name, const Configuration &configuration)
{
    if (configuration.hasValueNamed(name))
        title = configuration.localizedStringValueNamed(name);
    titleKeyPath = configuration.keyPathValueNamed(QString(name + u"KeyPath"));
}

void applyPairAttributes(ZelInspectorPairProperty &property, const Configuration &configuration)
{
    property.setTitle({}); // the row's label stands beside the checkbox
    property.setTitleKeyPath({});
    property.nilValueControlIsOffWhenNil = configuration.booleanValueNamed(u"nilValueControlIsOffWhenNil", true);
    property.nonNilValueKeyPath = configuration.keyPathValueNamed(u"nonNilValueKeyPath");
    applyNumberFormat(property, configuration);
}

} // namespace

void Generator::registerEditors()
{
    registerMissing<ZelInspectorActionProperty, ZelInspectorArrayProperty, ZelInspectorAttributedStringProperty,
                    ZelInspectorBooleanProperty, ZelInspectorBoundsProperty, ZelInspectorColorProperty,
                    ZelInspectorCustomProperty, ZelInspectorDateProperty, ZelInspectorFontProperty,
                    ZelInspectorImageEnumerationProperty, ZelInspectorMenuActionProperty, ZelInspectorNumberProperty,
                    ZelInspectorPointProperty, ZelInspectorResourceProperty, ZelInspectorSizeProperty,
                    ZelInspectorStringProperty, ZelInspectorTextEnumerationProperty>();
}

/// The types in their order. One without a builder is known, but there is no editor for it.
struct Generator::PropertyType
{
    QStringView name;
    Builder<ZelInspectorProperty> build = nullptr;
};

const Generator::PropertyType *Generator::propertyTypeNamed(const QString &name)
{
    static constexpr PropertyType types[] = {
        {u"boolean", &Generator::createBooleanPropertyForConfiguration},
        {u"action", &Generator::createActionPropertyForConfiguration},
        {u"number", &Generator::createNumberPropertyForConfiguration},
        {u"string", &Generator::createStringPropertyForConfiguration},
        {u"enumeration", &Generator::createEnumerationPropertyForConfiguration},
        {u"color", &Generator::createColorPropertyForConfiguration},
        {u"date", &Generator::createDatePropertyForConfiguration},
        {u"font", &Generator::createFontPropertyForConfiguration},
        {u"resource", &Generator::createResourcePropertyForConfiguration},
        {u"frame", &Generator::createFrameProperty},
        {u"size", &Generator::createSizeProperty},
        {u"point", &Generator::createSizeProperty},
        {u"custom", &Generator::createCustomPropertyForConfiguration},
    };
    const auto type = std::find_if(std::begin(types), std::end(types), [&](const auto &t) { return t.name == name; });
    return type == std::end(types) ? nullptr : type;
}

ZelInspectorProperty *Generator::createPropertyForConfiguration(const Configuration &configuration)
{
    const QString name = configuration.stringValueNamed(u"type");
    if (name.isEmpty()) {
        fail(QStringLiteral("Property type not given"), configuration);
        return nullptr;
    }
    const PropertyType *type = propertyTypeNamed(name);
    if (type && type->build)
        return (this->*type->build)(configuration);
    if (!type) {
        const QUrl url = configuration.urlValueNamed(u"file");
        if (!url.isEmpty())
            return buildIncludedProperty(url, configuration);
        ZelDeclarativeInspectorGeneratorDelegate *maker = delegate();
        ZelInspectorProperty *property =
            maker ? maker->declarativeInspectorGeneratorCreatePropertyForConfiguration(this, configuration) : nullptr;
        if (property)
            return property;
        descriptionCheck().checkFile(configuration);
    }
    fail(u"Type not suppored: " + name, configuration);
    return nullptr;
}

template<typename Class> std::unique_ptr<Class> Generator::makeProperty(const Configuration &configuration) const
{
    auto property = std::make_unique<Class>(m_owner);
    applyCommonAttributes(*property, configuration);
    return property;
}

ZelInspectorProperty *Generator::createBooleanPropertyForConfiguration(const Configuration &configuration)
{
    auto property = makeProperty<ZelInspectorBooleanProperty>(configuration);
    property->bits = bitsValue(configuration, u"bits");
    return property.release();
}

ZelInspectorProperty *Generator::createActionPropertyForConfiguration(const Configuration &configuration)
{
    return configuration.hasValueNamed(u"menuItemsKeyPath") ? createMenuActionPropertyForConfiguration(configuration)
                                                            : createSimpleActionPropertyForConfiguration(configuration);
}

ZelInspectorProperty *Generator::createSimpleActionPropertyForConfiguration(const Configuration &configuration)
{
    return makeProperty<ZelInspectorActionProperty>(configuration).release();
}

ZelInspectorProperty *Generator::createMenuActionPropertyForConfiguration(const Configuration &configuration)
{
    auto property = makeProperty<ZelInspectorMenuActionProperty>(configuration);
    property->menuItemsKeyPath = configuration.keyPathValueNamed(u"menuItemsKeyPath");
    return property.release();
}

ZelInspectorProperty *Generator::createNumberPropertyForConfiguration(const Configuration &configuration)
{
    auto property = makeProperty<ZelInspectorNumberProperty>(configuration);
    property->placeholder = configuration.localizedStringValueNamed(u"placeholder");
    property->minimum = configuration.doubleValueNamed(u"minimum", 0);
    property->minimumKeyPath = configuration.keyPathValueNamed(u"minimumKeyPath");
    property->maximum = configuration.doubleValueNamed(u"maximum", double(std::numeric_limits<float>::max()));
    property->maximumKeyPath = configuration.keyPathValueNamed(u"maximumKeyPath");
    property->increment = configuration.doubleValueNamed(u"increment", 1);
    property->incrementKeyPath = configuration.keyPathValueNamed(u"incrementKeyPath");
    property->slidesInSteps =
        configuration.hasValueNamed(u"increment") || configuration.hasValueNamed(u"incrementKeyPath");
    property->nilValueControlIsOffWhenNil = configuration.booleanValueNamed(u"nilValueControlIsOffWhenNil", true);
    property->nonNilValueKeyPath = configuration.keyPathValueNamed(u"nonNilValueKeyPath");
    property->nonNilValueTitle = configuration.localizedStringValueNamed(u"nonNilValueTitle");
    applyFormatStyle(property->formatStyle, configuration);
    property->formatUnit = configuration.stringValueNamed(u"formatUnit");
    applySlider(property->sliderType, configuration);
    return property.release();
}

ZelInspectorProperty *Generator::createStringPropertyForConfiguration(const Configuration &configuration)
{
    if (configuration.booleanValueNamed(u"attributed"))
        return createAttributedStringPropertyForConfiguration(configuration);
    auto property = makeProperty<ZelInspectorStringProperty>(configuration);
    property->placeholder = configuration.localizedStringValueNamed(u"placeholder");
    property->allowsNilValues = configuration.booleanValueNamed(u"allowsNilValues");
    property->editable = configuration.booleanValueNamed(u"editable", true);
    return property.release();
}

ZelInspectorProperty *Generator::createAttributedStringPropertyForConfiguration(const Configuration &configuration)
{
    ZelParagraphStyleInspector::useForEditors();
    auto property = makeProperty<ZelInspectorAttributedStringProperty>(configuration);
    property->placeholder = configuration.localizedStringValueNamed(u"placeholder");
    property->allowsNilValues = configuration.booleanValueNamed(u"allowsNilValues");
    return property.release();
}

ZelInspectorProperty *Generator::createColorPropertyForConfiguration(const Configuration &configuration)
{
    auto property = makeProperty<ZelInspectorColorProperty>(configuration);
    const QString name = configuration.stringValueNamed(u"colorList", QStringLiteral("System"));
    property->colorList = ZelColorList::colorListNamed(name);
    if (!property->colorList)
        fail(u"No color list found with name " + name, configuration);
    property->defaultColor = configuration.colorForValueNamed(u"defaultColor");
    return property.release();
}

ZelInspectorProperty *Generator::createDatePropertyForConfiguration(const Configuration &configuration)
{
    return makeProperty<ZelInspectorDateProperty>(configuration).release();
}

ZelInspectorProperty *Generator::createFontPropertyForConfiguration(const Configuration &configuration)
{
    return makeProperty<ZelInspectorFontProperty>(configuration).release();
}

ZelInspectorProperty *Generator::createResourcePropertyForConfiguration(const Configuration &configuration)
{
    auto property = makeProperty<ZelInspectorResourceProperty>(configuration);
    property->placeholder = configuration.localizedStringValueNamed(u"placeholder");
    property->resourcesKeyPath = configuration.keyPathValueNamed(u"resourcesKeyPath");
    return property.release();
}

// Points and rectangles

ZelInspectorProperty *Generator::createFrameProperty(const Configuration &configuration)
{
    auto property = makeProperty<ZelInspectorBoundsProperty>(configuration);
    applyNumberFormat(*property, configuration);
    property->setFlipped(configuration.booleanValueNamed(u"flipped", true));
    property->flippedKeyPath = configuration.keyPathValueNamed(u"flippedKeyPath");
    property->showOriginSelector = configuration.booleanValueNamed(u"showOriginSelector");
    return property.release();
}

ZelInspectorProperty *Generator::createSizeProperty(const Configuration &configuration)
{
    auto property = makeProperty<ZelInspectorSizeProperty>(configuration);
    applyPairAttributes(*property, configuration);
    applyComponentTitle(property->widthTitle, property->widthTitleKeyPath, QStringLiteral("widthTitle"), configuration);
    applyComponentTitle(property->heightTitle, property->heightTitleKeyPath, QStringLiteral("heightTitle"),
                        configuration);
    return property.release();
}

ZelInspectorProperty *Generator::createPointProperty(const Configuration &configuration)
{
    auto property = makeProperty<ZelInspectorPointProperty>(configuration);
    applyPairAttributes(*property, configuration);
    applyComponentTitle(property->xTitle, property->xTitleKeyPath, QStringLiteral("xTitle"), configuration);
    applyComponentTitle(property->yTitle, property->yTitleKeyPath, QStringLiteral("yTitle"), configuration);
    return property.release();
}

// The application's own

ZelInspectorProperty *Generator::createCustomPropertyForConfiguration(const Configuration &configuration)
{
    std::unique_ptr<QObject> made(createOfClass(configuration, QStringLiteral("ZelInspectorCustomProperty"),
                                                &ZelInspectorProperty::staticMetaObject));
    if (!made)
        return nullptr;
    applyCommonAttributes(static_cast<ZelInspectorProperty &>(*made), configuration);
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
        fail(u"Unsupported style: " + style, configuration);
    if (!property)
        return nullptr;
    applyCommonAttributes(*property, configuration);
    property->setEditable(configuration.booleanValueNamed(u"editable", true));
    property->setBitMask(bitsValue(configuration, u"bitMask"));
    property->setEnumeratedValuesKeyPath(configuration.keyPathValueNamed(u"enumeratedValuesKeyPath"));
    property->setEnumeratedDisplayValuesKeyPath(configuration.keyPathValueNamed(u"enumeratedDisplayValuesKeyPath"));
    property->setOptionGroups(createOptionGroups(configuration, property.get()));
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

QList<ZelOptionGroup *> Generator::createOptionGroups(const Configuration &configuration, QObject *parent) const
{
    QList<ZelOptionGroup *> groups;
    for (const Configuration &element : configuration.configurationsNamed(u"option-group")) {
        auto *group = new ZelOptionGroup(parent);
        group->enumeratedValuesKeyPath = element.keyPathValueNamed(u"enumeratedValuesKeyPath");
        group->enumeratedDisplayValuesKeyPath = element.keyPathValueNamed(u"enumeratedDisplayValuesKeyPath");
        group->setOptions(createOptions(element, group));
        groups.append(group);
    }
    return groups;
}

QList<ZelOption *> Generator::createOptions(const Configuration &configuration, QObject *parent) const
{
    QList<ZelOption *> options;
    for (const Configuration &element : configuration.configurationsNamed(u"option")) {
        auto *option = new ZelOption(parent);
        option->title = element.localizedStringValueNamed(u"title");
        option->image = imageValue(element);
        option->hidden = element.booleanValueNamed(u"hidden");
        option->enabled = element.booleanValueNamed(u"enabled", true);
        option->value = element.integerValueNamed(u"value");
        ZelOptionValue::setText(option, element.stringValueNamed(u"value"), element.place());
        options.append(option);
    }
    return options;
}

// Images

/// Among the application's images, by name or by file, then in the bundle of the generator's class.
QIcon Generator::imageValue(const Configuration &configuration) const
{
    const QString name = configuration.stringValueNamed(u"image");
    if (name.isEmpty())
        return {};
    const ZelPlaceScope scope(configuration.place());
    QIcon image = ZelNamedImages::imageNamed(name);
    if (image.isNull()) {
        // Where there is none at all, it is the application's bundle that lacks it.
        const bool isOfClass = ZelBundle::mainBundle().urlForImageResource(name).isEmpty() &&
                               !ZelBundle::bundleForClass(metaObject()).urlForImageResource(name).isEmpty();
        image = ZelNamedImages::imageNamedInBundleForClass(name, isOfClass ? metaObject() : &QObject::staticMetaObject);
    }
    if (image.isNull())
        fail(u"Missing image with name " + name, configuration);
    return image;
}
