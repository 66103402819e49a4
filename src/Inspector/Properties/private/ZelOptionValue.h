// SPDX-License-Identifier: MIT
#pragma once

#include <QVariant>

class ZelOption;
class ZelOptionGroup;
struct ZelSourcePlace;

/// What stands for a choice of a description in the model: a number or, where the model holds texts or an enumeration,
/// the text that was written in the description.
class ZelOptionValue
{
public:
    /// The option's text; the place is that of its element.
    static void setText(ZelOption *option, const QString &text, const ZelSourcePlace &place);
    /// The type on which the choices' values depend: QString, the enumeration's type, quint64 for an unsigned number of
    /// 64 bits, or qint64 for any other number. Invalid
    /// for anything else, such as no value and selection markers.
    static QMetaType typeOf(const QVariant &modelValue);
    /// The choice's value for a model of that type: the text for texts, the number of the key that the text is for an
    /// enumeration, the number for numbers. Where the type is not known, a text that is no integer stands for itself.
    static QVariant forType(QMetaType type, const QVariant &number, const QString &text);
    /// Logs a warning, with the option's place, for every option whose text is nothing that a model of that type holds.
    static void warnOfTexts(const ZelOptionGroup *group, QMetaType type);
};
