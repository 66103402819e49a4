// SPDX-License-Identifier: MIT
#include "PreviewEnumeration.h"

#include "PreviewClass.h"

#include <QHash>

namespace {

using Interface = QtPrivate::QMetaTypeInterface;

enum Model : int {}; // all others are stored as this one is

struct Enumeration
{
    PreviewClass scope; // has the keys
    QByteArray name;
    const Interface *type = nullptr;
};

QHash<QByteArray, Enumeration *> &byName()
{
    static auto *all = new QHash<QByteArray, Enumeration *>;
    return *all;
}

const QMetaObject *scopeOf(const Interface *type)
{
    const Enumeration *found = byName().value(type->name);
    return found ? found->scope.metaObject() : nullptr;
}

const Interface *interfaceFor(const char *name)
{
    const Interface &model = *QMetaType::fromType<Model>().iface();
    return new Interface{
        model.revision, model.alignment,   model.size,          model.flags,        0,          &scopeOf,
        name,           model.defaultCtr,  model.copyCtr,       model.moveCtr,      model.dtor, model.equals,
        model.lessThan, model.debugStream, model.dataStreamOut, model.dataStreamIn, nullptr};
}

} // namespace

QMetaType PreviewEnumeration::type(const QByteArray &className, const QByteArray &name, const QStringList &keys,
                                   bool isFlags)
{
    const QByteArray fullName = className + "::" + name;
    Enumeration *&known = byName()[fullName];
    if (!known) {
        known = new Enumeration{.scope = PreviewClass(className, {name, keys, isFlags}), .name = fullName};
        known->type = interfaceFor(known->name.constData());
    }
    const QMetaType type(known->type);
    (void)type.id(); // registers it
    return type;
}
