// SPDX-License-Identifier: MIT
#include "Inspector/Description/private/ZelDescriptionHints.h"

#include "Core/Values/private/ZelNearestName.h"
#include "Inspector/Description/private/ZelDescriptionSchema.h"
#include "Resources/ZelColorList.h"

#include <QColor>
#include <algorithm>

namespace {

using Schema = ZelDescriptionSchema;

constexpr std::pair<const char *, const char *> g_synonyms[] = {
    // Attributes
    {"minimum", "min from lower"},
    {"maximum", "max to upper"},
    {"increment", "step singlestep stepsize"},
    {"formatUnit", "unit units suffix"},
    {"formatStyle", "format decimals precision"},
    {"editable", "readonly"},
    {"enabled", "readonly disabled"},
    {"title", "label text name caption header"},
    {"image", "icon pixmap"},
    {"keyPath", "key path property binding bind source field"},
    {"visibleKeyPath", "visible visibility visibleif showif hidden"},
    {"enabledKeyPath", "enabledif"},
    {"toolTip", "hint description"},
    {"whatsThis", "help"},
    {"placeholder", "placeholdertext prompt"},
    {"actionSelector", "action slot clicked onclicked onclick method selector"},
    {"actionName", "undoname undotext undo commandname"},
    {"defaultValue", "default"},
    {"valueTransformer", "transformer converter"},
    {"file", "source include src href"},
    {"bits", "mask bitmask flag"},
    {"colorList", "palette colors"},
    {"resourcesKeyPath", "resources items"},
    {"menuItemsKeyPath", "menu items actions"},
    // Types
    {"boolean", "bool checkbox check switch"},
    {"number", "int integer double float real qreal spinbox slider numeric"},
    {"string", "text qstring str lineedit textfield url"},
    {"enumeration", "enum combobox combo choice select dropdown popup options"},
    {"flags", "bitmask checkboxes multiselect"},
    {"color", "qcolor"},
    {"date", "datetime qdate qdatetime calendar"},
    {"font", "qfont"},
    {"action", "button pushbutton command"},
    {"frame", "rect rectangle qrect qrectf bounds geometry"},
    {"point", "position qpoint qpointf origin"},
    {"size", "qsize qsizef dimensions"},
    {"margins", "padding insets"},
    {"vector", "vector2d vector3d vector4d"},
    // Elements
    {"panes", "tabs tabwidget panels inspectors"},
    {"pane", "tab page panel"},
    {"inspector", "box"},
    {"section", "group groupbox"},
    {"sliver", "row line"},
    {"property", "editor field control widget"},
    {"choice", "case option"},
    {"option-group", "options group"},
    {"option", "item choice value"},
};

QString joined(QStringList names)
{
    constexpr qsizetype most = 5; // of more, none is a help
    names.removeDuplicates();
    const bool isHelp = !names.isEmpty() && names.size() <= most;
    return isHelp ? QString(u", it belongs in " + names.join(QStringLiteral(" or "))) : QString();
}

} // namespace

QString ZelDescriptionHints::synonym(QStringView word, const QStringList &known)
{
    const QString wanted = word.toString().toLower();
    for (const auto &[name, words] : g_synonyms) {
        if (QString::fromLatin1(words).split(u' ').contains(wanted) && known.contains(QLatin1String(name)))
            return QLatin1String(name);
    }
    return {};
}

QString ZelDescriptionHints::color(const QString &text)
{
    static const QString named = QStringLiteral("NSNamedColorSpace");
    const QString list = text.section(u' ', 1, 1);
    if (text.section(u' ', 0, 0) == named) {
        const QString name = text.section(u' ', 2);
        ZelNearestName nearest(name);
        if (const ZelColorListPtr known = ZelColorList::colorListNamed(list))
            nearest.offerAll(known->allKeys());
        return nearest.found().isNull() ? QString() : QStringList{named, list, nearest.found()}.join(u' ');
    }
    if (!QColor::isValidColor(text))
        return {};
    const QColor color(text);
    QString result = QStringLiteral("NSCalibratedRGBColorSpace");
    for (const double part : {color.redF(), color.greenF(), color.blueF(), color.alphaF()})
        result += u' ' + QString::number(part, 'g', 3);
    return result;
}

QString ZelDescriptionHints::placeOfElement(QStringView name)
{
    QStringList parents;
    for (const Schema::Element &parent : Schema::elements()) {
        if (std::ranges::find(parent.children, name) != parent.children.end())
            parents.append(u'<' + parent.role + u'>');
    }
    return joined(parents);
}

QString ZelDescriptionHints::placeOfAttribute(QStringView name)
{
    QStringList elements;
    QStringList properties;
    for (const Schema::Element &element : Schema::elements()) {
        if (!element.attributeNamed(name))
            continue;
        if (element.role != u"property")
            elements.append(u'<' + element.role + u'>');
        else if (!element.type.isNull())
            properties.append(QStringLiteral("<property type=\"%1\">").arg(element.type));
    }
    constexpr qsizetype fewTypes = 3;
    return joined(elements + (properties.size() > fewTypes ? QStringList{QStringLiteral("<property>")} : properties));
}
