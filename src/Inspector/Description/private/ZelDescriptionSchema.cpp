// SPDX-License-Identifier: MIT
#include "Inspector/Description/private/ZelDescriptionSchema.h"

#include <algorithm>

namespace {

using Schema = ZelDescriptionSchema;
using Attribute = Schema::Attribute;
using Kind = Schema::Kind;

constexpr Attribute g_file[] = {
    {u"editsMultipleValues", Kind::Boolean},
    {u"returnAdvances", Kind::Boolean},
    {u"localized", Kind::Boolean},
};
constexpr Attribute g_enabling[] = {
    {u"enabled", Kind::Boolean},
    {u"enabledKeyPath", Kind::KeyPath},
    {u"enabledValueTransformer"},
};
constexpr Attribute g_panes[] = {{u"search", Kind::Boolean}};
constexpr Attribute g_remembered[] = {{u"stateKey"}};
constexpr Attribute g_pane[] = {
    {u"file", Kind::File}, {u"title"}, {u"image"}, {u"toolTip"}, {u"whatsThis"},
};
constexpr Attribute g_container[] = {
    {u"file", Kind::File},        {u"title"},   {u"visibleKeyPath", Kind::KeyPath},
    {u"visibleValueTransformer"}, {u"toolTip"}, {u"whatsThis"},
};
constexpr Attribute g_help[] = {{u"toolTip"}, {u"whatsThis"}};
constexpr Attribute g_classOnly[] = {{u"class"}};
constexpr Attribute g_choosing[] = {{u"keyPath", Kind::KeyPath}, {u"actionSelector"}, {u"actionName"}};
constexpr Attribute g_choice[] = {
    {u"title"}, {u"image"}, {u"hidden", Kind::Boolean}, {u"enabled", Kind::Boolean}, {u"value"},
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
    {u"valueTransformer"},
    {u"enabled", Kind::Boolean},
    {u"enabledKeyPath", Kind::KeyPath},
    {u"enabledValueTransformer"},
    {u"actionSelector"},
    {u"actionName"},
    {u"toolTip"},
    {u"whatsThis"},
    {u"returnAdvances", Kind::Boolean},
    {u"defaultValue"},
    {u"defaultValueKeyPath", Kind::KeyPath},
};
constexpr Attribute g_titles[] = {{u"title"}, {u"titleKeyPath", Kind::KeyPath}};
constexpr Attribute g_placeholder[] = {{u"placeholder"}};
constexpr Attribute g_boolean[] = {{u"bits", Kind::Bits}};
constexpr Attribute g_action[] = {{u"menuItemsKeyPath", Kind::KeyPath}};
constexpr Attribute g_numberFormat[] = {
    {u"formatStyle"},
    {u"formatUnit"},
    {u"increment", Kind::Increment},
    {u"incrementKeyPath", Kind::KeyPath},
    {u"expressions", Kind::Boolean},
};
constexpr Attribute g_number[] = {
    {u"minimum", Kind::Number},
    {u"minimumKeyPath", Kind::KeyPath},
    {u"maximum", Kind::Number},
    {u"maximumKeyPath", Kind::KeyPath},
    {u"slider"},
    {u"placeholder"},
    {u"nonNilValueTitle"},
    {u"nonNilValueKeyPath", Kind::KeyPath},
    {u"nilValueControlIsOffWhenNil", Kind::Boolean},
};
constexpr Attribute g_string[] = {
    {u"placeholder"},
    {u"allowsNilValues", Kind::Boolean},
    {u"editable", Kind::Boolean},
    {u"editsMultipleValues", Kind::Boolean},
    {u"attributed", Kind::Boolean},
};
constexpr Attribute g_enumeration[] = {
    {u"style"},
    {u"editable", Kind::Boolean},
    {u"bitMask", Kind::Bits},
};
constexpr Attribute g_color[] = {{u"colorList"}, {u"defaultColor", Kind::Color}};
constexpr Attribute g_resource[] = {{u"placeholder"}, {u"resourcesKeyPath", Kind::KeyPath}};
constexpr Attribute g_frame[] = {
    {u"showOriginSelector", Kind::Boolean},
    {u"flipped", Kind::Boolean},
    {u"flippedKeyPath", Kind::KeyPath},
};
constexpr Attribute g_size[] = {
    {u"widthTitle"},
    {u"widthTitleKeyPath", Kind::KeyPath},
    {u"heightTitle"},
    {u"heightTitleKeyPath", Kind::KeyPath},
    {u"nonNilValueKeyPath", Kind::KeyPath},
    {u"nilValueControlIsOffWhenNil", Kind::Boolean},
};

constexpr Schema::Element g_elements[] = {
    {.role = u"panes", .attributes = {g_enabling, g_panes, g_remembered}, .children = {u"pane"}},
    {.role = u"pane", .attributes = {g_pane, g_remembered}, .children = {u"inspector"}},
    {.role = u"inspector", .attributes = {g_container, g_remembered}, .children = {u"slice"}},
    {.role = u"slice", .attributes = {g_container, g_classOnly}, .children = {u"section"}},
    {.role = u"section",
     .attributes = {g_container},
     .children = {u"sliver", u"chooser"},
     .failsOnOtherChildren = true},
    {.role = u"chooser", .attributes = {g_container, g_choosing}, .children = {u"choice"}},
    {.role = u"choice",
     .attributes = {g_choice, g_help},
     .children = {u"sliver", u"chooser"},
     .failsOnOtherChildren = true},
    {.role = u"sliver", .attributes = {g_container, g_sliver}, .children = {u"property"}},
    {.role = u"option-group", .attributes = {g_choices}, .children = {u"option"}},
    {.role = u"option", .attributes = {g_choice}},
    {.role = u"property", .type = u"boolean", .attributes = {g_untitled, g_titles, g_boolean}},
    {.role = u"property", .type = u"action", .attributes = {g_untitled, g_titles, g_action}},
    {.role = u"property", .type = u"number", .attributes = {g_untitled, g_titles, g_numberFormat, g_number}},
    {.role = u"property", .type = u"string", .attributes = {g_untitled, g_titles, g_string}},
    {.role = u"property",
     .type = u"enumeration",
     .attributes = {g_untitled, g_titles, g_enumeration, g_choices},
     .children = {u"option-group"}},
    {.role = u"property", .type = u"color", .attributes = {g_untitled, g_titles, g_color}},
    {.role = u"property", .type = u"date", .attributes = {g_untitled, g_titles, g_placeholder}},
    {.role = u"property", .type = u"font", .attributes = {g_untitled, g_titles, g_placeholder}},
    {.role = u"property", .type = u"resource", .attributes = {g_untitled, g_titles, g_resource}},
    {.role = u"property", .type = u"frame", .attributes = {g_untitled, g_titles, g_numberFormat, g_frame}},
    {.role = u"property", .type = u"size", .attributes = {g_untitled, g_numberFormat, g_size}},
    {.role = u"property", .type = u"point", .attributes = {g_untitled, g_numberFormat, g_size}},
    {.role = u"property", .type = u"custom", .attributes = {g_untitled, g_titles, g_classOnly}, .isOpen = true},
    // Any other type. The property is built from the file that it names, or by the application, which may read more.
    {.role = u"property", .attributes = {g_untitled, g_titles}, .isOpen = true},
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

const Schema::Element *Schema::element(QStringView role, QStringView type)
{
    const bool isProperty = role == u"property";
    for (const Element &element : g_elements) {
        if (element.role == role && (!isProperty || element.type == type || element.type.isNull()))
            return &element;
    }
    return nullptr;
}
