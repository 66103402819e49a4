// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

/// What was probably meant by something wrong in a description, beyond names with few wrong letters.
namespace ZelDescriptionHints {

/// The known name for which the word is one that other systems have, such as "minimum" for "min"; null if there is
/// none.
QString synonym(QStringView word, const QStringList &known);
/// A colour as descriptions write it for "#ff0000", "red" or a named one with a wrong name; null if it cannot be told.
QString color(const QString &text);
/// The end of a message about a child, or an attribute, that does not belong there: where it does, if anywhere.
QString placeOfElement(QStringView name);
QString placeOfAttribute(QStringView name);

} // namespace ZelDescriptionHints
