// SPDX-License-Identifier: MIT
#include "Inspector/Properties/private/ZelValueClipboard.h"

#include "Core/Values/ZelValues.h"
#include "Inspector/Properties/private/ZelClipboardKind.h"
#include "Text/ZelAttributedString.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMimeData>
#include <algorithm>
#include <vector>

namespace {

constexpr int g_maximumDepth = 8; // of lists in lists

using Value = ZelClipboardKind::Value;
using Json = ZelClipboardKind::Json;

const QString g_type = QStringLiteral("type");
const QString g_value = QStringLiteral("value");

const std::vector<ZelClipboardKind> &kinds();

Json writeTyped(const QVariant &value, int depth)
{
    for (const ZelClipboardKind &kind : kinds()) {
        if (const Json json = kind.write(value, depth))
            return QJsonObject{{g_type, kind.name.toString()}, {g_value, *json}};
    }
    return std::nullopt;
}

Value readTyped(const QJsonValue &json, int depth)
{
    const QString name = json[g_type].toString();
    const auto &all = kinds();
    const auto kind = std::find_if(all.begin(), all.end(), [&](const auto &known) { return known.name == name; });
    return kind == all.end() || depth > g_maximumDepth ? std::nullopt : kind->read(json[g_value], depth);
}

Json writeList(const QVariant &value, int depth)
{
    if (!ZelIsList(value) || depth >= g_maximumDepth)
        return std::nullopt;
    const QVariantList items = ZelList(value);
    QJsonArray array;
    for (const QVariant &item : items) {
        const Json json = writeTyped(item, depth + 1);
        if (!json || array.size() >= ZelClipboardKind::maximumElements)
            return std::nullopt;
        array.append(*json);
    }
    return array;
}
Value readList(const QJsonValue &json, int depth)
{
    const QJsonArray array = json.toArray();
    if (!json.isArray() || array.size() > ZelClipboardKind::maximumElements)
        return std::nullopt;
    QVariantList items;
    for (const QJsonValue &item : array) {
        const Value value = readTyped(item, depth + 1);
        if (!value)
            return std::nullopt;
        items.append(*value);
    }
    return items;
}

/// A rich text: pieces with the attributes that all of their characters have.
Json writeRichText(const QVariant &value, int depth)
{
    if (value.typeId() != QMetaType::fromType<ZelAttributedString>().id())
        return std::nullopt;
    const auto string = value.value<ZelAttributedString>();
    QJsonArray runs;
    for (const ZelAttributedString::Run &run : string.runs()) {
        QJsonObject attributes;
        for (auto it = run.attributes.begin(); it != run.attributes.end(); ++it) {
            if (const Json json = writeTyped(it.value(), depth + 1))
                attributes.insert(it.key(), *json);
        }
        runs.append(QJsonArray{string.text().mid(run.range.start, run.range.length), attributes});
    }
    return runs;
}
Value readRichText(const QJsonValue &json, int depth)
{
    const QJsonArray runs = json.toArray();
    if (!json.isArray() || runs.size() > ZelClipboardKind::maximumElements)
        return std::nullopt;
    ZelAttributedString string(QLatin1String(""));
    for (const QJsonValue &run : runs) {
        const QJsonObject object = run[1].toObject();
        ZelAttributedString::Attributes attributes;
        for (auto it = object.begin(); it != object.end(); ++it) {
            const Value value = readTyped(it.value(), depth + 1);
            if (!value)
                return std::nullopt;
            attributes.insert(it.key(), *value);
        }
        string.append(ZelAttributedString(run[0].toString(), attributes));
    }
    return string.toVariant();
}

/// Those of values that hold others come last: a list of texts is a list, too.
const std::vector<ZelClipboardKind> &kinds()
{
    static const auto all = [] {
        const auto plain = ZelClipboardKind::plainKinds();
        std::vector<ZelClipboardKind> kinds(plain.begin(), plain.end());
        kinds.push_back({u"richText", &writeRichText, &readRichText});
        kinds.push_back({u"list", &writeList, &readList});
        return kinds;
    }();
    return all;
}

} // namespace

QString ZelValueClipboard::mimeType()
{
    return QStringLiteral("application/x-zel-values");
}

bool ZelValueClipboard::canHold(const QVariant &value)
{
    return !ZelIsControllerMarker(value) && writeTyped(value, 0);
}

QMimeData *ZelValueClipboard::mimeData(const Values &values, const QString &text)
{
    QJsonObject object;
    for (auto it = values.begin(); it != values.end(); ++it) {
        if (const Json json = writeTyped(it.value(), 0))
            object.insert(it.key(), *json);
    }
    auto *data = new QMimeData;
    data->setData(mimeType(), QJsonDocument(object).toJson(QJsonDocument::Compact));
    data->setText(text);
    return data;
}

std::optional<ZelValueClipboard::Values> ZelValueClipboard::values(const QMimeData *data)
{
    if (!data || !data->hasFormat(mimeType()))
        return std::nullopt;
    const QByteArray bytes = data->data(mimeType());
    const QJsonDocument document = bytes.size() > maximumSize ? QJsonDocument() : QJsonDocument::fromJson(bytes);
    const QJsonObject object = document.object();
    if (object.isEmpty())
        return std::nullopt;
    Values values;
    for (auto it = object.begin(); it != object.end(); ++it) {
        const Value value = readTyped(it.value(), 0);
        if (!value)
            return std::nullopt;
        values.insert(it.key(), *value);
    }
    return values;
}
