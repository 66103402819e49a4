// SPDX-License-Identifier: MIT
#include "Blocks/ZelBlockProperties.h"

#include "Blocks/private/ZelPropertyEncoding.h"
#include "Core/Errors/ZelAssertions.h"
#include "Core/KeyValue/ZelPropertyAccessor.h"

#include <QMetaProperty>
#include <memory>
#include <vector>

namespace {

using Getter = ZelBlockProperties::Getter;
using Setter = ZelBlockProperties::Setter;

/// The getter and the setter that one class adds to a property.
struct Implementation
{
    const ZelPropertyEncoding *getterEncoding = nullptr;
    Getter getter;
    const ZelPropertyEncoding *setterEncoding = nullptr;
    Setter setter;
};

/// A property as the objects of one class have it: its getter and its setter may come from different bases.
class BlockPropertyAccessor : public ZelPropertyAccessor
{
public:
    BlockPropertyAccessor(ZelKey key, const Implementation &implementation)
        : m_key(key)
        , m_implementation(implementation)
    {
    }

    QVariant read(const QObject *object) const override
    {
        if (!m_implementation.getter)
            throw ZelUndefinedKeyException(QString::fromUtf8(object->metaObject()->className()), m_key.string());
        return m_implementation.getterEncoding->converted(m_implementation.getter(object));
    }
    bool write(QObject *object, const QVariant &value) const override
    {
        if (!isWritable() || !m_implementation.setterEncoding->canConvert(value))
            return false;
        m_implementation.setter(object, m_implementation.setterEncoding->converted(value));
        return true;
    }
    bool isWritable() const override { return bool(m_implementation.setter); }
    QMetaType type() const override
    {
        const ZelPropertyEncoding *encoding =
            m_implementation.getter ? m_implementation.getterEncoding : m_implementation.setterEncoding;
        return encoding ? encoding->type() : QMetaType();
    }

private:
    ZelKey m_key;
    Implementation m_implementation;
};

class Tables
{
public:
    static Tables &instance()
    {
        static auto *tables = new Tables;
        return *tables;
    }

    QHash<const QMetaObject *, QMap<QString, ZelPropertyDeclaration>> declarations;

    /// The functions of the class, to be filled in; call changed() afterwards.
    Implementation &implementation(const QMetaObject *metaObject, ZelKey key)
    {
        return m_implementations[{metaObject, key}];
    }
    void changed()
    {
        m_accessors.clear();
        ZelPropertyAccessor::forgetProvidedAccessors();
    }

private:
    using ClassAndKey = std::pair<const QMetaObject *, ZelKey>;

    Tables()
    {
        ZelPropertyAccessor::registerProvider([this](const QMetaObject *c, ZelKey key) { return accessor(c, key); });
    }

    const ZelPropertyAccessor *accessor(const QMetaObject *metaObject, ZelKey key)
    {
        const auto known = m_accessors.constFind({metaObject, key});
        if (known != m_accessors.constEnd())
            return *known;
        const Implementation found = inherited(metaObject, key);
        if (!found.getter && !found.setter)
            return nullptr;
        m_owned.push_back(std::make_unique<BlockPropertyAccessor>(key, found));
        return *m_accessors.insert({metaObject, key}, m_owned.back().get());
    }

    Implementation inherited(const QMetaObject *metaObject, ZelKey key) const
    {
        Implementation found;
        for (const QMetaObject *level = metaObject; level; level = level->superClass()) {
            const auto own = m_implementations.constFind({level, key});
            if (own == m_implementations.constEnd())
                continue;
            if (!found.getter) {
                found.getter = own->getter;
                found.getterEncoding = own->getterEncoding;
            }
            if (!found.setter) {
                found.setter = own->setter;
                found.setterEncoding = own->setterEncoding;
            }
        }
        return found;
    }

    QHash<ClassAndKey, Implementation> m_implementations;
    QHash<ClassAndKey, const ZelPropertyAccessor *> m_accessors;
    std::vector<std::unique_ptr<ZelPropertyAccessor>> m_owned; // former accessors may still be in use
};

/// Adds the getter or the setter. False if the class has one already, or a Q_PROPERTY of that name.
template<typename Block>
bool implement(const QMetaObject *metaObject, const QString &name, Block Implementation::*part, const Block &block,
               const ZelPropertyEncoding *Implementation::*partEncoding, const ZelPropertyEncoding *encoding)
{
    Implementation &implementation = Tables::instance().implementation(metaObject, name);
    if (implementation.*part || metaObject->indexOfProperty(name.toUtf8().constData()) >= 0)
        return false;
    implementation.*part = block;
    implementation.*partEncoding = encoding;
    Tables::instance().changed();
    return true;
}

/// The encoding of a type; null, and two assertions, if it is unknown.
const ZelPropertyEncoding *encodingOf(const QString &type, const QString &missingMessage)
{
    if (const ZelPropertyEncoding *encoding = ZelPropertyEncoding::find(type))
        return encoding;
    const bool isStruct = type.startsWith(u'{');
    ZelFail((isStruct ? QStringLiteral("Unknown struct type: '%1'") : QStringLiteral("Unknown simple type: '%1'"))
                .arg(type));
    ZelFail(missingMessage);
    return nullptr;
}

} // namespace

