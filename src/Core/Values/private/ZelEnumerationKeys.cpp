// SPDX-License-Identifier: MIT
#include "Core/Values/private/ZelEnumerationKeys.h"

#include <QStringList>
#include <algorithm>
#include <bit>

namespace {

constexpr QByteArrayView g_flagsPrefix = "QFlags<";

QVariant typed(int value, QMetaType type)
{
    const bool isUnsigned = type.flags().testFlag(QMetaType::IsUnsignedEnumeration);
    QVariant number = isUnsigned ? qlonglong(uint(value)) : qlonglong(value);
    (void)number.convert(type);
    return number;
}

/// Leaves out what consists of other flags, and what sets none.
void keepSingleFlags(QList<std::pair<QString, quint32>> &flags)
{
    quint32 single = 0;
    for (const auto &[name, bits] : std::as_const(flags))
        single |= std::popcount(bits) == 1 ? bits : 0;
    flags.removeIf([single](const auto &flag) {
        return flag.second == 0 || (std::popcount(flag.second) > 1 && (flag.second & ~single) == 0);
    });
}

} // namespace

/// The keys of flags are those of an enumeration, whose own values are one key each nevertheless.
bool ZelEnumerationKeys::isFlags(QMetaType type)
{
    if (!isEnumeration(type) || QByteArrayView(type.name()).startsWith(g_flagsPrefix))
        return isEnumeration(type);
    const QMetaEnum keys = of(type);
    return keys.isFlag() && qstrcmp(keys.name(), keys.enumName()) == 0;
}

bool ZelEnumerationKeys::isOfSingleKeys(QMetaType type)
{
    return isEnumeration(type) && of(type).keyCount() > 0 && !isFlags(type);
}

QMetaEnum ZelEnumerationKeys::of(QMetaType type)
{
    const QMetaObject *declaring = isEnumeration(type) ? type.metaObject() : nullptr;
    if (!declaring)
        return {};
    QByteArray name(type.name());
    if (name.startsWith(g_flagsPrefix))
        name = name.mid(g_flagsPrefix.size()).chopped(1);
    return declaring->enumerator(declaring->indexOfEnumerator(name.mid(name.lastIndexOf(':') + 1).constData()));
}

QStringList ZelEnumerationKeys::names(QMetaType type)
{
    const QMetaEnum enumeration = of(type);
    QStringList names;
    for (int i = 0; i < enumeration.keyCount(); ++i)
        names.append(QString::fromUtf8(enumeration.key(i)));
    return names;
}

QList<ZelEnumerationKeys::Key> ZelEnumerationKeys::keys(QMetaType type)
{
    const QMetaEnum enumeration = of(type);
    QList<std::pair<QString, quint32>> found;
    for (int i = 0; i < enumeration.keyCount() && type.sizeOf() <= qsizetype(sizeof(int)); ++i) {
        const auto bits = quint32(enumeration.value(i));
        if (std::ranges::none_of(found, [bits](const auto &known) { return known.second == bits; }))
            found.append({QString::fromUtf8(enumeration.key(i)), bits});
    }
    if (isFlags(type))
        keepSingleFlags(found);
    QList<Key> keys;
    for (const auto &[name, bits] : std::as_const(found))
        keys.append({name, typed(int(bits), type)});
    return keys;
}

std::optional<QVariant> ZelEnumerationKeys::valueOf(const QString &text, QMetaType type)
{
    const QMetaEnum enumeration = of(type);
    if (!enumeration.isValid() || type.sizeOf() > qsizetype(sizeof(int)))
        return std::nullopt;
    bool isKnown = false;
    const QByteArray keys = text.trimmed().toUtf8();
    const int value = isFlags(type) ? enumeration.keysToValue(keys.constData(), &isKnown)
                                    : enumeration.keyToValue(keys.constData(), &isKnown);
    return isKnown ? std::optional(typed(value, type)) : std::nullopt;
}
