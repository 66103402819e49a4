// SPDX-License-Identifier: MIT
#include "Models.h"

namespace {
const QList<QByteArray> &keys()
{
    static const QList<QByteArray> all = [] {
        QList<QByteArray> names;
        const QMetaObject &meta = Sheet::staticMetaObject;
        for (int i = meta.propertyOffset(); i < meta.propertyCount(); ++i)
            names.append(meta.property(i).name());
        names.removeOne("part");
        return names;
    }();
    return all;
}
} // namespace

const QByteArray &SheetKeys::key(quint32 number)
{
    return keys().at(int(number % quint32(keys().size())));
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
    if (number % 8 == 1)
        return new Locked;
    QObject *object = number % 8 > 3 ? new Sheet : number % 8 ? static_cast<QObject *>(new Quiet) : new QObject;
    const Sheet model;
    for (qsizetype i = 0; number % 8 == 0 && i < keys().size(); ++i)
        object->setProperty(keys().at(i), model.property(keys().at(i)));
    object->setProperty("part", QVariant::fromValue<QObject *>(new Part(object)));
    return object;
}
