// SPDX-License-Identifier: MIT
#pragma once

#include "Core/Values/ZelAbstractValueTransformer.h"
#include "Core/ZelExport.h"

#include <QStringList>
#include <functional>

/// Transformers with an argument in their name, as in "ZelEquals(3)". A factory makes the transformer from the text
/// between the parentheses.
///
///     ZelTransformerFactory::registerFactory("Times", "Times(2)", [](const QString &argument, QString *error) {
///         bool isNumber = false;
///         const double factor = argument.toDouble(&isNumber);
///         if (!isNumber)
///             *error = QString("\"%1\" is no number").arg(argument);
///         return isNumber ? ZelValueTransformerPtr(new Times(factor)) : nullptr;
///     });
///
/// Wherever a transformer is named, in a description or a binding, it may be one of these.
class ZEL_EXPORT ZelTransformerFactory
{
public:
    /// Gets the argument without blanks around it; it may be empty. Answers null and says what is wrong with an
    /// argument that it cannot read. May be called on any thread.
    using Make = std::function<ZelValueTransformerPtr(const QString &argument, QString *error)>;

    /// Registers a factory for the whole process. It replaces an earlier one of that name; an empty function removes
    /// that. Messages show the example to whoever forgets the argument.
    static void registerFactory(const QString &name, const QString &example, const Make &make);
    static QStringList names();

    /// The transformer of that name, with or without an argument. If there is none, answers null and says why, and what
    /// may have been meant.
    static ZelValueTransformerPtr transformer(const QString &text, QString *error = nullptr);
};
