// SPDX-License-Identifier: MIT
#include "PreviewNeeds.h"

#include "Inspector/Description/ZelInspectorConfiguration.h"

#include <QHash>
#include <QRegularExpression>

using Configuration = ZelInspectorConfiguration;
using Kind = PreviewNeeds::Kind;
using Value = PreviewNeeds::Value;

namespace {

/// What stands at key paths other than that of the edited value.
struct OtherKeyPath
{
    QStringView attribute;
    Kind kind;
    double number = 0;
};
constexpr OtherKeyPath g_others[] = {
    {u"visibleKeyPath", Kind::Condition},
    {u"enabledKeyPath", Kind::Condition},
    {u"titleKeyPath", Kind::Text},
    {u"widthTitleKeyPath", Kind::Text},
    {u"heightTitleKeyPath", Kind::Text},
    {u"minimumKeyPath", Kind::Number, 0},
    {u"maximumKeyPath", Kind::Number, 1000},
    {u"incrementKeyPath", Kind::Number, 1},
    {u"flippedKeyPath", Kind::Boolean},
    {u"resourcesKeyPath", Kind::Texts},
    {u"enumeratedDisplayValuesKeyPath", Kind::Texts},
    {u"enumeratedValuesKeyPath", Kind::Choices},
    {u"menuItemsKeyPath", Kind::Actions},
};

const QHash<QString, Kind> &kindsOfTypes()
{
    static const QHash<QString, Kind> kinds = {
        {"boolean", Kind::Boolean}, {"number", Kind::Number}, {"string", Kind::Text},     {"enumeration", Kind::Choice},
        {"color", Kind::Color},     {"date", Kind::Date},     {"font", Kind::Font},       {"resource", Kind::Text},
        {"size", Kind::Size},       {"point", Kind::Size},    {"frame", Kind::Frame},     {"action", Kind::Any},
        {"custom", Kind::Any},      {"flags", Kind::Bits},    {"margins", Kind::Margins}, {"line", Kind::Line},
        {"vector", Kind::Vector},
    };
    return kinds;
}

Kind kindOfType(const Configuration &element)
{
    if (element.name() == u"chooser")
        return Kind::Choice;
    if (element.hasValueNamed(u"bits") || element.hasValueNamed(u"bitMask"))
        return Kind::Bits;
    if (element.booleanValueNamed(u"attributed"))
        return Kind::RichText;
    if (element.stringValueNamed(u"class") == u"ZelInspectorArrayProperty")
        return Kind::Texts;
    return kindsOfTypes().value(element.stringValueNamed(u"type"), Kind::Any);
}

void appendChoices(const Configuration &element, QVariantList &choices)
{
    for (const Configuration &child : element.configurations()) {
        if (child.name() == u"option-group")
            appendChoices(child, choices);
        if ((child.name() != u"option" && child.name() != u"choice") || !child.hasValueNamed(u"value"))
            continue;
        const QString text = child.stringValueNamed(u"value");
        bool isNumber = false;
        const qlonglong number = text.toLongLong(&isNumber, 0);
        choices.append(isNumber ? QVariant(number) : QVariant(text));
    }
}

std::optional<double> numberNamed(const Configuration &element, QStringView name)
{
    return element.hasValueNamed(name) ? std::optional(element.doubleValueNamed(name)) : std::nullopt;
}

Value editedValue(const Configuration &element)
{
    Value value;
    value.kind = kindOfType(element);
    appendChoices(element, value.choices);
    if (value.kind == Kind::Bits && !value.choices.isEmpty())
        value.masked = {value.choices};
    if (element.hasValueNamed(u"components"))
        value.components = element.stringValueNamed(u"components").toInt();
    value.minimum = numberNamed(element, u"minimum");
    value.maximum = numberNamed(element, u"maximum");
    value.mayBeAbsent = element.booleanValueNamed(u"allowsNilValues") || element.hasValueNamed(u"nonNilValueTitle") ||
                        element.hasValueNamed(u"nonNilValueKeyPath");
    return value;
}

} // namespace

PreviewNeeds PreviewNeeds::of(const QUrl &description)
{
    PreviewNeeds needs;
    needs.readFile(description);
    return needs;
}

void PreviewNeeds::readFile(const QUrl &file)
{
    if (file.isEmpty() || m_files.contains(file))
        return;
    m_files.insert(file);
    if (const std::optional<Configuration> root = Configuration::initWIthURL(file))
        visit(*root);
}

void PreviewNeeds::visit(const Configuration &element)
{
    noteNames(element);
    noteKeyPaths(element);
    noteClasses(element);
    readFile(element.urlValueNamed(u"file"));
    for (const Configuration &child : element.configurations())
        visit(child);
}

void PreviewNeeds::noteNames(const Configuration &element)
{
    const auto insert = [&](QSet<QString> &names, QStringView attribute) {
        if (const QString name = element.stringValueNamed(attribute); !name.isEmpty())
            names.insert(name);
    };
    insert(methods, u"actionSelector");
    insert(images, u"image");
    if (element.urlValueNamed(u"file").isEmpty() && !kindsOfTypes().contains(element.stringValueNamed(u"type")))
        insert(propertyTypes, u"type");
    insert(element.name() == u"slice" ? sliceClasses : editorClasses, u"class");
    for (const char16_t *attribute : {u"valueTransformer", u"visibleValueTransformer", u"enabledValueTransformer"})
        insert(transformers, attribute);
}

void PreviewNeeds::noteKeyPaths(const Configuration &element)
{
    const Value edited = editedValue(element);
    note(element.stringValueNamed(u"keyPath"), edited);
    for (const QStringView attribute : {u"defaultValueKeyPath", u"nonNilValueKeyPath"})
        note(element.stringValueNamed(attribute), edited);
    for (const OtherKeyPath &other : g_others) {
        Value value;
        value.kind = other.kind;
        if (other.kind == Kind::Number)
            value.minimum = value.maximum = other.number;
        note(element.stringValueNamed(other.attribute), value);
    }
}

void PreviewNeeds::noteClasses(const Configuration &element)
{
    static const QRegularExpression ofClass(QStringLiteral("^ZelIsKind\\(\\s*(.+?)\\s*\\)$"));
    for (const char *condition : {"visible", "enabled"}) {
        const QString name = QLatin1String(condition);
        const QString keyPath = element.stringValueNamed(QString(name + QStringLiteral("KeyPath")));
        const auto match = ofClass.match(element.stringValueNamed(QString(name + QStringLiteral("ValueTransformer"))));
        QStringList &known = classes[keyPath];
        if (match.hasMatch() && !keyPath.isEmpty() && !known.contains(match.captured(1)))
            known.append(match.captured(1));
    }
}

/// The first editor of a key decides, except that whatever is known comes before what is not.
void PreviewNeeds::note(const QString &keyPath, const Value &value)
{
    if (keyPath.isEmpty())
        return;
    Value &known = keyPaths[keyPath];
    const bool mayBeAbsent = known.mayBeAbsent || value.mayBeAbsent;
    const QList<QVariantList> masked = known.masked + value.masked;
    if (known.kind <= Kind::Condition && value.kind > known.kind)
        known = value;
    else if (known.choices.isEmpty() && value.kind == known.kind)
        known.choices = value.choices;
    known.mayBeAbsent = mayBeAbsent;
    known.masked = masked;
}
