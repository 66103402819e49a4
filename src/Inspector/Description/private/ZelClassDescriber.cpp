// SPDX-License-Identifier: MIT
#include "Inspector/Description/private/ZelClassDescriber.h"

#include "Core/Values/private/ZelValueConversion.h"
#include "Inspector/Description/private/ZelDescriptionCheck.h"
#include "Inspector/Description/private/ZelDescriptionSchema.h"

#include <QRegularExpression>
#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <limits>

namespace {

using Attributes = ZelClassInfo::Attributes;
using Enumeration = ZelDescribedClass::Enumeration;

struct Editor
{
    const char *type; ///< as QMetaType names it
    const char *editor;
    std::array<std::array<const char *, 2>, 2> attributes = {};
};

constexpr Editor g_editors[] = {
    {"bool", "boolean"},
    {"float", "number", {{{"formatStyle", "decimal"}, {"increment", "0.1"}}}},
    {"double", "number", {{{"formatStyle", "decimal"}, {"increment", "0.1"}}}},
    {"QString", "string"},
    {"QUrl", "string"},
    {"QUuid", "string"},
    {"QKeySequence", "string"},
    {"QTime", "string"},
    {"QLocale", "string"},
    {"QTimeZone", "string"},
    {"QRegularExpression", "string"},
    {"QByteArray", "string"},
    {"ZelAttributedString", "string", {{{"attributed", "yes"}}}},
    {"QColor", "color"},
    {"ZelColor", "color"},
    {"QFont", "font"},
    {"QDate", "date"},
    {"QDateTime", "date"},
    {"QPoint", "point", {{{"widthTitle", "X"}, {"heightTitle", "Y"}}}},
    {"QPointF", "point", {{{"widthTitle", "X"}, {"heightTitle", "Y"}}}},
    {"QSize", "size"},
    {"QSizeF", "size"},
    {"QRect", "frame"},
    {"QRectF", "frame"},
    {"QMargins", "margins"},
    {"QMarginsF", "margins"},
    {"QLine", "line"},
    {"QLineF", "line"},
    {"QVector2D", "vector", {{{"components", "2"}}}},
    {"QVector3D", "vector"},
    {"QVector4D", "vector", {{{"components", "4"}}}},
    {"QStringList", "custom", {{{"class", "ZelInspectorArrayProperty"}}}},
};

constexpr const char *g_attributesOfRows[] = {"toolTip", "whatsThis", "fullWidth", "visibleKeyPath",
                                              "visibleValueTransformer"};

template<typename Names> bool contains(const Names &names, const QString &name)
{
    return std::ranges::any_of(names, [&](const char *known) { return name == QLatin1String(known); });
}

/// A class of Qt's own loses its first letter.
QString titleOfClass(const QString &className)
{
    QString name = className.section(QStringLiteral("::"), -1);
    if (name.size() > 2 && name.at(0) == u'Q' && name.at(1).isUpper() && name.at(2).isLower())
        name.remove(0, 1);
    return ZelInspectorDescription::titleForName(name);
}

/// XML has no way to write most control characters.
QString writable(QString text)
{
    static const QRegularExpression unwritable(QStringLiteral("[\\x00-\\x08\\x0b\\x0c\\x0e-\\x1f\\x{fffe}\\x{ffff}]"));
    return text.remove(unwritable);
}

/// A unit stands apart from its number unless it is a sign such as that of degrees.
QString formatUnit(const QString &unit)
{
    return unit.isEmpty() || !(unit.at(0).isLetter() || unit.at(0) == u'%') ? unit : u' ' + unit;
}

std::optional<double> numberNamed(const Attributes &attributes, const char *name)
{
    for (const auto &attribute : attributes) {
        bool isNumber = false;
        const double number = attribute.value.toDouble(&isNumber);
        if (attribute.name == QLatin1String(name) && isNumber)
            return number;
    }
    return std::nullopt;
}

/// About a hundredth of the range: 1, 2 or 5 with zeros.
double incrementOfRange(double range)
{
    const double wanted = range / 100;
    const double magnitude = std::pow(10.0, std::floor(std::log10(wanted)));
    for (const double step : {5.0, 2.0}) {
        if (step * magnitude <= wanted * (1 + 1e-9))
            return step * magnitude;
    }
    return magnitude;
}

/// Numbers go down to what the type holds, unlike in a description that says nothing of their limits.
void setLimits(Attributes &editor, QMetaType type)
{
    constexpr double largest = std::numeric_limits<double>::max();
    const ZelValueConversion::Limits limits = ZelValueConversion::limits(type);
    const bool isFloating = type.id() == QMetaType::Double || type.id() == QMetaType::Float;
    if (type.id() == QMetaType::Double)
        editor.set(QStringLiteral("maximum"), QString::number(largest, 'g', std::numeric_limits<double>::max_digits10));
    const QVariant least = limits.isValid() ? limits.minimum : QVariant(-largest);
    if (least.toDouble() < 0)
        editor.set(QStringLiteral("minimum"),
                   isFloating ? QString::number(least.toDouble(), 'g', std::numeric_limits<double>::max_digits10)
                              : least.toString());
}

} // namespace

