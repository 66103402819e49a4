// SPDX-License-Identifier: MIT
#include "Core/KeyValue/private/ZelSilentKeys.h"

#include "Core/Errors/private/ZelFirstException.h"
#include "Core/KeyValue/private/ZelObservedKey.h"

#include <QSet>
#include <memory>
#include <vector>

namespace {

QSet<ZelObservedKey *> &keys()
{
    static auto *set = new QSet<ZelObservedKey *>;
    return *set;
}

} // namespace

void ZelSilentKeys::add(ZelObservedKey *key)
{
    keys().insert(key);
}

void ZelSilentKeys::remove(ZelObservedKey *key)
{
    keys().remove(key);
}

void ZelSilentKeys::reread()
{
    std::vector<std::unique_ptr<ZelObservedKey::Hold>> holds;
    const QList<ZelObservedKey *> snapshot = keys().values();
    holds.reserve(snapshot.size());
    for (ZelObservedKey *key : snapshot)
        holds.push_back(std::make_unique<ZelObservedKey::Hold>(key));
    ZelFirstException failure;
    for (ZelObservedKey *key : snapshot)
        failure.run([key] { key->reread(); });
    holds.clear();
    failure.rethrow();
}
