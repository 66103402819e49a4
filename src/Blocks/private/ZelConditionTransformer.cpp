// SPDX-License-Identifier: MIT
#include "Blocks/private/ZelConditionTransformer.h"

#include "Blocks/ZelValueTransformer.h"
#include "Core/Errors/ZelAssertions.h"
#include "Core/Selection/private/ZelSelectionProxy.h"
#include "Core/Values/ZelTransformerFactory.h"
#include "Core/Values/ZelValues.h"
#include "Core/Values/private/ZelNearestName.h"
#include "Core/Values/private/ZelNumberScanner.h"
#include "Core/Values/private/ZelValueConversion.h"

#include <QMetaEnum>
#include <algorithm>

namespace {

using Answer = std::optional<bool>;

bool isEnumeration(QMetaType type)
{
    return type.flags().testFlag(QMetaType::IsEnumeration);
}

/// The enumeration or flags that Qt knows of the type; invalid if it knows none.
QMetaEnum keysOf(QMetaType type)
{
    const QMetaObject *declaring = isEnumeration(type) ? type.metaObject() : nullptr;
    const QString name =
        QString::fromUtf8(type.name()).remove(u'>').section(u'<', -1).section(QStringLiteral("::"), -1);
    for (int i = 0; declaring && i < declaring->enumeratorCount(); ++i) {
        const QMetaEnum candidate = declaring->enumerator(i);
        if (name == QLatin1String(candidate.name()) || name == QLatin1String(candidate.enumName()))
            return candidate;
    }
    return {};
}

/// The argument as an integer; hexadecimal digits are the bits of the number.
std::optional<qint64> integerIn(const QString &argument)
{
    if (!ZelNumberScanner::isInteger(argument))
        return std::nullopt;
    return ZelNumberScanner::isHexadecimal(argument) ? qint64(ZelNumberScanner::hexadecimal(argument).value_or(0))
                                                     : ZelNumberScanner::integer(argument);
}

std::optional<qint64> numberOfKeys(QMetaType type, const QString &argument)
{
    const QMetaEnum keys = keysOf(type);
    bool isKnown = false;
    const int number = keys.isValid() ? keys.keysToValue(argument.toUtf8().constData(), &isKnown) : 0;
    return isKnown ? std::optional<qint64>(number) : std::nullopt;
}

std::optional<bool> wordOf(const QString &argument)
{
    for (const QStringView word : {u"yes", u"true", u"1"}) {
        if (argument.compare(word, Qt::CaseInsensitive) == 0)
            return true;
    }
    for (const QStringView word : {u"no", u"false", u"0"}) {
        if (argument.compare(word, Qt::CaseInsensitive) == 0)
            return false;
    }
    return std::nullopt;
}

/// The argument as a value to compare with one of that type; nothing if it is none.
std::optional<QVariant> valueIn(const QString &argument, QMetaType type)
{
    if (type.id() == QMetaType::QString)
        return argument;
    if (type.id() == QMetaType::Bool)
        return wordOf(argument);
    if (isEnumeration(type)) {
        const auto number = integerIn(argument);
        return number ? number : numberOfKeys(type, argument);
    }
    if (const auto integer = integerIn(argument); integer && ZelIsNumber(QVariant(type)))
        return *integer;
    QVariant value = argument;
    const bool isFloat = type.id() == QMetaType::Float || ZelValueConversion::limits(type).isValid();
    const QMetaType wanted = isFloat ? QMetaType::fromType<double>() : type; // 2.5 is no other integer
    return ZelValueConversion::convert(value, wanted) == ZelValueConversion::Fits ? std::optional(value) : std::nullopt;
}

Answer equals(const QVariant &value, const QString &argument)
{
    if (ZelIsNull(value))
        return false;
    const std::optional<QVariant> wanted = valueIn(argument, value.metaType());
    return wanted ? Answer(ZelEqual(value, *wanted)) : std::nullopt;
}

Answer differs(const QVariant &value, const QString &argument)
{
    const Answer isEqual = equals(value, argument);
    return isEqual ? Answer(!*isEqual) : std::nullopt;
}

Answer isOneOf(const QVariant &value, const QString &argument)
{
    Answer answer = false;
    for (const QString &part : argument.split(u',')) {
        const Answer isEqual = equals(value, part.trimmed());
        if (isEqual.value_or(false))
            return true;
        if (!isEqual)
            answer = std::nullopt;
    }
    return answer;
}

Answer contains(const QVariant &value, const QString &argument)
{
    if (ZelIsNull(value))
        return false;
    if (ZelIsList(value)) {
        const QVariantList elements = ZelList(value);
        return std::ranges::any_of(elements,
                                   [&](const QVariant &element) { return equals(element, argument).value_or(false); });
    }
    const std::optional<QVariant> wanted = ZelIsNumber(value) ? valueIn(argument, value.metaType()) : std::nullopt;
    if (!wanted)
        return std::nullopt;
    const qint64 bits = wanted->toLongLong();
    return (QVariant(value).value<qlonglong>() & bits) == bits;
}

template<typename Compare> Answer compare(const QVariant &value, const QString &argument, Compare holds)
{
    if (ZelIsNull(value))
        return false;
    return ZelIsNumber(value) ? Answer(holds(value.toDouble(), ZelNumberScanner::real(argument))) : std::nullopt;
}

Answer isGreater(const QVariant &value, const QString &argument)
{
    return compare(value, argument, std::greater<>());
}

Answer isLess(const QVariant &value, const QString &argument)
{
    return compare(value, argument, std::less<>());
}

bool isOfKind(const QObject *object, const QString &name)
{
    const QByteArray wanted = QByteArrayLiteral("::") + name.toUtf8(); // with or without its namespace
    for (const QMetaObject *base = object ? object->metaObject() : nullptr; base; base = base->superClass()) {
        if (QByteArray(QByteArrayLiteral("::") + base->className()).endsWith(wanted))
            return true;
    }
    return false;
}

/// A selection or a list is of a kind if all objects in it are. Objects of one class are asked once.
Answer isKind(const QVariant &value, const QString &name)
{
    QObjectList objects;
    if (const auto *selection = qobject_cast<const ZelSelectionProxy *>(ZelObject(value))) {
        for (const QPointer<QObject> &object : selection->objects()) {
            if (object)
                objects.append(object);
        }
    } else if (ZelIsList(value)) {
        for (const QVariant &element : ZelList(value))
            objects.append(ZelObject(element));
    } else if (QObject *object = ZelObject(value)) {
        objects.append(object);
    } else {
        return ZelIsNull(value) ? Answer(false) : std::nullopt;
    }
    const QMetaObject *known = nullptr;
    for (const QObject *object : std::as_const(objects)) {
        if (!object || (object->metaObject() != known && !isOfKind(object, name)))
            return false;
        known = object->metaObject();
    }
    return !objects.isEmpty();
}

QString anyMistake(const QString &argument)
{
    return argument.isEmpty() ? QStringLiteral("the argument is missing") : QString();
}

QString bitsMistake(const QString &argument)
{
    const bool isZero = integerIn(argument) == 0;
    return isZero ? QStringLiteral("0 has no bits") : anyMistake(argument);
}

QString numberMistake(const QString &argument)
{
    bool isNumber = false;
    [[maybe_unused]] const double number = argument.toDouble(&isNumber);
    return isNumber || argument.isEmpty() ? anyMistake(argument) : QStringLiteral("\"%1\" is no number").arg(argument);
}

QString classMistake(const QString &argument)
{
    const bool isName =
        std::ranges::all_of(argument, [](QChar c) { return c.isLetterOrNumber() || c == u'_' || c == u':'; });
    return isName ? anyMistake(argument) : QStringLiteral("\"%1\" is no name of a class").arg(argument);
}

constexpr ZelConditionTransformer::Row g_conditions[] = {
    {"ZelEquals", "ZelEquals(3)", &anyMistake, &equals},
    {"ZelNotEquals", "ZelNotEquals(3)", &anyMistake, &differs},
    {"ZelIsOneOf", "ZelIsOneOf(1, 2)", &anyMistake, &isOneOf},
    {"ZelContains", "ZelContains(0x4)", &bitsMistake, &contains},
    {"ZelIsGreater", "ZelIsGreater(3)", &numberMistake, &isGreater},
    {"ZelIsLess", "ZelIsLess(3)", &numberMistake, &isLess},
    {"ZelIsKind", "ZelIsKind(Rectangle)", &classMistake, &isKind},
};

QVariant isApplicable(const QVariant &value)
{
    return !ZelIsMarker(value, ZelNoSelectionMarker) && !ZelIsMarker(value, ZelNotApplicableMarker);
}

} // namespace

