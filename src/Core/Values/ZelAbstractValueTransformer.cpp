// SPDX-License-Identifier: MIT
#include "Core/Values/ZelAbstractValueTransformer.h"

#include "Core/Values/ZelTransformerFactory.h"
#include "Core/Values/ZelValues.h"

#include <QMap>
#include <QMutex>

namespace {

class NegateBooleanTransformer : public ZelAbstractValueTransformer
{
public:
    QVariant transformedValue(const QVariant &value) const override
    {
        return ZelIsControllerMarker(value) ? value : QVariant(ZelIsNull(value) || !value.toBool());
    }
    bool allowsReverseTransformation() const override { return true; }
    QString transformedValueClass() const override { return QStringLiteral("bool"); }
};

struct Registry
{
    QMutex mutex;
    QMap<QString, ZelValueTransformerPtr> transformers;

    Registry()
    {
        transformers.insert(ZelNegateBooleanTransformerName, ZelValueTransformerPtr(new NegateBooleanTransformer));
    }
};

Registry &registry()
{
    static Registry *instance =
        new Registry; // not a plain static: applications register before main() and look up until after it
    return *instance;
}

} // namespace

void ZelAbstractValueTransformer::setValueTransformer(const ZelValueTransformerPtr &transformer, const QString &name)
{
    QMutexLocker locker(&registry().mutex);
    if (transformer)
        registry().transformers.insert(name, transformer);
    else
        registry().transformers.remove(name);
}

ZelValueTransformerPtr ZelAbstractValueTransformer::valueTransformerForName(const QString &name)
{
    return ZelTransformerFactory::transformer(name);
}

ZelValueTransformerPtr ZelAbstractValueTransformer::registeredTransformerForName(const QString &name)
{
    QMutexLocker locker(&registry().mutex);
    return registry().transformers.value(name);
}

QStringList ZelAbstractValueTransformer::valueTransformerNames()
{
    QMutexLocker locker(&registry().mutex);
    return registry().transformers.keys();
}
