// SPDX-License-Identifier: MIT
#include "Inspector/Checking/private/ZelConditionCheck.h"

#include "Blocks/private/ZelConditionTransformer.h"
#include "Core/Values/ZelTransformerFactory.h"
#include "Core/Values/private/ZelNearestName.h"
#include "Core/Values/private/ZelNumberScanner.h"

#include <QColor>
#include <QDateTime>
#include <QUrl>

namespace {

using namespace ZelValueKinds;

/// A value such as the property may hold; absent where none is known.
QVariant sampleOf(const ZelKeyPathResolver::Result &result)
{
    QVariant sample;
    if (result.kind == Enumeration)
        return 0;
    if (result.kind == Date)
        sample = QDateTime(QDate(2000, 1, 1), QTime());
    else if (result.kind == Text)
        sample = QStringLiteral("x");
    else if (result.kind == Color)
        sample = QColor(Qt::black);
    else if (Kinds(Boolean | Integer | Real).testFlag(result.kind))
        sample = 0;
    const QMetaType type = QMetaType::fromName(result.type.toUtf8());
    return type.isValid() && sample.convert(type) ? sample : QVariant();
}

bool comparesKeys(const QString &condition)
{
    static const QStringList comparisons{QStringLiteral("ZelEquals"), QStringLiteral("ZelNotEquals"),
                                         QStringLiteral("ZelIsOneOf"), QStringLiteral("ZelContains")};
    return comparisons.contains(condition.section(u'(', 0, 0).trimmed());
}

} // namespace

void ZelConditionCheck::check(const Node &node, const QString &attribute, const Result &result) const
{
    static const QString keyPath = QStringLiteral("KeyPath");
    if (!attribute.endsWith(keyPath))
        return;
    const QString transformer = attribute.chopped(keyPath.size()) + QStringLiteral("ValueTransformer");
    const QString text = node.element.stringValueNamed(transformer);
    if (result.enumeration && comparesKeys(text))
        return checkKeys(node, transformer, result);
    const QVariant sample = isPlain(result.kind) ? sampleOf(result) : QVariant();
    const ZelValueTransformerPtr made =
        text.isEmpty() ? ZelValueTransformerPtr() : ZelTransformerFactory::transformer(text);
    const auto *condition = dynamic_cast<const ZelConditionTransformer *>(made.data());
    if (condition && sample.isValid() && !condition->takes(sample))
        m_report({ZelDescriptionMistake::Error,
                  QStringLiteral("%1 makes no sense for a value of %2").arg(text, result.qualifiedType()),
                  node.element.place(), transformer});
    else if (text.startsWith(u"ZelIsKind("))
        checkKind(node, transformer);
}

/// The arguments of a condition on an enumeration are its keys or numbers.
void ZelConditionCheck::checkKeys(const Node &node, const QString &transformer, const Result &result) const
{
    const QString text = node.element.stringValueNamed(transformer);
    const QStringList &keys = result.enumeration->keys;
    const QStringList arguments = text.section(u'(', 1).section(u')', 0, 0).split(u',');
    for (const QString &argument : arguments) {
        const QString key = argument.trimmed();
        if (ZelNumberScanner::isInteger(key) || result.enumeration->hasKeys(key))
            continue;
        ZelNearestName nearest(key);
        nearest.offerAll(keys);
        m_report({ZelDescriptionMistake::Error,
                  QStringLiteral("%1 makes no sense for a value of %2").arg(text, result.qualifiedType()) +
                      nearest.questionOr(keys),
                  node.element.place(), transformer, nearest.found()});
    }
}

/// The argument of a condition on the class of objects. A class that is not known may be one that has no types here.
void ZelConditionCheck::checkKind(const Node &node, const QString &transformer) const
{
    const QString text = node.element.stringValueNamed(transformer);
    const QString name = text.section(u'(', 1).section(u')', 0, 0).trimmed();
    if (name.isEmpty() || m_types.classNamed(name))
        return;
    ZelNearestName nearest(name);
    nearest.offerAll(m_types.classNames());
    m_report({ZelDescriptionMistake::Warning,
              QStringLiteral("The class %1 is not among the types").arg(name) + nearest.question(),
              node.element.place(), transformer, nearest.found()});
}
