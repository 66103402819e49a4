// SPDX-License-Identifier: MIT
#include "Core/Values/private/ZelTextForm.h"

#include <QDateTime>
#include <QKeySequence>
#include <QLocale>
#include <QRegularExpression>
#include <QStringDecoder>
#include <QTimeZone>
#include <algorithm>
#include <span>

namespace {

using Value = std::optional<QVariant>;

struct Form
{
    QMetaType type;
    QString (*write)(const QVariant &value);
    Value (*read)(const QString &text, QString *error);
};

QString textOfLocale(const QVariant &value)
{
    const QLocale locale = value.toLocale();
    return QLocale(locale.name()).name() == locale.name() && QLocale(locale.name()).script() == locale.script()
               ? locale.name()
               : locale.bcp47Name();
}
Value readLocale(const QString &text, QString *)
{
    const QLocale locale(text);
    const bool isKnown = locale.language() != QLocale::C || text == u"C";
    return isKnown ? Value(locale) : std::nullopt;
}

QString textOfZone(const QVariant &value)
{
    return QString::fromLatin1(value.value<QTimeZone>().id());
}
Value readZone(const QString &text, QString *)
{
    const QTimeZone zone(text.toLatin1());
    return zone.isValid() ? Value(QVariant::fromValue(zone)) : std::nullopt;
}

QString textOfExpression(const QVariant &value)
{
    return value.toRegularExpression().pattern();
}
Value readExpression(const QString &text, QString *error)
{
    const QRegularExpression expression(text);
    if (expression.isValid())
        return QVariant(expression);
    if (error)
        *error = QStringLiteral("%1 (%2)").arg(expression.errorString()).arg(expression.patternErrorOffset());
    return std::nullopt;
}

QString textOfKeys(const QVariant &value)
{
    return value.value<QKeySequence>().toString(QKeySequence::NativeText);
}
Value readKeys(const QString &text, QString *)
{
    const QKeySequence keys = QKeySequence::fromString(text, QKeySequence::NativeText);
    for (int i = 0; i < keys.count(); ++i) {
        if (keys[uint(i)].key() == Qt::Key_unknown)
            return std::nullopt;
    }
    return keys.isEmpty() ? std::nullopt : Value(QVariant::fromValue(keys));
}

QString textOfTime(const QVariant &value)
{
    const QTime time = value.toTime();
    return time.toString(time.msec() != 0     ? QStringLiteral("HH:mm:ss.zzz")
                         : time.second() != 0 ? QStringLiteral("HH:mm:ss")
                                              : QStringLiteral("HH:mm"));
}
Value readTime(const QString &text, QString *)
{
    const QString trimmed = text.trimmed();
    QTime time = QTime::fromString(trimmed, Qt::ISODateWithMs);
    for (const QLocale::FormatType format : {QLocale::ShortFormat, QLocale::LongFormat})
        time = time.isValid() ? time : QLocale().toTime(trimmed, format);
    return time.isValid() ? Value(time) : std::nullopt;
}

QString textOfBytes(const QVariant &value)
{
    const QByteArray bytes = value.toByteArray();
    QStringDecoder decoder(QStringDecoder::Utf8);
    const QString text = decoder(bytes);
    const bool isText = !decoder.hasError() && text.toUtf8() == bytes &&
                        std::none_of(text.begin(), text.end(), [](QChar c) { return c.unicode() < 9; });
    return isText ? text : QString::fromLatin1(bytes.toHex(' '));
}
Value readBytes(const QString &text, QString *)
{
    return QVariant(text.toUtf8());
}

std::span<const Form> forms()
{
    static const Form all[] = {
        {QMetaType::fromType<QLocale>(), &textOfLocale, &readLocale},
        {QMetaType::fromType<QTimeZone>(), &textOfZone, &readZone},
        {QMetaType::fromType<QRegularExpression>(), &textOfExpression, &readExpression},
        {QMetaType::fromType<QKeySequence>(), &textOfKeys, &readKeys},
        {QMetaType::fromType<QTime>(), &textOfTime, &readTime},
        {QMetaType::fromType<QByteArray>(), &textOfBytes, &readBytes},
    };
    return all;
}

const Form *formOf(QMetaType type)
{
    const auto all = forms();
    const auto found = std::ranges::find(all, type, &Form::type);
    return found == all.end() ? nullptr : &*found;
}

} // namespace

bool ZelTextForm::has(QMetaType type)
{
    return formOf(type);
}

QMetaType ZelTextForm::typeNamed(QByteArrayView name)
{
    const auto all = forms();
    const auto found = std::ranges::find_if(all, [name](const Form &form) { return name == form.type.name(); });
    return found == all.end() ? QMetaType() : found->type;
}

QString ZelTextForm::of(const QVariant &value)
{
    const Form *form = formOf(value.metaType());
    return form ? form->write(value) : QString();
}

std::optional<QVariant> ZelTextForm::read(const QString &text, QMetaType type, QString *error)
{
    const Form *form = formOf(type);
    return form ? form->read(text, error) : std::nullopt;
}

bool ZelTextForm::isReversible(const QVariant &value)
{
    return value.typeId() != QMetaType::QByteArray || textOfBytes(value).toUtf8() == value.toByteArray();
}
