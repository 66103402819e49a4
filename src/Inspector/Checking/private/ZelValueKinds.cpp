// SPDX-License-Identifier: MIT
#include "Inspector/Checking/private/ZelValueKinds.h"

#include <QList>
#include <algorithm>

namespace {

using namespace ZelValueKinds;

struct TypeKind
{
    QStringView type;
    ValueKind kind;
};
constexpr TypeKind g_types[] = {{u"bool", Boolean},
                                {u"int", Integer},
                                {u"uint", Integer},
                                {u"unsigned int", Integer},
                                {u"short", Integer},
                                {u"ushort", Integer},
                                {u"long", Integer},
                                {u"ulong", Integer},
                                {u"qlonglong", Integer},
                                {u"qulonglong", Integer},
                                {u"char", Integer},
                                {u"uchar", Integer},
                                {u"qint8", Integer},
                                {u"quint8", Integer},
                                {u"qint16", Integer},
                                {u"quint16", Integer},
                                {u"qint32", Integer},
                                {u"quint32", Integer},
                                {u"qint64", Integer},
                                {u"quint64", Integer},
                                {u"qsizetype", Integer},
                                {u"size_t", Integer},
                                {u"double", Real},
                                {u"float", Real},
                                {u"qreal", Real},
                                {u"QString", Text},
                                {u"QUrl", Text},
                                {u"ZelAttributedString", RichText},
                                {u"QColor", Color},
                                {u"ZelColor", Color},
                                {u"QDate", Date},
                                {u"QDateTime", Date},
                                {u"QFont", Font},
                                {u"QSize", Size},
                                {u"QSizeF", Size},
                                {u"QPoint", Point},
                                {u"QPointF", Point},
                                {u"QRect", Rectangle},
                                {u"QRectF", Rectangle},
                                {u"QStringList", List},
                                {u"QVariantList", List},
                                {u"QObjectList", List},
                                {u"unsigned char", Integer}};

/// Text fields show whatever has a text, and numbers are written over texts as their digits; a choice is a number, a
/// key or a text.
constexpr std::pair<QStringView, quint32> g_editors[] = {
    {u"boolean", Boolean | Integer | Enumeration},
    {u"number", Integer | Real | Text},
    {u"string", Text | Integer | Real | RichText | Date},
    {u"enumeration", Boolean | Integer | Real | Enumeration | Text},
    {u"color", Color},
    {u"date", Date},
    {u"font", Font},
    {u"resource", Text},
    {u"size", Size | Point},
    {u"point", Size | Point},
    {u"frame", Rectangle},
};

} // namespace

ZelValueKinds::ValueKind ZelValueKinds::kindOf(QStringView type)
{
    if (type.endsWith(u'*'))
        return Object;
    const auto *known = std::ranges::find(g_types, type, &TypeKind::type);
    if (known != std::end(g_types))
        return known->kind;
    return type.startsWith(u"QList<") ? List : Unknown;
}

ZelValueKinds::Kinds ZelValueKinds::kindsOfEditor(QStringView editorType, bool isRichText)
{
    if (isRichText)
        return Kinds(RichText) | Unknown;
    for (const auto &[type, kinds] : g_editors) {
        if (type == editorType)
            return Kinds::fromInt(kinds) | Unknown;
    }
    return Kinds::fromInt(~quint32(0));
}

const QList<QStringView> *ZelValueKinds::keysOf(ValueKind kind)
{
    static const QList<QStringView> point{u"x", u"y"};
    static const QList<QStringView> size{u"width", u"height"};
    static const QList<QStringView> rectangle = point + size;
    return kind == Point ? &point : kind == Size ? &size : kind == Rectangle ? &rectangle : nullptr;
}

bool ZelValueKinds::isPlain(ValueKind kind)
{
    return Kinds(Boolean | Integer | Real | Enumeration | Text | Color | Date).testFlag(kind);
}
