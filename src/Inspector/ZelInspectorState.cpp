// SPDX-License-Identifier: MIT
#include "Inspector/ZelInspectorState.h"

#include <QSettings>

namespace {
ZelInspectorState::SettingsMaker g_settingsMaker;
}

void ZelInspectorState::setSettings(const SettingsMaker &maker)
{
    g_settingsMaker = maker;
}

std::unique_ptr<QSettings> ZelInspectorState::settings()
{
    return g_settingsMaker ? g_settingsMaker() : std::make_unique<QSettings>();
}
