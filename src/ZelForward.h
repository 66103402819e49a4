// SPDX-License-Identifier: MIT
#pragma once

class ZelAbstractValueTransformer;
class ZelArrayController;
class ZelAssertionHandler;
class ZelDelayedInvocation;
class ZelIndexSet;
class ZelKey;
class ZelKeyPath;
class ZelKeyValueChange;
class ZelKeyValueObserver;
class ZelLayoutConstraint;
class ZelNotificationCenter;
class ZelRunLoop;
class ZelSelector;
class ZelUndoManager;
class ZelView;
class ZelViewController;
class ZelWindow;
