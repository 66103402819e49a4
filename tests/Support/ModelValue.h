// SPDX-License-Identifier: MIT
#pragma once

/// A public value of a model that tells of its changes by one signal for all, `changed`: type, name and first value.
#define MODEL_VALUE(type, name, ...)                                                                                   \
    Q_PROPERTY(type name MEMBER name NOTIFY changed)                                                                   \
    type name{__VA_ARGS__};
