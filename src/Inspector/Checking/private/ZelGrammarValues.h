// SPDX-License-Identifier: MIT
#pragma once

#include "Inspector/Description/private/ZelDescriptionSchema.h"

#include <QString>
#include <span>

/// What grammars say of the values of attributes, in the regular expressions and data types of XML Schema.
namespace ZelGrammarValues {

/// The words of a boolean.
std::span<const QStringView> booleans();
/// A pattern that each of the words matches in any case.
QString anyCase(std::span<const QStringView> words);
/// The pattern of a value of that kind; null if there is none.
QString pattern(ZelDescriptionSchema::Kind kind);

} // namespace ZelGrammarValues