ZelClassDescriber::ZelClassDescriber(const QList<ZelDescribedClass> &classes, const Options &options)
    : m_classes(classes)
    , m_options(options)
    , m_info(classes)
{
}

QByteArray ZelClassDescriber::describe()
{
    const bool isPane = m_options.root == ZelInspectorDescription::Options::Pane;
    m_writer.setAutoFormatting(true);
    m_writer.setAutoFormattingIndent(4);
    m_writer.writeStartDocument();
    Attributes root = m_options.ofRoot;
    root.set(QStringLiteral("localized"), QStringLiteral("yes"));
    root.set(QStringLiteral("editsMultipleValues"), QStringLiteral("yes"));
    const QString &described = m_options.declaredBy.isNull() ? m_classes.constLast().name : m_options.declaredBy;
    if (isPane)
        root.set(QStringLiteral("title"), titleOfClass(described));
    beginElement(isPane ? QStringLiteral("pane") : QStringLiteral("slice"), root);
    for (const ZelDescribedClass &declaring : std::as_const(m_classes)) {
        if (m_options.declaredBy.isNull() || m_options.declaredBy == declaring.name)
            writeClass(declaring);
    }
    m_writer.writeEndDocument();
    return m_xml;
}

void ZelClassDescriber::writeClass(const ZelDescribedClass &declaring)
{
    if (ZelClassInfo::isYes(ZelClassInfo::ofClass(declaring, "hidden").value_or(QString())))
        return;
    const Properties rows = rowsOf(declaring);
    if (rows.isEmpty())
        return;
    const Attributes titled{
        {QStringLiteral("title"), ZelClassInfo::ofClass(declaring, "title").value_or(titleOfClass(declaring.name))}};
    const bool isPane = m_options.root == ZelInspectorDescription::Options::Pane;
    if (isPane) {
        beginElement(QStringLiteral("inspector"), titled);
        beginElement(QStringLiteral("slice"), {});
    }
    beginElement(QStringLiteral("section"), isPane ? Attributes() : titled);
    for (const Property *property : rows)
        writeRow(*property);
    for (int open = isPane ? 3 : 1; open > 0; --open)
        m_writer.writeEndElement();
}

const ZelDescribedClass &ZelClassDescriber::lastDeclaring(const QString &name) const
{
    return *std::find_if(m_classes.crbegin(), m_classes.crend(),
                         [&](const ZelDescribedClass &declaring) { return declaring.propertyNamed(name); });
}

/// The properties that are first declared by the class, each in its last declaration, in their order.
ZelClassDescriber::Properties ZelClassDescriber::rowsOf(const ZelDescribedClass &declaring)
{
    Properties rows;
    for (const Property &first : declaring.properties) {
        const Property &property = *lastDeclaring(first.name).propertyNamed(first.name);
        const auto isOfBase = std::ranges::find_if(m_classes, [&](const ZelDescribedClass &base) {
                                  return base.propertyNamed(first.name);
                              })->name != declaring.name;
        const auto hidden = m_info.ofProperty(first.name, u"hidden");
        if (isOfBase || !property.isReadable || (hidden ? ZelClassInfo::isYes(*hidden) : !property.isDesignable))
            continue;
        if (editorOf(property).isEmpty())
            m_propertiesWithoutEditor.append(QStringLiteral("%1 (%2)").arg(property.name, property.type));
        else
            rows.append(&property);
    }
    auto next = rows.begin();
    for (const QString &wanted : ZelClassInfo::orderOf(declaring)) {
        const auto found =
            std::find_if(next, rows.end(), [&](const Property *property) { return property->name == wanted; });
        if (found != rows.end()) {
            std::rotate(next, found, found + 1);
            ++next;
        }
    }
    return rows;
}

/// The attributes of the property's editor; none if there is no editor for its type.
ZelClassDescriber::Attributes ZelClassDescriber::editorOf(const Property &property) const
{
    const auto editor = [](const char *type) {
        return Attributes{{QStringLiteral("type"), QString::fromLatin1(type)}};
    };
    if (const auto type = m_info.ofProperty(property.name, u"type"))
        return Attributes{{QStringLiteral("type"), *type}};
    if (const Enumeration &keys = property.enumeration; property.isEnumeration) {
        const char *flags = keys.values.isEmpty() ? "flags" : "boolean";
        return keys.keys.isEmpty() ? Attributes() : editor(keys.isFlags ? flags : "enumeration");
    }
    const QMetaType type = property.metaType;
    const QString name = type.isValid() ? QString::fromUtf8(type.name()) : property.type;
    const bool isInteger = ZelValueConversion::limits(type).isValid() && type.id() != QMetaType::Float &&
                           !type.flags().testFlag(QMetaType::IsEnumeration);
    const auto *known =
        std::ranges::find_if(g_editors, [&](const Editor &candidate) { return name == QLatin1String(candidate.type); });
    if (!isInteger && known == std::end(g_editors))
        return {};
    Attributes attributes = editor(isInteger ? "number" : known->editor);
    if (attributes.first().value == u"number" && !m_options.isForAuthors)
        setLimits(attributes, type);
    if (isInteger)
        return attributes;
    for (const auto &[attribute, value] : known->attributes) {
        if (attribute)
            attributes.set(QString::fromLatin1(attribute), QString::fromLatin1(value));
    }
    return attributes;
}

