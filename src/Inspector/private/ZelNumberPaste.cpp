// SPDX-License-Identifier: MIT
#include "Inspector/private/ZelNumberPaste.h"

#include "Controls/private/ZelControlSupport.h"
#include "Core/Errors/ZelExceptionReporter.h"
#include "Core/Values/ZelNumberChange.h"
#include "Core/Values/ZelValues.h"
#include "Inspector/Properties/ZelInspectorNumberProperty.h"
#include "Inspector/Properties/private/ZelTypedText.h"
#include "Resources/ZelLocalizedString.h"

#include <algorithm>
#include <cmath>

namespace {

ZelTextField *fieldOf(const QPointer<ZelInspectorNumberProperty> &editor)
{
    return editor ? editor->textField() : nullptr;
}

/// Whether the field's formatter makes anything of the text, whatever the model may say of it.
bool isReadable(const ZelTextField *field, const QString &text)
{
    QVariant value;
    QString error;
    return field && field->formatter() && field->formatter()->objectValueForString(text, &value, &error);
}

/// Such as "000" in "1,000": the end of a number with its digits in groups, and no number of its own.
bool isGroup(const QString &part)
{
    return part.size() == 3 && part.startsWith(u'0') && part.at(1).isDigit() && part.at(2).isDigit();
}

bool hasGroups(const QStringList &parts)
{
    return std::any_of(parts.begin() + 1, parts.end(), &isGroup);
}

} // namespace

ZelNumberPaste::ZelNumberPaste(const Editors &editors, const QString &text)
    : m_editors(editors)
    , m_text(text.trimmed())
    , m_parts(split())
{
}

qsizetype ZelNumberPaste::count() const
{
    return std::min(m_parts.size(), m_editors.size());
}

bool ZelNumberPaste::areNumbers(const QStringList &parts) const
{
    for (qsizetype i = 0; i < std::min(parts.size(), m_editors.size()); ++i) {
        if (!isReadable(fieldOf(m_editors.at(i)), parts.at(i)))
            return false;
    }
    return true;
}

QStringList ZelNumberPaste::split() const
{
    const QStringList whole{m_text};
    if (m_editors.size() < 2)
        return whole;
    const QList<QStringList> splits = ZelTypedText::splits(m_text);
    for (const QStringList &parts : splits) {
        if (parts.size() == m_editors.size() && !hasGroups(parts) && areNumbers(parts))
            return parts;
    }
    if (splits.isEmpty() || areNumbers(whole))
        return whole;
    const auto readable =
        std::find_if(splits.begin(), splits.end(), [this](const QStringList &parts) { return areNumbers(parts); });
    return readable == splits.end() ? splits.first() : *readable;
}

bool ZelNumberPaste::isForSeveralFields() const
{
    const bool isLeftToField = m_parts.size() == 2 && areNumbers({m_text});
    return m_parts.size() > 1 && !isLeftToField;
}

QString ZelNumberPaste::refusalOf(qsizetype place) const
{
    ZelTextField *field = fieldOf(m_editors.at(place));
    if (!field)
        return {};
    if (!field->isEditable() || !field->isEnabled()) {
        const QVariant &value = field->objectValue();
        const bool isThere = !ZelIsControllerMarker(value) || ZelIsMarker(value, ZelMultipleValuesMarker);
        return isThere ? ZelLocalizedString("This cannot be changed.") : ZelControlSupport::markerText(value);
    }
    QVariant value;
    QString reason;
    const bool isDone = ZelExceptionReporter::run(m_editors.at(place), [&] {
        field->discardEditing();
        if (field->readText(m_parts.at(place), &value, &reason))
            reason = QString();
        else if (reason.isEmpty())
            reason = ZelLocalizedString("This is not a value.");
    });
    return isDone ? reason : ZelLocalizedString("This cannot be changed.");
}

void ZelNumberPaste::enter()
{
    m_entered = QList<QVariant>(count());
    // All are read before any is entered, since a model may change one number with another.
    for (qsizetype i = 0; i < count(); ++i) {
        QString reason;
        if (const ZelTextField *field = fieldOf(m_editors.at(i)))
            field->readText(m_parts.at(i), &m_entered[i], &reason);
    }
    for (qsizetype i = 0; i < count(); ++i) {
        ZelExceptionReporter::run(m_editors.at(i), [&] {
            if (ZelTextField *field = fieldOf(m_editors.at(i)))
                field->enterValue(m_entered.at(i));
        });
    }
}

QString ZelNumberPaste::changeOf(qsizetype place) const
{
    const ZelTextField *field = fieldOf(m_editors.at(place));
    const QVariant &entered = m_entered.at(place);
    if (!field || !field->formatter() || ZelIsNull(entered) || ZelNumberChange::of(entered))
        return {};
    const QVariant &kept = field->objectValue();
    if (ZelIsMarker(kept, ZelMultipleValuesMarker))
        return ZelLocalizedString("Not all objects take this value.");
    const auto text = [field](const QVariant &value) { return field->formatter()->stringForObjectValue(value); };
    if (ZelIsControllerMarker(kept) || text(kept) == text(entered))
        return {};
    // A whole number may be all that the model can hold.
    const double number = kept.toDouble();
    if (std::abs(number - entered.toDouble()) < 1 && number == std::round(number))
        return {};
    return ZelLocalizedString("This would become %1.").arg(text(kept));
}
