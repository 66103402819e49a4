// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArrayList>
#include <QMetaObject>
#include <QMetaType>
#include <QStringList>
#include <functional>
#include <memory>
#include <vector>

/// A class of QObjects that is made while the program runs: with properties, of which one signal tells, and with slots.
///
/// It can grow while objects of it live. What it has keeps its index then, since the library and Qt remember indexes.
class PreviewClass
{
public:
    struct Property
    {
        QByteArray name;
        QMetaType type;
        bool isWritable = true;
    };
    using SlotCalled = std::function<void(const QByteArray &slot)>;

    /// An enumeration of the class: its name and keys, whose values count up from 0 or, of flags, are a bit each.
    struct Enumeration
    {
        QByteArray name;
        QStringList keys;
        bool isFlags = false;
    };

    explicit PreviewClass(const QByteArray &name);
    PreviewClass(const QByteArray &name, const Enumeration &enumeration);
    ~PreviewClass();
    Q_DISABLE_COPY_MOVE(PreviewClass)

    /// The names of the classes of which it derives, the nearest first, which have nothing. To be called before there
    /// are objects.
    void setBases(const QByteArrayList &names) { m_bases = names; }
    /// Does nothing if there is a property of that name.
    void addProperty(const Property &property);
    void addSlot(const QByteArray &name);
    void setSlotCalled(const SlotCalled &called) { m_slotCalled = called; }

    const QMetaObject *metaObject() const;
    const std::vector<Property> &properties() const { return m_properties; }
    const Property *propertyNamed(const QByteArray &name) const;
    const QByteArrayList &slotNames() const { return m_slots; }
    void callSlot(qsizetype index) const;

private:
    struct Made;
    std::unique_ptr<Made> make() const;
    static std::unique_ptr<Made> makeBase(const QByteArray &name, const QMetaObject *base);

    QByteArray m_name;
    QByteArrayList m_bases;
    Enumeration m_enumeration; // none without a name
    std::vector<Property> m_properties;
    QByteArrayList m_slots;
    SlotCalled m_slotCalled;
    mutable std::vector<std::unique_ptr<Made>> m_made; // the last one is in use, the others may be remembered
    mutable bool m_isOutdated = true;
};
