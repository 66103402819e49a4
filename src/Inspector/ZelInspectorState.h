// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"

#include <functional>
#include <memory>

class QSettings;

/// Where the panels that have a `stateKey` keep their states: folds, selected tabs, positions of scrolling and the
/// like.
///
/// The states lie in the group "ZelInspectorState" of the application's settings, each under its key.
///
/// What is remembered of a controller are the properties that its class names in Q_CLASSINFO("ZelState", "first
/// second"). They have a NOTIFY signal, are of the type bool, int or QString, and their setters take any value. A class
/// of the application's, such as an editor, may name properties of its own.
class ZEL_EXPORT ZelInspectorState
{
public:
    using SettingsMaker = std::function<std::unique_ptr<QSettings>()>;
    /// The function is called whenever a state is read or written. One that answers null keeps nothing; a null function
    /// stands for the application's own settings, QSettings().
    static void setSettings(const SettingsMaker &maker);
    /// Null if nothing is to be kept.
    static std::unique_ptr<QSettings> settings();
};
