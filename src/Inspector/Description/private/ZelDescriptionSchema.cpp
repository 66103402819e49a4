// SPDX-License-Identifier: MIT
#include "Inspector/Description/private/ZelDescriptionSchema.h"

#include <algorithm>

namespace {

using Schema = ZelDescriptionSchema;
using Attribute = Schema::Attribute;
using Kind = Schema::Kind;

// Words
constexpr QStringView g_styleWords[] = {u"popup", u"segmented"};
constexpr Schema::Words g_styles = {g_styleWords, u"Unsupported style: "};
constexpr QStringView g_flagStyleWords[] = {u"checkboxes", u"popup"};
constexpr Schema::Words g_flagStyles = {g_flagStyleWords, u"Unsupported style: "};
constexpr QStringView g_componentWords[] = {u"3", u"2", u"4"};
constexpr Schema::Words g_components = {g_componentWords, u"Unsupported number of components: "};
constexpr QStringView g_formatStyleWords[] = {u"integer", u"decimal"};
constexpr Schema::Words g_formatStyles = {g_formatStyleWords, u"Unsupported format style: ", true};
constexpr QStringView g_sliderWords[] = {u"none", u"circular", u"linear"};
constexpr Schema::Words g_sliders = {g_sliderWords, u"Unsupported value: ", true};

constexpr Attribute g_file[] = {
    {u"editsMultipleValues", Kind::Boolean},
    {u"returnAdvances", Kind::Boolean},
    {u"localized", Kind::Boolean},
};
constexpr Attribute g_enabling[] = {
    {u"enabled", Kind::Boolean},
    {u"enabledKeyPath", Kind::KeyPath},
    {u"enabledValueTransformer", Kind::Transformer},
};
constexpr Attribute g_panes[] = {{u"search", Kind::Boolean}};
constexpr Attribute g_remembered[] = {{u"stateKey"}};
constexpr Attribute g_pane[] = {
    {u"file", Kind::File},
    {u"title", Kind::LocalizedText},
    {u"image", Kind::Image},
    {u"toolTip", Kind::LocalizedText},
    {u"whatsThis", Kind::LocalizedText},
};
constexpr Attribute g_container[] = {
    {u"file", Kind::File},
    {u"visibleKeyPath", Kind::KeyPath},
    {u"visibleValueTransformer", Kind::Transformer},
    {u"toolTip", Kind::LocalizedText},
    {u"whatsThis", Kind::LocalizedText},
};
constexpr Attribute g_title[] = {{u"title", Kind::LocalizedText}};
constexpr Attribute g_label[] = {{u"title", Kind::RowTitle}};
constexpr Attribute g_help[] = {{u"toolTip", Kind::LocalizedText}, {u"whatsThis", Kind::LocalizedText}};
constexpr Attribute g_classOnly[] = {{u"class", Kind::Class}};
constexpr Attribute g_choosing[] = {
    {u"keyPath", Kind::KeyPath}, {u"actionSelector", Kind::Selector}, {u"actionName", Kind::LocalizedText}};
constexpr Attribute g_choice[] = {
    {u"title", Kind::LocalizedText},
    {u"image", Kind::Image},
    {u"hidden", Kind::Boolean},
    {u"enabled", Kind::Boolean},
    {u"value"},
};
constexpr Attribute g_sliver[] = {{u"fullWidth", Kind::Boolean}};
constexpr Attribute g_choices[] = {
    {u"enumeratedValuesKeyPath", Kind::KeyPath},
    {u"enumeratedDisplayValuesKeyPath", Kind::KeyPath},
};

// Properties
constexpr Attribute g_untitled[] = {
    {u"type"},
    {u"keyPath", Kind::KeyPath},
    {u"valueTransformer", Kind::Transformer},
    {u"enabled", Kind::Boolean},
    {u"enabledKeyPath", Kind::KeyPath},
    {u"enabledValueTransformer", Kind::Transformer},
    {u"disabledReason", Kind::LocalizedText},
    {u"actionSelector", Kind::Selector},
    {u"actionName", Kind::LocalizedText},
    {u"toolTip", Kind::LocalizedText},
    {u"whatsThis", Kind::LocalizedText},
    {u"returnAdvances", Kind::Boolean},
    {u"defaultValue"},
    {u"defaultValueKeyPath", Kind::KeyPath},
};
constexpr Attribute g_titles[] = {{u"title", Kind::LocalizedText}, {u"titleKeyPath", Kind::KeyPath}};
constexpr Attribute g_placeholder[] = {{u"placeholder", Kind::LocalizedText}};
constexpr Attribute g_boolean[] = {{u"bits", Kind::Bits}};
constexpr Attribute g_action[] = {{u"menuItemsKeyPath", Kind::KeyPath}};
constexpr Attribute g_numberFormat[] = {
    {u"formatStyle", Kind::Word, &g_formatStyles},
    {u"formatUnit"},
    {u"increment", Kind::Increment},
    {u"incrementKeyPath", Kind::KeyPath},
    {u"expressions", Kind::Boolean},
};
constexpr Attribute g_number[] = {
    {u"wraps", Kind::Boolean},
    {u"minimum", Kind::Number},
    {u"minimumKeyPath", Kind::KeyPath},
    {u"maximum", Kind::Number},
    {u"maximumKeyPath", Kind::KeyPath},
    {u"slider", Kind::Word, &g_sliders},
    {u"placeholder", Kind::LocalizedText},
    {u"nonNilValueTitle", Kind::LocalizedText},
    {u"nonNilValueKeyPath", Kind::KeyPath},
    {u"nilValueControlIsOffWhenNil", Kind::Boolean},
};
constexpr Attribute g_string[] = {
    {u"placeholder", Kind::LocalizedText},   {u"allowsNilValues", Kind::Boolean}, {u"editable", Kind::Boolean},
    {u"editsMultipleValues", Kind::Boolean}, {u"attributed", Kind::Boolean},
};
constexpr Attribute g_enumeration[] = {
    {u"style", Kind::Word, &g_styles},
    {u"editable", Kind::Boolean},
    {u"bitMask", Kind::Bits},
};
constexpr Attribute g_flags[] = {
    {u"style", Kind::Word, &g_flagStyles},
    {u"editable", Kind::Boolean},
    {u"bitMask", Kind::Bits},
};
constexpr Attribute g_color[] = {
    {u"colorList", Kind::ColorList},
    {u"defaultColor", Kind::Color},
    {u"showsAlpha", Kind::Boolean},
};
constexpr Attribute g_resource[] = {{u"placeholder", Kind::LocalizedText}, {u"resourcesKeyPath", Kind::KeyPath}};
constexpr Attribute g_frame[] = {
    {u"showOriginSelector", Kind::Boolean},
    {u"flipped", Kind::Boolean},
    {u"flippedKeyPath", Kind::KeyPath},
};
constexpr Attribute g_vector[] = {{u"components", Kind::Word, &g_components}};
constexpr Attribute g_size[] = {
    {u"widthTitle", Kind::LocalizedText},   {u"widthTitleKeyPath", Kind::KeyPath},
    {u"heightTitle", Kind::LocalizedText},  {u"heightTitleKeyPath", Kind::KeyPath},
    {u"nonNilValueKeyPath", Kind::KeyPath}, {u"nilValueControlIsOffWhenNil", Kind::Boolean},
};

constexpr Schema::Element g_elements[] = {
    {.role = u"panes",
     .attributes = {g_enabling, g_panes, g_remembered},
     .children = {u"pane"},
     .refusalWithoutChildren = u"No panes in the configuration"},
    {.role = u"pane",
     .attributes = {g_pane, g_remembered},
     .children = {u"inspector"},
     .refusalWithoutChildren = u"No inspectors in the configuration",
     .rootOfFile = u"pane"},
    {.role = u"inspector",
     .attributes = {g_container, g_title, g_remembered},
     .children = {u"slice"},
     .refusalWithoutChildren = u"No slice in the configuration",
     .rootOfFile = u"inspector"},
    {.role = u"slice",
     .attributes = {g_container, g_title, g_classOnly},
     .children = {u"section"},
     .rootOfFile = u"slice"},
    {.role = u"section",
     .attributes = {g_container, g_title},
     .children = {u"sliver", u"chooser"},
     .failsOnOtherChildren = true,
     .rootOfFile = u"slice"},
    {.role = u"chooser",
     .attributes = {g_container, g_label, g_choosing},
     .children = {u"choice"},
     .rootOfFile = u"slice"},
    {.role = u"choice",
     .attributes = {g_choice, g_help},
     .children = {u"sliver", u"chooser"},
     .failsOnOtherChildren = true},
    {.role = u"sliver",
     .attributes = {g_container, g_label, g_sliver},
     .children = {u"property"},
     .rootOfFile = u"slice"},
    {.role = u"option-group", .attributes = {g_choices}, .children = {u"option"}},
    {.role = u"option", .attributes = {g_choice}},
    {.role = u"property", .type = u"boolean", .attributes = {g_untitled, g_titles, g_boolean}, .required = u"keyPath"},
    {.role = u"property", .type = u"action", .attributes = {g_untitled, g_titles, g_action}},
    {.role = u"property",
     .type = u"number",
     .attributes = {g_untitled, g_titles, g_numberFormat, g_number},
     .required = u"keyPath"},
    {.role = u"property", .type = u"string", .attributes = {g_untitled, g_titles, g_string}, .required = u"keyPath"},
    {.role = u"property",
     .type = u"enumeration",
     .attributes = {g_untitled, g_titles, g_enumeration, g_choices},
     .children = {u"option-group"},
     .required = u"keyPath"},
    {.role = u"property",
     .type = u"flags",
     .attributes = {g_untitled, g_titles, g_flags, g_choices},
     .children = {u"option-group"},
     .required = u"keyPath"},
    {.role = u"property", .type = u"color", .attributes = {g_untitled, g_titles, g_color}, .required = u"keyPath"},
    {.role = u"property", .type = u"date", .attributes = {g_untitled, g_titles, g_placeholder}, .required = u"keyPath"},
    {.role = u"property", .type = u"font", .attributes = {g_untitled, g_titles, g_placeholder}, .required = u"keyPath"},
    {.role = u"property",
     .type = u"resource",
     .attributes = {g_untitled, g_titles, g_resource},
     .required = u"keyPath"},
    {.role = u"property",
     .type = u"frame",
     .attributes = {g_untitled, g_titles, g_numberFormat, g_frame},
     .required = u"keyPath"},
    {.role = u"property", .type = u"size", .attributes = {g_untitled, g_numberFormat, g_size}, .required = u"keyPath"},
    {.role = u"property", .type = u"point", .attributes = {g_untitled, g_numberFormat, g_size}, .required = u"keyPath"},
    {.role = u"property", .type = u"margins", .attributes = {g_untitled, g_numberFormat}, .required = u"keyPath"},
    {.role = u"property", .type = u"line", .attributes = {g_untitled, g_numberFormat}, .required = u"keyPath"},
    {.role = u"property",
     .type = u"vector",
     .attributes = {g_untitled, g_numberFormat, g_vector},
     .required = u"keyPath"},
    {.role = u"property", .type = u"custom", .attributes = {g_untitled, g_titles, g_classOnly}, .isOpen = true},
    // Any other type. The property is built from the file that it names, or by the application, which may read more.
    {.role = u"property",
     .attributes = {g_untitled, g_titles},
     .isOpen = true,
     .required = u"type",
     .rootOfFile = u"slice"},
};

const Attribute *find(std::span<const Attribute> group, QStringView name)
{
    const auto found = std::ranges::find(group, name, &Attribute::name);
    return found == group.end() ? nullptr : &*found;
}

} // namespace

