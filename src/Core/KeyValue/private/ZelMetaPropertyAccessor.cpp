// SPDX-License-Identifier: MIT
#include "Core/KeyValue/private/ZelMetaPropertyAccessor.h"

#include "Core/Values/ZelOptionalType.h"
#include "Core/Values/ZelValues.h"
#include "Core/Values/private/ZelValueConversion.h"

#include <QRectF>

inline void ZelMetaPropertyAccessor::call(const QObject *object, QMetaObject::Call kind, void **arguments) const
{
    auto *target = const_cast<QObject *>(object);
    if (m_class->d.static_metacall)
        m_class->d.static_metacall(target, kind, m_localIndex, arguments);
    else
        QMetaObject::metacall(target, kind, m_property.propertyIndex(), arguments);
}

/// Reads a type for which QVariant has a constructor, which is many times faster than making one by its meta-type.
template<typename Type> QVariant ZelMetaPropertyAccessor::readAs(const QObject *object) const
{
    Type value{};
    int status = -1;
    void *arguments[] = {&value, nullptr, &status};
    call(object, QMetaObject::ReadProperty, arguments);
    return QVariant(*static_cast<const Type *>(arguments[0]));
}

ZelMetaPropertyAccessor::Reader ZelMetaPropertyAccessor::readerFor(int type)
{
    switch (type) {
    case QMetaType::QString:
        return &ZelMetaPropertyAccessor::readAs<QString>;
    case QMetaType::Double:
        return &ZelMetaPropertyAccessor::readAs<double>;
    case QMetaType::Int:
        return &ZelMetaPropertyAccessor::readAs<int>;
    case QMetaType::Bool:
        return &ZelMetaPropertyAccessor::readAs<bool>;
    case QMetaType::QPointF:
        return &ZelMetaPropertyAccessor::readAs<QPointF>;
    case QMetaType::QSizeF:
        return &ZelMetaPropertyAccessor::readAs<QSizeF>;
    case QMetaType::QRectF:
        return &ZelMetaPropertyAccessor::readAs<QRectF>;
    default:
        return nullptr;
    }
}

ZelMetaPropertyAccessor::ZelMetaPropertyAccessor(const QMetaProperty &property)
    : m_property(property)
    , m_type(property.metaType())
    , m_class(property.enclosingMetaObject())
    , m_localIndex(property.propertyIndex() - m_class->propertyOffset())
    , m_notifySignalIndex(property.notifySignalIndex())
    , m_optional(ZelOptionalType::find(m_type))
    , m_isWritable(property.isWritable())
    , m_isBindable(m_notifySignalIndex < 0 && property.isBindable())
    , m_isTyped(m_type.isValid() && !m_optional)
    , m_isDirect(m_isTyped && !property.isEnumType())
    , m_reader(m_isDirect ? readerFor(m_type.id()) : nullptr)
{
    if (m_optional)
        m_type = m_optional->value;
}

QVariant ZelMetaPropertyAccessor::read(const QObject *object) const
{
    if (m_reader)
        return (this->*m_reader)(object);
    if (m_optional)
        return m_optional->read(readGeneral(object, m_optional->optional).constData());
    return m_isDirect ? readGeneral(object, m_type) : m_property.read(object);
}

QVariant ZelMetaPropertyAccessor::readGeneral(const QObject *object, QMetaType type) const
{
    const bool isVariant = type.id() == QMetaType::QVariant;
    QVariant value = isVariant ? QVariant() : QVariant(type);
    void *data = isVariant ? &value : value.data();
    int status = -1;
    void *arguments[] = {data, &value, &status};
    call(object, QMetaObject::ReadProperty, arguments);
    return arguments[0] == data ? value : QVariant(type, arguments[0]);
}

bool ZelMetaPropertyAccessor::readTyped(const QObject *object, void *value) const
{
    if (!m_isTyped)
        return false;
    int status = -1;
    void *arguments[] = {value, nullptr, &status};
    call(object, QMetaObject::ReadProperty, arguments);
    if (arguments[0] != value) { // the getter answers a reference
        m_type.destruct(value);
        m_type.construct(value, arguments[0]);
    }
    return true;
}

bool ZelMetaPropertyAccessor::writeTyped(QObject *object, const void *value) const
{
    if (!m_isDirect || !m_isWritable)
        return false;
    int status = -1;
    int flags = 0;
    void *arguments[] = {const_cast<void *>(value), nullptr, &status, &flags};
    call(object, QMetaObject::WriteProperty, arguments);
    return true;
}

/// An absent value makes the property empty, which is a value of its own: it is not reset then.
bool ZelMetaPropertyAccessor::writeOptional(QObject *object, const QVariant &value) const
{
    QVariant stored = value;
    const bool isNone = ZelIsNull(value);
    if (!isNone && ZelValueConversion::convert(stored, m_type) != ZelValueConversion::Fits)
        return false;
    QVariant optional(m_optional->optional);
    m_optional->store(optional.data(), isNone ? nullptr : stored.constData());
    int status = -1;
    int flags = 0;
    void *arguments[] = {optional.data(), nullptr, &status, &flags};
    call(object, QMetaObject::WriteProperty, arguments);
    return true;
}

bool ZelMetaPropertyAccessor::write(QObject *object, const QVariant &value) const
{
    if (!m_isWritable)
        return false;
    if (m_optional)
        return writeOptional(object, value);
    if (m_type.id() == QMetaType::QVariant) {
        const QVariant stored = ZelIsNull(value) ? QVariant() : value;
        return writeTyped(object, &stored);
    }
    if (ZelIsControllerMarker(value) && m_type != value.metaType())
        return false;
    if (ZelIsNull(value)) {
        if (m_property.isResettable())
            return m_property.reset(object);
        const QVariant none(m_type);
        return m_isDirect ? writeTyped(object, none.constData()) : m_property.write(object, none);
    }
    if (value.metaType() == m_type && m_isDirect)
        return writeTyped(object, value.constData());
    QVariant converted = value;
    // A key of an enumeration that is not registered as a type cannot be converted, but the property knows it.
    if (ZelValueConversion::convert(converted, m_type) != ZelValueConversion::Fits)
        return m_property.isEnumType() && value.typeId() == QMetaType::QString && m_property.write(object, value);
    return m_isDirect ? writeTyped(object, converted.constData()) : m_property.write(object, converted);
}