QString ZelClassDescriber::keyPath(const QString &key) const
{
    return m_options.keyPath.isEmpty() ? key : m_options.keyPath + u'.' + key;
}

void ZelClassDescriber::writeRow(const Property &property)
{
    const QString &name = property.name;
    const QString title = m_info.ofProperty(name, u"title").value_or(ZelInspectorDescription::titleForName(name));
    Attributes editor = editorOf(property);
    editor.set(QStringLiteral("keyPath"), keyPath(name));
    editor.set(QStringLiteral("actionName"), u"Change " + title);
    const bool isTooLong = ZelDescriptionSchema::writesSingleKey(editor.first().value) &&
                           ZelDescriptionCheck::storedKeyPath(keyPath(name)).contains(u'.');
    if (m_options.isForAuthors && isTooLong && property.isWritable)
        m_propertiesOnlyShown.append(name);
    if (m_options.isForAuthors && (isTooLong || !property.isWritable))
        editor.set(ZelDescriptionSchema::attributeOfReadOnly(editor.first().value).toString(), QStringLiteral("no"));
    if (!m_options.attributeOfSilent.isNull() && !property.isAnnounced)
        editor.set(m_options.attributeOfSilent, lastDeclaring(name).name + u'.' + name);
    const bool isOfItsType = !m_info.ofProperty(name, u"type");
    const bool isFlags = isOfItsType && property.isEnumeration && property.enumeration.isFlags;
    Attributes row;
    (editor.first().value == u"boolean" && !isFlags ? editor : row).set(QStringLiteral("title"), title);
    addWhatIsSaid(name, row, editor);
    m_properties.append(name);
    beginElement(QStringLiteral("sliver"), row);
    if (isFlags && !property.enumeration.values.isEmpty())
        writeFlags(property.enumeration, editor);
    else if (isOfItsType && property.isEnumeration && !isFlags)
        writeEnumeration(property.enumeration, editor);
    else
        writeEditor(editor);
    m_writer.writeEndElement();
}

/// Gives the row and the editor the attributes that class information has for them.
void ZelClassDescriber::addWhatIsSaid(const QString &name, Attributes &row, Attributes &editor) const
{
    const Attributes said = m_info.attributesOf(name);
    const auto least = numberNamed(said, "minimum");
    const auto greatest = numberNamed(said, "maximum");
    if (least && greatest && *least < *greatest && numberNamed(editor, "increment"))
        editor.set(QStringLiteral("increment"), QString::number(incrementOfRange(*greatest - *least)));
    for (const auto &[word, value] : said) {
        const QString text = word.endsWith(u"KeyPath") || word == u"keyPath" ? keyPath(value) : value;
        if (word == u"unit")
            editor.set(QStringLiteral("formatUnit"), formatUnit(text));
        else if (word != u"title")
            (contains(g_attributesOfRows, word) ? row : editor).set(word, text);
    }
}

/// A checkbox for each flag of one bit.
void ZelClassDescriber::writeFlags(const Enumeration &flags, const Attributes &editor)
{
    quint32 seen = 0;
    for (qsizetype i = 0; i < flags.keys.size(); ++i) {
        const auto bits = quint32(flags.values.at(i));
        if (std::popcount(bits) != 1 || (seen & bits))
            continue;
        seen |= bits;
        Attributes checkbox = editor;
        checkbox.set(QStringLiteral("title"), ZelInspectorDescription::titleForName(flags.keys.at(i)));
        checkbox.set(QStringLiteral("bits"), u"0x" + QString::number(bits, 16));
        writeEditor(checkbox);
    }
}

/// A choice for each number; of several keys with the same one, the first names it.
void ZelClassDescriber::writeEnumeration(const Enumeration &keys, const Attributes &editor)
{
    beginElement(QStringLiteral("property"), editor);
    beginElement(QStringLiteral("option-group"), {});
    QStringList seen;
    for (qsizetype i = 0; i < keys.keys.size(); ++i) {
        const QString value = keys.values.isEmpty() ? keys.keys.at(i) : QString::number(keys.values.at(i));
        if (seen.contains(value))
            continue;
        seen.append(value);
        beginElement(QStringLiteral("option"),
                     {{QStringLiteral("title"), ZelInspectorDescription::titleForName(keys.keys.at(i))},
                      {QStringLiteral("value"), value}});
        m_writer.writeEndElement();
    }
    m_writer.writeEndElement();
    m_writer.writeEndElement();
}

void ZelClassDescriber::writeEditor(const Attributes &attributes)
{
    beginElement(QStringLiteral("property"), attributes);
    m_writer.writeEndElement();
}

void ZelClassDescriber::beginElement(const QString &name, const Attributes &attributes)
{
    m_writer.writeStartElement(name);
    for (const auto &[attribute, value] : attributes)
        m_writer.writeAttribute(attribute, writable(value));
}