bool ZelBlockProperties::declareProperty(const QString &name, const QString &attributes)
{
    QMap<QString, ZelPropertyDeclaration> &declared = Tables::instance().declarations[m_class];
    const int metaProperty = m_class->indexOfProperty(name.toUtf8().constData());
    if (declared.contains(name) || metaProperty >= m_class->propertyOffset())
        return false;
    declared.insert(name, ZelPropertyDeclaration(name, attributes));
    return true;
}

std::optional<ZelPropertyDeclaration> ZelBlockProperties::propertyWithName(const QString &name) const
{
    const auto &declarations = Tables::instance().declarations;
    const int metaProperty = m_class->indexOfProperty(name.toUtf8().constData());
    for (const QMetaObject *level = m_class; level && level != &QObject::staticMetaObject;
         level = level->superClass()) {
        const auto declared = declarations.constFind(level);
        if (declared != declarations.constEnd() && declared->contains(name))
            return declared->value(name);
        if (metaProperty >= level->propertyOffset())
            return ZelPropertyDeclaration(m_class->property(metaProperty));
    }
    return {};
}

std::optional<ZelPropertyDeclaration> ZelBlockProperties::requiredProperty(const QString &name) const
{
    std::optional<ZelPropertyDeclaration> property = propertyWithName(name);
    if (!property) {
        ZelFail(QStringLiteral("Expecting property with name %1 in class %2")
                    .arg(name, QString::fromUtf8(m_class->className())));
    }
    return property;
}

bool ZelBlockProperties::addPropertyNameGetter(const QString &name, const Getter &getter) const
{
    const std::optional<ZelPropertyDeclaration> property = requiredProperty(name);
    return property && addPropertyClassGetter(*property, m_class, getter);
}

bool ZelBlockProperties::addPropertyNameSetter(const QString &name, const Setter &setter) const
{
    const std::optional<ZelPropertyDeclaration> property = requiredProperty(name);
    return property && addPropertyClassSetter(*property, m_class, setter);
}

bool ZelBlockProperties::addPropertyClassGetter(const ZelPropertyDeclaration &property, const QMetaObject *metaObject,
                                                const Getter &getter)
{
    const std::optional<QString> type = property.attribute(u'T');
    if (!ZelCheck(type.has_value(), QStringLiteral("Expected a type for the property")) ||
        !ZelCheck(bool(getter), QStringLiteral("No getter block")))
        return false;
    const ZelPropertyEncoding *encoding = encodingOf(*type, QStringLiteral("No getter implementation block"));
    return encoding && implement(metaObject, property.name(), &Implementation::getter, getter,
                                 &Implementation::getterEncoding, encoding);
}

bool ZelBlockProperties::addPropertyClassSetter(const ZelPropertyDeclaration &property, const QMetaObject *metaObject,
                                                const Setter &setter)
{
    const std::optional<QString> type = property.attribute(u'T');
    if (!ZelCheck(property.isDynamic(), QStringLiteral("Expected a dynamic property")) ||
        !ZelCheck(type.has_value(), QStringLiteral("Expected a type for the property")) ||
        !ZelCheck(!property.isReadOnly(), QStringLiteral("Unexpected read-only property")) ||
        !ZelCheck(bool(setter), QStringLiteral("No setter block")))
        return false;
    const ZelPropertyEncoding *encoding = encodingOf(*type, QStringLiteral("No setter implementation block"));
    return encoding && implement(metaObject, property.name(), &Implementation::setter, setter,
                                 &Implementation::setterEncoding, encoding);
}

QMap<QString, QString> ZelBlockProperties::propertyNamesAndTypes() const
{
    QMap<QString, QString> types;
    const auto insert = [&](const ZelPropertyDeclaration &property) {
        const QString type = property.attribute(u'T').value_or(QString());
        const QString className = getPropertyType(type);
        types.insert(property.name(), className.isEmpty() ? type : className);
    };
    for (int i = m_class->propertyOffset(); i < m_class->propertyCount(); ++i)
        insert(ZelPropertyDeclaration(m_class->property(i)));
    const QMap<QString, ZelPropertyDeclaration> declared = Tables::instance().declarations.value(m_class);
    for (const ZelPropertyDeclaration &property : declared)
        insert(property);
    return types;
}

QString ZelBlockProperties::getPropertyType(const QString &attributes)
{
    const auto isMark = [](QChar c) { return c == u'"' || c == u'@'; };
    qsizetype start = attributes.indexOf(u'@');
    if (start < 0)
        return {};
    while (start < attributes.size() && isMark(attributes.at(start)))
        ++start;
    const qsizetype end = attributes.indexOf(u'"', start);
    return attributes.mid(start, end < 0 ? -1 : end - start);
}
