// SPDX-License-Identifier: MIT
#include "Inspector/Checking/private/ZelValueKinds.h"

#include <QHash>

namespace {

using namespace ZelValueKinds;

constexpr std::pair<ValueKind, const char *> g_types[] = {
    {Boolean, "bool"},
    {Integer,
     "int,uint,unsigned int,short,ushort,long,ulong,qlonglong,qulonglong,char,uchar,unsigned char,qint8,quint8,"
     "qint16,quint16,qint32,quint32,qint64,quint64,qsizetype,size_t"},
    {Real, "double,float,qreal"},
    {Text, "QString,QUrl"},
    {RichText, "ZelAttributedString"},
    {Color, "QColor,ZelColor"},
    {Date, "QDate,QDateTime"},
    {Font, "QFont"},
    {Size, "QSize,QSizeF"},
    {Point, "QPoint,QPointF"},
    {Rectangle, "QRect,QRectF"},
    {Margins, "QMargins,QMarginsF"},
    {Line, "QLine,QLineF"},
    {Vector, "QVector2D,QVector3D,QVector4D"},
    {Written, "QTime,QUuid,QKeySequence,QLocale,QTimeZone,QRegularExpression,QByteArray"},
    {List, "QStringList,QVariantList,QObjectList"}};

QHash<QString, ValueKind> kindsByType()
{
    QHash<QString, ValueKind> kinds;
    for (const auto &[kind, types] : g_types) {
        for (const QString &type : QString::fromLatin1(types).split(u','))
            kinds.insert(type, kind);
    }
    return kinds;
}

/// Text fields show whatever people write as a text, and numbers are written over texts as their digits; a choice is a
/// number, a key or a text.
constexpr std::pair<QStringView, quint32> g_editors[] = {
    {u"boolean", Boolean | Integer | Enumeration},
    {u"number", Integer | Real | Text},
    {u"string", Text | Integer | Real | RichText | Date | Written | Size | Point | Rectangle | Margins | Line | Vector},
    {u"enumeration", Boolean | Integer | Real | Enumeration | Text},
    {u"color", Color},
    {u"date", Date},
    {u"font", Font},
    {u"resource", Text},
    {u"size", Size | Point},
    {u"point", Size | Point},
    {u"frame", Rectangle},
    {u"flags", Integer | Enumeration},
    {u"margins", Margins},
    {u"line", Line},
    {u"vector", Vector},
    {u"ZelInspectorArrayProperty", List},
};

} // namespace

ZelValueKinds::ValueKind ZelValueKinds::kindOf(QStringView type)
{
    static constexpr QStringView optional = u"std::optional<";
    if (type.startsWith(optional) && type.endsWith(u'>'))
        return kindOf(type.sliced(optional.size()).chopped(1));
    if (type.endsWith(u'*'))
        return Object;
    static const QHash<QString, ValueKind> kinds = kindsByType();
    if (const auto known = kinds.constFind(type.toString()); known != kinds.constEnd())
        return *known;
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

QStringList ZelValueKinds::keysOf(ValueKind kind)
{
    static constexpr std::pair<ValueKind, const char *> keys[] = {{Point, "x y"},
                                                                  {Size, "width height"},
                                                                  {Rectangle, "x y width height"},
                                                                  {Line, "x1 y1 x2 y2"},
                                                                  {Margins, "left top right bottom"},
                                                                  {Vector, "x y z w"}};
    for (const auto &[known, names] : keys) {
        if (known == kind)
            return QString::fromLatin1(names).split(u' ');
    }
    return {};
}

bool ZelValueKinds::isPlain(ValueKind kind)
{
    return Kinds(Boolean | Integer | Real | Enumeration | Text | Color | Date).testFlag(kind);
}
