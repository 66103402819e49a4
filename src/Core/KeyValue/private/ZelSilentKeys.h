// SPDX-License-Identifier: MIT
#pragma once

class ZelObservedKey;

/// The observed keys whose changes nothing announces. They are read again after every edit.
class ZelSilentKeys
{
public:
    static void add(ZelObservedKey *key);
    static void remove(ZelObservedKey *key);
    static void reread();
};