const Schema::Attribute *Schema::Element::attributeNamed(QStringView name) const
{
    for (std::span<const Attribute> group : attributes) {
        if (const Attribute *found = find(group, name))
            return found;
    }
    return nullptr;
}

const Schema::Attribute *Schema::attributeOfFileNamed(QStringView name)
{
    return find(g_file, name);
}

std::span<const Attribute> Schema::attributesOfFile()
{
    return g_file;
}

std::span<const Schema::Element> Schema::elements()
{
    return g_elements;
}

const Schema::Element *Schema::element(QStringView role, QStringView type)
{
    const bool isProperty = role == u"property";
    for (const Element &element : g_elements) {
        if (element.role == role && (!isProperty || element.type == type || element.type.isNull()))
            return &element;
    }
    return nullptr;
}

QStringView Schema::attributeOfReadOnly(QStringView type)
{
    const QStringView editable = u"editable";
    return element(u"property", type)->attributeNamed(editable) ? editable : QStringView(u"enabled");
}

bool Schema::writesSingleKey(QStringView type)
{
    static constexpr QStringView types[] = {u"boolean", u"enumeration", u"flags", u"size",  u"point",
                                            u"frame",   u"margins",     u"line",  u"vector"};
    return std::ranges::find(types, type) != std::end(types);
}
