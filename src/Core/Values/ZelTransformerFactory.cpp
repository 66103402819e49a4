// SPDX-License-Identifier: MIT
#include "Core/Values/ZelTransformerFactory.h"

#include "Core/Values/private/ZelNearestName.h"

#include <QMap>
#include <QMutex>

namespace {

struct Factory
{
    QString example;
    ZelTransformerFactory::Make make;
};

struct Factories
{
    QMutex mutex;
    QMap<QString, Factory> byName;

    static Factories &instance()
    {
        static auto *factories = new Factories; // applications register before main()
        return *factories;
    }
};

std::optional<Factory> factoryNamed(const QString &name)
{
    Factories &factories = Factories::instance();
    const QMutexLocker lock(&factories.mutex);
    const auto found = factories.byName.constFind(name);
    return found == factories.byName.constEnd() ? std::nullopt : std::optional(*found);
}

QString unknownName(const QString &text, const QString &name)
{
    ZelNearestName nearest(name);
    nearest.offerAll(ZelAbstractValueTransformer::valueTransformerNames());
    nearest.offerAll(ZelTransformerFactory::names());
    return u"Missing value transformer for name " + text + nearest.question();
}

ZelValueTransformerPtr make(const QString &text, QString &error)
{
    const qsizetype parenthesis = text.indexOf(u'(');
    const QString name = text.first(parenthesis < 0 ? text.size() : parenthesis).trimmed();
    const std::optional<Factory> factory = factoryNamed(name);
    if (!factory && parenthesis >= 0 && ZelAbstractValueTransformer::registeredTransformerForName(name))
        error = QStringLiteral("The value transformer %1 takes no argument").arg(name);
    else if (!factory)
        error = unknownName(text, name);
    else if (parenthesis < 0)
        error = QStringLiteral("The value transformer %1 needs an argument, as in %2").arg(name, factory->example);
    else if (!text.trimmed().endsWith(u')'))
        error = QStringLiteral("The argument of %1 has no closing parenthesis").arg(text);
    if (!error.isNull())
        return {};
    const QString argument = text.sliced(parenthesis + 1).trimmed().chopped(1).trimmed();
    ZelValueTransformerPtr made = factory->make(argument, &error);
    if (!made)
        error = QStringLiteral("%1: %2, as in %3").arg(text, error, factory->example);
    return made;
}

} // namespace

void ZelTransformerFactory::registerFactory(const QString &name, const QString &example, const Make &make)
{
    Factories &factories = Factories::instance();
    const QMutexLocker lock(&factories.mutex);
    if (make)
        factories.byName.insert(name, {example, make});
    else
        factories.byName.remove(name);
}

QStringList ZelTransformerFactory::names()
{
    Factories &factories = Factories::instance();
    const QMutexLocker lock(&factories.mutex);
    return factories.byName.keys();
}

ZelValueTransformerPtr ZelTransformerFactory::transformer(const QString &text, QString *error)
{
    if (auto registered = ZelAbstractValueTransformer::registeredTransformerForName(text))
        return registered;
    QString reason;
    ZelValueTransformerPtr made = make(text, reason);
    if (error)
        *error = reason;
    return made;
}
