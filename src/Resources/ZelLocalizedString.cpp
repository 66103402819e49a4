// SPDX-License-Identifier: MIT
#include "Resources/ZelLocalizedString.h"

#include "Resources/ZelBundle.h"

#include <utility>

namespace {

ZelLocalizationFunction g_function;

} // namespace

QString ZelLocalizedString(const QString &key)
{
    if (key.isEmpty())
        return key;
    const QString answer = g_function ? g_function(key) : QString();
    return answer.isNull() ? ZelBundle::mainBundle().localizedStringForKey(key) : answer;
}

ZelLocalizationFunction ZelSetLocalizationFunction(const ZelLocalizationFunction &function)
{
    return std::exchange(g_function, function);
}
