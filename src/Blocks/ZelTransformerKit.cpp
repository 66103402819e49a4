// SPDX-License-Identifier: MIT
#include "Blocks/ZelTransformerKit.h"

#include "Core/Errors/ZelAssertions.h"
#include "Core/KeyValue/ZelClassRegistry.h"

#ifdef Q_OS_UNIX
#include <dlfcn.h>
#endif

namespace {

class KitTransformer : public ZelValueTransformer
{
public:
    KitTransformer(const QString &transformedValueClass, const Block &forwardBlock, const Block &reverseBlock)
        : ZelValueTransformer(forwardBlock, reverseBlock)
        , m_transformedValueClass(transformedValueClass)
    {
    }

    bool allowsReverseTransformation() const override { return bool(reverseBlock()); }
    QString transformedValueClass() const override { return m_transformedValueClass; }
    QVariant reverseTransformedValue(const QVariant &value) const override
    {
        return reverseBlock() ? reverseBlock()(value) : ZelValueTransformer::reverseTransformedValue(value);
    }

private:
    QString m_transformedValueClass;
};

/// Whether a library of the process exports a class of that name, as its type information shows.
bool isExportedClass([[maybe_unused]] const QByteArray &name)
{
#ifdef Q_OS_UNIX
    QByteArray symbol;
    const QList<QByteArray> parts = QByteArray(name).replace("::", ":").split(':');
    for (const QByteArray &part : parts)
        symbol += QByteArray::number(part.size()) + part;
    symbol.prepend(parts.size() > 1 ? "_ZTIN" : "_ZTI");
    if (parts.size() > 1)
        symbol.append('E');
    return dlsym(RTLD_DEFAULT, symbol.constData());
#else
    return false;
#endif
}

bool isTaken(const QString &name)
{
    const QByteArray typeName = name.toUtf8();
    return ZelAbstractValueTransformer::valueTransformerForName(name) || ZelClassRegistry::hasClass(name) ||
           QMetaType::fromName(typeName).isValid() || QMetaType::fromName(QByteArray(typeName + '*')).isValid() ||
           isExportedClass(typeName);
}

} // namespace

bool ZelTransformerKit::registerValueTransformerWithName(const QString &name, const QString &transformedValueClass,
                                                         const ZelValueTransformer::Block &transformedValueBlock)
{
    return registerValueTransformerWithName(name, transformedValueClass, transformedValueBlock, {});
}

bool ZelTransformerKit::registerValueTransformerWithName(const QString &name, const QString &transformedValueClass,
                                                         const ZelValueTransformer::Block &transformedValueBlock,
                                                         const ZelValueTransformer::Block &reverseTransformedValueBlock)
{
    if (!ZelRequire(!name.isEmpty(), "name") ||
        !ZelRequire(!transformedValueClass.isEmpty(), "transformedValueClass") ||
        !ZelRequire(bool(transformedValueBlock), "transformedValueBlock") || isTaken(name))
        return false;
    const auto transformer = QSharedPointer<KitTransformer>::create(transformedValueClass, transformedValueBlock,
                                                                    reverseTransformedValueBlock);
    ZelAbstractValueTransformer::setValueTransformer(transformer, name);
    return true;
}
