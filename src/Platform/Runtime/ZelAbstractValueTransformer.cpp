// SPDX-License-Identifier: MIT
#include "Platform/Runtime/ZelAbstractValueTransformer.h"

#include "Platform/Runtime/ZelValues.h"

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
        new Registry; // applications register from static initialisers and look up until the end
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
    QMutexLocker locker(&registry().mutex);
    return registry().transformers.value(name);
}

QStringList ZelAbstractValueTransformer::valueTransformerNames()
{
    QMutexLocker locker(&registry().mutex);
    return registry().transformers.keys();
}
