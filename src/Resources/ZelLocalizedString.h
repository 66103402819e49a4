// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"

#include <QString>
#include <functional>

/// The text that people see for an English text: the answer of the localization function, if one is set and answers,
/// else the translation in the application's bundle, else the key itself. An empty key stays empty, a null one null.
ZEL_EXPORT QString ZelLocalizedString(const QString &key);
/// The same for a text in UTF-8.
inline QString ZelLocalizedString(const char *key)
{
    return ZelLocalizedString(QString::fromUtf8(key));
}

/// Asked before the application's translations; answers a null text for what it does not know.
using ZelLocalizationFunction = std::function<QString(const QString &key)>;
/// Replaces the function and answers the former one. Set it before texts are shown, on the main thread.
ZEL_EXPORT ZelLocalizationFunction ZelSetLocalizationFunction(const ZelLocalizationFunction &function);