void ZelConditionTransformer::registerAll()
{
    for (const Row &row : g_conditions) {
        const auto make = [&row](const QString &argument, QString *error) -> ZelValueTransformerPtr {
            *error = row.mistakeIn(argument);
            if (!error->isNull())
                return {};
            return ZelValueTransformerPtr(new ZelConditionTransformer(row, argument));
        };
        ZelTransformerFactory::registerFactory(QString::fromLatin1(row.name), QString::fromLatin1(row.example), make);
    }
    setValueTransformer(ZelValueTransformer::transformerWithBlock(&isApplicable), QStringLiteral("ZelIsApplicable"));
}

QVariant ZelConditionTransformer::transformedValue(const QVariant &value) const
{
    if (ZelIsControllerMarker(value))
        return value;
    const Answer answer = m_row.holds(value, m_argument);
    if (!answer && !m_hasWarned.test_and_set())
        warn(value);
    return answer.value_or(false);
}

void ZelConditionTransformer::warn(const QVariant &value) const
{
    const QMetaEnum keys = keysOf(value.metaType());
    ZelNearestName nearest(m_argument);
    for (int i = 0; keys.isValid() && i < keys.keyCount(); ++i)
        nearest.offer(QString::fromUtf8(keys.key(i)));
    ZelLogWarning(QStringLiteral("%1(%2) makes no sense for a value of %3%4")
                      .arg(QString::fromLatin1(m_row.name), m_argument, ZelClassName(value), nearest.question()));
}
