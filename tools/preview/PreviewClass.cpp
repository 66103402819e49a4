// SPDX-License-Identifier: MIT
#include "PreviewClass.h"

#include <QObject>
#include <algorithm>

namespace {

// The numbers of moc's output, revision 10, which all versions of Qt 6 read.
enum Flags : uint {
    Readable = 0x1,
    Writable = 0x2,
    Designable = 0x1000,
    Scriptable = 0x4000,
    Stored = 0x10000,
    Unresolved = 0x80000000,
    PublicSignal = 0x06,
    PublicSlot = 0x0a,
    EnumIsFlag = 0x1
};
constexpr uint g_revision = 10;
constexpr uint g_headerSize = 14;
constexpr uint g_methodSize = 6;
constexpr uint g_propertySize = 5;
constexpr uint g_enumerationSize = 5;

/// The strings of a meta-object: their offsets from the beginning of the table and their lengths, and then themselves.
class Strings
{
public:
    uint index(const QByteArray &text)
    {
        const qsizetype known = m_texts.indexOf(text);
        if (known >= 0)
            return uint(known);
        m_texts.append(text);
        return uint(m_texts.size() - 1);
    }
    std::vector<uint> table() const
    {
        const size_t head = size_t(m_texts.size()) * 2;
        QByteArray bytes;
        std::vector<uint> result;
        for (const QByteArray &text : m_texts) {
            result.push_back(uint(head * sizeof(uint) + size_t(bytes.size())));
            result.push_back(uint(text.size()));
            bytes += text + '\0';
        }
        result.resize(head + (size_t(bytes.size()) + sizeof(uint) - 1) / sizeof(uint));
        std::copy(bytes.begin(), bytes.end(), reinterpret_cast<char *>(result.data() + head));
        return result;
    }

private:
    QByteArrayList m_texts;
};

} // namespace

struct PreviewClass::Made
{
    std::vector<uint> strings;
    std::vector<uint> data;
    std::vector<const QtPrivate::QMetaTypeInterface *> types;
    std::vector<std::unique_ptr<Made>> bases;
    QMetaObject metaObject{};
};

PreviewClass::PreviewClass(const QByteArray &name)
    : m_name(name)
{
}

PreviewClass::PreviewClass(const QByteArray &name, const Enumeration &enumeration)
    : m_name(name)
    , m_enumeration(enumeration)
{
}

PreviewClass::~PreviewClass() = default;

void PreviewClass::addProperty(const Property &property)
{
    if (propertyNamed(property.name))
        return;
    m_properties.push_back(property);
    m_isOutdated = true;
}

void PreviewClass::addSlot(const QByteArray &name)
{
    if (m_slots.contains(name))
        return;
    m_slots.append(name);
    m_isOutdated = true;
}

const PreviewClass::Property *PreviewClass::propertyNamed(const QByteArray &name) const
{
    const auto found = std::ranges::find(m_properties, name, &Property::name);
    return found == m_properties.end() ? nullptr : &*found;
}

void PreviewClass::callSlot(qsizetype index) const
{
    if (m_slotCalled)
        m_slotCalled(m_slots.value(index));
}

const QMetaObject *PreviewClass::metaObject() const
{
    if (std::exchange(m_isOutdated, false))
        m_made.push_back(make());
    return &m_made.back()->metaObject;
}

std::unique_ptr<PreviewClass::Made> PreviewClass::make() const
{
    auto made = std::make_unique<Made>();
    Strings strings;
    const uint className = strings.index(m_name);
    const uint noTag = strings.index({});
    const auto methods = uint(m_slots.size()) + 1;
    const auto properties = uint(m_properties.size());
    const uint parameters = g_headerSize + methods * g_methodSize;
    const uint propertyData = parameters + methods;
    const uint enumerationData = propertyData + properties * g_propertySize;
    const uint enumerations = m_enumeration.name.isEmpty() ? 0 : 1;
    std::vector<uint> &data = made->data;
    data = {g_revision,      className, 0, 0, methods, g_headerSize, properties, propertyData, enumerations,
            enumerationData, 0,         0, 0, 1};
    for (uint i = 0; i < methods; ++i) {
        const QByteArray name = i == 0 ? QByteArray("changed") : m_slots.at(qsizetype(i) - 1);
        data.insert(data.end(), {strings.index(name), 0, parameters + i, noTag, i == 0 ? PublicSignal : PublicSlot,
                                 properties + 1 + i});
    }
    data.insert(data.end(), methods, uint(QMetaType::Void));
    for (const Property &property : m_properties) {
        const bool isBuiltIn = property.type.id() < QMetaType::User;
        const uint type = isBuiltIn ? uint(property.type.id()) : Unresolved | strings.index(property.type.name());
        const uint flags = Readable | Designable | Scriptable | Stored | (property.isWritable ? Writable : 0U);
        data.insert(data.end(), {strings.index(property.name), type, flags, 0, 0});
        made->types.push_back(property.type.iface());
    }
    if (enumerations > 0) {
        const uint name = strings.index(m_enumeration.name);
        const bool isFlags = m_enumeration.isFlags;
        data.insert(data.end(), {name, name, isFlags ? EnumIsFlag : 0U, uint(m_enumeration.keys.size()),
                                 enumerationData + g_enumerationSize});
        for (uint key = 0; key < uint(m_enumeration.keys.size()); ++key)
            data.insert(data.end(),
                        {strings.index(m_enumeration.keys.at(key).toUtf8()), isFlags ? 1U << key % 32 : key});
    }
    data.push_back(0);
    made->types.push_back(nullptr); // of the class itself
    made->types.insert(made->types.end(), methods, QMetaType(QMetaType::Void).iface());
    made->strings = strings.table();
    const QMetaObject *base = &QObject::staticMetaObject;
    for (auto name = m_bases.crbegin(); name != m_bases.crend(); ++name) {
        made->bases.push_back(makeBase(*name, base));
        base = &made->bases.back()->metaObject;
    }
    made->metaObject.d.superdata = base;
    made->metaObject.d.stringdata = made->strings.data();
    made->metaObject.d.data = data.data();
    made->metaObject.d.metaTypes = made->types.data();
    return made;
}

std::unique_ptr<PreviewClass::Made> PreviewClass::makeBase(const QByteArray &name, const QMetaObject *base)
{
    auto made = std::make_unique<Made>();
    Strings strings;
    made->data.assign(g_headerSize + 1, 0);
    made->data[0] = g_revision;
    made->data[1] = strings.index(name);
    made->strings = strings.table();
    made->types = {nullptr}; // of the class itself
    made->metaObject.d.superdata = base;
    made->metaObject.d.stringdata = made->strings.data();
    made->metaObject.d.data = made->data.data();
    made->metaObject.d.metaTypes = made->types.data();
    return made;
}
