// SPDX-License-Identifier: MIT
#include "Core/Binding/ZelBinding.h"

#include "Core/Binding/private/ZelBoundProperty.h"
#include "Core/KeyValue/ZelAssociatedObjects.h"

#include <QScopeGuard>
#include <algorithm>
#include <memory>
#include <vector>

namespace {

const char g_bindingsKey = 0;

using Bindings = std::vector<std::unique_ptr<ZelBoundProperty>>;

Bindings *bindingsOf(const QObject *object)
{
    return static_cast<Bindings *>(
        ZelAssociatedObjects(const_cast<QObject *>(object)).associatedValueForKey(&g_bindingsKey).get());
}

Bindings::iterator find(Bindings &bindings, ZelKey name)
{
    return std::find_if(bindings.begin(), bindings.end(), [&](const auto &bound) { return bound->name() == name; });
}

} // namespace

void ZelBind(QObject *object, const QString &binding, QObject *toObject, const ZelKeyPath &keyPath,
             const ZelBindingOptions &options)
{
    if (!object || !toObject || binding.isEmpty() || keyPath.isEmpty())
        return;
    ZelUnbind(object, binding);
    Bindings *bindings = bindingsOf(object);
    if (!bindings) {
        const auto made = std::make_shared<Bindings>();
        ZelAssociatedObjects(object).setAssociateValue(made, &g_bindingsKey);
        bindings = made.get();
    }
    auto bound =
        std::make_unique<ZelBoundProperty>(object, ZelKey(binding), ZelBindingInfo{toObject, keyPath, options});
    ZelBoundProperty &started = *bound;
    bindings->push_back(std::move(bound));
    auto discard = qScopeGuard([&] { ZelUnbind(object, binding); });
    started.start();
    discard.dismiss();
}

void ZelUnbind(QObject *object, const QString &binding)
{
    Bindings *bindings = object ? bindingsOf(object) : nullptr;
    if (!bindings)
        return;
    const auto bound = find(*bindings, ZelKey(binding));
    if (bound == bindings->end())
        return;
    const std::unique_ptr<ZelBoundProperty> ended = std::move(*bound); // dies last, since its destructor calls others
    bindings->erase(bound);
    if (bindings->empty())
        ZelAssociatedObjects(object).setAssociateValue(nullptr, &g_bindingsKey);
}

std::optional<ZelBindingInfo> ZelInfoForBinding(const QObject *object, const QString &binding)
{
    Bindings *bindings = object ? bindingsOf(object) : nullptr;
    if (!bindings)
        return std::nullopt;
    const auto bound = find(*bindings, ZelKey(binding));
    return bound == bindings->end() ? std::nullopt : std::optional((*bound)->info());
}
