// SPDX-License-Identifier: MIT
#pragma once

#include "Core/KeyValue/ZelPropertyAccessor.h"

struct ZelOptionalType;

/// A Q_PROPERTY, called through the static metacall of the class that declares it. This needs no look-up, and no
/// QVariant if the caller knows the type.
class ZelMetaPropertyAccessor : public ZelPropertyAccessor
{
public:
    explicit ZelMetaPropertyAccessor(const QMetaProperty &property);

    QVariant read(const QObject *object) const override;
    bool write(QObject *object, const QVariant &value) const override;
    bool isWritable() const override { return m_isWritable; }
    bool isResettable() const override { return m_isWritable && !m_optional && m_property.isResettable(); }
    QMetaType type() const override { return m_type; }
    bool readTyped(const QObject *object, void *value) const override;
    bool writeTyped(QObject *object, const void *value) const override;
    int notifySignalIndex() const override { return m_notifySignalIndex; }
    bool isBindable() const override { return m_isBindable; }
    QUntypedBindable bindable(QObject *object) const override { return m_property.bindable(object); }

private:
    using Reader = QVariant (ZelMetaPropertyAccessor::*)(const QObject *) const;
    static Reader readerFor(int type);
    template<typename Type> QVariant readAs(const QObject *object) const;
    QVariant readGeneral(const QObject *object, QMetaType type) const;
    bool writeOptional(QObject *object, const QVariant &value) const;
    void call(const QObject *object, QMetaObject::Call kind, void **arguments) const;

    QMetaProperty m_property;
    QMetaType m_type;
    const QMetaObject *m_class;
    int m_localIndex;
    int m_notifySignalIndex; // kept, because it is needed for every signal and Qt finds it by walking up the classes
    const ZelOptionalType *m_optional; // null unless the property's type is an optional one
    bool m_isWritable;
    bool m_isBindable;
    bool m_isTyped;  // values of type() can be read as they are
    bool m_isDirect; // and can be written so
    Reader m_reader; // null for the types that are read in the general way
};
