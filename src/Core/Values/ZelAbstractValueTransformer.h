// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"

#include <QSharedPointer>
#include <QString>
#include <QVariant>

/// Converts a value on its way from the model to a control and, if it is reversible, back. It must have no state that
/// changes after construction, because it may be used on any thread.
class ZEL_EXPORT ZelAbstractValueTransformer
{
public:
    virtual ~ZelAbstractValueTransformer() = default;
    virtual QVariant transformedValue(const QVariant &value) const = 0;
    /// The default is transformedValue.
    virtual QVariant reverseTransformedValue(const QVariant &value) const { return transformedValue(value); }
    virtual bool allowsReverseTransformation() const { return false; }
    /// The name of the type that transformedValue answers; "QVariant" stands for any type.
    virtual QString transformedValueClass() const { return QStringLiteral("QVariant"); }

    /// Registers a transformer under a name, for the whole process. It replaces an earlier one of that name; null
    /// removes that.
    static void setValueTransformer(const QSharedPointer<ZelAbstractValueTransformer> &transformer,
                                    const QString &name);
    /// A registered transformer, or one that a ZelTransformerFactory makes from a name with an argument,
    /// "ZelEquals(3)". Null for an unknown name.
    static QSharedPointer<ZelAbstractValueTransformer> valueTransformerForName(const QString &name);
    static QSharedPointer<ZelAbstractValueTransformer> registeredTransformerForName(const QString &name);
    static QStringList valueTransformerNames();
};
using ZelValueTransformerPtr = QSharedPointer<ZelAbstractValueTransformer>;
Q_DECLARE_METATYPE(ZelValueTransformerPtr)

/// The name of a transformer that the library registers: it answers the opposite of a value's truth.
inline const QString ZelNegateBooleanTransformerName = QStringLiteral("ZelNegateBooleanTransformerName");
