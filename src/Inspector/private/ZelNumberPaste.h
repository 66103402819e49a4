// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QPointer>
#include <QStringList>

class ZelInspectorNumberProperty;

/// A text that was pasted into the number fields of a row: it is read by the fields as if it had been typed into them.
class ZelNumberPaste
{
public:
    using Editors = QList<QPointer<ZelInspectorNumberProperty>>;

    /// The text goes to these editors, from the first one on.
    ZelNumberPaste(const Editors &editors, const QString &text);

    /// The part of the text for each field; there may be more or fewer than fields. A text with as many numbers as
    /// there are fields is taken apart even where a comma might group the digits of one number.
    const QStringList &parts() const { return m_parts; }
    /// Whether the text is to be taken apart when it replaces the text of the first field. A number that the field
    /// reads is left to it, unless there are more than two fields, and as many numbers in the text.
    bool isForSeveralFields() const;
    /// Answers why the field in that place does not take its part; null if it does.
    QString refusalOf(qsizetype place) const;
    /// Enters all parts. To be called if none is refused, within a grouping.
    void enter();
    /// Answers after that why the value in that place is not what was entered; null if it is.
    QString changeOf(qsizetype place) const;

    /// How many parts have a field.
    qsizetype count() const;

private:
    QStringList split() const;
    bool areNumbers(const QStringList &parts) const;

    Editors m_editors;
    QString m_text;
    QStringList m_parts;
    QList<QVariant> m_entered;
};
