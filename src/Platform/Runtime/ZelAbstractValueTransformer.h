// SPDX-License-Identifier: MIT
#pragma once

#include <QSharedPointer>
#include <QString>
#include <QVariant>

/// Converts a value on its way from the model to a control and, where it is reversible, back. Stateless after
/// construction: may be used on any thread.
class ZelAbstractValueTransformer
{
public:
    virtual ~ZelAbstractValueTransformer() = default;
    virtual QVariant transformedValue(const QVariant &value) const = 0;
    /// The default is transformedValue.
    virtual QVariant reverseTransformedValue(const QVariant &value) const { return transformedValue(value); }
    virtual bool allowsReverseTransformation() const { return false; }
    /// The name of the type that transformedValue answers; "QVariant" is any.
    virtual QString transformedValueClass() const { return QStringLiteral("QVariant"); }

    /// The process-wide registry of named transformers. A later registration under a name replaces the earlier
    /// one, and null takes it away.
    static void setValueTransformer(const QSharedPointer<ZelAbstractValueTransformer> &transformer,
                                    const QString &name);
    /// Null for an unknown name.
    static QSharedPointer<ZelAbstractValueTransformer> valueTransformerForName(const QString &name);
    static QStringList valueTransformerNames();
};
using ZelValueTransformerPtr = QSharedPointer<ZelAbstractValueTransformer>;
Q_DECLARE_METATYPE(ZelValueTransformerPtr)

/// The transformer that answers the opposite of a value's truth, registered by the platform.
inline const QString ZelNegateBooleanTransformerName = QStringLiteral("ZelNegateBooleanTransformerName");
