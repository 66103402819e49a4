// SPDX-License-Identifier: MIT
#include "Inspector/ZelDescriptionSchema.h"

#include <algorithm>

namespace {

using Schema = ZelDescriptionSchema;
using Attribute = Schema::Attribute;
using Kind = Schema::Kind;

constexpr Attribute enabling[] = {
    {u"enabled", Kind::Boolean},
    {u"enabledKeyPath", Kind::KeyPath},
    {u"enabledValueTransformer"},
};
constexpr Attribute pane[] = {
    {u"file", Kind::File},
    {u"title"},
    {u"image"},
};
constexpr Attribute container[] = {
    {u"file", Kind::File},
    {u"title"},
    {u"visibleKeyPath", Kind::KeyPath},
    {u"visibleValueTransformer"},
};
constexpr Attribute classOnly[] = {{u"class"}};
constexpr Attribute choosing[] = {{u"keyPath", Kind::KeyPath}, {u"actionSelector"}, {u"actionName"}};
constexpr Attribute choice[] = {
    {u"title"}, {u"image"}, {u"hidden", Kind::Boolean}, {u"enabled", Kind::Boolean}, {u"value"},
};
constexpr Attribute sliver[] = {{u"fullWidth", Kind::Boolean}};
constexpr Attribute choices[] = {
    {u"enumeratedValuesKeyPath", Kind::KeyPath},
    {u"enumeratedDisplayValuesKeyPath", Kind::KeyPath},
};

// Properties
constexpr Attribute untitled[] = {
    {u"type"},
    {u"keyPath", Kind::KeyPath},
    {u"valueTransformer"},
    {u"enabled", Kind::Boolean},
    {u"enabledKeyPath", Kind::KeyPath},
    {u"enabledValueTransformer"},
    {u"actionSelector"},
    {u"actionName"},
};
constexpr Attribute titles[] = {{u"title"}, {u"titleKeyPath", Kind::KeyPath}};
constexpr Attribute boolean[] = {{u"bits", Kind::Bits}};
constexpr Attribute action[] = {{u"menuItemsKeyPath", Kind::KeyPath}};
constexpr Attribute numberFormat[] = {
    {u"formatStyle"},
    {u"formatUnit"},
    {u"increment", Kind::Increment},
    {u"incrementKeyPath", Kind::KeyPath},
};
constexpr Attribute number[] = {
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
constexpr Attribute string[] = {
    {u"placeholder"},
    {u"allowsNilValues", Kind::Boolean},
    {u"editable", Kind::Boolean},
    {u"attributed", Kind::Boolean},
};
constexpr Attribute enumeration[] = {
    {u"style"},
    {u"editable", Kind::Boolean},
    {u"bitMask", Kind::Bits},
};
constexpr Attribute color[] = {{u"colorList"}, {u"defaultColor", Kind::Color}};
constexpr Attribute resource[] = {{u"placeholder"}, {u"resourcesKeyPath", Kind::KeyPath}};
constexpr Attribute frame[] = {
    {u"showOriginSelector", Kind::Boolean},
    {u"flipped", Kind::Boolean},
    {u"flippedKeyPath", Kind::KeyPath},
};
constexpr Attribute size[] = {
    {u"widthTitle"},
    {u"widthTitleKeyPath", Kind::KeyPath},
    {u"heightTitle"},
    {u"heightTitleKeyPath", Kind::KeyPath},
    {u"nonNilValueKeyPath", Kind::KeyPath},
    {u"nilValueControlIsOffWhenNil", Kind::Boolean},
};

constexpr Schema::Element elements[] = {
    {.role = u"panes", .attributes = {enabling}, .children = {u"pane"}},
    {.role = u"pane", .attributes = {pane}, .children = {u"inspector"}},
    {.role = u"inspector", .attributes = {container}, .children = {u"slice"}},
    {.role = u"slice", .attributes = {container, classOnly}, .children = {u"section"}},
    {.role = u"section", .attributes = {container}, .children = {u"sliver", u"chooser"}, .failsOnOtherChildren = true},
    {.role = u"chooser", .attributes = {container, choosing}, .children = {u"choice"}},
    {.role = u"choice", .attributes = {choice}, .children = {u"sliver", u"chooser"}, .failsOnOtherChildren = true},
    {.role = u"sliver", .attributes = {container, sliver}, .children = {u"property"}},
    {.role = u"option-group", .attributes = {choices}, .children = {u"option"}},
    {.role = u"option", .attributes = {choice}},
    {.role = u"property", .type = u"boolean", .attributes = {untitled, titles, boolean}},
    {.role = u"property", .type = u"action", .attributes = {untitled, titles, action}},
    {.role = u"property", .type = u"number", .attributes = {untitled, titles, numberFormat, number}},
    {.role = u"property", .type = u"string", .attributes = {untitled, titles, string}},
    {.role = u"property",
     .type = u"enumeration",
     .attributes = {untitled, titles, enumeration, choices},
     .children = {u"option-group"}},
    {.role = u"property", .type = u"color", .attributes = {untitled, titles, color}},
    {.role = u"property", .type = u"date", .attributes = {untitled, titles}},
    {.role = u"property", .type = u"font", .attributes = {untitled, titles}},
    {.role = u"property", .type = u"resource", .attributes = {untitled, titles, resource}},
    {.role = u"property", .type = u"frame", .attributes = {untitled, titles, numberFormat, frame}},
    {.role = u"property", .type = u"size", .attributes = {untitled, numberFormat, size}},
    {.role = u"property", .type = u"point", .attributes = {untitled, numberFormat, size}},
    {.role = u"property", .type = u"custom", .attributes = {untitled, titles, classOnly}, .isOpen = true},
    // The file, if any, is read by the library; everything else is read by it or by the application.
    {.role = u"property", .attributes = {untitled, titles}, .isOpen = true},
};

} // namespace

const Schema::Attribute *Schema::Element::attributeNamed(QStringView name) const
{
    for (std::span<const Attribute> group : attributes) {
        const auto found = std::ranges::find(group, name, &Attribute::name);
        if (found != group.end())
            return &*found;
    }
    return nullptr;
}

const Schema::Element *Schema::element(QStringView role, QStringView type)
{
    const bool isProperty = role == u"property";
    for (const Element &element : elements) {
        if (element.role == role && (!isProperty || element.type == type || element.type.isNull()))
            return &element;
    }
    return nullptr;
}
