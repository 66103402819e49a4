// SPDX-License-Identifier: MIT
#pragma once

#include "PreviewClass.h"

#include <QHash>
#include <QObject>
#include <QVariant>

/// An object of a PreviewClass, which must outlive it: a model as an application has it, for trying a panel.
class PreviewObject : public QObject
{
public:
    explicit PreviewObject(PreviewClass *ofClass, QObject *parent = nullptr);

    QVariant value(const QByteArray &name) const { return m_values.value(name); }
    /// Whether it was ever given a value, be it an invalid one.
    bool hasValue(const QByteArray &name) const { return m_values.contains(name); }
    void setValue(const QByteArray &name, const QVariant &value);

    // As moc would write them
    const QMetaObject *metaObject() const override { return m_class->metaObject(); }
    void *qt_metacast(const char *name) override;
    int qt_metacall(QMetaObject::Call call, int id, void **arguments) override;

private:
    void read(const PreviewClass::Property &property, void *to) const;

    PreviewClass *m_class;
    QHash<QByteArray, QVariant> m_values;
};
