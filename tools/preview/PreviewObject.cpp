// SPDX-License-Identifier: MIT
#include "PreviewObject.h"

PreviewObject::PreviewObject(PreviewClass *ofClass, QObject *parent)
    : QObject(parent)
    , m_class(ofClass)
{
}

void PreviewObject::setValue(const QByteArray &name, const QVariant &value)
{
    QVariant &stored = m_values[name];
    if (stored.metaType() == value.metaType() && stored == value)
        return;
    stored = value;
    QMetaObject::activate(this, metaObject(), 0, nullptr);
}

void *PreviewObject::qt_metacast(const char *name)
{
    return name && qstrcmp(name, metaObject()->className()) == 0 ? this : QObject::qt_metacast(name);
}

void PreviewObject::read(const PreviewClass::Property &property, void *to) const
{
    QVariant value = m_values.value(property.name);
    if (property.type == QMetaType::fromType<QVariant>()) {
        *static_cast<QVariant *>(to) = value;
        return;
    }
    if (!value.convert(property.type))
        value = QVariant(property.type);
    property.type.destruct(to);
    property.type.construct(to, value.constData());
}

int PreviewObject::qt_metacall(QMetaObject::Call call, int id, void **arguments)
{
    id = QObject::qt_metacall(call, id, arguments);
    if (id < 0)
        return id;
    const int methods = int(m_class->slotNames().size()) + 1;
    const int properties = int(m_class->properties().size());
    switch (call) {
    case QMetaObject::InvokeMetaMethod:
        if (id == 0)
            QMetaObject::activate(this, metaObject(), 0, nullptr);
        else if (id < methods)
            m_class->callSlot(id - 1);
        return id - methods;
    case QMetaObject::RegisterMethodArgumentMetaType:
        *static_cast<QMetaType *>(arguments[0]) = QMetaType();
        return id - methods;
    case QMetaObject::ReadProperty:
        if (id < properties)
            read(m_class->properties()[size_t(id)], arguments[0]);
        return id - properties;
    case QMetaObject::WriteProperty:
        if (id < properties) {
            const PreviewClass::Property property = m_class->properties()[size_t(id)]; // a slot may make the class grow
            const bool isAny = property.type == QMetaType::fromType<QVariant>();
            setValue(property.name,
                     isAny ? *static_cast<QVariant *>(arguments[0]) : QVariant(property.type, arguments[0]));
        }
        return id - properties;
    case QMetaObject::ResetProperty:
    case QMetaObject::BindableProperty:
    case QMetaObject::RegisterPropertyMetaType:
        return id - properties;
    default:
        return id;
    }
}
