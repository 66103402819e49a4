// SPDX-License-Identifier: MIT
#include "Models.h"

#include <QMetaProperty>

Dynamic::Dynamic()
{
    const Sheet sheet;
    for (const QByteArray &key : SheetKeys::all())
        setProperty(key, sheet.property(key));
}

const QList<QByteArray> &SheetKeys::all()
{
    static const QList<QByteArray> keys = [] {
        QList<QByteArray> names;
        const QMetaObject &meta = Sheet::staticMetaObject;
        for (int i = meta.propertyOffset(); i < meta.propertyCount(); ++i) {
            if (qstrcmp(meta.property(i).name(), "part") != 0)
                names.append(meta.property(i).name());
        }
        return names;
    }();
    return keys;
}

QVariant SheetKeys::value(const QByteArray &key, quint32 number)
{
    const int few = int(number % 4); // objects are to agree often
    static const QStringList texts{QStringLiteral("one"), QStringLiteral("Dots"), QStringLiteral(""),
                                   QStringLiteral("a longer text\nin two lines")};
    static const QHash<QByteArray, QVariantList> special{
        {"note", {QStringLiteral("one"), QVariant(), QStringLiteral("x"), 7}},
        {"optional", {3.0, QVariant(), 0.0, -1.5}},
        {"kind", {0, 1, 2, 7}},
        {"sort", {0, 1, 2, 7}},
        {"choice", {10, 20, 30, 99}},
        {"image", {0x10u, 0x20u, 0x30u, 0x120u}},
        {"day", {QDate(2024, 5, 6), QDate(1999, 12, 31), QDate(), QDate(2030, 1, 1)}},
        {"moment",
         {QDateTime(QDate(2024, 5, 6), QTime(7, 8), Qt::UTC), QDateTime(), QDateTime::fromSecsSinceEpoch(9),
          QDateTime(QDate(2024, 5, 6), QTime(7, 9), Qt::UTC)}},
        {"fill", {QColor(Qt::red), QColor(), QColor(1, 2, 3, 4), QColor(Qt::blue)}},
        {"font",
         {QFont(QStringLiteral("DejaVu Sans"), 9), QFont(QStringLiteral("DejaVu Serif"), 12),
          QFont(QStringLiteral("No Such"), 30), QFont()}},
        {"size", {QSizeF(30, 40), QSizeF(0, 0), QSizeF(30, 41.5), QSizeF(-1, 1e9)}},
        {"frame", {QRectF(10, 20, 100, 50), QRectF(), QRectF(-5, 20, 100, 50), QRectF(1, 2, 0, 0)}},
        {"tags", {QStringList{QStringLiteral("a"), QStringLiteral("b")}, QStringList(), texts, texts + texts}},
    };
    const auto known = special.constFind(key);
    if (known != special.constEnd())
        return known->at(few);
    const QMetaType type = Sheet::staticMetaObject.property(Sheet::staticMetaObject.indexOfProperty(key)).metaType();
    if (type == QMetaType::fromType<QString>())
        return texts.at(few);
    if (type == QMetaType::fromType<ZelAttributedString>())
        return QVariant::fromValue(ZelAttributedString(texts.at(few)));
    QVariant result(few == 3 ? int(number % 1000) - 200 : few);
    result.convert(type);
    return result;
}

QObject *SheetKeys::create(quint32 number)
{
    QObject *object = nullptr;
    switch (number % 8) {
    case 0:
        object = new Dynamic;
        break;
    case 1:
        return new Locked;
    case 2:
    case 3:
        object = new Quiet;
        break;
    default:
        object = new Sheet;
    }
    object->setProperty("part", QVariant::fromValue<QObject *>(new Part(object)));
    return object;
}
